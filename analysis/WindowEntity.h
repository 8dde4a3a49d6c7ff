// What an entity holds that windows are made of and named by, as it is drawn, before it is put in place.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "analysis/DrawnOutline.h"
#include "analysis/PlanSegments.h"
#include "platform/base/CString.h"

class AcDbDatabase;
class EntityGroups;

struct WindowEntity {
    bool mayBeWindow = false;  // somebody may have meant it for one
    std::optional<DrawnOutline> outline;
    std::vector<PlanSegment> lines;  // of a plan
    bool isAllLines = false;         // they are all that it draws
    CString text;                    // empty for all but texts
    QcGePoint textPoint;
};

// `millimetres` is the length of one unit where the entity is shown: ReadPlanSegments asks for it.
WindowEntity ReadWindowEntity(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity,
                              double millimetres);
