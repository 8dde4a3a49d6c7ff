// What a camera sees of a box: how near and how far it is, and where its corners are.
#pragma once

#include <vector>

#include "workbench/view/ViewCamera.h"

// The part of a box that lies in the picture's field of view. A plain value.
struct SeenSpace {
    std::vector<QcGePoint> corners;  // of that part; none when nothing of the box is seen
    double nearest = 0.0;            // depths from the eye; the nearest is above 0 in perspective
    double farthest = 0.0;
};

// In perspective what is closer to the eye than a hundred-thousandth of the way to the box's farthest corner is left
// out.
SeenSpace FindSeenSpace(const ViewCamera& camera, const ViewBox& box);

// What is seen of either.
SeenSpace JoinSeen(const SeenSpace& one, const SeenSpace& other);
