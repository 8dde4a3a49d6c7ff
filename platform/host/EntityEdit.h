// The changes that a chain makes to one object, gathered before the first of them reaches the drawing.
#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "platform/host/AcDbObjectId.h"
#include "platform/host/DxfGroup.h"
#include "platform/host/EntityNames.h"
#include "platform/host/GroupItems.h"
#include "platform/host/GroupValue.h"

class AcDbDatabase;

class EntityEdit {
public:
    // Both must outlive the edit.
    EntityEdit(AcDbDatabase& drawing, AcDbObjectId id, const std::vector<DxfGroup>& groups);

    // One buffer of the chain after another. False when the drawing cannot hold it; the edit is then of no use.
    bool Take(const resbuf& buffer);

    // Puts everything into the drawing; false when it refuses, and stays as it was.
    bool Apply();

private:
    struct KeptWord {
        NamePlace place;
        std::string handle;
        std::uint64_t word;
    };

    bool Change(std::size_t item, std::size_t occurrence, const GroupValue& value);
    bool Append(std::size_t occurrence, const GroupValue& value);
    void NoteName(std::size_t occurrence, const GroupValue& value, const std::string& handle);
    std::vector<DxfGroup> Result() const;
    bool ReadsBack(const std::vector<DxfGroup>& result) const;

    AcDbDatabase& m_drawing;
    AcDbObjectId m_id;
    const std::vector<DxfGroup>& m_old;
    std::vector<DxfGroup> m_groups;  // as many as the old ones
    std::vector<GroupItem> m_items;
    std::unordered_map<int, std::vector<std::size_t>> m_itemsOf;  // by code
    std::unordered_map<int, std::size_t> m_taken;                 // by code
    std::size_t m_appended = 0;
    std::vector<DxfGroup> m_ownData;
    std::vector<DxfGroup> m_extendedData;
    std::vector<KeptWord> m_words;
};

// A value with the second word of its name, as callers see it.
GroupValue ReadNamedGroup(const AcDbDatabase& drawing, AcDbObjectId owner, const std::vector<DxfGroup>& groups,
                          const GroupItem& item, std::size_t occurrence);
