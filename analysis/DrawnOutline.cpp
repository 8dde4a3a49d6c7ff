// Reads outlines from the groups of entities, and puts them in place.
#include "analysis/DrawnOutline.h"

#include <cmath>
#include <cstddef>
#include <string_view>

#include "analysis/PlacedPoints.h"
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

bool ReadFace(const EntityGroups& entity, DrawnOutline& outline) {
    outline.isClosed = true;
    for (int i = 0; i < 4; ++i) {
        QcGePoint corner;
        if (!entity.Point(kX + i, corner))
            return false;
        outline.corners.push_back(corner);
    }
    return true;
}

void TakePath(const FlatPath& path, DrawnOutline& outline) {
    outline.isClosed = path.isClosed;
    const std::vector<OutlineVertex>& vertices = path.vertices;
    bool isBent = false;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const OutlineVertex& from = vertices[i];
        // Where it is not closed its last corner must lie on the first, and what is between them is no arc.
        const OutlineVertex& to = vertices[(i + 1) % vertices.size()];
        outline.corners.push_back(path.axes.ToWorld({from.x, from.y, path.elevation}));
        const double bend = from.bulge / 2.0;
        outline.bows.emplace_back(path.axes.ToWorld({(to.y - from.y) * bend, (from.x - to.x) * bend, 0.0}));
        isBent = isBent || from.bulge != 0.0;
    }
    if (!isBent)
        outline.bows.clear();
}

bool ReadPolyline(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity, DrawnOutline& outline) {
    int flags = 0;
    std::vector<PolylineVertex> vertices;
    if (!entity.Integer(kFlags, flags) || (flags & kMeshes) != 0 || !ReadPolylineVertices(drawing, id, vertices))
        return false;
    if ((flags & kThreeDimensional) == 0) {
        FlatPath path;
        if (!ReadPolyline2d(entity, vertices, path))
            return false;
        TakePath(path, outline);
        return true;
    }
    outline.isClosed = (flags & kClosed) != 0;
    for (const PolylineVertex& vertex : vertices) {
        if ((vertex.flags & kFramePoint) != 0)
            continue;
        if (!vertex.hasPoint)
            return false;
        outline.corners.push_back(vertex.point);
    }
    return true;
}

}  // namespace

bool ReadOutline(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity, DrawnOutline& outline) {
    outline = DrawnOutline();
    const std::string_view type = entity.Type();
    if (type == "3DFACE")
        return ReadFace(entity, outline);
    if (type == "LWPOLYLINE") {
        FlatPath path;
        if (!ReadLwPolyline(entity, path))
            return false;
        TakePath(path, outline);
        return true;
    }
    return type == "POLYLINE" && ReadPolyline(drawing, id, entity, outline);
}

bool PlaceOutline(const DrawnOutline& outline, const PlaceInWorld& place, std::vector<Vector3>& corners) {
    corners.clear();
    for (const QcGeVector3d& bow : outline.bows)
        if (!(Length(place.WayAt(bow)) <= kWindowTolerance))
            return false;
    for (const QcGePoint& point : outline.corners) {
        Vector3 corner;
        if (!place.PointAt(point, corner))
            return false;
        corners.push_back(corner);
    }
    if (corners.size() > 1 && Length(corners.back() - corners.front()) <= kWindowTolerance)
        corners.pop_back();
    else if (!outline.isClosed)
        return false;
    return !corners.empty();
}

bool IsStraight(const OutlineVertex& from, const OutlineVertex& to, double millimetres) {
    // How far an arc strays from its chord.
    const double chord = std::hypot(to.x - from.x, to.y - from.y) * millimetres;
    return std::fabs(from.bulge) * chord / 2.0 <= kWindowTolerance;
}
