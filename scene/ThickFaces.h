// Faces of plain shapes: SOLID and TRACE, and LINE, ARC and CIRCLE that have a thickness.
#pragma once

#include "scene/Outline.h"

class EntityGroups;
class FaceList;
struct FlatPath;

// The outline of a SOLID or TRACE: its corners in the order 1, 2, 4, 3 (of three the last is given twice, or not at
// all) at the height of the first one; and that of a CIRCLE. Both come back to their start. Beside them the path of an
// ARC. False when the data are unsound.
bool ReadSolid(const EntityGroups& entity, FlatPath& path);
bool ReadCircle(const EntityGroups& entity, FlatPath& path);
bool ReadArc(const EntityGroups& entity, FlatPath& path);

// A SOLID or TRACE. Without a thickness one face through its corners, each at its own height; with one a body over its
// outline. False when the data are unsound.
bool AddSolid(const EntityGroups& entity, ArcDivision& division, FaceList& faces);

// With a thickness: the wall over a line, whose ends stand in the world's coordinates while the extrusion only says
// where the thickness goes; and what a polyline of that arc or circle would give. The circle is a body with bottom and
// top, and so is an arc all the way round. Walls face to the right of the line from its first end to the second, and of
// the arc as it runs counter-clockwise, seen from the extrusion's end. False when the data are unsound.
bool AddLine(const EntityGroups& entity, FaceList& faces);
bool AddArc(const EntityGroups& entity, ArcDivision& division, FaceList& faces);
bool AddCircle(const EntityGroups& entity, ArcDivision& division, FaceList& faces);
