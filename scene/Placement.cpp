// Maps points, and one map by another.
#include "scene/Placement.h"

namespace {

QcGeVector3d DirectionAt(const Placement& placement, const QcGePoint& direction) {
    const auto& [x, y, z] = direction;
    return {x * placement.xAxis.x + y * placement.yAxis.x + z * placement.zAxis.x,
            x * placement.xAxis.y + y * placement.yAxis.y + z * placement.zAxis.y,
            x * placement.xAxis.z + y * placement.yAxis.z + z * placement.zAxis.z};
}

}  // namespace

QcGePoint Placement::PointAt(const QcGePoint& point) const {
    const QcGeVector3d way = DirectionAt(*this, point);
    return {origin.x + way.x, origin.y + way.y, origin.z + way.z};
}

Placement Placement::Within(const Placement& outer) const {
    Placement both;
    both.xAxis = DirectionAt(outer, xAxis);
    both.yAxis = DirectionAt(outer, yAxis);
    both.zAxis = DirectionAt(outer, zAxis);
    both.origin = outer.PointAt(origin);
    both.isMirrored = isMirrored != outer.isMirrored;
    both.stretch = stretch * outer.stretch;
    return both;
}
