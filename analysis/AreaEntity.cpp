// Goes by an entity's type to what reads its path, and divides the path's arcs.
#include "analysis/AreaEntity.h"

#include <cmath>
#include <string_view>

#include "scene/EntityGroups.h"
#include "scene/FlatPath.h"
#include "scene/GroupCodes.h"
#include "scene/PolylineFlags.h"
#include "scene/PolylineVertex.h"
#include "scene/ThickFaces.h"

namespace {

// Twice the area within a closed path, positive when it runs counter-clockwise.
template <class Points>
double TwiceArea(const Points& points) {
    double sum = 0.0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto& from = points[i];
        const auto& to = points[(i + 1) % points.size()];
        sum += (from.x - points[0].x) * (to.y - points[0].y) - (to.x - points[0].x) * (from.y - points[0].y);
    }
    return sum;
}

// Twice what lies between an arc and its chord.
double TwiceSegment(const OutlineVertex& from, const OutlineVertex& to) {
    if (from.bulge == 0.0)
        return 0.0;
    const double angle = 4.0 * std::atan(from.bulge);
    const double radius =
        std::hypot(to.x - from.x, to.y - from.y) * (1.0 + from.bulge * from.bulge) / (4.0 * from.bulge);
    return radius * radius * (angle - std::sin(angle));
}

double ArcShare(const std::vector<OutlineVertex>& vertices, const Outline& outline) {
    const double chords = TwiceArea(outline.points);
    double arcs = TwiceArea(vertices);
    for (std::size_t i = 0; i < vertices.size(); ++i)
        arcs += TwiceSegment(vertices[i], vertices[(i + 1) % vertices.size()]);
    const double share = arcs / chords;
    return std::isfinite(share) && share > 0.0 ? share : 1.0;
}

bool TakeChords(const FlatPath& path, ArcDivision& division, AreaEntity& area) {
    Outline outline;
    if (!MakeOutline(path.vertices, path.isClosed, division, outline))
        return false;
    area.outline.isClosed = outline.isClosed;
    for (const OutlinePoint& point : outline.points)
        area.outline.corners.push_back(path.axes.ToWorld({point.x, point.y, path.elevation}));
    area.arcShare = ArcShare(path.vertices, outline);
    return true;
}

bool ReadFlatPolyline(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity, FlatPath& path) {
    std::vector<PolylineVertex> vertices;
    return ReadPolylineVertices(drawing, id, vertices) && ReadPolyline2d(entity, vertices, path);
}

bool ReadPath(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity, FlatPath& path) {
    const std::string_view type = entity.Type();
    if (type == "LWPOLYLINE")
        return ReadLwPolyline(entity, path);
    if (type == "CIRCLE")
        return ReadCircle(entity, path);
    if (type == "SOLID" || type == "TRACE")
        return ReadSolid(entity, path);
    constexpr int kNotFlat = kThreeDimensional | kPolygonMesh | kPolyface;
    return type == "POLYLINE" && (entity.IntegerOr(kFlags, 0) & kNotFlat) == 0 &&
           ReadFlatPolyline(drawing, id, entity, path);
}

}  // namespace

AreaEntity ReadAreaEntity(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity,
                          ArcDivision& division) {
    AreaEntity area;
    const bool isInSpace = entity.Type() == "3DFACE" ||
                           (entity.Type() == "POLYLINE" && (entity.IntegerOr(kFlags, 0) & kThreeDimensional) != 0);
    if (FlatPath path; isInSpace)
        area.isOutline = ReadOutline(drawing, id, entity, area.outline);
    else if (ReadPath(drawing, id, entity, path))
        area.isOutline = TakeChords(path, division, area);
    return area;
}
