// Makes walls and caps. They share their corners, so that they meet exactly.
#include "scene/OutlineBody.h"

#include <algorithm>
#include <utility>

#include "scene/FaceList.h"
#include "scene/FlatPath.h"

namespace {

std::vector<FlatPoint> FlatPoints(const Outline& outline) {
    std::vector<FlatPoint> flat;
    flat.reserve(outline.points.size());
    for (const OutlinePoint& point : outline.points)
        flat.push_back({point.x, point.y, false});
    return flat;
}

// Makes a closed outline counter-clockwise, so that there is one case below.
void MakeCounterClockwise(Outline& outline) {
    if (outline.isClosed && TwiceSignedArea(FlatPoints(outline)) < 0.0)
        std::reverse(outline.points.begin(), outline.points.end());
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

}  // namespace

bool OutlineBody::Prepare(const FlatPath& path, ArcDivision& division) {
    m_caps.clear();
    if (!MakeOutline(path.vertices, path.isClosed, division, m_outline))
        return false;
    MakeCounterClockwise(m_outline);
    if (m_outline.isClosed)
        DividePolygon(FlatPoints(m_outline), m_caps);
    return true;
}

// Seen from above the outside of a counter-clockwise path is on its right, and so are the fronts.
void OutlineBody::AddFaces(const std::vector<QcGePoint>& lower, const std::vector<QcGePoint>& upper,
                           FaceList& faces) const {
    const std::vector<OutlinePoint>& points = m_outline.points;
    for (std::size_t i = 0; i + (m_outline.isClosed ? 0 : 1) < points.size(); ++i) {
        const std::size_t next = (i + 1) % points.size();
        faces.AddPolygon({{lower[i], false},
                          {lower[next], points[next].isInArc},
                          {upper[next], false},
                          {upper[i], points[i].isInArc}});
    }
    for (const PolygonPiece& piece : m_caps)
        AddCap(piece, lower, true, faces);
    for (const PolygonPiece& piece : m_caps)
        AddCap(piece, upper, false, faces);
}
