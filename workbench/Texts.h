// The workbench's own texts, which are written in Chinese and pass through the language switch like the module's.
// Why: docs/decisions/workbench.md
#pragma once

#include "platform/base/LibraryTexts.h"

inline constexpr const wchar_t* kWorkbenchTexts = L"ORVOWORKBENCH";

// As long as one of these lives, the texts of its thread name fields and buttons where they name options of the command
// line: who sits before the window, or reads a page, knows of no options. The names are those of the panel of analyses.
class FieldWords {
public:
    FieldWords();
    ~FieldWords();
    FieldWords(const FieldWords&) = delete;
    FieldWords& operator=(const FieldWords&) = delete;
};

// What a text calls an option that it gets as a value: itself, or with FieldWords its field.
CString OptionWord(const wchar_t* option);

// The text to show for a built-in text of the workbench.
CString Say(const wchar_t* text);

// Fills a built-in format after translating it.
template <class... Args>
CString SayFormat(const wchar_t* format, const Args&... args) {
    return FillTranslated(format, Say(format), args...);
}
