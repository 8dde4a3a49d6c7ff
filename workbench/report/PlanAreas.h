// The areas of a plan: their points as small coloured cells, lines of equal hours, outlines, shares.
#pragma once

#include <string>
#include <vector>

#include "workbench/report/PaperLabels.h"
#include "workbench/report/PlanContent.h"

struct PlanSheet;

// One area, to be drawn above all that is lower.
struct PlanArea {
    double height = 0.0;  // metres
    PaperBox box;
    PaperLoop outline;
    std::string markup;
};

// Whether a plane with this normal is a line from above.
bool IsUpright(const QcGePoint& outward);

// From low to high. Cells too small for the eye are put together, each with the colour of one point in it; of an
// upright area there is nothing but its outline, which is a line from above.
std::vector<PlanArea> FindAreas(const PlanPicture& picture, const PlanSheet& sheet);

// What stands over everything: the hours of the lines and the shares of the areas, where there is room.
std::string DrawAreaTexts(const PlanPicture& picture, const PlanSheet& sheet, PaperLabels& labels);
