// Makes a face of a 3DFACE from its three or four corners, which stand in the world's coordinates.
#include "scene/Face3dFaces.h"

#include "scene/EntityGroups.h"
#include "scene/FaceList.h"

namespace {

constexpr int kFirstCorner = 10;
constexpr int kFourthCorner = 13;
constexpr int kInvisibleEdges = 70;  // bit i: from corner i to the next

}  // namespace

bool AddFace3d(const EntityGroups& entity, FaceList& faces) {
    int invisible = 0;
    if (!entity.Integer(kInvisibleEdges, invisible))
        return false;
    std::vector<FaceCorner> corners(4);
    for (int i = 0; i < 4; ++i) {
        FaceCorner& corner = corners[static_cast<std::size_t>(i)];
        corner.isHidden = (invisible >> i & 1) != 0;
        const int code = kFirstCorner + i;
        const bool isAbsent = code == kFourthCorner && !entity.Find(code) && !entity.Find(code + 10);
        if (isAbsent)
            corner.point = corners[2].point;
        else if (!entity.Point(code, corner.point))
            return false;
    }
    faces.AddPolygon(std::move(corners));
    return true;
}
