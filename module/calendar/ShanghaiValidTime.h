// The Shanghai rule of which part of the day counts for a window.
#pragma once

#include "platform/base/Api.h"
#include "platform/geometry/QcGePoint.h"

// The period of the day in which sunlight on a window counts, by the direction that the window faces, in radians in the
// plane of the drawing: x is the hour at which it starts, y the one at which it ends (decimal hours), z is 0. All three
// are 0 when no period counts.
//
// The rule measures from the direction -pi/2, to whole degrees: within 15 degrees of it the period is 9 to 15; further
// off it loses its end on one side (counter-clockwise) and its start on the other, by 15 degrees at a time, down to an
// hour and a half; beyond 90 degrees nothing counts. A direction that is not finite counts as -pi/2 itself.
ORVO_API QcGePoint GetShanghaiValidTime(double direction);
