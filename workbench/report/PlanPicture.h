// The plan of a report: what an analysis found out, seen from above.
// Why: docs/decisions/workbench.md
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "facts/Standard.h"
#include "platform/base/CString.h"
#include "platform/geometry/QcGePoint.h"

struct OccluderSet;
struct PointAnswer;

struct PlanWindow {
    std::array<QcGePoint, 4> corners;  // as WindowResult has them: metres, the drawing's axes
    CString name;
    std::string link;            // where a click leads, such as "#w12"; empty for nowhere
    double minutes = 0.0;        // that are judged
    bool isTold = true;          // whether its sun could be told at all
    std::optional<bool> passes;  // none without a need
};

struct PlanPicture {
    const OccluderSet& faces;            // what stands: StandingFaces.h
    double north = 0.0;                  // degrees: true north lies that far counter-clockwise of the drawing's y axis
    std::vector<TimeColor> colors = {};  // the standard's
    std::string id = {};                 // begins the names of the picture's own elements: unique in its page
    CString title = {};                  // for who cannot see it; empty for the usual one
    double width = 180.0;                // on paper, millimetres
    double height = 230.0;               // at most, with scale and legend
    bool withProject = true;             // else what is of a project is not there

    std::vector<PlanWindow> windows = {};
    const PointAnswer* points = nullptr;  // with outlines, shares and isolines
    double spacing = 1.0;                 // of the points, metres
};

// One <svg> element, true to scale when printed, in the interface's language, that can stand in a page of HTML and as a
// file of its own. The scale is the largest usual one at which all that is judged fits, with what stands around it.
//
// Roofs are drawn from low to high and greyer the higher they are, with the height of their top as a number where there
// is room; what is too small to be seen is left out. Of windows that lie above each other the one with the fewest
// minutes is seen. A window that fails has a mark and, where there is room, its name; every window that has room has
// its hours besides its colour.
std::string DrawPlan(const PlanPicture& picture);
