// Looks through what a scene has passed over.
#include "analysis/SceneRemarks.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/HandleText.h"
#include "scene/Scene.h"

namespace {

using Kind = AnalysisRemark::Kind;

void AddHeights(const Scene& scene, const std::vector<LayerHeight>& heights, std::vector<AnalysisRemark>& remarks) {
    for (std::size_t i = 0; i < scene.heights.size(); ++i) {
        const LayerHeightUse& use = scene.heights[i];
        if (!use.isLayerThere)
            remarks.push_back({Kind::NoLayerToRaise, heights[i].layer, 0, 0, 0.0});
        else if (use.bodyCount == 0)
            remarks.push_back({Kind::NothingToRaise, heights[i].layer, 0, use.openCount, 0.0});
    }
}

// Enough to begin with; a drawing that another program has spoiled may have thousands.
CString HandlesOf(const std::vector<AcDbObjectId>& ids, const AcDbDatabase& drawing) {
    constexpr std::size_t kMostNamed = 20;
    CString handles;
    for (std::size_t i = 0; i < std::min(ids.size(), kMostNamed); ++i) {
        const std::uint64_t handle = drawing.GetHandle(ids[i]);
        handles += (i == 0 ? L"" : L" ") + (handle == 0 ? CString(L"-") : HandleText(handle));
    }
    return ids.size() > kMostNamed ? handles + L" ..." : handles;
}

}  // namespace

std::vector<AnalysisRemark> RemarksOn(const Scene& scene, const AcDbDatabase& drawing,
                                      const std::vector<LayerHeight>& heights, bool hasShadows) {
    std::vector<AnalysisRemark> remarks;
    AddHeights(scene, heights, remarks);
    if (scene.faultyCount != 0)
        remarks.push_back({Kind::Faulty, HandlesOf(scene.faulty, drawing), 0, scene.faultyCount, 0.0});
    for (const AcDbObjectId id : scene.tooLarge)
        remarks.push_back({Kind::TooLarge, {}, drawing.GetHandle(id), 1, 0.0});
    for (const ExternalInsert& each : scene.external)
        remarks.push_back({Kind::External, drawing.Decode(each.name), drawing.GetHandle(each.id), 1, 0.0});
    std::vector<KindCount> bodies;
    std::size_t bodyCount = 0;
    for (const KindCount& kind : scene.passedOver)
        if (IsUnreadBody(kind.type)) {
            bodies.push_back(kind);
            bodyCount += kind.count;
        }
    if (bodyCount != 0)
        remarks.push_back({Kind::WithoutFaces, KindsText(bodies), 0, bodyCount, 0.0});
    if (!hasShadows)
        remarks.push_back({Kind::NoFaces, KindsText(scene.passedOver), 0, scene.flatOutlineCount, 0.0});
    return remarks;
}
