// Reads the lines of plans from the groups of entities.
#include "analysis/PlanSegments.h"

#include <cmath>
#include <cstddef>
#include <string_view>

#include "analysis/DrawnOutline.h"
#include "analysis/WindowRectangle.h"
#include "platform/geometry/Tolerance.h"
#include "scene/EntityGroups.h"
#include "scene/FlatPath.h"
#include "scene/GroupCodes.h"
#include "scene/PolylineVertex.h"

namespace {

constexpr int kEnd = 11;
constexpr int kNoFlatPolyline = 8 | 16 | 64;  // three-dimensional, or a mesh

// More than what drawing programs leave of a 0 after moving things to and fro.
bool IsSomething(double length) {
    return std::fabs(length) > g_fZero;
}

QcGeVector3d ThicknessAlong(const ObjectCoordinates& axes, double thickness) {
    return IsSomething(thickness) ? QcGeVector3d(axes.ToWorld({0.0, 0.0, thickness})) : QcGeVector3d();
}

bool HasLength(const QcGePoint& from, const QcGePoint& to, double millimetres) {
    return (to - from).Length() * millimetres > kWindowTolerance;
}

bool ReadLine(const EntityGroups& entity, double millimetres, std::vector<PlanSegment>& segments) {
    PlanSegment segment;
    double thickness = 0.0;
    ObjectCoordinates axes;
    if (!entity.Point(kX, segment.from) || !entity.Point(kEnd, segment.to) || !entity.Real(kThickness, thickness) ||
        !ReadExtrusion(entity, axes) || !HasLength(segment.from, segment.to, millimetres))
        return false;
    segment.thickness = ThicknessAlong(axes, thickness);
    segment.hasElevation = IsSomething(segment.from.z) || IsSomething(segment.to.z);
    segments.push_back(segment);
    return true;
}

bool ReadPath(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity, FlatPath& path) {
    const std::string_view type = entity.Type();
    if (type == "LWPOLYLINE")
        return ReadLwPolyline(entity, path);
    int flags = 0;
    std::vector<PolylineVertex> vertices;
    return type == "POLYLINE" && entity.Integer(kFlags, flags) && (flags & kNoFlatPolyline) == 0 &&
           ReadPolylineVertices(drawing, id, vertices) && ReadPolyline2d(entity, vertices, path);
}

bool IsLevel(const ObjectCoordinates& axes) {
    const QcGePoint normal = axes.ToWorld({0.0, 0.0, 1.0});
    return std::hypot(normal.x, normal.y) <= g_fZero;
}

// How many of the vertices a plan's lines join; 0 for an outline around an area, of which nobody knows the side.
std::size_t CountJoined(const FlatPath& path, double millimetres) {
    const std::vector<OutlineVertex>& vertices = path.vertices;
    if (vertices.size() < 2)
        return 0;
    const OutlineVertex &first = vertices.front(), &last = vertices.back();
    const bool comesBack = !HasLength({first.x, first.y, 0.0}, {last.x, last.y, 0.0}, millimetres);
    if (!comesBack && !path.isClosed)
        return vertices.size();
    const std::size_t count = comesBack ? vertices.size() - 1 : vertices.size();
    const bool isThereAndBack = count == 2 && IsStraight(vertices[0], vertices[1], millimetres) &&
                                IsStraight(vertices[1], vertices[0], millimetres);
    return isThereAndBack ? 2 : 0;
}

bool TakePath(const FlatPath& path, double millimetres, std::vector<PlanSegment>& segments) {
    const std::size_t count = CountJoined(path, millimetres);
    if (count < 2 || !IsLevel(path.axes))
        return false;
    const std::vector<OutlineVertex>& vertices = path.vertices;
    const auto at = [&](const OutlineVertex& vertex) {
        return path.axes.ToWorld({vertex.x, vertex.y, path.elevation});
    };
    PlanSegment segment;
    segment.thickness = ThicknessAlong(path.axes, path.thickness);
    segment.hasElevation = IsSomething(path.elevation);
    const std::size_t known = segments.size();
    bool isAll = true;
    for (std::size_t i = 0; i + 1 < count; ++i) {
        segment.from = at(vertices[i]);
        segment.to = at(vertices[i + 1]);
        if (!HasLength(segment.from, segment.to, millimetres))
            continue;
        if (IsStraight(vertices[i], vertices[i + 1], millimetres))
            segments.push_back(segment);
        else
            isAll = false;
    }
    return isAll && segments.size() > known;
}

}  // namespace

bool ReadPlanSegments(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity, double millimetres,
                      std::vector<PlanSegment>& segments) {
    if (entity.Type() == "LINE")
        return ReadLine(entity, millimetres, segments);
    FlatPath path;
    return ReadPath(drawing, id, entity, path) && TakePath(path, millimetres, segments);
}
