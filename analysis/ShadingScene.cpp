// Leaves the layers of windows out of a scene, and asks the settings for their span.
#include "analysis/ShadingScene.h"

#include <algorithm>
#include <iterator>

#include "analysis/ResultLayers.h"
#include "analysis/SunCount.h"
#include "analysis/WindowLayers.h"
#include "facts/SunDay.h"

namespace {

// Moves the faces of entities that stay together.
void Keep(Scene& scene, const std::vector<SceneEntity>& kept) {
    std::vector<QcGeFace3dEX> faces;
    std::vector<SceneEntity> entities = kept;
    for (SceneEntity& entity : entities) {
        const auto first = scene.faces.begin() + static_cast<std::ptrdiff_t>(entity.firstFace);
        entity.firstFace = faces.size();
        faces.insert(faces.end(), first, first + static_cast<std::ptrdiff_t>(entity.faceCount));
    }
    scene.faces.swap(faces);
    scene.entities = std::move(entities);
}

void FindBox(Scene& scene) {
    bool isFirst = true;
    scene.least = scene.most = QcGePoint();
    for (const QcGeFace3dEX& face : scene.faces)
        for (int i = 0; i < face.GetCornerCount(); ++i) {
            const QcGePoint& at = face.m_pt[i];
            if (isFirst)
                scene.least = scene.most = at;
            isFirst = false;
            scene.least = {std::min(scene.least.x, at.x), std::min(scene.least.y, at.y), std::min(scene.least.z, at.z)};
            scene.most = {std::max(scene.most.x, at.x), std::max(scene.most.y, at.y), std::max(scene.most.z, at.z)};
        }
}

}  // namespace

Scene BuildShadingScene(const AcDbDatabase& drawing, const std::vector<LayerHeight>& heights,
                        const std::vector<CString>& windowLayers) {
    Scene scene = *ReadScene(drawing, heights, nullptr);
    WindowLayers windows(drawing, windowLayers);
    std::vector<SceneEntity> kept;
    std::copy_if(scene.entities.begin(), scene.entities.end(), std::back_inserter(kept),
                 [&](const SceneEntity& entity) { return !windows.Find(scene.layers[entity.layer]); });
    if (kept.size() != scene.entities.size()) {
        Keep(scene, kept);
        FindBox(scene);
    }
    return scene;
}

std::optional<Scene> ReadScene(const AcDbDatabase& drawing, const std::vector<LayerHeight>& heights,
                               const AnalysisProgress& progress) {
    bool isWanted = true;
    SceneOptions options{kMostSceneFaces, heights, kResultLayers};
    options.goOn = [&] { return isWanted = isWanted && (!progress || progress(0, 0)); };
    Scene scene = BuildScene(drawing, options);
    return isWanted ? std::optional(std::move(scene)) : std::nullopt;
}

std::optional<SunPeriod> FindSpan(const DayRequest& request) {
    if (!request.settings.place || !request.settings.place->IsOnTheGlobe() || !request.settings.standard)
        return {};
    const double offset = ComputeSunDay(request.terms, *request.settings.place).BeijingTime(0.0);
    SunPeriod span;
    return SpanOf(request.settings, offset, span) ? std::optional(span) : std::nullopt;
}
