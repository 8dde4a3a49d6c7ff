// Texts that come from files and arguments, made safe to show.
#pragma once

#include <string>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// The characters of a text, however wide wchar_t is.
ORVO_API std::u32string CodePoints(const CString& text);

// The text with every character that would steer a terminal or turn the direction of writing (controls, line ends,
// direction marks) replaced by U+FFFD. For whatever comes from files and arguments.
ORVO_API CString Printable(const CString& text);
