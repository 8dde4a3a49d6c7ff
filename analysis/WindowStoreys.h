// Plans that stand for several storeys.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/DrawnWindow.h"
#include "analysis/PlanRules.h"

// How many windows there are once those that are drawn as lines are repeated.
std::size_t CountWithStoreys(const std::vector<DrawnWindow>& windows, const Storeys& storeys);

// Repeats the windows that are drawn as lines: the first storey's stay where they are, those of the further ones follow
// at the end, storey by storey from below. The names and the flats of all of them then begin with the storey: windows
// must have their names. Without any such window nothing changes.
void RepeatStoreys(std::vector<DrawnWindow>& windows, const Storeys& storeys);
