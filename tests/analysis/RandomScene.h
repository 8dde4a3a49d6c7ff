// Scenes that nobody thought of: houses at any angle with windows on them, fins, slabs, poles and whatever stands
// around.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "JudgedScene.h"
#include "analysis/WindowAnalysis.h"

struct RandomScene {
    JudgedScene scene;
    std::vector<std::uint64_t> windows;
    AnalysisRequest request;
    Placement placement;
    std::string about;  // for whom looks at a failure
};

RandomScene MakeRandomScene(unsigned seed);

// Makes some of what stands around the windows a project, and asks for it. Gives the handles.
std::set<std::uint64_t> ProposeSome(RandomScene& made, unsigned seed);
