// Windows over the lines of plans.
// Why: docs/decisions/analysis.md
#pragma once

#include <optional>

#include "analysis/DrawnWindow.h"
#include "analysis/PlanRules.h"

// A line of a plan where it is shown: millimetres of the world.
struct PlacedSegment {
    Vector3 from;
    Vector3 to;
    Vector3 thickness;          // from the line to its other edge; without a length for none
    bool hasElevation = false;  // whether it was drawn at another level than 0
};

struct SegmentReading {
    std::optional<DrawnWindow> window;  // without its handle, layer and name
    bool lacksHeight = false;           // it is none only because neither the plan nor the rules tell its height
};

// The window over a line: none where the line is not level or its thickness not vertical (to within a millimetre), or
// where it is wider or smaller than a window can be. A thickness that goes down lowers the sill; where the rules tell
// the height, it goes up. Where they tell the sill of a line without an elevation, the lower edge lies that much above
// the line.
SegmentReading WindowOfSegment(const PlacedSegment& segment, const PlanRules& rules);
