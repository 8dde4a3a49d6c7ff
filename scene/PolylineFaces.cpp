// Makes walls, bottom and top of a body from the outline of a polyline and its thickness.
#include "scene/PolylineFaces.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "platform/geometry/Tolerance.h"
#include "scene/EntityGroups.h"
#include "scene/FaceList.h"
#include "scene/GroupCodes.h"
#include "scene/ObjectCoordinates.h"
#include "scene/PolygonTriangles.h"

namespace {

constexpr int kElevationOfPolyline = 30;
constexpr int kElevation = 38;
constexpr int kThickness = 39;
constexpr int kClosed = 1;
constexpr int kVertexCount = 90;
constexpr int kExtrusion = 210;

// What stands above the outline: where it begins, how far it goes and in which direction.
struct Extrusion {
    double elevation = 0.0;
    double thickness = 0.0;
    ObjectCoordinates axes;
};

bool ReadExtrusion(const EntityGroups& entity, int elevationCode, Extrusion& extrusion) {
    QcGePoint direction(0.0, 0.0, 1.0);
    if (!entity.Real(elevationCode, extrusion.elevation) || !entity.Real(kThickness, extrusion.thickness) ||
        !entity.Real(kExtrusion, direction.x) || !entity.Real(kExtrusion + 10, direction.y) ||
        !entity.Real(kExtrusion + 20, direction.z))
        return false;
    // So far up that the thickness is lost in the rounding, there is no body.
    if (!(std::fabs(extrusion.elevation + extrusion.thickness - extrusion.elevation) > g_fZero))
        return false;
    // The world's own axis leaves the coordinates as they are.
    return direction == QcGePoint(0.0, 0.0, 1.0) || extrusion.axes.SetExtrusion(QcGeVector3d(direction));
}

// The outline in the world at its two heights along the extrusion. Walls and caps share the points, so that they meet
// exactly.
struct Body {
    std::vector<QcGePoint> lower;
    std::vector<QcGePoint> upper;
    std::vector<bool> isInArc;
    bool isClosed = false;
};

Body MakeBody(const Outline& outline, const Extrusion& extrusion) {
    const double end = extrusion.elevation + extrusion.thickness;
    const double low = std::min(extrusion.elevation, end);
    const double high = std::max(extrusion.elevation, end);
    Body body;
    body.isClosed = outline.isClosed;
    body.lower.reserve(outline.points.size());
    body.upper.reserve(outline.points.size());
    for (const OutlinePoint& point : outline.points) {
        body.lower.push_back(extrusion.axes.ToWorld({point.x, point.y, low}));
        body.upper.push_back(extrusion.axes.ToWorld({point.x, point.y, high}));
        body.isInArc.push_back(point.isInArc);
    }
    return body;
}

// Seen from the extrusion's end the outside of a counter-clockwise path is on its right, and so are the fronts.
void AddWalls(const Body& body, FaceList& faces) {
    const std::size_t count = body.lower.size();
    for (std::size_t i = 0; i + (body.isClosed ? 0 : 1) < count; ++i) {
        const std::size_t next = (i + 1) % count;
        faces.AddPolygon({{body.lower[i], false},
                          {body.lower[next], body.isInArc[next]},
                          {body.upper[next], false},
                          {body.upper[i], body.isInArc[i]}});
    }
}

// One piece of a bottom or top. Turned round, the edge from corner i to the next is the one that came before.
void AddCap(const PolygonPiece& piece, const std::vector<QcGePoint>& points, bool isTurned, FaceList& faces) {
    std::vector<FaceCorner> corners;
    const int count = piece.count;
    for (int i = 0; i < count; ++i) {
        const int from = isTurned ? count - 1 - i : i;
        const int edge = isTurned ? (from + count - 1) % count : from;
        corners.push_back({points[piece.corners[from]], piece.isHidden[edge]});
    }
    faces.AddPolygon(std::move(corners));
}

void AddCaps(const Body& body, const Outline& outline, FaceList& faces) {
    std::vector<FlatPoint> flat;
    flat.reserve(outline.points.size());
    for (const OutlinePoint& point : outline.points)
        flat.push_back({point.x, point.y, false});
    std::vector<PolygonPiece> pieces;
    if (!DividePolygon(flat, pieces))
        return;
    for (const PolygonPiece& piece : pieces)
        AddCap(piece, body.lower, true, faces);
    for (const PolygonPiece& piece : pieces)
        AddCap(piece, body.upper, false, faces);
}

double TwiceAreaOf(const Outline& outline) {
    std::vector<FlatPoint> flat;
    flat.reserve(outline.points.size());
    for (const OutlinePoint& point : outline.points)
        flat.push_back({point.x, point.y, false});
    return TwiceSignedArea(flat);
}

// Makes a closed outline counter-clockwise, so that there is one case below.
void MakeCounterClockwise(Outline& outline) {
    if (outline.isClosed && TwiceAreaOf(outline) < 0.0)
        std::reverse(outline.points.begin(), outline.points.end());
}

bool AddExtruded(const std::vector<OutlineVertex>& vertices, bool isClosed, const Extrusion& extrusion,
                 ArcDivision& division, FaceList& faces) {
    Outline outline;
    if (!MakeOutline(vertices, isClosed, division, outline))
        return false;
    MakeCounterClockwise(outline);
    const Body body = MakeBody(outline, extrusion);
    AddWalls(body, faces);
    if (outline.isClosed)
        AddCaps(body, outline, faces);
    return true;
}

}  // namespace

bool HasThickness(const EntityGroups& entity) {
    double thickness = 0.0;
    return !entity.Real(kThickness, thickness) || std::fabs(thickness) > g_fZero;
}

bool AddLwPolyline(const EntityGroups& entity, ArcDivision& division, FaceList& faces) {
    Extrusion extrusion;
    int flags = 0;
    int claimed = -1;
    if (!ReadExtrusion(entity, kElevation, extrusion) || !entity.Integer(kFlags, flags) ||
        !entity.Integer(kVertexCount, claimed))
        return false;
    std::vector<OutlineVertex> vertices;
    int nextCode = kX;
    for (const DxfGroup& group : entity.All()) {
        if (group.code != kX && group.code != kY && group.code != kBulge)
            continue;
        double value = 0.0;
        if (!ReadReal(group.value, value) || (group.code != kBulge && group.code != nextCode))
            return false;
        if (group.code == kX) {
            vertices.push_back({value, 0.0, 0.0});
            nextCode = kY;
        } else if (vertices.empty()) {
            return false;
        } else if (group.code == kY) {
            vertices.back().y = value;
            nextCode = kX;
        } else {
            vertices.back().bulge = value;
        }
    }
    const bool isComplete = claimed < 0 || static_cast<std::size_t>(claimed) == vertices.size();
    return nextCode == kX && isComplete && AddExtruded(vertices, (flags & kClosed) != 0, extrusion, division, faces);
}

bool AddPolyline2d(const EntityGroups& entity, const std::vector<PolylineVertex>& vertices, ArcDivision& division,
                   FaceList& faces) {
    Extrusion extrusion;
    if (!ReadExtrusion(entity, kElevationOfPolyline, extrusion))
        return false;
    std::vector<OutlineVertex> path;
    path.reserve(vertices.size());
    for (const PolylineVertex& vertex : vertices) {
        if ((vertex.flags & kFramePoint) != 0)
            continue;
        if (!vertex.hasPoint)
            return false;
        path.push_back({vertex.point.x, vertex.point.y, vertex.bulge});
    }
    return AddExtruded(path, (entity.IntegerOr(kFlags, 0) & kClosed) != 0, extrusion, division, faces);
}
