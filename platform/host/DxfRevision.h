// Changes to a drawing's text, gathered by the entries of its index.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/host/DxfFile.h"
#include "platform/host/DxfIndex.h"

// Objects to be put into a drawing: their text, and how many there are.
struct DxfNewObjects {
    std::string text;
    std::size_t count = 0;
};

class DxfRevision {
public:
    // What becomes of an entry.
    struct Change {
        DxfNewObjects before;             // what comes in front of it
        std::optional<std::string> text;  // what stands in its place
        bool isRemoved = false;
    };

    // The last entry, the end of the file, can only be inserted before.
    void Replace(std::size_t entry, std::string text) { m_changes[entry].text = std::move(text); }
    void Remove(std::size_t entry) { m_changes[entry].isRemoved = true; }
    // Behind what has been put there already.
    void InsertBefore(std::size_t entry, const DxfNewObjects& objects);
    // All changes of another revision of the same text; a replacement there counts more than one here.
    void Add(const DxfRevision& other);

    const std::map<std::size_t, Change>& GetChanges() const { return m_changes; }
    // An entry's replacement; null where it has none.
    const std::string* FindText(std::size_t entry) const;

    // The text that `text`, which the index is of, becomes; false when that is too large for a file.
    bool Compose(std::string_view text, const DxfIndex& index, DxfFile& result) const;

private:
    std::map<std::size_t, Change> m_changes;
};
