// The numbers on the roofs of a plan.
#pragma once

#include <string>
#include <vector>

#include "workbench/report/PaperLabels.h"
#include "workbench/report/PlanRoofs.h"

// The height of each building's top in metres, on the top, where it is seen and has room; none where the top lies
// hardly higher than the ground.
std::string DrawHeights(const std::vector<PlanRoof>& roofs, PaperLabels& labels);

inline constexpr double kGroundHeight = 0.5;  // metres: what is no higher than this is ground
// Where what has the lowest roof stands, be it the ground itself or, where none is drawn, a house on it. Metres.
double GroundOf(const std::vector<PlanRoof>& roofs);
