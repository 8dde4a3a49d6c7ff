// The unit normal of any flat face.
#pragma once

#include "platform/base/Api.h"
#include "platform/geometry/QcGeFace.h"
#include "platform/geometry/QcGeVector3d.h"

// The direction from which corners 0, 1, 2 run counter-clockwise, of unit length. All four corner slots count, whatever
// the face takes itself for: where the edge from corner 0 to corner 1 is shorter than 1e-6, the edge to corner 3 stands
// in for it. (0, 0, 1) when that one is as short too, or the edge to corner 2 is. Three corners in one line, or corners
// so far away that a product overflows, give components that are not finite: there is no direction to fall back on
// that would be better than another.
//
// By the textbook: the cross product (P1 - P0) x (P2 - P0) over its length, in double. Each component is good to 1e-15
// over the sine of the angle between the two edges, wherever the face lies.
ORVO_API QcGeVector3d GetFaceNormal(const QcGeFace& face);
