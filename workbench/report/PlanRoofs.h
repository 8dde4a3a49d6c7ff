// The roofs of a plan: what is seen of buildings from above.
#pragma once

#include <vector>

#include "workbench/report/PaperOutline.h"

struct OccluderSet;
struct PlanSheet;

// Faces of one building that meet in nearly one plane.
struct PlanRoof {
    std::vector<PaperLoop> loops;  // to be filled by the rule "nonzero"
    PaperBox box;
    double low = 0.0;  // metres
    double high = 0.0;
    double foot = 0.0;  // of its building
    int building = 0;   // a closed body, or loose faces that share corners
    bool isProposed = false;
};

// From low to high, by the middle of their heights, as far as they are seen on the sheet. What a tenth of a millimetre
// covers is left out, and so are undersides of bodies.
std::vector<PlanRoof> FindRoofs(const OccluderSet& set, const PlanSheet& sheet, bool withProject);
