// The look-up table of a large dictionary: from a name to the first item that bears it.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>

#include "platform/base/QcDtNameEntry.h"

// Items of equal names hang together in a ring, in the order of the dictionary; the table holds the first of each ring.
// The keys are views of those items' own names, so an item has to leave the table before its name changes.
class QcDtNameIndex {
public:
    QcDtNameEntry* Find(std::wstring_view name) const;
    void Add(QcDtNameEntry* item);
    void Remove(QcDtNameEntry* item);

private:
    // Salted per process: nobody can prepare a file whose names all fall together.
    struct NameHash {
        std::size_t operator()(std::wstring_view name) const;
    };

    using Table = std::unordered_map<std::wstring_view, QcDtNameEntry*, NameHash>;

    void SetFirst(Table::iterator entry, QcDtNameEntry* item);

    Table m_first;
};
