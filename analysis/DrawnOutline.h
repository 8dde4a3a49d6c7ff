// The outlines of entities that may be windows.
#pragma once

#include <vector>

#include "analysis/Vector3.h"
#include "platform/geometry/QcGePoint.h"
#include "platform/geometry/QcGeVector3d.h"
#include "platform/host/AcDbObjectId.h"

class AcDbDatabase;
class EntityGroups;
struct OutlineVertex;
struct PlaceInWorld;

// The corners, in order, of what may enclose something: in the drawing's unit, in the world's axes, or in those of the
// block that it is in.
struct DrawnOutline {
    std::vector<QcGePoint> corners;
    // How each side bends, from the middle of the straight line to the middle of the arc; none where all are straight.
    std::vector<QcGeVector3d> bows;
    bool isClosed = false;  // says so itself
};

// A 3DFACE of four corners, an LWPOLYLINE or a POLYLINE that is no mesh. False for everything else, and for data that
// are unsound.
bool ReadOutline(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity, DrawnOutline& outline);

// The corners in millimetres of the world. It is closed when it says so or when its last corner lies on its first one;
// that one is then left out. False for an open one, one with arcs, and one that comes to lie too far away.
bool PlaceOutline(const DrawnOutline& outline, const PlaceInWorld& place, std::vector<Vector3>& corners);

// Whether what leads from one vertex of a flat polyline to the next is straight, or an arc as good as straight.
bool IsStraight(const OutlineVertex& from, const OutlineVertex& to, double millimetres);
