// The texts of this library, which are written in Chinese and pass through the language switch like the module's.
#pragma once

#include "platform/base/LibraryTexts.h"

inline constexpr const wchar_t* kFactsTexts = L"ORVOFACTS";

// The text to show for a built-in text of this library.
inline CString FactsText(const wchar_t* text) {
    return TranslateFor(kFactsTexts, text);
}

// Fills a built-in format after translating it.
template <class... Args>
CString FactsFormat(const wchar_t* format, const Args&... args) {
    return FormatFor(kFactsTexts, format, args...);
}
