// Walks over the entities of a drawing for its windows and the texts that may name them, in blocks and outside.
#include "analysis/DrawnWindows.h"

#include <algorithm>
#include <utility>

#include "analysis/BlockWindows.h"
#include "analysis/WindowEntity.h"
#include "analysis/WindowGatherer.h"
#include "analysis/WindowRemarks.h"
#include "analysis/WindowStoreys.h"
#include "analysis/WindowTexts.h"
#include "platform/host/AcDbDatabase.h"
#include "scene/BlockInsert.h"
#include "scene/EntityFaces.h"
#include "scene/EntityGroups.h"
#include "scene/LayerLook.h"

namespace {

class WindowFinder {
public:
    WindowFinder(const AcDbDatabase& drawing, const std::vector<CString>& layers, double millimetres,
                 const PlanRules& plan, std::size_t mostWindows)
        : m_drawing(drawing),
          m_plan(plan),
          m_mostWindows(mostWindows),
          m_layers(drawing),
          m_layer0(m_layers.Find("0")),
          m_gatherer(drawing, m_layers, layers, millimetres, plan),
          m_blocks(drawing, m_layers, m_gatherer, mostWindows) {}

    WindowsOfDrawing Run(double thickness);

private:
    void Take(AcDbObjectId id, const EntityGroups& entity);
    void TakeInsert(AcDbObjectId id, const EntityGroups& entity, const LayerLook& layer);
    void RemarkOnMissed(AcDbObjectId id, const CString& block);
    void Repeat();
    void RemarkOnLayers();

    const AcDbDatabase& m_drawing;
    const PlanRules& m_plan;
    std::size_t m_mostWindows;
    LayerTable m_layers;
    const LayerLook& m_layer0;
    WindowGatherer m_gatherer;
    BlockWindows m_blocks;
    WindowsOfDrawing m_found;
};

WindowsOfDrawing WindowFinder::Run(double thickness) {
    for (std::size_t i = 0; i < m_drawing.GetEntityCount(); ++i) {
        const AcDbObjectId id = m_drawing.GetEntityId(i);
        Take(id, GroupsOf(m_drawing, id));
    }
    m_found.windows = std::move(m_gatherer.windows);
    const std::size_t count =
        m_plan.storeys ? CountWithStoreys(m_found.windows, *m_plan.storeys) : m_found.windows.size();
    if (count > m_mostWindows)
        return {{}, {}, true};
    NameWindows(m_found.windows, m_gatherer.texts, thickness);
    for (const AnalysisRemark& remark : RemarksOnWindows(m_found.windows))
        m_found.remarks.push_back(remark);
    if (m_gatherer.linesWithoutHeight != 0)
        m_found.remarks.push_back(
            {AnalysisRemark::Kind::LinesWithoutHeight, {}, 0, m_gatherer.linesWithoutHeight, 0.0});
    Repeat();
    RemarkOnLayers();
    return std::move(m_found);
}

void WindowFinder::Take(AcDbObjectId id, const EntityGroups& entity) {
    const EntityLook look = ReadLook(entity, m_layers);
    const LayerLook& layer = look.layer ? *look.layer : m_layer0;
    // Asked of all entities: whatever lies on a layer shows that the drawing has it.
    const bool isForWindows = m_gatherer.IsForWindows(layer);
    if (IsPartOfAnother(entity) || !entity.IsInModel())
        return;
    m_gatherer.Begin(m_drawing.GetHandle(id));
    if (entity.Type() == "INSERT")
        return TakeInsert(id, entity, layer);
    if (!isForWindows)
        return;
    m_gatherer.Take(ReadWindowEntity(m_drawing, id, entity, m_gatherer.Millimetres()), Placement(), layer);
    RemarkOnMissed(id, {});
}

void WindowFinder::TakeInsert(AcDbObjectId id, const EntityGroups& entity, const LayerLook& layer) {
    if (layer.isFrozen) {
        if (m_gatherer.IsForWindows(layer))
            m_gatherer.Miss(layer);
        return;
    }
    if (!m_blocks.Take(id, entity, layer))
        m_found.remarks.push_back(
            {AnalysisRemark::Kind::TooManyInBlock, {}, m_drawing.GetHandle(id), m_mostWindows, 0.0});
    BlockInsert insert;
    RemarkOnMissed(id, ReadInsert(entity, insert) ? m_drawing.Decode(insert.name) : CString());
}

void WindowFinder::RemarkOnMissed(AcDbObjectId id, const CString& block) {
    if (m_gatherer.Missed() != 0)
        m_found.remarks.push_back(
            {AnalysisRemark::Kind::NotAWindow, block, m_drawing.GetHandle(id), m_gatherer.Missed(), 0.0});
}

void WindowFinder::Repeat() {
    if (!m_plan.storeys)
        return;
    const std::vector<DrawnWindow>& windows = m_found.windows;
    if (std::any_of(windows.begin(), windows.end(), [](const DrawnWindow& each) { return each.isLine; }))
        RepeatStoreys(m_found.windows, *m_plan.storeys);
    else
        m_found.remarks.push_back({AnalysisRemark::Kind::NothingRepeated, {}, 0, 0, 0.0});
}

void WindowFinder::RemarkOnLayers() {
    std::vector<AnalysisRemark>& remarks = m_found.remarks;
    remarks.insert(remarks.end(), m_gatherer.invisible.begin(), m_gatherer.invisible.end());
    if (!m_gatherer.Layers().AreUsual())
        for (const CString& name : m_gatherer.Layers().Missing())
            remarks.push_back({AnalysisRemark::Kind::LayerMissing, name, 0, 0, 0.0});
    if (m_found.windows.empty())
        remarks.push_back({AnalysisRemark::Kind::NoWindows, {}, 0, 0, 0.0});
}

}  // namespace

WindowsOfDrawing FindWindows(const AcDbDatabase& drawing, const std::vector<CString>& layers, double millimetres,
                             double thickness, const PlanRules& plan, std::size_t mostWindows) {
    return WindowFinder(drawing, layers, millimetres, plan, mostWindows).Run(thickness);
}
