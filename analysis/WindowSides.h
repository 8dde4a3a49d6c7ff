// Which way windows look.
// Why: docs/decisions/analysis.md
#pragma once

#include <optional>
#include <vector>

#include "analysis/DrawnWindow.h"

struct OccluderSet;

// Tells for each window which side is outside, where that can be told, whether it lies in a body, and what it has to do
// with the project. Millimetres.
struct SideRules {
    double thickness = 200.0;  // g_nWinThickness
    double precision = 0.05;   // g_nSunDistPrec
    double offset = 5.0;       // g_nSunWinOffset: whether a window is inside a body is asked so far before it
    std::optional<double>
        facing;  // asked for where nothing tells: degrees from the drawing's x axis, counter-clockwise
};
// The first of these that knows decides:
//
// * On a face of a closed body (within a millimetre, or the precision): the body's outside. Where another body begins
//   there, or two such faces differ, the corners are asked, drawn a little inwards; when none of them is free, or two
//   differ, only the facing that was asked for decides.
// * At most `thickness` before a face: away from the nearest one; of a closed body only its outside counts. Where one
//   is as near on the other side, the next rule decides among loose faces, else only the facing.
// * The side with fewer loose faces, by their middles: among those joined by corners to the ones that the window lies
//   on, else among all. Not for a window in a body.
// * The facing that was asked for: the side nearer to it, if one is.
//
// A face counts when it is parallel to the window within 10 degrees and lies across from the window's middle; where
// none does, across from one of the window's corners, drawn a little inwards. In the same way a window is one of the
// project when it lies on a face of it, or at most `thickness` before one: of a closed body only on its outside, so
// that a window that the project is built against is none. A window without a side may be on either one.
void TellSides(std::vector<DrawnWindow>& windows, const OccluderSet& occluders, const SideRules& rules);
