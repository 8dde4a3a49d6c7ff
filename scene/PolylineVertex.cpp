// Reads the numbers of a VERTEX.
#include "scene/PolylineVertex.h"

#include "platform/host/AcDbDatabase.h"
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

bool ReadPolylineVertices(const AcDbDatabase& drawing, AcDbObjectId polyline, std::vector<PolylineVertex>& vertices) {
    for (AcDbObjectId id = drawing.GetNextObject(polyline); !id.isNull(); id = drawing.GetNextObject(id)) {
        const EntityGroups entity = GroupsOf(drawing, id);
        if (entity.Type() != "VERTEX")
            break;
        PolylineVertex vertex;
        if (!ReadPolylineVertex(entity, vertex))
            return false;
        vertices.push_back(vertex);
    }
    return true;
}
