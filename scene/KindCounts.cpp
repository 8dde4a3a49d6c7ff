// Tells counts of kinds, and knows kinds by name.
#include "scene/KindCounts.h"

#include <algorithm>
#include <iterator>

CString KindsText(const std::vector<KindCount>& kinds) {
    constexpr std::size_t kMostKinds = 10;
    std::string text;
    for (std::size_t i = 0; i < std::min(kinds.size(), kMostKinds); ++i)
        text += (i == 0 ? "" : ", ") + std::to_string(kinds[i].count) + ' ' + kinds[i].type;
    if (kinds.size() > kMostKinds)
        text += ", ...";
    return FromUtf8(text);
}

bool IsUnreadBody(const std::string& type) {
    constexpr const char* kKinds[] = {
        "3DSOLID",          "BODY",          "REGION",          "SURFACE",      "PLANESURFACE",
        "EXTRUDEDSURFACE",  "LOFTEDSURFACE", "REVOLVEDSURFACE", "SWEPTSURFACE", "NURBSURFACE",
        "ACAD_PROXY_ENTITY"};
    return std::find(std::begin(kKinds), std::end(kKinds), type) != std::end(kKinds);
}
