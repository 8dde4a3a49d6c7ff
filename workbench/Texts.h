// The workbench's own texts, which are written in Chinese and pass through the language switch like the module's.
#pragma once

#include "platform/base/LibraryTexts.h"

inline constexpr const wchar_t* kWorkbenchTexts = L"ORVOWORKBENCH";

// The text to show for a built-in text of the workbench.
inline CString Say(const wchar_t* text) {
    return TranslateFor(kWorkbenchTexts, text);
}

// Fills a built-in format after translating it.
template <class... Args>
CString SayFormat(const wchar_t* format, const Args&... args) {
    return FormatFor(kWorkbenchTexts, format, args...);
}
