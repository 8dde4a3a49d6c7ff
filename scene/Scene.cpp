// Makes a scene in a walk over the entities of a drawing: which are seen, of which kind each is, and what it looks
// like.
#include "scene/Scene.h"

#include <string_view>
#include <utility>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/DrawingUnits.h"
#include "scene/EntityGroups.h"
#include "scene/Face3dFaces.h"
#include "scene/FaceList.h"
#include "scene/GroupCodes.h"
#include "scene/LayerLook.h"
#include "scene/MeshFaces.h"
#include "scene/PolyfaceFaces.h"
#include "scene/PolylineFaces.h"

namespace {

constexpr int kThreeDimensional = 8;
constexpr int kPolygonMesh = 16;
constexpr int kPolyface = 64;
constexpr double kSagittaInMillimetres = 50.0;

// What an entity turned out to be.
enum class Outcome { Faces, Faulty, Other };

Outcome OutcomeOf(bool isSound) {
    return isSound ? Outcome::Faces : Outcome::Faulty;
}

class SceneBuilder {
public:
    explicit SceneBuilder(const AcDbDatabase& drawing) : m_drawing(drawing), m_layers(drawing) {
        m_division.sagitta = kSagittaInMillimetres / UnitOf(drawing).millimetres.value_or(1.0);
    }
    Scene Run();

private:
    void Take(std::size_t index, const EntityGroups& entity);
    Outcome AddFaces(std::size_t index, const EntityGroups& entity);
    Outcome AddPolyline(std::size_t index, const EntityGroups& entity);

    const AcDbDatabase& m_drawing;
    LayerTable m_layers;
    ArcDivision m_division;
    FaceList m_faces;
    Scene m_scene;
};

Scene SceneBuilder::Run() {
    for (std::size_t i = 0; i < m_drawing.GetEntityCount(); ++i)
        Take(i, GroupsOf(m_drawing, m_drawing.GetEntityId(i)));
    m_faces.MoveTo(m_scene.faces, m_scene.least, m_scene.most);
    return std::move(m_scene);
}

void SceneBuilder::Take(std::size_t index, const EntityGroups& entity) {
    const std::string_view type = entity.Type();
    if (type == "VERTEX" || type == "SEQEND" || type == "ATTRIB")
        return;
    const LayerLook& layer = m_layers.Find(entity.Layer());
    if (!layer.isVisible || !entity.IsInModel())
        return;
    const std::size_t first = m_faces.GetCount();
    const Outcome outcome = AddFaces(index, entity);
    if (outcome == Outcome::Other) {
        ++m_scene.otherCount;
    } else if (outcome == Outcome::Faulty || m_faces.GetCount() == first) {
        m_faces.Shorten(first);
        ++m_scene.faultyCount;
    } else {
        const EntityColor color = ColorOf(entity, layer);
        m_scene.entities.push_back(
            {m_drawing.GetEntityId(index), color.index, color.trueColor, first, m_faces.GetCount() - first});
    }
}

Outcome SceneBuilder::AddFaces(std::size_t index, const EntityGroups& entity) {
    const std::string_view type = entity.Type();
    if (type == "3DFACE")
        return OutcomeOf(AddFace3d(entity, m_faces));
    if (type == "MESH")
        return OutcomeOf(AddMesh(entity, m_faces));
    if (type == "LWPOLYLINE")
        return HasThickness(entity) ? OutcomeOf(AddLwPolyline(entity, m_division, m_faces)) : Outcome::Other;
    return type == "POLYLINE" ? AddPolyline(index, entity) : Outcome::Other;
}

Outcome SceneBuilder::AddPolyline(std::size_t index, const EntityGroups& entity) {
    int flags = 0;
    if (!entity.Integer(kFlags, flags))
        return Outcome::Faulty;
    const bool isMesh = (flags & (kPolyface | kPolygonMesh)) != 0;
    if (!isMesh && ((flags & kThreeDimensional) != 0 || !HasThickness(entity)))
        return Outcome::Other;
    std::vector<PolylineVertex> vertices;
    if (!ReadPolylineVertices(m_drawing, index, vertices))
        return Outcome::Faulty;
    if ((flags & kPolyface) != 0)
        return OutcomeOf(AddPolyface(vertices, m_faces));
    if ((flags & kPolygonMesh) != 0)
        return OutcomeOf(AddPolygonMesh(entity, vertices, m_faces));
    return OutcomeOf(AddPolyline2d(entity, vertices, m_division, m_faces));
}

}  // namespace

Scene BuildScene(const AcDbDatabase& drawing) {
    return SceneBuilder(drawing).Run();
}
