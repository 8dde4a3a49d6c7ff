// What a dictionary knows of each of its items while it looks for one.
#pragma once

#include <cstdint>

#include "platform/base/CString.h"

// The base of an item. But for the name it belongs to the dictionary that the item lies in.
struct QcDtNameEntry {
    CString m_name;             // the key
    std::uint64_t m_order = 0;  // rises along the dictionary's sequence
    // The ring of items that bear the same name, in the order of the dictionary; null as long as it has no index.
    QcDtNameEntry* m_nextSame = nullptr;
    QcDtNameEntry* m_previousSame = nullptr;
};
