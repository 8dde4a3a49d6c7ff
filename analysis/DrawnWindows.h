// The windows of a drawing: where they are, and what they are called.
// Why: docs/decisions/analysis.md
#pragma once

#include <vector>

#include "analysis/AnalysisRemark.h"
#include "analysis/DrawnWindow.h"
#include "platform/base/CString.h"

class AcDbDatabase;

struct WindowsOfDrawing {
    std::vector<DrawnWindow> windows;  // in the drawing's order; sides and floors not yet told
    std::vector<AnalysisRemark> remarks;
};

// 3DFACEs and closed polylines that are vertical rectangles (to within a millimetre), on layers of these names (as
// WindowLayers takes them) that are seen, with the names that texts on their layers give: a text lies in the window
// that it is nearest to of those whose rectangle it stands before or behind, at most `thickness` millimetres away.
// `millimetres` is one unit of the drawing.
//
// Remarks: LayerMissing for names that were asked for; LayerInvisible with how many entities that might have been
// windows were passed over; NotAWindow for each entity with an area on a layer of windows that is no such rectangle;
// NoWindows when there are none.
WindowsOfDrawing FindWindows(const AcDbDatabase& drawing, const std::vector<CString>& layers, double millimetres,
                             double thickness);
