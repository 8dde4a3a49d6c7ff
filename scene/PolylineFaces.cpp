// Makes walls, bottom and top of a body from the outline of a polyline and its thickness.
#include "scene/PolylineFaces.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "platform/geometry/Tolerance.h"
#include "scene/EntityGroups.h"
#include "scene/FaceList.h"
#include "scene/ObjectCoordinates.h"
#include "scene/PolygonTriangles.h"

namespace {

constexpr int kX = 10;
constexpr int kY = 20;
constexpr int kElevationOfPolyline = 30;
constexpr int kElevation = 38;
constexpr int kThickness = 39;
constexpr int kBulge = 42;
constexpr int kFlags = 70;
constexpr int kClosed = 1;
constexpr int kVertexCount = 90;
constexpr int kExtrusion = 210;

// What stands above the outline: where it begins, how far it goes and in which direction.
struct Extrusion {
    double m_fElevation = 0.0;
    double m_fThickness = 0.0;
    ObjectCoordinates m_axes;
};

bool ReadExtrusion(const EntityGroups& entity, int elevationCode, Extrusion& extrusion) {
    QcGePoint direction(0.0, 0.0, 1.0);
    if (!entity.Real(elevationCode, extrusion.m_fElevation) || !entity.Real(kThickness, extrusion.m_fThickness) ||
        !entity.Real(kExtrusion, direction.x) || !entity.Real(kExtrusion + 10, direction.y) ||
        !entity.Real(kExtrusion + 20, direction.z))
        return false;
    // So far up that the thickness is lost in the rounding, there is no body.
    if (!(std::fabs(extrusion.m_fElevation + extrusion.m_fThickness - extrusion.m_fElevation) > g_fZero))
        return false;
    // The world's own axis leaves the coordinates as they are.
    return direction == QcGePoint(0.0, 0.0, 1.0) || extrusion.m_axes.SetExtrusion(QcGeVector3d(direction));
}

// The outline in the world at its two heights along the extrusion. Walls and caps share the points, so that they meet
// exactly.
struct Body {
    std::vector<QcGePoint> m_lower;
    std::vector<QcGePoint> m_upper;
    std::vector<bool> m_isInArc;
    bool m_bClosed = false;
};

Body MakeBody(const Outline& outline, const Extrusion& extrusion) {
    const double end = extrusion.m_fElevation + extrusion.m_fThickness;
    const double low = std::min(extrusion.m_fElevation, end);
    const double high = std::max(extrusion.m_fElevation, end);
    Body body;
    body.m_bClosed = outline.m_bClosed;
    body.m_lower.reserve(outline.m_points.size());
    body.m_upper.reserve(outline.m_points.size());
    for (const OutlinePoint& point : outline.m_points) {
        body.m_lower.push_back(extrusion.m_axes.ToWorld({point.x, point.y, low}));
        body.m_upper.push_back(extrusion.m_axes.ToWorld({point.x, point.y, high}));
        body.m_isInArc.push_back(point.m_bInArc);
    }
    return body;
}

// Seen from the extrusion's end the outside of a counter-clockwise path is on its right, and so are the fronts.
void AddWalls(const Body& body, FaceList& faces) {
    const std::size_t count = body.m_lower.size();
    for (std::size_t i = 0; i + (body.m_bClosed ? 0 : 1) < count; ++i) {
        const std::size_t next = (i + 1) % count;
        faces.AddPolygon({{body.m_lower[i], false},
                          {body.m_lower[next], body.m_isInArc[next]},
                          {body.m_upper[next], false},
                          {body.m_upper[i], body.m_isInArc[i]}});
    }
}

// One piece of a bottom or top. Turned round, the edge from corner i to the next is the one that came before.
void AddCap(const PolygonPiece& piece, const std::vector<QcGePoint>& points, bool isTurned, FaceList& faces) {
    std::vector<FaceCorner> corners;
    const int count = piece.m_nCount;
    for (int i = 0; i < count; ++i) {
        const int from = isTurned ? count - 1 - i : i;
        const int edge = isTurned ? (from + count - 1) % count : from;
        corners.push_back({points[piece.m_nCorner[from]], piece.m_bHidden[edge]});
    }
    faces.AddPolygon(std::move(corners));
}

void AddCaps(const Body& body, const Outline& outline, FaceList& faces) {
    std::vector<FlatPoint> flat;
    flat.reserve(outline.m_points.size());
    for (const OutlinePoint& point : outline.m_points)
        flat.push_back({point.x, point.y, false});
    std::vector<PolygonPiece> pieces;
    if (!DividePolygon(flat, pieces))
        return;
    for (const PolygonPiece& piece : pieces)
        AddCap(piece, body.m_lower, true, faces);
    for (const PolygonPiece& piece : pieces)
        AddCap(piece, body.m_upper, false, faces);
}

double TwiceAreaOf(const Outline& outline) {
    std::vector<FlatPoint> flat;
    flat.reserve(outline.m_points.size());
    for (const OutlinePoint& point : outline.m_points)
        flat.push_back({point.x, point.y, false});
    return TwiceSignedArea(flat);
}

// Makes a closed outline counter-clockwise, so that there is one case below.
void MakeCounterClockwise(Outline& outline) {
    if (outline.m_bClosed && TwiceAreaOf(outline) < 0.0)
        std::reverse(outline.m_points.begin(), outline.m_points.end());
}

bool AddExtruded(const std::vector<OutlineVertex>& vertices, bool isClosed, const Extrusion& extrusion,
                 ArcDivision& division, FaceList& faces) {
    Outline outline;
    if (!MakeOutline(vertices, isClosed, division, outline))
        return false;
    MakeCounterClockwise(outline);
    const Body body = MakeBody(outline, extrusion);
    AddWalls(body, faces);
    if (outline.m_bClosed)
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
            vertices.back().m_fBulge = value;
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
        if ((vertex.m_nFlags & kFramePoint) != 0)
            continue;
        if (!vertex.m_bPoint)
            return false;
        path.push_back({vertex.m_pt.x, vertex.m_pt.y, vertex.m_fBulge});
    }
    return AddExtruded(path, (entity.IntegerOr(kFlags, 0) & kClosed) != 0, extrusion, division, faces);
}
