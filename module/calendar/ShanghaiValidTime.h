// The Shanghai rule of which part of the day counts for a window.
#pragma once

#include "platform/base/Api.h"
#include "platform/geometry/QcGePoint.h"

// The period of the day in which sunlight on a window counts, by the direction that the window faces, in radians in the
// plane of the drawing: x is the hour at which it starts, y the one at which it ends (decimal hours), z is 0. All three
// are 0 when no period counts.
//
// This system's own rule, with no approximation in it. It measures how far the direction is from -pi/2, rounded to
// whole degrees, halves up:
//
//     degrees      0-15   16-30   31-45   46-60   61-75   76-90   beyond
//     hours lost   0      0.5     1.5     2.5     3.5     4.5     all
//
// The whole period is 9 to 15. It loses its end when the direction is counter-clockwise of -pi/2, else its start. A
// direction that is not finite counts as -pi/2 itself.
ORVO_API QcGePoint GetShanghaiValidTime(double direction);
