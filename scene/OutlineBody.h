// What stands over an outline: walls, and the bottom and top of a closed one.
#pragma once

#include <vector>

#include "platform/geometry/QcGePoint.h"
#include "scene/Outline.h"
#include "scene/PolygonTriangles.h"

class FaceList;
struct FlatPath;

class OutlineBody {
public:
    // Divides the arcs of a path, and what it encloses when it is closed; makes a closed one counter-clockwise. False
    // when no two points are left of it, or one lies beyond kFarthest.
    bool Prepare(const FlatPath& path, ArcDivision& division);

    const std::vector<OutlinePoint>& GetPoints() const { return m_outline.points; }
    // The faces between two places of each of the points. The walls of a closed outline face outwards, those of an open
    // one to the right of the path, as long as `upper` lies on that side of `lower` from which the outline is seen as
    // it is in its plane.
    void AddFaces(const std::vector<QcGePoint>& lower, const std::vector<QcGePoint>& upper, FaceList& faces) const;

private:
    Outline m_outline;
    std::vector<PolygonPiece> m_caps;
};
