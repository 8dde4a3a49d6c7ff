// Takes the faces of a scene over into millimetres.
#include "analysis/OccluderSet.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

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

// Takes over what one entity of the drawing shows, first what stands and then what is of the project.
class Adder {
public:
    Adder(const Scene& scene, double millimetres) : m_scene(scene), m_millimetres(millimetres) {
        m_set.faces.reserve(scene.faces.size());
    }

    void Take(const SceneEntity& shown, bool isProposed) { (isProposed ? m_proposed : m_standing).push_back(&shown); }

    void Add(std::uint64_t handle) {
        const auto number = static_cast<std::uint32_t>(m_set.handles.size());
        for (const bool isProposed : {false, true}) {
            std::vector<const SceneEntity*>& taken = isProposed ? m_proposed : m_standing;
            if (taken.empty())
                continue;
            for (const SceneEntity* const shown : taken)
                AddFaces(*shown);
            taken.clear();
            m_set.handles.push_back(handle);
            m_set.proposed.push_back(isProposed);
            m_set.drawnAs.push_back(number);
        }
    }

    OccluderSet Finish() {
        if (std::find(m_set.proposed.begin(), m_set.proposed.end(), true) == m_set.proposed.end()) {
            m_set.proposed.clear();
            m_set.drawnAs.clear();
        }
        return std::move(m_set);
    }

private:
    void AddFaces(const SceneEntity& shown) {
        for (std::size_t i = 0; i < shown.faceCount; ++i) {
            m_set.faces.push_back(OccluderOf(m_scene.faces[shown.firstFace + i], m_millimetres));
            m_set.faces.back().entity = static_cast<std::uint32_t>(m_set.handles.size());
        }
    }

    const Scene& m_scene;
    double m_millimetres;
    OccluderSet m_set;
    std::vector<const SceneEntity*> m_standing;
    std::vector<const SceneEntity*> m_proposed;
};

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
                          double millimetres, const std::vector<CString>& proposedLayers) {
    WindowLayers windows(drawing, windowLayers);
    std::optional<WindowLayers> proposed;
    if (!proposedLayers.empty())
        proposed.emplace(drawing, proposedLayers);
    Adder adder(scene, millimetres);
    const std::vector<SceneEntity>& entities = scene.entities;
    for (std::size_t first = 0, end = 0; first < entities.size(); first = end) {
        // What one INSERT shows stands together.
        for (end = first; end < entities.size() && entities[end].id == entities[first].id; ++end) {
            const std::string& layer = scene.layers[entities[end].layer];
            if (!windows.Find(layer))
                adder.Take(entities[end], proposed && proposed->Find(layer));
        }
        adder.Add(drawing.GetHandle(entities[first].id));
    }
    OccluderSet set = adder.Finish();
    FindClosedBodies(set);
    return set;
}
