// The windows of a drawing: where they are, and what they are called.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/AnalysisRemark.h"
#include "analysis/DrawnWindow.h"
#include "analysis/PlanRules.h"
#include "platform/base/CString.h"

class AcDbDatabase;

struct WindowsOfDrawing {
    std::vector<DrawnWindow> windows;  // in the drawing's order, then those of further storeys; sides and floors not
                                       // yet told
    std::vector<AnalysisRemark> remarks;
    bool areTooMany = false;  // more than the most: there is nothing else
};

// Beyond this the answer alone takes more memory than most computers have.
inline constexpr std::size_t kMostWindows = 5'000'000;

// On layers of these names (as WindowLayers takes them) that are seen: 3DFACEs and closed polylines that are vertical
// rectangles (to within a millimetre), and what stands over the lines of plans (as ReadPlanSegments and
// WindowOfSegment tell them, by the rules for plans). With the names that texts on their layers give (NameWindows),
// and repeated where the rules ask for storeys. `millimetres` is one unit of the drawing.
//
// All of that in blocks, too, wherever an INSERT puts them: what lies on layer 0 there lies on the INSERT's layer. Of
// the texts the ATTRIBs of an INSERT go before those of its block. The handle is the outermost INSERT's.
//
// Remarks: LayerMissing for names that were asked for; LayerInvisible with how many entities that might have been
// windows were passed over; NotAWindow for each line and each entity with an area on a layer of windows that is none,
// or not wholly, once for an INSERT with such entities in it and for one on a layer of windows that gives none;
// TooManyInBlock for each INSERT that would bring windows and texts beyond `mostWindows`; LinesWithoutHeight;
// TinyWindows, LinesInRows and SameNames (RemarksOnWindows); NothingRepeated; NoWindows when there are none.
WindowsOfDrawing FindWindows(const AcDbDatabase& drawing, const std::vector<CString>& layers, double millimetres,
                             double thickness, const PlanRules& plan = {}, std::size_t mostWindows = kMostWindows);
