// Raises windows over the lines of plans.
#include "analysis/PlanWindows.h"

#include <algorithm>
#include <cmath>

#include "analysis/Tolerances.h"
#include "analysis/WindowRectangle.h"

SegmentReading WindowOfSegment(const PlacedSegment& segment, const PlanRules& rules) {
    const auto& [from, to, thickness, hasElevation] = segment;
    // An upright line with a level thickness makes a rectangle, too, and no line of a plan.
    const bool isPlan =
        std::fabs(to.z - from.z) <= kWindowTolerance && std::hypot(thickness.x, thickness.y) <= kWindowTolerance;
    if (!isPlan)
        return {};
    Vector3 up{0.0, 0.0, thickness.z};
    if (Length(thickness) == 0.0) {
        if (!rules.windowHeight)
            return {{}, true};
        up.z = *rules.windowHeight * kMillimetresPerMetre;
    }
    SegmentReading reading;
    reading.window = RectangleOf({from, to, to + up, from + up});
    if (!reading.window)
        return {};
    reading.window->isLine = true;
    if (!hasElevation && rules.sill)
        reading.window->lowerLeft.z = std::min(from.z, to.z) + *rules.sill * kMillimetresPerMetre;
    return reading;
}
