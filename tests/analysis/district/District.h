// The district that make_district.py made: its drawing for the analysis, and what was meant for those who judge it.
#pragma once

#include <string_view>
#include <vector>

#include "analysis/JudgedScene.h"
#include "analysis/WindowAnalysis.h"

struct DistrictWindow {
    std::uint64_t handle = 0;
    SlowTarget drawn;
};

struct District {
    std::vector<SlowFace> triangles;
    std::vector<DistrictWindow> windows;
};

// Of the variation with this name; a failure where it cannot be read.
District ReadDistrict(std::string_view name);
// The answer's windows stand in the order of the drawing, which is that of District::windows.
AnalysisAnswer AnalyseDistrict(std::string_view name, const AnalysisRequest& request);
