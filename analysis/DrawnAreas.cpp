// Walks over the entities of a drawing for its areas, in blocks and outside.
#include "analysis/DrawnAreas.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

#include "analysis/AreaEntity.h"
#include "analysis/PlacedPoints.h"
#include "analysis/Tolerances.h"
#include "analysis/WindowEntity.h"
#include "analysis/WindowLayers.h"
#include "platform/host/AcDbDatabase.h"
#include "scene/BlockTable.h"
#include "scene/BlockWalk.h"
#include "scene/EntityFaces.h"
#include "scene/EntityGroups.h"

namespace {

using Kind = AreaRemark::Kind;

constexpr double kSagitta = 5.0;  // millimetres
constexpr std::size_t kStepsForEachArea = 4;
constexpr std::size_t kGroupsOfAStep = 16;

Kind KindOf(AreaFault fault) {
    switch (fault) {
        case AreaFault::NotFlat:
            return Kind::NotFlat;
        case AreaFault::Crossed:
            return Kind::Crossed;
        case AreaFault::TooManyCorners:
            return Kind::TooManyCorners;
        case AreaFault::None:
        case AreaFault::Empty:
            break;
    }
    return Kind::Empty;
}

class AreaFinder : private BlockVisitor {
public:
    AreaFinder(const AcDbDatabase& drawing, const std::vector<CString>& layers, double millimetres,
               std::optional<double> level, std::size_t mostAreas)
        : m_drawing(drawing),
          m_mostAreas(mostAreas),
          m_millimetres(millimetres),
          m_level(level),
          m_layers(drawing),
          m_layer0(m_layers.Find("0")),
          m_areaLayers(drawing, layers),
          m_blocks(drawing, m_layers),
          m_walk(*this, kStepsForEachArea * mostAreas) {}

    AreasOfDrawing Run();

private:
    void Take(AcDbObjectId id);
    void TakeInsert(AcDbObjectId id, const EntityGroups& entity, const LayerLook& layer);
    void TakeEntity(AcDbObjectId id, const Placement& placement, const LayerLook& layer);
    Kind AddArea(const AreaEntity& entity, const Placement& placement);
    void Remark(Kind kind);
    void CountInvisible(const LayerLook& layer);
    void RemarkOnLayers();

    bool WantsLayer(const LayerLook& layer) override;
    WantedInBlock CountIn(const Block& block) override;
    void Visit(const Block& block, const Placement& placement, const LayerLook& layer) override;
    void Enter(const LayerLook&) override {}
    void Leave(const LayerLook&) override {}

