// A plane as its bare equation.
#pragma once

// All points with a x + b y + c z + d = 0. The normal (a, b, c) need not have unit length; by default all four are 0,
// which is no plane.
struct QcGeBasePlane {
    double a = 0.0;  // the normal's x
    double b = 0.0;  // the normal's y
    double c = 0.0;  // the normal's z
    double d = 0.0;  // minus the normal times any point of the plane
};
