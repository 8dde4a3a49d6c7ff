// The areas of a drawing: closed outlines on layers that are asked for.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/AreaRemark.h"
#include "analysis/FlatArea.h"
#include "platform/base/CString.h"

class AcDbDatabase;

struct DrawnArea {
    std::uint64_t handle = 0;  // of the outermost INSERT where it is in a block
    FlatArea shape;
    double arcShare = 1.0;  // what its arcs enclose by what the shape's chords enclose
};

struct AreasOfDrawing {
    std::vector<DrawnArea> areas;  // in the drawing's order
    std::vector<AreaRemark> remarks;
};

// An INSERT that would bring more than the most areas has none.
inline constexpr std::size_t kMostAreas = 1'000'000;

// On layers of these names (as WindowLayers takes them) that are seen: 3DFACEs, closed polylines, circles, SOLIDs and
// TRACEs that are flat, each in its own plane; with a level (millimetres) what they are in plan, at that height. Arcs
// are chords at most 5 mm off, or 64 to an arc. All of that in blocks, too, wherever an INSERT puts them: what lies on
// layer 0 there lies on the INSERT's layer. `millimetres` is one unit of the drawing.
AreasOfDrawing FindAreas(const AcDbDatabase& drawing, const std::vector<CString>& layers, double millimetres,
                         std::optional<double> level, std::size_t mostAreas = kMostAreas);
