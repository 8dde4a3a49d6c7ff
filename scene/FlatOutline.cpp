// Goes by an entity's type to what reads its path.
#include "scene/FlatOutline.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/geometry/Tolerance.h"
#include "scene/EntityGroups.h"
#include "scene/FlatPath.h"
#include "scene/GroupCodes.h"
#include "scene/PolylineFaces.h"
#include "scene/PolylineFlags.h"
#include "scene/ThickFaces.h"

namespace {

// Whether the points of a path in space have one height, to within a millionth of how far they go: as flat as faces
// are.
bool IsLevel(const std::vector<PolylineVertex>& vertices) {
    constexpr double kLevel = 1e-6;
    const auto spread = [&](double QcGePoint::*of) {
        const auto [least, most] = std::minmax_element(
            vertices.begin(), vertices.end(),
            [&](const PolylineVertex& a, const PolylineVertex& b) { return a.point.*of < b.point.*of; });
        return (*most).point.*of - (*least).point.*of;
    };
    return vertices.empty() ||
           spread(&QcGePoint::z) <= std::max(g_fZero, kLevel * std::max(spread(&QcGePoint::x), spread(&QcGePoint::y)));
}

// The vertices of one in space stand in the world's coordinates, and nothing is said there of thickness or extrusion.
FlatOutline ReadPolyline3d(int flags, std::vector<PolylineVertex>& vertices, FlatPath& path) {
    path = FlatPath();
    path.isClosed = (flags & kClosedPolyline) != 0;
    std::erase_if(vertices, [](const PolylineVertex& vertex) { return (vertex.flags & kFramePoint) != 0; });
    for (const PolylineVertex& vertex : vertices) {
        if (!vertex.hasPoint)
            return FlatOutline::Unsound;
        path.vertices.push_back({vertex.point.x, vertex.point.y, 0.0});
    }
    if (!ComesBack(path.vertices, path.isClosed))
        return FlatOutline::Open;
    path.elevation = vertices.front().point.z;
    return IsLevel(vertices) ? FlatOutline::Closed : FlatOutline::None;
}

FlatOutline OutlineOf(bool isSound, const FlatPath& path) {
    if (!isSound)
        return FlatOutline::Unsound;
    return ComesBack(path.vertices, path.isClosed) ? FlatOutline::Closed : FlatOutline::Open;
}

FlatOutline ReadAnyPolyline(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity, FlatPath& path) {
    int flags = 0;
    if (!entity.Integer(kFlags, flags) || (flags & (kPolyface | kPolygonMesh)) != 0)
        return FlatOutline::None;
    const bool isInSpace = (flags & kThreeDimensional) != 0;
    if (!isInSpace && HasThickness(entity))
        return FlatOutline::None;
    std::vector<PolylineVertex> vertices;
    if (!ReadPolylineVertices(drawing, id, vertices))
        return FlatOutline::Unsound;
    return isInSpace ? ReadPolyline3d(flags, vertices, path) : OutlineOf(ReadPolyline2d(entity, vertices, path), path);
}

}  // namespace

FlatOutline ReadFlatOutline(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity, FlatPath& path) {
    const std::string_view type = entity.Type();
    if (type == "POLYLINE")
        return ReadAnyPolyline(drawing, id, entity, path);
    const bool isOpen = type == "LINE" || type == "ARC";
    const bool isSolid = type == "SOLID" || type == "TRACE";
    if ((!isOpen && !isSolid && type != "LWPOLYLINE" && type != "CIRCLE") || HasThickness(entity))
        return FlatOutline::None;
    if (isOpen)
        return FlatOutline::Open;
    if (isSolid)
        return OutlineOf(ReadSolid(entity, path), path);
    return OutlineOf(type == "CIRCLE" ? ReadCircle(entity, path) : ReadLwPolyline(entity, path), path);
}
