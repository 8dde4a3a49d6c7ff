// Points and directions of entities in millimetres of the world, where the entities are shown.
#pragma once

#include "analysis/Vector3.h"
#include "platform/geometry/QcGePoint.h"
#include "platform/geometry/QcGeVector3d.h"
#include "scene/Placement.h"

// Where a block is put, and the length of one unit of the drawing.
struct PlaceInWorld {
    const Placement& placement;
    double millimetres = 1.0;

    // False for a point that comes to lie too far away.
    bool PointAt(const QcGePoint& point, Vector3& place) const;
    Vector3 WayAt(const QcGeVector3d& way) const;
};
