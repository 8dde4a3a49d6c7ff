// Maps points, and one map by another.
#include "scene/Placement.h"

QcGeVector3d Placement::DirectionAt(const QcGePoint& direction) const {
    const auto& [x, y, z] = direction;
    return {x * xAxis.x + y * yAxis.x + z * zAxis.x, x * xAxis.y + y * yAxis.y + z * zAxis.y,
            x * xAxis.z + y * yAxis.z + z * zAxis.z};
}

QcGePoint Placement::PointAt(const QcGePoint& point) const {
    const QcGeVector3d way = DirectionAt(point);
    return {origin.x + way.x, origin.y + way.y, origin.z + way.z};
}

Placement Placement::Within(const Placement& outer) const {
    Placement both;
    both.xAxis = outer.DirectionAt(xAxis);
    both.yAxis = outer.DirectionAt(yAxis);
    both.zAxis = outer.DirectionAt(zAxis);
    both.origin = outer.PointAt(origin);
    both.isMirrored = isMirrored != outer.isMirrored;
    both.stretch = stretch * outer.stretch;
    return both;
}
