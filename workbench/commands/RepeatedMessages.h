// Messages that say the same of many entities.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/base/CString.h"

// After the first ones only their handles, each once. What stands in one block has one handle, and often one name.
class RepeatedMessages {
public:
    void Add(std::uint64_t handle, const CString& text);
    // `format` takes how many they are, and their handles.
    void Take(std::vector<CString>& messages, const wchar_t* format) const;

private:
    struct Other {
        std::uint64_t handle;
        int count;
    };
    static CString TextOf(const Other& other);

    std::vector<CString> m_texts;
    std::vector<Other> m_others;
    std::unordered_map<std::uint64_t, std::size_t> m_places;
};
