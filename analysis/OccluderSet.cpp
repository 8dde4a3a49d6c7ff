// Takes the faces of a scene over into millimetres.
#include "analysis/OccluderSet.h"

#include "analysis/WindowLayers.h"
#include "platform/host/AcDbDatabase.h"
#include "scene/Scene.h"

namespace {

Occluder OccluderOf(const QcGeFace3dEX& face, double millimetres) {
    Occluder occluder;
    occluder.count = face.GetCornerCount();
    for (int i = 0; i < occluder.count; ++i)
        occluder.corners[i] = Vector3{face.m_pt[i].x, face.m_pt[i].y, face.m_pt[i].z} * millimetres;
    return occluder;
}

}  // namespace

Vector3 Occluder::Middle() const {
    Vector3 sum;
    for (int i = 0; i < count; ++i)
        sum = sum + (corners[i] - corners[0]);
    return corners[0] + sum * (1.0 / count);
}

Vector3 Occluder::Normal() const {
    return count == 4 ? Cross(corners[2] - corners[0], corners[3] - corners[1])
                      : Cross(corners[1] - corners[0], corners[2] - corners[0]);
}

OccluderSet MakeOccluders(const Scene& scene, const AcDbDatabase& drawing, const std::vector<CString>& windowLayers,
                          double millimetres) {
    WindowLayers layers(drawing, windowLayers);
    OccluderSet set;
    set.faces.reserve(scene.faces.size());
    AcDbObjectId before;
    for (const SceneEntity& entity : scene.entities) {
        if (layers.Find(scene.layers[entity.layer]))
            continue;
        // What one INSERT shows stands together.
        if (entity.id != before)
            set.handles.push_back(drawing.GetHandle(entity.id));
        before = entity.id;
        const auto number = static_cast<std::uint32_t>(set.handles.size() - 1);
        for (std::size_t i = 0; i < entity.faceCount; ++i) {
            set.faces.push_back(OccluderOf(scene.faces[entity.firstFace + i], millimetres));
            set.faces.back().entity = number;
        }
    }
    FindClosedBodies(set);
    return set;
}
