// The dot product, which the framework's vectors do not have.
#pragma once

#include "platform/geometry/QcGePoint.h"

inline double Dot(const QcGePoint& left, const QcGePoint& right) {
    return left.x * right.x + left.y * right.y + left.z * right.z;
}
