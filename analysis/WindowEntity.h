// What an entity holds that windows are made of and named by, as it is drawn, before it is put in place.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "analysis/DrawnOutline.h"
#include "analysis/PlanSegments.h"
#include "platform/base/CString.h"

class AcDbDatabase;
class EntityGroups;

// Whether somebody may have meant an entity of this kind for a window or another area: lines, and what has an area.
// Dimensions, points and the like are marks.
bool MayHaveArea(std::string_view type);

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
