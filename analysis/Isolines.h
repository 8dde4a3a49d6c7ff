// Lines of equal hours on an area: where so many hours of sun end.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/IsolineSearch.h"
#include "platform/geometry/QcGePoint.h"

// On one side of it the standard counts at least so many hours, on the other less.
struct Isoline {
    int hours = 0;                  // whole ones, above 0
    std::uint32_t outline = 0;      // of PointAnswer::outlines
    bool isClosed = false;          // the last point joins the first; else both ends lie on the outline's edge
    std::vector<QcGePoint> points;  // metres, the drawing's axes; in the outline's plane. Two at least, closed three
};

// A line in the plane of its area, millimetres. More hours are on its left, seen from the end of `outward`.
struct FlatIsoline {
    int hours = 0;                  // whole ones, above 0
    bool isClosed = false;          // as of Isoline
    std::vector<FlatPoint> points;  // two at least, closed three
};

// Every point of a line is within a tenth of the spacing of a change, and so is every place between two lattice nodes,
// a sixteenth of the spacing apart, of which a line passes one side and not the other. A region of more hours, or of
// fewer, may be missed only when it meets neither the area's edge nor any place at half the spacing, or where it is
// narrower than a sixteenth. Lines of one area, by hours, then from below. `cellsLeft` is what may still be looked
// into, and becomes less; with TooMany there are no lines.
IsolineOutcome FindIsolines(const IsolineSearch& search, std::size_t& cellsLeft, std::vector<FlatIsoline>& lines);
