// Walks over the entities of a drawing for bodies that the scene passes over.
#include "analysis/UnreadBodies.h"

#include <algorithm>
#include <string_view>

#include "analysis/WindowLayers.h"
#include "platform/host/AcDbDatabase.h"
#include "scene/EntityGroups.h"
#include "scene/LayerLook.h"
#include "scene/PolylineFaces.h"

namespace {

template <std::size_t count>
bool IsOneOf(std::string_view type, const std::string_view (&types)[count]) {
    return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

bool IsUnreadBody(const EntityGroups& entity) {
    constexpr std::string_view kBodies[] = {"INSERT",       "3DSOLID",         "BODY",          "REGION",
                                            "SURFACE",      "PLANESURFACE",    "NURBSURFACE",   "EXTRUDEDSURFACE",
                                            "SWEPTSURFACE", "REVOLVEDSURFACE", "LOFTEDSURFACE", "ACAD_PROXY_ENTITY"};
    constexpr std::string_view kRaised[] = {"LINE", "ARC", "CIRCLE", "SOLID", "TRACE"};
    const std::string_view type = entity.Type();
    return IsOneOf(type, kBodies) || (IsOneOf(type, kRaised) && HasThickness(entity));
}

}  // namespace

std::size_t CountUnreadBodies(const AcDbDatabase& drawing, const std::vector<CString>& windowLayers) {
    WindowLayers windows(drawing, windowLayers);
    LayerTable layers(drawing);
    std::size_t count = 0;
    for (std::size_t i = 0; i < drawing.GetEntityCount(); ++i) {
        const EntityGroups entity = GroupsOf(drawing, drawing.GetEntityId(i));
        if (IsUnreadBody(entity) && entity.IsInModel() && layers.Find(entity.Layer()).isVisible &&
            !windows.Find(entity.Layer()))
            ++count;
    }
    return count;
}
