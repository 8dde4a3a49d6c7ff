// On which floors windows are.
// Why: docs/decisions/analysis.md
#pragma once

#include <vector>

#include "analysis/DrawnWindow.h"

// Numbers the floors of each building (all windows without one together) by equal sills: those
// within 10 mm above the lowest of a floor are on it.
void TellFloors(std::vector<DrawnWindow>& windows);
