// A window as it is drawn.
#pragma once

#include <cstdint>
#include <optional>

#include "analysis/Vector3.h"
#include "platform/base/CString.h"

// A vertical rectangle. Lengths are millimetres in the drawing's axes, whatever its unit.
struct DrawnWindow {
    std::uint64_t handle = 0;
    std::uint32_t layer = 0;  // which of the layers of windows it is on
    CString name;
    CString building;  // of the name as it is drawn, as WindowName tells them; a flat with its storey before it
    CString flat;
    Vector3 lowerLeft;  // seen from the side that `outward` points to
    Vector3 right;      // unit, level: from the left to the right end; outward = right x up
    double width = 0.0;
    double height = 0.0;
    bool isLine = false;    // drawn as a line of a plan
    bool hasSide = false;   // whether `outward` is known to point outside, else it is either side's
    bool isInside = false;  // its middle lies in a closed body
    // Of a project that is asked for: it lies on a face of it, or shortly before one; and whether its middle lies in a
    // closed body that is there without it.
    bool isProposed = false;
    bool isInsideBefore = false;
    std::optional<int> floor;

    Vector3 Outward() const { return {right.y, -right.x, 0.0}; }
    Vector3 Middle() const { return lowerLeft + right * (width / 2.0) + Vector3{0.0, 0.0, height / 2.0}; }
};
