// The plan of a report: what an analysis found out, seen from above.
// Why: docs/decisions/workbench.md
#pragma once

#include <string>

#include "workbench/report/PlanContent.h"

// One <svg> element, true to scale when printed, in the interface's language, that can stand in a page of HTML and as a
// file of its own. The scale is the largest usual one at which all that is judged fits, with what stands around it.
//
// Roofs are drawn from low to high and greyer the higher they are, with the height of their top as a number where there
// is room; what is too small to be seen is left out. Of windows that lie above each other the one with the fewest
// minutes is seen. A window that fails has a mark and, where there is room, its name; every window that has room has
// its hours besides its colour.
std::string DrawPlan(const PlanPicture& picture);
