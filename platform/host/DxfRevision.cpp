// Puts the changed text together from what stays and what is new.
#include "platform/host/DxfRevision.h"

#include <algorithm>

namespace {

// Calls `take` with the pieces of the new text, one behind the other.
template <class Take>
void ForEachPiece(const std::map<std::size_t, DxfRevision::Change>& changes, std::string_view text,
                  const DxfIndex& index, const Take& take) {
    std::size_t done = 0;
    for (const auto& [entry, change] : changes) {
        const std::size_t begin = index.GetBegin(entry);
        take(text.substr(done, begin - done));
        take(std::string_view(change.before.text));
        done = begin;
        if (change.isRemoved || change.text) {
            if (!change.isRemoved)
                take(std::string_view(*change.text));
            done = index.GetEnd(entry);
        }
    }
    take(text.substr(done));
}

}  // namespace

void DxfRevision::InsertBefore(std::size_t entry, const DxfNewObjects& objects) {
    DxfNewObjects& before = m_changes[entry].before;
    before.text += objects.text;
    before.count += objects.count;
}

void DxfRevision::Add(const DxfRevision& other) {
    for (const auto& [entry, change] : other.m_changes) {
        InsertBefore(entry, change.before);
        Change& mine = m_changes[entry];
        if (change.text)
            mine.text = change.text;
        mine.isRemoved = mine.isRemoved || change.isRemoved;
    }
}

const std::string* DxfRevision::FindText(std::size_t entry) const {
    const auto found = m_changes.find(entry);
    return found != m_changes.end() && found->second.text ? &*found->second.text : nullptr;
}

bool DxfRevision::Compose(std::string_view text, const DxfIndex& index, DxfFile& result) const {
    std::size_t size = 0;
    ForEachPiece(m_changes, text, index, [&size](std::string_view piece) { size += piece.size(); });
    if (size > kLargestDxfFile)
        return false;
    result = DxfFile(size);
    char* at = result.Data();
    ForEachPiece(m_changes, text, index,
                 [&at](std::string_view piece) { at = std::copy(piece.begin(), piece.end(), at); });
    return true;
}
