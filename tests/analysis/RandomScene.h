// Scenes that nobody thought of: houses at any angle with windows on them, fins, slabs, poles and whatever stands
// around.
#pragma once

#include <cstdint>
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
