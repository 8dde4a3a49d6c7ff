// Makes faces of SOLID, TRACE, LINE, ARC and CIRCLE; most by way of the polyline that has their shape.
#include "scene/ThickFaces.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "scene/EntityGroups.h"
#include "scene/FaceList.h"
#include "scene/FlatPath.h"
#include "scene/GroupCodes.h"
#include "scene/PolylineFaces.h"

namespace {

constexpr int kSecondPoint = 11;
constexpr int kFourthPoint = 13;
constexpr int kRadius = 40;
constexpr int kStart = 50;
constexpr int kEnd = 51;

// Corners 1, 2, 4, 3: around the shape.
bool ReadCorners(const EntityGroups& entity, QcGePoint (&corners)[4]) {
    constexpr int kCodes[] = {kX, kSecondPoint, kFourthPoint, kSecondPoint + 1};
    for (int i = 0; i < 4; ++i) {
        const bool isAbsent =
            kCodes[i] == kFourthPoint && !entity.Find(kFourthPoint) && !entity.Find(kFourthPoint + 10);
        if (!entity.Point(isAbsent ? kSecondPoint + 1 : kCodes[i], corners[i]))
            return false;
    }
    return true;
}

// A part of a circle as two arcs of a path, so that one all the way round has two ends as well. `degrees` is more than
// 0 and at most 360.
bool ReadRound(const EntityGroups& entity, double start, double degrees, FlatPath& path) {
    path = FlatPath();
    QcGePoint centre;
    double radius = 0.0;
    if (!entity.Point(kX, centre) || !entity.Find(kRadius) || !entity.Real(kRadius, radius) || !(radius > 0.0) ||
        !entity.Real(kThickness, path.thickness) || !ReadExtrusion(entity, path.axes))
        return false;
    path.elevation = centre.z;
    const double bulge = std::tan(degrees / 8.0 * std::numbers::pi / 180.0);
    for (int i = 0; i < 3; ++i) {
        // From the start again where the circle closes, to the last bit.
        const double passed = i == 2 && degrees == 360.0 ? 0.0 : i * degrees / 2.0;
        const double angle = std::remainder(start + passed, 360.0) * std::numbers::pi / 180.0;
        path.vertices.push_back(
            {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle), i < 2 ? bulge : 0.0});
    }
    return true;
}

}  // namespace

bool ReadSolid(const EntityGroups& entity, FlatPath& path) {
    path = FlatPath();
    QcGePoint corners[4];
    if (!ReadCorners(entity, corners) || !entity.Real(kThickness, path.thickness) || !ReadExtrusion(entity, path.axes))
        return false;
    path.isClosed = true;
    path.elevation = corners[0].z;
    for (const QcGePoint& corner : corners)
        path.vertices.push_back({corner.x, corner.y, 0.0});
    return true;
}

bool ReadCircle(const EntityGroups& entity, FlatPath& path) {
    return ReadRound(entity, 0.0, 360.0, path);
}

bool ReadArc(const EntityGroups& entity, FlatPath& path) {
    double start = 0.0;
    double end = 0.0;
    if (!entity.Find(kStart) || !entity.Find(kEnd) || !entity.Real(kStart, start) || !entity.Real(kEnd, end))
        return false;
    double degrees = std::fmod(end - start, 360.0);
    if (degrees <= 0.0)
        degrees += 360.0;
    return ReadRound(entity, start, degrees, path);
}

bool AddSolid(const EntityGroups& entity, ArcDivision& division, FaceList& faces) {
    FlatPath path;
    if (!ReadSolid(entity, path))
        return false;
    if (HasThickness(entity))
        return AddExtruded(path, division, faces);
    QcGePoint corners[4];
    ReadCorners(entity, corners);
    std::vector<FaceCorner> polygon;
    for (const QcGePoint& corner : corners)
        polygon.push_back({path.axes.ToWorld(corner), false});
    faces.AddPolygon(std::move(polygon));
    return true;
}

bool AddLine(const EntityGroups& entity, FaceList& faces) {
    QcGePoint from, to;
    double thickness = 0.0;
    ObjectCoordinates axes;
    if (!entity.Point(kX, from) || !entity.Point(kSecondPoint, to) || !entity.Real(kThickness, thickness) ||
        !ReadExtrusion(entity, axes))
        return false;
    const QcGePoint way = axes.ToWorld({0.0, 0.0, thickness});
    const auto moved = [&](const QcGePoint& point) {
        return QcGePoint(point.x + way.x, point.y + way.y, point.z + way.z);
    };
    if (thickness > 0.0)
        faces.AddPolygon({{from, false}, {to, false}, {moved(to), false}, {moved(from), false}});
    else
        faces.AddPolygon({{moved(from), false}, {moved(to), false}, {to, false}, {from, false}});
    return true;
}

bool AddArc(const EntityGroups& entity, ArcDivision& division, FaceList& faces) {
    FlatPath path;
    return ReadArc(entity, path) && AddExtruded(path, division, faces);
}

bool AddCircle(const EntityGroups& entity, ArcDivision& division, FaceList& faces) {
    FlatPath path;
    return ReadCircle(entity, path) && AddExtruded(path, division, faces);
}
