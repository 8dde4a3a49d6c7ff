// Reads the plane and the vertices of flat polylines.
#include "scene/FlatPath.h"

#include <cmath>
#include <cstddef>

#include "scene/EntityGroups.h"
#include "scene/GroupCodes.h"
#include "scene/PolylineFlags.h"

namespace {

constexpr int kElevationOfPolyline = 30;
constexpr int kElevation = 38;
constexpr int kVertexCount = 90;

bool ReadPlane(const EntityGroups& entity, int elevationCode, FlatPath& path) {
    return entity.Real(elevationCode, path.elevation) && entity.Real(kThickness, path.thickness) &&
           ReadExtrusion(entity, path.axes);
}

}  // namespace

bool IsUpright(const FlatPath& path) {
    constexpr double kUpright = 1e-9;
    return std::fabs(path.axes.ToWorld({0.0, 0.0, 1.0}).z) <= kUpright;
}

bool ReadLwPolyline(const EntityGroups& entity, FlatPath& path) {
    path = FlatPath();
    int flags = 0;
    int claimed = -1;
    if (!ReadPlane(entity, kElevation, path) || !entity.Integer(kFlags, flags) ||
        !entity.Integer(kVertexCount, claimed))
        return false;
    path.isClosed = (flags & kClosedPolyline) != 0;
    std::vector<OutlineVertex>& vertices = path.vertices;
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
    return nextCode == kX && (claimed < 0 || static_cast<std::size_t>(claimed) == vertices.size());
}

bool ReadPolyline2d(const EntityGroups& entity, const std::vector<PolylineVertex>& vertices, FlatPath& path) {
    path = FlatPath();
    if (!ReadPlane(entity, kElevationOfPolyline, path))
        return false;
    path.isClosed = (entity.IntegerOr(kFlags, 0) & kClosedPolyline) != 0;
    path.vertices.reserve(vertices.size());
    for (const PolylineVertex& vertex : vertices) {
        if ((vertex.flags & kFramePoint) != 0)
            continue;
        if (!vertex.hasPoint)
            return false;
        path.vertices.push_back({vertex.point.x, vertex.point.y, vertex.bulge});
    }
    return true;
}
