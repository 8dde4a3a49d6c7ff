// The four numbers of a plane's equation, as a bare value.
// Why: docs/decisions/geometry.md
#pragma once

#include "platform/base/Api.h"

// All points with a x + b y + c z + d = 0. Made by name of a plane or a face; on its own it begins with no values.
struct ORVO_API PlaneEquation {
    // Whether each of the four differences is smaller than 1e-12. The same plane in another scale is not equal, and
    // nothing equals an equation with a number missing.
    bool operator==(const PlaneEquation& other) const;

    double a;  // the normal's x
    double b;  // the normal's y
    double c;  // the normal's z
    double d;  // minus the normal times any point of the plane
};
