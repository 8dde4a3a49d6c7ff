// Reads outlines from the groups of entities.
#include "analysis/DrawnOutline.h"

#include <cmath>
#include <string_view>

#include "analysis/WindowRectangle.h"
#include "platform/host/AcDbDatabase.h"
#include "scene/EntityGroups.h"
#include "scene/FlatPath.h"
#include "scene/GroupCodes.h"
#include "scene/PolylineVertex.h"

namespace {

constexpr int kClosed = 1;
constexpr int kThreeDimensional = 8;
constexpr int kMeshes = 16 | 64;

Vector3 ToMillimetres(const QcGePoint& point, double millimetres) {
    return Vector3{point.x, point.y, point.z} * millimetres;
}

bool ReadFace(const EntityGroups& entity, double millimetres, std::vector<Vector3>& corners) {
    for (int i = 0; i < 4; ++i) {
        QcGePoint corner;
        if (!entity.Point(kX + i, corner))
            return false;
        corners.push_back(ToMillimetres(corner, millimetres));
    }
    return true;
}

// Drops the last corner where it lies on the first. False for what is not closed.
bool Close(bool saysSo, std::vector<Vector3>& corners) {
    if (corners.size() > 1 && Length(corners.back() - corners.front()) <= kWindowTolerance)
        corners.pop_back();
    else if (!saysSo)
        return false;
    return !corners.empty();
}

bool TakePath(const FlatPath& path, double millimetres, std::vector<Vector3>& corners) {
    const std::size_t count = path.vertices.size();
    for (std::size_t i = 0; i < count; ++i) {
        const OutlineVertex& vertex = path.vertices[i];
        // Where it is not closed the last one must lie on the first, and what is between them is no arc.
        if (!IsStraight(vertex, path.vertices[(i + 1) % count], millimetres))
            return false;
        corners.push_back(ToMillimetres(path.axes.ToWorld({vertex.x, vertex.y, path.elevation}), millimetres));
    }
    return Close(path.isClosed, corners);
}

bool ReadPolyline(const AcDbDatabase& drawing, std::size_t index, const EntityGroups& entity, double millimetres,
                  std::vector<Vector3>& corners) {
    int flags = 0;
    std::vector<PolylineVertex> vertices;
    if (!entity.Integer(kFlags, flags) || (flags & kMeshes) != 0 ||
        !ReadPolylineVertices(drawing, drawing.GetEntityId(index), vertices))
        return false;
    if ((flags & kThreeDimensional) == 0) {
        FlatPath path;
        return ReadPolyline2d(entity, vertices, path) && TakePath(path, millimetres, corners);
    }
    for (const PolylineVertex& vertex : vertices) {
        if ((vertex.flags & kFramePoint) != 0)
            continue;
        if (!vertex.hasPoint)
            return false;
        corners.push_back(ToMillimetres(vertex.point, millimetres));
    }
    return Close((flags & kClosed) != 0, corners);
}

}  // namespace

bool IsStraight(const OutlineVertex& from, const OutlineVertex& to, double millimetres) {
    // How far an arc strays from its chord.
    const double chord = std::hypot(to.x - from.x, to.y - from.y) * millimetres;
    return std::fabs(from.bulge) * chord / 2.0 <= kWindowTolerance;
}

bool ReadOutline(const AcDbDatabase& drawing, std::size_t index, const EntityGroups& entity, double millimetres,
                 std::vector<Vector3>& corners) {
    corners.clear();
    const std::string_view type = entity.Type();
    if (type == "3DFACE")
        return ReadFace(entity, millimetres, corners);
    if (type == "LWPOLYLINE") {
        FlatPath path;
        return ReadLwPolyline(entity, path) && TakePath(path, millimetres, corners);
    }
    return type == "POLYLINE" && ReadPolyline(drawing, index, entity, millimetres, corners);
}
