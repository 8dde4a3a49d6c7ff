// Facades as plans: upright outlines with their points and lines, turned so that somebody before them sees them.
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/PointAnalysis.h"

// Which outlines with points are upright, so that a plan shows them as lines.
std::vector<std::size_t> UprightOutlines(const PointAnswer& answer);

// One upright outline alone, in the plane of x and y: x goes to the right as seen from outside, y is the height.
// Metres.
PointAnswer LaidFlat(const PointAnswer& answer, std::size_t outline);
