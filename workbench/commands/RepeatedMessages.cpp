// Gathers handles behind the first messages.
#include "workbench/commands/RepeatedMessages.h"

#include <algorithm>

#include "platform/base/TextNumber.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisWords.h"

void RepeatedMessages::Add(std::uint64_t handle, const CString& text) {
    constexpr std::size_t kOneByOne = 10;
    if (std::find(m_texts.begin(), m_texts.end(), text) != m_texts.end())
        return;
    if (m_texts.size() < kOneByOne) {
        m_texts.push_back(text);
        return;
    }
    const auto [place, isNew] = m_places.try_emplace(handle, m_others.size());
    if (isNew)
        m_others.push_back({handle, 0});
    ++m_others[place->second].count;
}

void RepeatedMessages::Take(std::vector<CString>& messages, const wchar_t* format) const {
    constexpr std::size_t kInOne = 50;
    messages.insert(messages.end(), m_texts.begin(), m_texts.end());
    for (std::size_t i = 0; i < m_others.size(); i += kInOne) {
        CString handles;
        int count = 0;
        for (std::size_t k = i; k < std::min(i + kInOne, m_others.size()); ++k) {
            count += m_others[k].count;
            handles += (k == i ? L"" : L" ") + TextOf(m_others[k]);
        }
        messages.push_back(SayFormat(format, count, handles));
    }
}

CString RepeatedMessages::TextOf(const Other& other) {
    const CString handle = HandleOrNone(other.handle);
    return other.count == 1 ? handle : handle + L" (" + IntToText(other.count) + L")";
}
