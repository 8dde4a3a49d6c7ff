// Finds entries of a list by what is typed in it, key after key. For the sources of this room only.
#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include "platform/base/CString.h"

class TypedSearch {
public:
    // Adds what was typed to what was typed shortly before. The row of the next entry that begins with it, counted from
    // the current one and around the end; none where no entry does. One character again and again goes from one entry
    // to the next that begins with it.
    std::optional<int> Type(const CString& typed, const std::vector<CString>& entries, int current);
    // What is typed next begins anew.
    void Forget() { m_typed.Empty(); }

private:
    CString m_typed;
    std::chrono::steady_clock::time_point m_lastTyped;
};