    const AcDbDatabase& m_drawing;
    std::size_t m_mostAreas;
    double m_millimetres;
    std::optional<double> m_level;
    LayerTable m_layers;
    const LayerLook& m_layer0;
    WindowLayers m_areaLayers;
    BlockTable m_blocks;
    BlockWalk m_walk;
    ArcDivision m_division;
    std::uint64_t m_handle = 0;  // of the entity of the drawing that is taken
    bool m_hasMet = false;       // something of it that is or may be meant for an area
    std::vector<Vector3> m_corners;
    std::vector<AreaRemark> m_invisible;
    AreasOfDrawing m_found;
};

AreasOfDrawing AreaFinder::Run() {
    for (std::size_t i = 0; i < m_drawing.GetEntityCount(); ++i)
        Take(m_drawing.GetEntityId(i));
    RemarkOnLayers();
    return std::move(m_found);
}

void AreaFinder::Take(AcDbObjectId id) {
    const EntityGroups entity = GroupsOf(m_drawing, id);
    const EntityLook look = ReadLook(entity, m_layers);
    const LayerLook& layer = look.layer ? *look.layer : m_layer0;
    // Asked of all entities: whatever lies on a layer shows that the drawing has it.
    const bool isForAreas = WantsLayer(layer);
    if (IsPartOfAnother(entity) || !entity.IsInModel())
        return;
    m_handle = m_drawing.GetHandle(id);
    m_hasMet = false;
    if (entity.Type() == "INSERT")
        TakeInsert(id, entity, layer);
    else if (isForAreas && MayHaveArea(entity.Type()))
        TakeEntity(id, Placement(), layer);
}

void AreaFinder::TakeInsert(AcDbObjectId, const EntityGroups& entity, const LayerLook& layer) {
    BlockInsert insert;
    const Block* const block = !layer.isFrozen && ReadInsert(entity, insert) ? m_blocks.Find(insert.name) : nullptr;
    if (block && !block->isFaulty &&
        !m_walk.Walk(*block, insert, layer, m_mostAreas - std::min(m_found.areas.size(), m_mostAreas)))
        return Remark(Kind::TooManyInBlock);
    if (m_hasMet || !WantsLayer(layer))
        return;
    // On a layer of areas it is meant for some.
    if (layer.isVisible)
        Remark(Kind::NotAnOutline);
    else
        CountInvisible(layer);
}

void AreaFinder::TakeEntity(AcDbObjectId id, const Placement& placement, const LayerLook& layer) {
    m_hasMet = true;
    if (!layer.isVisible)
        return CountInvisible(layer);
    m_division.sagitta = kSagitta / (m_millimetres * placement.stretch);
    const AreaEntity entity = ReadAreaEntity(m_drawing, id, GroupsOf(m_drawing, id), m_division);
    const Kind kind = AddArea(entity, placement);
    if (kind != Kind::NoAreas)
        Remark(kind);
}

// NoAreas where one was added.
Kind AreaFinder::AddArea(const AreaEntity& entity, const Placement& placement) {
    if (!entity.isOutline)
        return Kind::NotAnOutline;
    if (!PlaceOutline(entity.outline, {placement, m_millimetres}, m_corners))
        return entity.outline.isClosed ? Kind::NotAnOutline : Kind::Open;
    if (m_level)
        for (Vector3& corner : m_corners)
            corner.z = *m_level;
    DrawnArea area{m_handle, {}, entity.arcShare};
    const AreaFault fault = FlatAreaOf(m_corners, area.shape);
    if (fault != AreaFault::None)
        return KindOf(fault);
    m_found.areas.push_back(std::move(area));
    return Kind::NoAreas;
}

// Of what an INSERT shows each kind is told once.
void AreaFinder::Remark(Kind kind) {
    const auto isSame = [&](const AreaRemark& each) { return each.kind == kind && each.handle == m_handle; };
    for (auto each = m_found.remarks.rbegin(); each != m_found.remarks.rend() && each->handle == m_handle; ++each)
        if (isSame(*each)) {
            ++each->count;
            return;
        }
    m_found.remarks.push_back({kind, {}, m_handle, 1});
}

void AreaFinder::CountInvisible(const LayerLook& layer) {
    const CString name = m_drawing.Decode(m_layers.Names()[layer.number]).Trim();
    const auto known = std::find_if(m_invisible.begin(), m_invisible.end(),
                                    [&](const AreaRemark& remark) { return remark.subject.CompareNoCase(name) == 0; });
    if (known != m_invisible.end())
        ++known->count;
    else
        m_invisible.push_back({Kind::LayerInvisible, name, 0, 1});
}

void AreaFinder::RemarkOnLayers() {
    std::vector<AreaRemark>& remarks = m_found.remarks;
    remarks.insert(remarks.end(), m_invisible.begin(), m_invisible.end());
    for (const CString& name : m_areaLayers.Missing())
        remarks.push_back({Kind::LayerMissing, name, 0, 0});
    if (m_found.areas.empty())
        remarks.push_back({Kind::NoAreas, {}, 0, 0});
}

bool AreaFinder::WantsLayer(const LayerLook& layer) {
    return m_areaLayers.Find(m_layers.Names()[layer.number]).has_value();
}

WantedInBlock AreaFinder::CountIn(const Block& block) {
    WantedInBlock wanted;
    for (const BlockEntity& entity : block.entities) {
        const bool isOnLayer0 = !entity.look.layer;
        if (!isOnLayer0 && !WantsLayer(*entity.look.layer))
            continue;
        const EntityGroups groups = GroupsOf(m_drawing, entity.id);
        if (groups.Type() == "INSERT" || !MayHaveArea(groups.Type()))
            continue;
        WantedCount& sum = isOnLayer0 ? wanted.onLayer0 : wanted.onOwnLayers;
        ++sum.wanted;
        sum.steps += 1 + groups.All().size() / kGroupsOfAStep;
    }
    return wanted;
}

void AreaFinder::Visit(const Block& block, const Placement& placement, const LayerLook& layer) {
    for (const BlockEntity& entity : block.entities) {
        const LayerLook& own = entity.look.layer ? *entity.look.layer : layer;
        if (!WantsLayer(own))
            continue;
        const EntityGroups groups = GroupsOf(m_drawing, entity.id);
        if (groups.Type() != "INSERT" && MayHaveArea(groups.Type()))
            TakeEntity(entity.id, placement, own);
    }
}

}  // namespace

AreasOfDrawing FindAreas(const AcDbDatabase& drawing, const std::vector<CString>& layers, double millimetres,
                         std::optional<double> level, std::size_t mostAreas) {
    return AreaFinder(drawing, layers, millimetres, level, mostAreas).Run();
}
