// Texts as a manual page takes them.
#pragma once

#include <string>

#include "platform/base/CString.h"

// Every character as itself, whatever the formatter would make of it; words of Chinese may be broken anywhere. What
// stands between `backquotes` is bold, with hyphens that can be copied.
std::string Prose(const CString& text);

// What is typed: in bold, or in italics for what is put in its place.
std::string Bold(const CString& text);
std::string Italic(const CString& text);

// What is typed, as it is.
std::string Typed(const CString& text);
