// The built-in texts of one library, translated by the table that bears the library's key.
// Why: docs/decisions/base.md
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/PluralForms.h"
#include "platform/base/TextFormat.h"

// The text to show for a built-in text of the library with this key (such as ORVOWORKBENCH): by the library's own table
// first, then by those of the others, as TeskLanguageSwitch::Translate does. Without a language switch, or where no
// table has it, the built-in text itself; null gives an empty text. On any thread, while nobody changes the language.
ORVO_API CString TranslateFor(const wchar_t* key, const wchar_t* text);

// Fills a translated printf-style format (TextFormat.h), which may have singulars (PluralForms.h). One that asks for
// other arguments than the built-in one is passed over for that.
template <class... Args>
CString FillTranslated(const wchar_t* format, const CString& translated, const Args&... args) {
    CString text;
    if (HasSameConversions(format, translated)) {
        const TextArgument list[sizeof...(Args) + 1] = {TextArgument(args)..., TextArgument(0)};
        text.Format(ChooseForms(translated, list, sizeof...(Args)), args...);
    } else {
        text.Format(format, args...);
    }
    return text;
}

// Fills a built-in format after translating it.
template <class... Args>
CString FormatFor(const wchar_t* key, const wchar_t* format, const Args&... args) {
    return FillTranslated(format, TranslateFor(key, format), args...);
}
