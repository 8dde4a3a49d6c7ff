// Makes walls, bottom and top of a body from the outline of a polyline and its thickness.
#include "scene/PolylineFaces.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "platform/geometry/Tolerance.h"
#include "scene/EntityGroups.h"
#include "scene/FaceList.h"
#include "scene/FlatPath.h"
#include "scene/GroupCodes.h"
#include "scene/PolygonTriangles.h"

namespace {

// The outline in the world at its two heights along the extrusion. Walls and caps share the points, so that they meet
// exactly.
struct Body {
    std::vector<QcGePoint> lower;
    std::vector<QcGePoint> upper;
    std::vector<bool> isInArc;
    bool isClosed = false;
};

Body MakeBody(const Outline& outline, const FlatPath& path) {
    const double end = path.elevation + path.thickness;
    const double low = std::min(path.elevation, end);
    const double high = std::max(path.elevation, end);
    Body body;
    body.isClosed = outline.isClosed;
    body.lower.reserve(outline.points.size());
    body.upper.reserve(outline.points.size());
    for (const OutlinePoint& point : outline.points) {
        body.lower.push_back(path.axes.ToWorld({point.x, point.y, low}));
        body.upper.push_back(path.axes.ToWorld({point.x, point.y, high}));
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

}  // namespace

bool HasThickness(const EntityGroups& entity) {
    double thickness = 0.0;
    return !entity.Real(kThickness, thickness) || std::fabs(thickness) > g_fZero;
}

bool AddExtruded(const FlatPath& path, ArcDivision& division, FaceList& faces) {
    // So far up that the thickness is lost in the rounding, there is no body.
    if (!(std::fabs(path.elevation + path.thickness - path.elevation) > g_fZero))
        return false;
    Outline outline;
    if (!MakeOutline(path.vertices, path.isClosed, division, outline))
        return false;
    MakeCounterClockwise(outline);
    const Body body = MakeBody(outline, path);
    AddWalls(body, faces);
    if (outline.isClosed)
        AddCaps(body, outline, faces);
    return true;
}

bool AddLwPolyline(const EntityGroups& entity, ArcDivision& division, FaceList& faces) {
    FlatPath path;
    return ReadLwPolyline(entity, path) && AddExtruded(path, division, faces);
}

bool AddPolyline2d(const EntityGroups& entity, const std::vector<PolylineVertex>& vertices, ArcDivision& division,
                   FaceList& faces) {
    FlatPath path;
    return ReadPolyline2d(entity, vertices, path) && AddExtruded(path, division, faces);
}
