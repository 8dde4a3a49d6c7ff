// Where an insertion puts the points of its block.
#pragma once

#include "platform/geometry/QcGePoint.h"
#include "platform/geometry/QcGeVector3d.h"

// An affine map: the block's axes and its origin as they are outside. Without anything each point stays where it is.
struct Placement {
    QcGeVector3d xAxis{1.0, 0.0, 0.0};
    QcGeVector3d yAxis{0.0, 1.0, 0.0};
    QcGeVector3d zAxis{0.0, 0.0, 1.0};
    QcGePoint origin;
    bool isMirrored = false;  // whether it turns left into right
    double stretch = 1.0;     // no length becomes longer than by this factor

    QcGePoint PointAt(const QcGePoint& point) const;
    // Not of length 1 where the placement scales.
    QcGeVector3d DirectionAt(const QcGePoint& direction) const;
    // This placement, itself within another.
    Placement Within(const Placement& outer) const;
};
