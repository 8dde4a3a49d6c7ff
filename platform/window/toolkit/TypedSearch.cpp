// Compares entries with what was typed, as they stand and in Latin letters.
#include "platform/window/toolkit/TypedSearch.h"

#include <algorithm>

#include "platform/base/LatinNames.h"

namespace {

// Longer than between two keys of somebody who looks for them.
constexpr std::chrono::milliseconds kPause(1500);

bool BeginsWith(const CString& entry, const CString& typed, const CString& latin) {
    if (entry.Left(typed.GetLength()).CompareNoCase(typed) == 0)
        return true;
    return !latin.IsEmpty() && BeginsInLatin(entry, latin);
}

bool IsOneCharacterOnly(const CString& text) {
    const std::wstring_view view = text.View();
    return std::all_of(view.begin(), view.end(), [&view](wchar_t each) { return each == view.front(); });
}

}  // namespace

std::optional<int> TypedSearch::Type(const CString& typed, const std::vector<CString>& entries, int current) {
    const auto now = std::chrono::steady_clock::now();
    const bool isNew = m_typed.IsEmpty() || now - m_lastTyped > kPause;
    m_typed = isNew ? typed : m_typed + typed;
    m_lastTyped = now;
    const auto find = [&](const CString& text, int first) -> std::optional<int> {
        const CString latin = FoldLatin(text);
        const int count = static_cast<int>(entries.size());
        for (int step = 0; step < count; ++step) {
            const int row = (first + step) % count;
            if (BeginsWith(entries[static_cast<std::size_t>(row)], text, latin))
                return row;
        }
        return {};
    };
    const int here = std::max(current, 0);
    if (m_typed.IsEmpty())
        return {};
    // The first character goes on from the current entry; those behind it may stay there.
    if (const std::optional<int> row = find(m_typed, isNew && current >= 0 ? here + 1 : here))
        return row;
    return IsOneCharacterOnly(m_typed) ? find(m_typed.Left(1), here + 1) : std::nullopt;
}
