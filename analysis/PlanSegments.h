// The straight lines that a plan draws windows as.
#pragma once

#include <vector>

#include "platform/geometry/QcGePoint.h"
#include "platform/geometry/QcGeVector3d.h"
#include "platform/host/AcDbObjectId.h"

class AcDbDatabase;
class EntityGroups;

// Of a line in plan as it is drawn: in the drawing's unit, in the world's axes, or in those of the block that it is in.
struct PlanSegment {
    QcGePoint from;
    QcGePoint to;
    QcGeVector3d thickness;     // from the line to its other edge; without a length for none
    bool hasElevation = false;  // whether it is drawn at another level than 0
};

// The lines of a LINE, and of an LWPOLYLINE or two-dimensional POLYLINE in a level plane that is open, or closed with
// two vertices: one line then. `millimetres`, the length of one unit where the entity is shown, only says which arcs
// are as good as straight, and which lines have no length: these are passed over. `id` is the entity's. True when that
// is all that the entity draws. False where there is anything else, for which nothing is added: a polyline's arcs, a
// LINE without a length, all other entities, data that are unsound.
bool ReadPlanSegments(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity, double millimetres,
                      std::vector<PlanSegment>& segments);
