// The outlines of entities that may be windows.
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/Vector3.h"

class AcDbDatabase;
class EntityGroups;
struct OutlineVertex;

// The corners, in order and in the world's coordinates, of what an entity encloses: a 3DFACE of four corners, a closed
// LWPOLYLINE or POLYLINE without arcs. It is closed when it says so or when its last vertex lies on its first one; that
// one is then left out. `index` is the entity's in the drawing. Millimetres; `millimetres` is one unit of the drawing.
// False for everything else, and for data that are unsound.
bool ReadOutline(const AcDbDatabase& drawing, std::size_t index, const EntityGroups& entity, double millimetres,
                 std::vector<Vector3>& corners);

// Whether what leads from one vertex of a flat polyline to the next is straight, or an arc as good as straight.
bool IsStraight(const OutlineVertex& from, const OutlineVertex& to, double millimetres);
