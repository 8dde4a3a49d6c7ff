// Outlines without a thickness: which entities are such, and their paths.
// Why: docs/decisions/scene.md
#pragma once

#include "platform/host/AcDbObjectId.h"

class AcDbDatabase;
class EntityGroups;
struct FlatPath;

enum class FlatOutline {
    None,     // another kind of entity, one with a thickness of its own, or a closed one that is not level
    Open,     // a polyline that does not come back to its start, a LINE, an ARC
    Closed,   // LWPOLYLINE, two-dimensional POLYLINE, CIRCLE, SOLID, TRACE, level three-dimensional POLYLINE
    Unsound,  // of such a kind, with data that cannot be read
};

// Reads the path of a closed one, and leaves `path` as it may be for the others.
FlatOutline ReadFlatOutline(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity, FlatPath& path);
