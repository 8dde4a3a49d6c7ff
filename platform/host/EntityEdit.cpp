// Matches the result buffers of a chain with the groups that an object has, and notes what changes.
#include "platform/host/EntityEdit.h"

#include <algorithm>

#include "platform/host/AcDbDatabase.h"

namespace {

constexpr int kEmbeddedObject = 101;
constexpr int kExtendedData = 1000;

}  // namespace

GroupValue ReadNamedGroup(const AcDbDatabase& drawing, AcDbObjectId owner, const std::vector<DxfGroup>& groups,
                          const GroupItem& item, std::size_t occurrence) {
    GroupValue value = ReadGroup(drawing, groups, item);
    if (value.storage == GroupStorage::Name && value.name[0] != 0)
        value.name[1] = SecondWord({owner, item.code, occurrence}, groups[item.first].value);
    return value;
}

EntityEdit::EntityEdit(AcDbDatabase& drawing, AcDbObjectId id, const std::vector<DxfGroup>& groups)
    : m_drawing(drawing), m_id(id), m_old(groups), m_groups(groups), m_items(GatherGroups(groups)) {
    for (std::size_t i = 0; i < m_items.size(); ++i)
        m_itemsOf[m_items[i].code].push_back(i);
}

bool EntityEdit::Take(const resbuf& buffer) {
    const GroupValue value = ValueOf(buffer);
    const std::size_t occurrence = m_taken[value.code]++;
    const auto found = m_itemsOf.find(value.code);
    if (found == m_itemsOf.end() || occurrence >= found->second.size())
        return Append(occurrence, value);
    return Change(found->second[occurrence], occurrence, value);
}

bool EntityEdit::Change(std::size_t item, std::size_t occurrence, const GroupValue& value) {
    const GroupItem& place = m_items[item];
    const GroupValue old = ReadNamedGroup(m_drawing, m_id, m_old, place, occurrence);
    if (old == value)
        return true;
    const auto first = m_groups.begin() + static_cast<std::ptrdiff_t>(place.first);
    std::vector<DxfGroup> groups(first, first + static_cast<std::ptrdiff_t>(place.count));
    const bool isSameObject = value.storage == GroupStorage::Name && value.name[0] != 0 && value.name[0] == old.name[0];
    if (!isSameObject && !WriteGroup(m_drawing, old, value, groups))
        return false;
    NoteName(occurrence, value, groups.front().value);
    std::move(groups.begin(), groups.end(), first);
    return true;
}

bool EntityEdit::Append(std::size_t occurrence, const GroupValue& value) {
    std::vector<DxfGroup>& end = value.code >= kExtendedData ? m_extendedData : m_ownData;
    if (!WriteNewGroup(m_drawing, value, end))
        return false;
    ++m_appended;
    NoteName(occurrence, value, end.back().value);
    return true;
}

void EntityEdit::NoteName(std::size_t occurrence, const GroupValue& value, const std::string& handle) {
    if (value.storage == GroupStorage::Name)
        m_words.push_back({{m_id, value.code, occurrence}, handle, value.name[0] != 0 ? value.name[1] : 0});
}

std::vector<DxfGroup> EntityEdit::Result() const {
    std::vector<DxfGroup> result = m_groups;
    const auto ownEnd = std::find_if(result.begin(), result.end(), [](const DxfGroup& group) {
        return group.code == kEmbeddedObject || group.code >= kExtendedData;
    });
    result.insert(ownEnd, m_ownData.begin(), m_ownData.end());
    result.insert(result.end(), m_extendedData.begin(), m_extendedData.end());
    return result;
}

// A number that came to stand behind a point without its last coordinates would be read as one of them: 38 behind 18
// and 28, for instance.
bool EntityEdit::ReadsBack(const std::vector<DxfGroup>& result) const {
    return m_appended == 0 || GatherGroups(result).size() == m_items.size() + m_appended;
}

bool EntityEdit::Apply() {
    const std::vector<DxfGroup> result = Result();
    if (!ReadsBack(result))
        return false;
    if (result != m_old && !m_drawing.SetGroups(m_id, result))
        return false;
    for (const KeptWord& kept : m_words)
        KeepSecondWord(kept.place, kept.handle, kept.word);
    return true;
}
