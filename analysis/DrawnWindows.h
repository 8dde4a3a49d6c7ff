// The windows of a drawing: where they are, what they are called, and which way they look.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/Vector3.h"
#include "analysis/WindowAnalysis.h"
#include "platform/base/CString.h"

class AcDbDatabase;
class OccluderSet;

// A vertical rectangle. Lengths are millimetres in the drawing's axes, whatever its unit.
struct DrawnWindow {
    std::uint64_t handle = 0;
    CString name;
    Vector3 lowerLeft;  // seen from the side that `outward` points to
    Vector3 right;      // unit, level: from the left to the right end; outward = right x up
    double width = 0.0;
    double height = 0.0;
    bool hasSide = false;   // whether `outward` is known to point outside, else it is either side's
    bool isInside = false;  // its middle lies in a closed body
    std::optional<int> floor;

    Vector3 Outward() const { return {right.y, -right.x, 0.0}; }
};

struct WindowsOfDrawing {
    std::vector<DrawnWindow> windows;  // in the drawing's order, names, sides and floors not yet told
    std::vector<AnalysisRemark> remarks;
};

// 3DFACEs and closed polylines that are vertical rectangles (to within a millimetre), on layers of these names
// (compared as layer names are) that are seen, with the names that texts in them give. `millimetres` is one unit of the
// drawing.
WindowsOfDrawing FindWindows(const AcDbDatabase& drawing, const std::vector<CString>& layers, double millimetres);

// Tells for each window which side is outside, where that can be told: by the faces around it, else by the facing that
// was asked for (degrees from the drawing's x axis, counter-clockwise). `thickness` (g_nWinThickness) and `precision`
// (g_nSunDistPrec) are millimetres.
void TellSides(std::vector<DrawnWindow>& windows, const OccluderSet& occluders, std::optional<double> facing,
               double thickness, double precision);

// Numbers the floors of each building by equal sills.
void TellFloors(std::vector<DrawnWindow>& windows);
