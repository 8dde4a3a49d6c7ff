// Puts the spellings of a layer together, and counts what lies on it.
#include "workbench/window/LayerRows.h"

#include <algorithm>
#include <map>

#include "platform/host/AcDbDatabase.h"
#include "scene/Scene.h"
#include "workbench/view/IndexColors.h"

std::vector<LayerRow> LayerRowsOf(const Scene& scene, const AcDbDatabase& drawing) {
    std::map<std::wstring, LayerRow> rows;
    std::vector<LayerRow*> byNumber;
    for (std::size_t i = 0; i < scene.layers.size(); ++i) {
        CString name = drawing.Decode(scene.layers[i]);
        CString key = name.Trim();
        const std::wstring same(key.MakeLower().View());
        LayerRow& row = rows[same];
        if (row.numbers.empty()) {
            const SceneLayer& look = scene.looks[i];
            row.name = name;
            row.key = same;
            row.rgb = look.trueColor >= 0 ? look.trueColor : RgbOfColorIndex(look.colorIndex);
            row.isVisible = look.isVisible;
        }
        row.numbers.push_back(static_cast<std::uint32_t>(i));
        byNumber.push_back(&row);
    }
    for (const SceneEntity& entity : scene.entities)
        byNumber[entity.layer]->faceCount += entity.faceCount;
    for (const SceneLineRun& run : scene.lines.runs)
        byNumber[run.layer]->segmentCount += run.count;
    std::vector<LayerRow> sorted;
    for (auto& [key, row] : rows)
        if (!row.isVisible || row.faceCount > 0 || row.segmentCount > 0)
            sorted.push_back(std::move(row));
    return sorted;
}
