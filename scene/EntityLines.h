// The lines of one entity that gives no faces, by its type.
// Why: docs/decisions/scene.md
#pragma once

#include <vector>

#include "platform/host/AcDbObjectId.h"
#include "scene/SceneLines.h"

class AcDbDatabase;
class EntityGroups;

struct EntityLines {
    std::vector<SceneSegment> segments;
    bool isOutline = false;  // a closed one, that a layer's height makes a body instead
};

// LINE, LWPOLYLINE, two- and three-dimensional POLYLINE, CIRCLE and ARC without a thickness; ELLIPSE; and SPLINE,
// through its fit points or, without any, along its control points. Arcs become chords that stray from them by less
// than a hundredth of the entity's size, in a block of any scale. Nothing for other kinds and unsound data.
EntityLines ReadEntityLines(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity);
