// The vertical rectangle that an outline is, or is not.
// Why: docs/decisions/analysis.md
#pragma once

#include <optional>
#include <vector>

#include "analysis/DrawnWindow.h"

// How far an outline may be from the rectangle, and the least width and height of one: millimetres.
inline constexpr double kWindowTolerance = 1.0;
// Whatever is wider or higher is no window.
inline constexpr double kWidestWindow = 1e6;

// The rectangle through corners, in order, whose last joins the first: upright, with a level lower edge, each corner
// within the tolerance of it. Corners along its sides are passed over. Either side may be the one that Outward points
// to. None for what is no such rectangle. Millimetres.
std::optional<DrawnWindow> RectangleOf(const std::vector<Vector3>& corners);
