// Finds sections and tables by walking over the heads of structure.
#include "platform/host/DxfPlaces.h"

#include <algorithm>

#include "platform/host/DxfDrawing.h"
#include "platform/host/DxfScanner.h"

namespace {

constexpr int kType = 0;
constexpr int kName = 2;

// Sections in the order in which files have them. Those of other names come where they like.
std::size_t RankOf(std::string_view section) {
    constexpr std::array<std::string_view, 8> kOrder = {"HEADER",   "CLASSES", "TABLES",   "BLOCKS",
                                                        "ENTITIES", "OBJECTS", "ACDSDATA", "THUMBNAILIMAGE"};
    const auto* const found = std::find(kOrder.begin(), kOrder.end(), section);
    return found == kOrder.end() ? 0 : static_cast<std::size_t>(found - kOrder.begin());
}

}  // namespace

std::string_view FirstDxfValue(std::string_view text, int code) {
    DxfScanner scanner(text);
    DxfRawGroup group;
    while (scanner.Next(group))
        if (group.code == code)
            return TrimDxfValue(group.ValueIn(text));
    return {};
}

DxfPlaces::DxfPlaces(const DxfDrawing& drawing) {
    const DxfIndex& index = drawing.GetIndex();
    m_fileEnd = index.GetCount() - 1;
    for (std::size_t entry = 0; entry < m_fileEnd; ++entry) {
        const DxfKind kind = index.GetKind(entry);
        if (kind != DxfKind::Structure && kind != DxfKind::TableHead)
            continue;
        const std::string_view text = drawing.TextOf(entry);
        const std::string_view type = FirstDxfValue(text, kType);
        if (kind == DxfKind::TableHead)
            m_tables.push_back({FirstDxfValue(text, kName), {entry, entry}});
        else if (type == "SECTION")
            m_sections.push_back({FirstDxfValue(text, kName), entry, entry});
        else if (type == "ENDSEC")
            m_sections.back().tail = entry;
        else if (type == "ENDTAB" && !m_tables.empty() && m_tables.back().place.tail == m_tables.back().place.head)
            m_tables.back().place.tail = entry;
    }
}

std::size_t DxfPlaces::GetSectionEnd(std::string_view section) const {
    const auto found = std::find_if(m_sections.rbegin(), m_sections.rend(),
                                    [section](const Section& each) { return each.name == section; });
    return found == m_sections.rend() ? DxfIndex::kNone : found->tail;
}

std::size_t DxfPlaces::GetPlaceOfNew(std::string_view section) const {
    const std::size_t rank = RankOf(section);
    const auto later = std::find_if(m_sections.begin(), m_sections.end(),
                                    [rank](const Section& each) { return RankOf(each.name) > rank; });
    return later == m_sections.end() ? m_fileEnd : later->head;
}

DxfTable DxfPlaces::GetTable(std::string_view table) const {
    const auto found =
        std::find_if(m_tables.rbegin(), m_tables.rend(), [table](const Table& each) { return each.name == table; });
    return found == m_tables.rend() ? DxfTable() : found->place;
}
