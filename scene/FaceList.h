// The faces of a drawing while they are gathered, before anybody knows how many there will be.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/geometry/QcGePoint.h"

class QcGeFace3dEX;
struct Placement;

// A corner, and whether the edge from it to the next one is not to be drawn.
struct FaceCorner {
    QcGePoint point;
    bool isHidden = false;
};

class FaceList {
public:
    std::size_t GetCount() const { return m_faces.size(); }
    // Takes back the faces from `count` on.
    void Shorten(std::size_t count);

    // The polygon with these corners, whose last joins the first. Corners closer than g_fZero to the next are dropped
    // with the edge between. A flat convex quadrilateral is one face; one that is not flat (a corner farther from the
    // plane of the others than a millionth of the longest side or diagonal) is two, divided between corners 0 and 2,
    // and so is one that crosses itself; all else becomes triangles. What has no area adds nothing.
    void AddPolygon(std::vector<FaceCorner> corners);
    // The faces of another list from `first` on, where a placement puts them; what has no area there adds nothing. A
    // placement that mirrors turns their order round, so that what faced outwards still does. False when a corner lies
    // beyond kFarthest.
    bool AddPlaced(const FaceList& from, std::size_t first, std::size_t count, const Placement& placement);
    // A face as it is: the caller knows that its three or four corners are sound.
    void AddFace(const FaceCorner* corners, int count);

    // All faces with their normals ready, and the box around them.
    void MoveTo(std::vector<QcGeFace3dEX>& faces, QcGePoint& least, QcGePoint& most);

private:
    // Much smaller than a face, and moved in one piece when the list grows.
    struct Face {
        QcGePoint points[4];
        bool isHidden[4] = {false, false, false, false};
        int count = 3;
    };

    bool AddPlaced(const Face& face, const Placement& placement);
    void AddTriangle(const FaceCorner& a, const FaceCorner& b, const FaceCorner& c);
    void AddDivided(const std::vector<FaceCorner>& corners);
    void AddHalves(const std::vector<FaceCorner>& corners);

    std::vector<Face> m_faces;
};
