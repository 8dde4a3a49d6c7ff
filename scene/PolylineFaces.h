// Faces of flat polylines that have a thickness: walls, and the bottom and top of closed ones.
// Why: docs/decisions/scene.md
#pragma once

#include <vector>

#include "scene/Outline.h"
#include "scene/PolylineVertex.h"

class EntityGroups;
class FaceList;
struct FlatPath;

// Whether a thickness makes walls: its size is more than g_fZero. True too when it cannot be read, so that the entity
// is found faulty.
bool HasThickness(const EntityGroups& entity);

// The walls over a path with a thickness, and bottom and top of a closed one. The walls of a closed outline face
// outwards whatever its sense, those of an open one to the right of the path, seen from the extrusion's end. False when
// no two points are left of it.
bool AddExtruded(const FlatPath& path, ArcDivision& division, FaceList& faces);

// An LWPOLYLINE, and a two-dimensional POLYLINE with its vertices (of a spline the frame's points are passed over).
// Both must have a thickness. False when the data are unsound.
bool AddLwPolyline(const EntityGroups& entity, ArcDivision& division, FaceList& faces);
bool AddPolyline2d(const EntityGroups& entity, const std::vector<PolylineVertex>& vertices, ArcDivision& division,
                   FaceList& faces);
