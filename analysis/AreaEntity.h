// Entities that may enclose an area.
#pragma once

#include "analysis/DrawnOutline.h"
#include "scene/Outline.h"

struct AreaEntity {
    DrawnOutline outline;    // arcs are chords already
    double arcShare = 1.0;   // what the arcs enclose by what the chords enclose
    bool isOutline = false;  // of a kind with an outline, whose data are sound
};

// A 3DFACE, LWPOLYLINE, POLYLINE that is no mesh, CIRCLE, SOLID or TRACE, whatever its thickness.
AreaEntity ReadAreaEntity(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity,
                          ArcDivision& division);
