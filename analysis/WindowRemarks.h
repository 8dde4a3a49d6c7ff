// What the windows of a drawing, seen together, look like that nobody means.
// Why: docs/decisions/analysis.md
#pragma once

#include <vector>

#include "analysis/AnalysisRemark.h"
#include "analysis/DrawnWindow.h"

// Of windows that are named, without their storeys: TinyWindows when not one of them is as long as 100 mm on any side;
// SameNames when names that tell a flat stand for several.
std::vector<AnalysisRemark> RemarksOnWindows(const std::vector<DrawnWindow>& windows);
