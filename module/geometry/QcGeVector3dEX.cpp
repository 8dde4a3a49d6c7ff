// Normalising and turning round.
#include "geometry/QcGeVector3dEX.h"

#include <cmath>

#include "geometry/SideTolerance.h"

bool QcGeVector3dEX::Normalize() {
    const double length = Length3d();
    if (length < kSideTolerance)
        return false;
    if (std::fabs(length - 1.0) <= kSideTolerance)
        return true;
    const double scale = 1.0 / length;
    x *= scale;
    y *= scale;
    z *= scale;
    return true;
}

void QcGeVector3dEX::reverse() {
    x = -x;
    y = -y;
    z = -z;
}
