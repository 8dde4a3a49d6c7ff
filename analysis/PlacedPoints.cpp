// Takes points out of blocks and into millimetres.
#include "analysis/PlacedPoints.h"

#include <cmath>

#include "scene/EntityGroups.h"

bool PlaceInWorld::PointAt(const QcGePoint& point, Vector3& place) const {
    const QcGePoint outside = placement.PointAt(point);
    place = Vector3{outside.x, outside.y, outside.z} * millimetres;
    return std::fabs(outside.x) <= kFarthest && std::fabs(outside.y) <= kFarthest && std::fabs(outside.z) <= kFarthest;
}

Vector3 PlaceInWorld::WayAt(const QcGeVector3d& way) const {
    const QcGeVector3d outside = placement.DirectionAt(way);
    return Vector3{outside.x, outside.y, outside.z} * millimetres;
}
