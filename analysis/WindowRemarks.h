// What the windows of a drawing, seen together, look like that nobody means.
// Why: docs/decisions/analysis.md
#pragma once

#include <vector>

#include "analysis/AnalysisRemark.h"
#include "analysis/DrawnWindow.h"

// Of windows that are named, without their storeys: TinyWindows when not one of them is as long as 100 mm on any side;
// LinesInRows when several are drawn as lines one beside the other, as a plan's symbol of one window is; SameNames when
// names that tell a flat stand for several.
std::vector<AnalysisRemark> RemarksOnWindows(const std::vector<DrawnWindow>& windows);
