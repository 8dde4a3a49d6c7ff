// What the tests of characters at their places share: a text with one character put in, and its numbers read by hand.
#pragma once

#include <string>

#include "controls/QcSunEdit.h"

// The number at the beginning of some characters, blanks before it passed over.
inline int NumberIn(const std::wstring& text, std::size_t first, std::size_t count) {
    int number = 0;
    std::size_t index = first;
    while (index < first + count && text[index] == L' ')
        ++index;
    for (; index < first + count && text[index] >= L'0' && text[index] <= L'9'; ++index)
        number = number * 10 + (text[index] - L'0');
    return number;
}

inline std::wstring With(std::wstring text, int place, wchar_t character) {
    text[static_cast<std::size_t>(place)] = character;
    return text;
}

// The answer of a kind's test when the caret stands at a place of what the edit shows.
template <class Edit>
bool Asks(Edit& edit, int place, wchar_t character) {
    edit.SetSel(place, place, TRUE);
    return edit.IsValidChar(static_cast<UINT>(character));
}

inline std::wstring TwoDigits(int number) {
    return {static_cast<wchar_t>(L'0' + number / 10), static_cast<wchar_t>(L'0' + number % 10)};
}
