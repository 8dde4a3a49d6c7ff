// The workbench's own texts, which are written in Chinese and pass through the language switch like the module's.
#pragma once

#include "platform/base/CString.h"
#include "platform/base/TextFormat.h"

// The text to show for a built-in text of the workbench: from its own table first, which bears the key "ORVOWORKBENCH".
CString Say(const wchar_t* text);

// Fills a built-in format after translating it. A translation that asks for other arguments is passed over.
template <class... Args>
CString SayFormat(const wchar_t* format, const Args&... args) {
    const CString translated = Say(format);
    CString text;
    text.Format(HasSameConversions(format, translated) ? translated.GetString() : format, args...);
    return text;
}
