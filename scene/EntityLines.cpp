// Goes by an entity's type to what reads its path, and makes chords of it.
#include "scene/EntityLines.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>

#include "platform/geometry/Tolerance.h"
#include "scene/EntityGroups.h"
#include "scene/FlatOutline.h"
#include "scene/FlatPath.h"
#include "scene/GroupCodes.h"
#include "scene/PolylineFaces.h"
#include "scene/PolylineFlags.h"
#include "scene/ThickFaces.h"

namespace {

constexpr int kSecondPoint = 11;
constexpr double kSagittaOfSize = 1e-3;
constexpr std::size_t kEllipseChords = 48;

void AddThrough(const std::vector<QcGePoint>& points, bool isClosed, std::vector<SceneSegment>& segments) {
    for (std::size_t i = 1; i < points.size(); ++i)
        segments.push_back({points[i - 1], points[i]});
    if (isClosed && points.size() > 2)
        segments.push_back({points.back(), points.front()});
}

// The larger side of the box around the vertices.
double SizeOf(const std::vector<OutlineVertex>& vertices) {
    const auto spread = [&](double OutlineVertex::*of) {
        const auto [least, most] =
            std::minmax_element(vertices.begin(), vertices.end(),
                                [&](const OutlineVertex& a, const OutlineVertex& b) { return a.*of < b.*of; });
        return (*most).*of - (*least).*of;
    };
    return vertices.empty() ? 0.0 : std::max(spread(&OutlineVertex::x), spread(&OutlineVertex::y));
}

void AddPath(const FlatPath& path, std::vector<SceneSegment>& segments) {
    ArcDivision division;
    division.sagitta = std::max(SizeOf(path.vertices) * kSagittaOfSize, g_fZero);
    Outline outline;
    if (!MakeOutline(path.vertices, path.isClosed, division, outline))
        return;
    std::vector<QcGePoint> points;
    for (const OutlinePoint& point : outline.points)
        points.push_back(path.axes.ToWorld({point.x, point.y, path.elevation}));
    AddThrough(points, outline.isClosed, segments);
}

void AddLine(const EntityGroups& entity, std::vector<SceneSegment>& segments) {
    SceneSegment segment;
    if (entity.Point(kX, segment.from) && entity.Point(kSecondPoint, segment.to))
        segments.push_back(segment);
}

void AddPolyline(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity,
                 std::vector<SceneSegment>& segments) {
    const int flags = entity.IntegerOr(kFlags, 0);
    std::vector<PolylineVertex> vertices;
    if ((flags & (kPolyface | kPolygonMesh)) != 0 || !ReadPolylineVertices(drawing, id, vertices))
        return;
    if ((flags & kThreeDimensional) == 0) {
        FlatPath path;
        if (ReadPolyline2d(entity, vertices, path))
            AddPath(path, segments);
        return;
    }
    std::vector<QcGePoint> points;
    for (const PolylineVertex& vertex : vertices)
        if (vertex.hasPoint && (vertex.flags & kFramePoint) == 0)
            points.push_back(vertex.point);
    AddThrough(points, (flags & kClosedPolyline) != 0, segments);
}

// The points with codes `code`, `code` + 10 and `code` + 20, in the file's order. Empty when one cannot be read.
std::vector<QcGePoint> PointsOf(const EntityGroups& entity, int code) {
    std::vector<QcGePoint> points;
    for (const DxfGroup& group : entity.All()) {
        double value = 0.0;
        if (group.code != code && group.code != code + 10 && group.code != code + 20)
            continue;
        if (!ReadReal(group.value, value) || (group.code != code && points.empty()))
            return {};
        if (group.code == code)
            points.push_back({value, 0.0, 0.0});
        else
            (group.code == code + 10 ? points.back().y : points.back().z) = value;
    }
    return points;
}

void AddSpline(const EntityGroups& entity, std::vector<SceneSegment>& segments) {
    std::vector<QcGePoint> points = PointsOf(entity, kSecondPoint);
    if (points.size() < 2)
        points = PointsOf(entity, kX);
    AddThrough(points, (entity.IntegerOr(kFlags, 0) & kClosedPolyline) != 0, segments);
}

// Centre and the end of the long axis stand in the world's coordinates; the short one is at right angles to it and to
// the extrusion.
void AddEllipse(const EntityGroups& entity, std::vector<SceneSegment>& segments) {
    constexpr int kRatio = 40;
    constexpr int kStart = 41;
    constexpr int kEnd = 42;
    QcGePoint centre;
    QcGePoint axis;
    double ratio = 0.0;
    double start = 0.0;
    double end = 2.0 * std::numbers::pi;
    ObjectCoordinates axes;
    if (!entity.Point(kX, centre) || !entity.Point(kSecondPoint, axis) || !entity.Real(kRatio, ratio) ||
        !entity.Real(kStart, start) || !entity.Real(kEnd, end) || !ReadExtrusion(entity, axes))
        return;
    const QcGeVector3d along(axis);
    const QcGeVector3d across = QcGeVector3d(axes.ToWorld({0.0, 0.0, 1.0})) * along;
    double turn = std::fmod(end - start, 2.0 * std::numbers::pi);
    if (turn <= 0.0)
        turn += 2.0 * std::numbers::pi;
    std::vector<QcGePoint> points;
    for (std::size_t i = 0; i <= kEllipseChords; ++i) {
        const double angle = start + turn * static_cast<double>(i) / static_cast<double>(kEllipseChords);
        const double c = std::cos(angle);
        const double s = std::sin(angle) * ratio;
        points.push_back({centre.x + along.x * c + across.x * s, centre.y + along.y * c + across.y * s,
                          centre.z + along.z * c + across.z * s});
    }
    AddThrough(points, false, segments);
}

void AddByType(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity,
               std::vector<SceneSegment>& segments) {
    const std::string_view type = entity.Type();
    FlatPath path;
    if (type == "LINE")
        AddLine(entity, segments);
    else if (type == "POLYLINE")
        AddPolyline(drawing, id, entity, segments);
    else if (type == "SPLINE")
        AddSpline(entity, segments);
    else if (type == "ELLIPSE")
        AddEllipse(entity, segments);
    else if ((type == "LWPOLYLINE" && ReadLwPolyline(entity, path)) || (type == "ARC" && ReadArc(entity, path)) ||
             (type == "CIRCLE" && ReadCircle(entity, path)))
        AddPath(path, segments);
}

bool IsFar(const QcGePoint& point) {
    return !(std::fabs(point.x) <= kFarthest && std::fabs(point.y) <= kFarthest && std::fabs(point.z) <= kFarthest);
}

}  // namespace

EntityLines ReadEntityLines(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity) {
    EntityLines lines;
    if (HasThickness(entity))
        return lines;
    AddByType(drawing, id, entity, lines.segments);
    if (std::any_of(lines.segments.begin(), lines.segments.end(),
                    [](const SceneSegment& each) { return IsFar(each.from) || IsFar(each.to); }))
        lines.segments.clear();
    FlatPath path;
    lines.isOutline = !lines.segments.empty() && ReadFlatOutline(drawing, id, entity, path) == FlatOutline::Closed;
    return lines;
}
