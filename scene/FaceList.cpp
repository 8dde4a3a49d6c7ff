// Divides polygons in space into faces.
#include "scene/FaceList.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geometry/DotProduct.h"
#include "geometry/QcGeFace3dEX.h"
#include "platform/geometry/QcGeVector3d.h"
#include "platform/geometry/Tolerance.h"
#include "scene/EntityGroups.h"
#include "scene/HiddenEdge.h"
#include "scene/Placement.h"
#include "scene/PolygonTriangles.h"

namespace {

constexpr double kPlaneTolerance = 1e-6;

double Distance(const QcGePoint& a, const QcGePoint& b) {
    return (b - a).Length();
}

// Whether three corners have an area, by the measure that polygons are divided with.
bool IsTriangle(const QcGePoint& a, const QcGePoint& b, const QcGePoint& c) {
    const double longest = std::max({Distance(a, b), Distance(b, c), Distance(c, a)});
    return ((b - a) * (c - a)).Length() > LeastTwiceArea(longest);
}

// The sum of the cross products around the polygon: at right angles to it, and twice its area long.
QcGeVector3d AreaVector(const std::vector<FaceCorner>& corners) {
    QcGeVector3d sum;
    for (std::size_t i = 1; i + 1 < corners.size(); ++i) {
        const QcGeVector3d cross = (corners[i].point - corners[0].point) * (corners[i + 1].point - corners[0].point);
        sum = {sum.x + cross.x, sum.y + cross.y, sum.z + cross.z};
    }
    return sum;
}

void DropRepeated(std::vector<FaceCorner>& corners) {
    std::vector<FaceCorner> kept;
    kept.reserve(corners.size());
    for (const FaceCorner& corner : corners)
        if (!kept.empty() && Distance(kept.back().point, corner.point) < g_fZero)
            kept.back().isHidden = corner.isHidden;
        else
            kept.push_back(corner);
    while (kept.size() > 1 && Distance(kept.back().point, kept.front().point) < g_fZero)
        kept.pop_back();
    corners.swap(kept);
}

// Whether four corners are flat enough for one face.
bool IsFlat(const std::vector<FaceCorner>& corners) {
    double size = 0.0;
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t k = i + 1; k < 4; ++k)
            size = std::max(size, Distance(corners[i].point, corners[k].point));
    const QcGeVector3d normal = (corners[1].point - corners[0].point) * (corners[2].point - corners[0].point);
    const double height = std::fabs(Dot(normal, corners[3].point - corners[0].point));
    return height <= kPlaneTolerance * size * normal.Length();
}

// The polygon seen along the axis that it faces most, running there as it does seen from its front.
std::vector<FlatPoint> Flattened(const std::vector<FaceCorner>& corners, const QcGeVector3d& area) {
    const double x = std::fabs(area.x);
    const double y = std::fabs(area.y);
    const double z = std::fabs(area.z);
    std::vector<FlatPoint> flat;
    flat.reserve(corners.size());
    for (const FaceCorner& corner : corners) {
        const QcGePoint& p = corner.point;
        if (z >= x && z >= y)
            flat.push_back({p.x, p.y, corner.isHidden});
        else if (x >= y)
            flat.push_back({p.y, p.z, corner.isHidden});
        else
            flat.push_back({p.z, p.x, corner.isHidden});
    }
    return flat;
}

}  // namespace

void FaceList::Shorten(std::size_t count) {
    m_faces.resize(std::min(count, m_faces.size()));
}

void FaceList::AddFace(const FaceCorner* corners, int count) {
    Face face;
    face.count = count;
    for (int i = 0; i < count; ++i) {
        face.points[i] = corners[i].point;
        face.isHidden[i] = corners[i].isHidden;
    }
    m_faces.push_back(face);
}

void FaceList::AddTriangle(const FaceCorner& a, const FaceCorner& b, const FaceCorner& c) {
    if (!IsTriangle(a.point, b.point, c.point))
        return;
    const FaceCorner corners[] = {a, b, c};
    AddFace(corners, 3);
}

void FaceList::AddPolygon(std::vector<FaceCorner> corners) {
    DropRepeated(corners);
    if (corners.size() < 3)
        return;
    if (corners.size() == 3)
        AddTriangle(corners[0], corners[1], corners[2]);
    else if (corners.size() == 4 && !IsFlat(corners))
        AddHalves(corners);
    else
        AddDivided(corners);
}

bool FaceList::AddPlaced(const FaceList& from, std::size_t first, std::size_t count, const Placement& placement) {
    for (std::size_t i = first; i < first + count; ++i)
        if (!AddPlaced(from.m_faces[i], placement))
            return false;
    return true;
}

bool FaceList::AddPlaced(const Face& face, const Placement& placement) {
    std::vector<FaceCorner> corners;
    const int count = face.count;
    corners.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const int at = placement.isMirrored ? count - 1 - i : i;
        // Turned round, the edge from a corner to the next is the one that came before it.
        const int edge = placement.isMirrored ? (at + count - 1) % count : at;
        const QcGePoint point = placement.PointAt(face.points[at]);
        if (!(std::fabs(point.x) <= kFarthest && std::fabs(point.y) <= kFarthest && std::fabs(point.z) <= kFarthest))
            return false;
        corners.push_back({point, face.isHidden[edge]});
    }
    AddPolygon(std::move(corners));
    return true;
}

void FaceList::AddHalves(const std::vector<FaceCorner>& corners) {
    const FaceCorner toFirst{corners[2].point, true};
    const FaceCorner toThird{corners[0].point, true};
    AddTriangle(corners[0], corners[1], toFirst);
    AddTriangle(toThird, corners[2], corners[3]);
}

void FaceList::AddDivided(const std::vector<FaceCorner>& corners) {
    const QcGeVector3d area = AreaVector(corners);
    std::vector<PolygonPiece> pieces;
    if (!DividePolygon(Flattened(corners, area), pieces)) {
        if (corners.size() == 4)
            AddHalves(corners);
        return;
    }
    for (const PolygonPiece& piece : pieces) {
        FaceCorner face[4];
        for (int i = 0; i < piece.count; ++i)
            face[i] = {corners[piece.corners[i]].point, piece.isHidden[i]};
        if (piece.count == 4)
            AddFace(face, 4);
        else
            AddTriangle(face[0], face[1], face[2]);
    }
}

void FaceList::MoveTo(std::vector<QcGeFace3dEX>& faces, QcGePoint& least, QcGePoint& most) {
    faces.reserve(m_faces.size());
    for (const Face& from : m_faces) {
        // Many readers will ask for the normal, perhaps at once: it is computed here and kept.
        QcGeFace3dEX& face = faces.emplace_back(from.points, from.count, true);
        for (int i = 0; i < from.count; ++i)
            face.m_flag[i] = from.isHidden[i] ? kHiddenEdge : 0;
        face.GetNormal();
        for (int i = 0; i < from.count; ++i) {
            const QcGePoint& p = from.points[i];
            const bool isFirst = faces.size() == 1 && i == 0;
            least = isFirst ? p : QcGePoint(std::min(least.x, p.x), std::min(least.y, p.y), std::min(least.z, p.z));
            most = isFirst ? p : QcGePoint(std::max(most.x, p.x), std::max(most.y, p.y), std::max(most.z, p.z));
        }
    }
    std::vector<Face>().swap(m_faces);
}
