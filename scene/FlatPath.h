// Flat polylines as they are drawn, in a plane of their own.
#pragma once

#include <vector>

#include "scene/ObjectCoordinates.h"
#include "scene/Outline.h"
#include "scene/PolylineVertex.h"

class EntityGroups;

struct FlatPath {
    std::vector<OutlineVertex> vertices;
    bool isClosed = false;
    double elevation = 0.0;
    double thickness = 0.0;
    ObjectCoordinates axes;
};

// Whether its plane stands upright in the world, as those of windows do, and not as a plan's.
bool IsUpright(const FlatPath& path);

// An LWPOLYLINE, and a two-dimensional POLYLINE with its vertices (of a spline the frame's points are passed over).
// False when the data are unsound: a number that cannot be read, another count of vertices than the entity says, an
// extrusion without a direction.
bool ReadLwPolyline(const EntityGroups& entity, FlatPath& path);
bool ReadPolyline2d(const EntityGroups& entity, const std::vector<PolylineVertex>& vertices, FlatPath& path);
