// Compares the names of layers with those of windows, once for each.
#include "analysis/WindowLayers.h"

#include <algorithm>
#include <new>

#include "analysis/ResultLayers.h"
#include "analysis/UsualWindowLayers.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/DxfScanner.h"
#include "scene/EntityGroups.h"

namespace {

constexpr int kName = 2;

std::wstring KeyOf(CString name) {
    return std::wstring(name.Trim().MakeLower().View());
}

}  // namespace

WindowLayers::WindowLayers(const AcDbDatabase& drawing, const std::vector<CString>& names)
    : m_drawing(drawing), m_areUsual(names.empty()) {
    for (const CString& name : names)
        m_layers.push_back({name, KeyOf(name)});
    if (m_areUsual)
        for (const wchar_t* const name : kUsualWindowLayers)
            m_layers.push_back({name, KeyOf(name)});
    std::vector<AcDbObjectId> records;
    if (!drawing.GetSymbolTableRecords("LAYER", records))
        throw std::bad_alloc();
    for (const AcDbObjectId id : records) {
        const EntityGroups record = GroupsOf(drawing, id);
        if (const DxfGroup* const name = record.Find(kName))
            Find(name->value);
    }
}

std::optional<std::uint32_t> WindowLayers::IndexOf(std::string_view name) const {
    const CString text = m_drawing.Decode(TrimDxfValue(name));
    if (IsResultLayer(text))
        return {};
    const std::wstring key = KeyOf(text);
    const auto layer =
        std::find_if(m_layers.begin(), m_layers.end(), [&](const Layer& each) { return each.key == key; });
    if (layer == m_layers.end())
        return {};
    return static_cast<std::uint32_t>(layer - m_layers.begin());
}

std::optional<std::uint32_t> WindowLayers::Find(std::string_view name) {
    const auto [known, isNew] = m_known.try_emplace(std::string(name));
    if (isNew) {
        known->second = IndexOf(name);
        if (known->second)
            m_layers[*known->second].isThere = true;
    }
    return known->second;
}

std::vector<CString> WindowLayers::Missing() const {
    std::vector<CString> names;
    for (const Layer& layer : m_layers)
        if (!layer.isThere && std::none_of(m_layers.begin(), m_layers.end(),
                                           [&](const Layer& other) { return other.isThere && other.key == layer.key; }))
            names.push_back(layer.name);
    return names;
}
