// Counting in how many windows' answers each entity stands.
#include "workbench/commands/ShadingEntities.h"

#include <algorithm>
#include <unordered_map>

#include "analysis/WindowAnalysis.h"
#include "platform/host/AcDbDatabase.h"

namespace {

std::vector<std::uint64_t> HidersOf(const std::vector<HiddenPeriod>& list) {
    std::vector<std::uint64_t> hiders;
    for (const HiddenPeriod& hidden : list)
        hiders.insert(hiders.end(), hidden.by.begin(), hidden.by.end());
    std::sort(hiders.begin(), hiders.end());
    hiders.erase(std::unique(hiders.begin(), hiders.end()), hiders.end());
    return hiders;
}

}  // namespace

std::vector<ShadingEntity> ShadingEntitiesOf(const AcDbDatabase& drawing, const AnalysisAnswer& answer,
                                             HiddenList list) {
    std::unordered_map<std::uint64_t, std::size_t> windows;
    for (const WindowResult& window : answer.windows)
        for (const std::uint64_t handle : HidersOf(window.*list))
            ++windows[handle];
    std::vector<ShadingEntity> entities;
    for (const auto& [handle, count] : windows)
        entities.push_back({handle, WordsOfEntity(drawing, drawing.FindHandle(handle)), count});
    std::sort(entities.begin(), entities.end(), [](const ShadingEntity& left, const ShadingEntity& right) {
        return left.windows != right.windows ? left.windows > right.windows : left.handle < right.handle;
    });
    return entities;
}
