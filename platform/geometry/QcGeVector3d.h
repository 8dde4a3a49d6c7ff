// A direction with a length: the difference of two points.
#pragma once

#include "platform/geometry/QcGePoint.h"

// The components are those of the point it is read from, and a point may stand wherever a vector is taken.
struct QcGeVector3d : QcGePoint {
    // (0, 0, 0).
    constexpr QcGeVector3d() = default;
    // From three components, or from those of a point.
    constexpr QcGeVector3d(double xValue, double yValue, double zValue) : QcGePoint(xValue, yValue, zValue) {}
    constexpr explicit QcGeVector3d(const QcGePoint& point) : QcGePoint(point) {}

    // The root of the sum of the squares, in the components' unit.
    double Length() const { return Length3d(); }

    // The right-handed cross product: x axis times y axis is the z axis.
    constexpr QcGeVector3d operator*(const QcGePoint& other) const {
        return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
    }
};

// The vector that leads from `right` to `left`.
constexpr QcGeVector3d operator-(const QcGePoint& left, const QcGePoint& right) {
    return {left.x - right.x, left.y - right.y, left.z - right.z};
}
