// The windows of a plan: strokes on the outside of their walls, marks and names.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/report/PaperLabels.h"
#include "workbench/report/PlanContent.h"

struct PlanSheet;

// A window that is seen on the plan.
struct PlanStroke {
    std::size_t window = 0;  // of PlanPicture::windows
    PaperPoint left;
    PaperPoint right;
    double outX = 0.0;  // to the outside, on paper, of length 1; 0 where that is not known
    double outY = 0.0;
    bool hasRoom = false;  // for a text beside it
};

// Those with the most minutes first, so that those with few lie above them. Of windows that are one line from above
// only the one with the fewest is left, in `covered` the number of the others.
struct PlanStrokes {
    std::vector<PlanStroke> strokes;
    int width = 0;
    std::size_t covered = 0;
};
PlanStrokes FindStrokes(const PlanPicture& picture, const PlanSheet& sheet);

// The strokes, and the marks of windows that fail; they take their room from labels.
std::string DrawStrokes(const PlanPicture& picture, const PlanStrokes& strokes, PaperLabels& labels);
// The names of the windows that fail: beside them, or where there is room, with a line to the window.
struct PlanNames {
    std::string markup;
    std::size_t leftOut = 0;  // for which there is no room anywhere
};
PlanNames DrawNames(const PlanPicture& picture, const PlanStrokes& strokes, PaperLabels& labels);
// The hours of the others.
std::string DrawHours(const PlanPicture& picture, const PlanStrokes& strokes, PaperLabels& labels);

// The colour of a window by the standard's table: "#0a0b0c".
std::string ColorOfMinutes(const PlanPicture& picture, double minutes);
std::string ColorText(int rgb);
inline constexpr int kUntoldRgb = 0xA0A0A0;
