// Reads entities for windows and their names.
#include "analysis/WindowEntity.h"

#include <algorithm>
#include <string_view>

#include "analysis/WindowTexts.h"
#include "scene/EntityGroups.h"

bool MayHaveArea(std::string_view type) {
    constexpr std::string_view kKinds[] = {"3DFACE",  "LWPOLYLINE", "POLYLINE", "MESH",    "SOLID",   "TRACE",
                                           "INSERT",  "REGION",     "HATCH",    "3DSOLID", "SURFACE", "CIRCLE",
                                           "ELLIPSE", "BODY",       "LINE",     "ARC"};
    return std::find(std::begin(kKinds), std::end(kKinds), type) != std::end(kKinds);
}

WindowEntity ReadWindowEntity(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity,
                              double millimetres) {
    WindowEntity read;
    read.mayBeWindow = MayHaveArea(entity.Type());
    if (!read.mayBeWindow) {
        if (!ReadWindowText(drawing, entity, read.text, read.textPoint))
            read.text = CString();
        return read;
    }
    if (DrawnOutline outline; ReadOutline(drawing, id, entity, outline))
        read.outline = std::move(outline);
    read.isAllLines = ReadPlanSegments(drawing, id, entity, millimetres, read.lines);
    return read;
}
