// Comparing the equations of two planes.
#include "geometry/PlaneEquation.h"

#include <cmath>

#include "geometry/SideTolerance.h"

namespace {

bool IsNear(double left, double right) {
    return std::fabs(left - right) < kSideTolerance;
}

}  // namespace

bool PlaneEquation::operator==(const PlaneEquation& other) const {
    return IsNear(a, other.a) && IsNear(b, other.b) && IsNear(c, other.c) && IsNear(d, other.d);
}
