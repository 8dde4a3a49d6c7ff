// How a plan lies on its paper: which part of the drawing, and how large.
#pragma once

#include <string>

#include "analysis/Vector3.h"
#include "platform/base/CString.h"
#include "workbench/report/PaperOutline.h"

struct PlanPicture;

// Metres, the drawing's axes.
struct PlanExtent {
    double left = 0.0;
    double bottom = 0.0;
    double right = 0.0;
    double top = 0.0;
    bool isEmpty = true;

    // Passes over what is no number, or lies too far away to be drawn.
    void Take(double x, double y);
    void Take(const PlanExtent& other);
    PlanExtent Widened(double by) const;
    PlanExtent Within(const PlanExtent& other) const;  // of two that meet
    double Width() const { return right - left; }
    double Height() const { return top - bottom; }
};

struct PlanSheet {
    PaperBox frame;  // of the plan itself; legend and scale are below
    double middleX = 0.0;
    double middleY = 0.0;
    double ratio = 1.0;  // how many times larger the world is

    double UnitsPerMetre() const;
    // Where a place of the drawing in metres is, not rounded: z is 0.
    Vector3 Place(double x, double y) const;
    PaperPoint Point(double x, double y) const;  // for what is not far outside of the frame
    bool IsFarOutside(const Vector3& place) const;
};

// Shows all that is judged, and what stands around it unless that is so far away that nothing could be told any more.
// Of the picture's height, `below` (hundredths of a millimetre) is left for other things.
PlanSheet LayOutPlan(const PlanPicture& picture, int below);

// The smallest of the ratios that are usual on plans (1, 1.5, 2, 2.5, 3, 4, 5, 6 or 8 times a power of ten) that is at
// least so much; not below 1.
double UsualRatio(double least);
// "1:500"
CString RatioText(double ratio);

// A length of 1, 2 or 5 times a power of ten metres that is at most so long.
double RoundLength(double most);
// Metres without digits that say nothing.
CString MetresText(double metres);
