// Reads the looks of all layers from the table of layers, once.
#include "scene/LayerLook.h"

#include <new>
#include <utility>
#include <vector>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/DrawingUnits.h"
#include "platform/host/DxfScanner.h"
#include "scene/EntityGroups.h"
#include "scene/GroupCodes.h"

namespace {

constexpr int kName = 2;
constexpr int kColor = 62;
constexpr int kTrueColor = 420;
constexpr int kFrozen = 1;
constexpr int kByBlock = 0;
constexpr int kByLayer = 256;
constexpr int kDefaultColor = 7;
constexpr int kMostTrueColor = 0xFFFFFF;

bool IsColor(int color) {
    return color >= 1 && color < kByLayer;
}

int TrueColorOf(const EntityGroups& groups) {
    const int color = groups.IntegerOr(kTrueColor, -1);
    return color >= 0 && color <= kMostTrueColor ? color : -1;
}

LayerLook LookOf(const EntityGroups& record) {
    const int color = record.IntegerOr(kColor, kDefaultColor);
    const bool isFrozen = (record.IntegerOr(kFlags, 0) & kFrozen) != 0;
    LayerLook look;
    look.isFrozen = isFrozen;
    look.isVisible = !isFrozen && color >= 0;
    // The sign says off. Only colours that are one are turned round, so that no number overflows.
    look.color.index = IsColor(color) ? color : color > -kByLayer && color < 0 ? -color : kDefaultColor;
    look.color.trueColor = TrueColorOf(record);
    return look;
}

std::wstring KeyOf(const LayerHeight& height) {
    CString name = height.layer;
    return std::wstring(name.Trim().MakeLower().View());
}

}  // namespace

LayerTable::LayerTable(const AcDbDatabase& drawing, const std::vector<LayerHeight>& heights, CString unseen)
    : m_drawing(drawing), m_unseen(unseen.MakeLower().View()) {
    constexpr double kMillimetresPerMetre = 1000.0;
    const double unitsPerMetre = kMillimetresPerMetre / UnitOf(drawing).millimetres.value_or(1.0);
    for (std::size_t i = 0; i < heights.size(); ++i)
        m_heights.try_emplace(::KeyOf(heights[i]), AskedHeight{i, heights[i].metres * unitsPerMetre});
    std::vector<AcDbObjectId> ids;
    if (!drawing.GetSymbolTableRecords("LAYER", ids))
        throw std::bad_alloc();
    std::vector<DxfGroup> groups;
    for (const AcDbObjectId id : ids) {
        drawing.GetGroups(id, groups);
        const EntityGroups record(std::move(groups));
        if (const DxfGroup* const name = record.Find(kName))
            m_layers.emplace(KeyOf(name->value), LookOf(record));
    }
}

std::wstring LayerTable::KeyOf(std::string_view name) const {
    return std::wstring(m_drawing.Decode(TrimDxfValue(name)).MakeLower().View());
}

bool LayerTable::IsThere(const LayerHeight& height) const {
    return m_layers.contains(::KeyOf(height));
}

const LayerLook& LayerTable::Find(std::string_view name) {
    const auto [known, isNew] = m_known.try_emplace(std::string(name));
    if (isNew) {
        const std::wstring key = KeyOf(name);
        // From now on the drawing has this layer, in whatever table.
        known->second = m_layers.try_emplace(key).first->second;
        if (const auto height = m_heights.find(key); height != m_heights.end())
            known->second.asked = &height->second;
        if (!m_unseen.empty() && key.starts_with(m_unseen)) {
            known->second.isVisible = false;
            known->second.isFrozen = true;
        }
        known->second.number = static_cast<std::uint32_t>(m_names.size());
        m_names.emplace_back(name);
    }
    return known->second;
}

EntityLook ReadLook(const EntityGroups& entity, LayerTable& layers) {
    EntityLook look;
    const std::string_view layer = entity.Layer();
    if (TrimDxfValue(layer) != "0")
        look.layer = &layers.Find(layer);
    look.color = entity.IntegerOr(kColor, kByLayer);
    look.trueColor = TrueColorOf(entity);
    return look;
}

EntityColor Surroundings::ColorOf(const EntityLook& look) const {
    if (IsColor(look.color))
        return {look.color, look.trueColor};
    const EntityColor& inherited = look.color == kByBlock ? color : LayerOf(look).color;
    return {inherited.index, look.trueColor >= 0 ? look.trueColor : inherited.trueColor};
}
