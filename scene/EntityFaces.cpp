// Goes by an entity's type to what makes faces of it.
#include "scene/EntityFaces.h"

#include <cstddef>
#include <string_view>
#include <vector>

#include "scene/EntityGroups.h"
#include "scene/Face3dFaces.h"
#include "scene/FaceList.h"
#include "scene/GroupCodes.h"
#include "scene/MeshFaces.h"
#include "scene/PolyfaceFaces.h"
#include "scene/PolylineFaces.h"
#include "scene/PolylineFlags.h"
#include "scene/ThickFaces.h"

namespace {

EntityOutcome OutcomeOf(bool isSound) {
    return isSound ? EntityOutcome::Faces : EntityOutcome::Faulty;
}

EntityOutcome AddPolyline(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity,
                          ArcDivision& division, FaceList& faces) {
    int flags = 0;
    if (!entity.Integer(kFlags, flags))
        return EntityOutcome::Faulty;
    const bool isMesh = (flags & (kPolyface | kPolygonMesh)) != 0;
    if (!isMesh && ((flags & kThreeDimensional) != 0 || !HasThickness(entity)))
        return EntityOutcome::Other;
    std::vector<PolylineVertex> vertices;
    if (!ReadPolylineVertices(drawing, id, vertices))
        return EntityOutcome::Faulty;
    if ((flags & kPolyface) != 0)
        return OutcomeOf(AddPolyface(vertices, faces));
    if ((flags & kPolygonMesh) != 0)
        return OutcomeOf(AddPolygonMesh(entity, vertices, faces));
    return OutcomeOf(AddPolyline2d(entity, vertices, division, faces));
}

// Of a kind that has faces only with a thickness.
EntityOutcome AddThick(const EntityGroups& entity, ArcDivision& division, FaceList& faces) {
    if (!HasThickness(entity))
        return EntityOutcome::Other;
    const std::string_view type = entity.Type();
    if (type == "LWPOLYLINE")
        return OutcomeOf(AddLwPolyline(entity, division, faces));
    if (type == "LINE")
        return OutcomeOf(AddLine(entity, faces));
    return OutcomeOf(type == "ARC" ? AddArc(entity, division, faces) : AddCircle(entity, division, faces));
}

EntityOutcome AddByType(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity, ArcDivision& division,
                        FaceList& faces) {
    const std::string_view type = entity.Type();
    if (type == "3DFACE")
        return OutcomeOf(AddFace3d(entity, faces));
    if (type == "MESH")
        return OutcomeOf(AddMesh(entity, faces));
    if (type == "SOLID" || type == "TRACE")
        return OutcomeOf(AddSolid(entity, division, faces));
    if (type == "LWPOLYLINE" || type == "LINE" || type == "ARC" || type == "CIRCLE")
        return AddThick(entity, division, faces);
    return type == "POLYLINE" ? AddPolyline(drawing, id, entity, division, faces) : EntityOutcome::Other;
}

}  // namespace

EntityOutcome AddEntityFaces(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity,
                             ArcDivision& division, FaceList& faces) {
    const std::size_t first = faces.GetCount();
    const EntityOutcome outcome = AddByType(drawing, id, entity, division, faces);
    if (outcome == EntityOutcome::Other || (outcome == EntityOutcome::Faces && faces.GetCount() > first))
        return outcome;
    faces.Shorten(first);
    return EntityOutcome::Faulty;
}

bool IsPartOfAnother(const EntityGroups& entity) {
    const std::string_view type = entity.Type();
    return type == "VERTEX" || type == "SEQEND" || type == "ATTRIB";
}
