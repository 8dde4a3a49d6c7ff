// Reads the numbers of a VERTEX.
#include "scene/PolylineVertex.h"

#include "scene/EntityGroups.h"
#include "scene/GroupCodes.h"

namespace {

constexpr int kFirstCorner = 71;

}  // namespace

bool ReadPolylineVertex(const EntityGroups& entity, PolylineVertex& vertex) {
    vertex = PolylineVertex();
    if (!entity.Integer(kFlags, vertex.flags) || !entity.Real(kBulge, vertex.bulge))
        return false;
    for (int i = 0; i < 4; ++i)
        if (!entity.Integer(kFirstCorner + i, vertex.corners[i]))
            return false;
    vertex.hasPoint = entity.Point(kX, vertex.point);
    return true;
}
