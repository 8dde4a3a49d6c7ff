// Texts as a terminal can show them: free of control characters, and lined up although some characters are two columns
// wide.
#pragma once

#include <string>

#include "platform/base/CString.h"

// The characters of a text, however wide wchar_t is.
std::u32string CodePoints(const CString& text);

// The text with every character that would steer a terminal or turn the direction of writing (controls, line ends,
// direction marks) replaced by U+FFFD. For whatever comes from files and arguments.
CString Printable(const CString& text);

// How many columns a terminal takes for the text: two for the characters of Chinese, Japanese and Korean writing, none
// for combining marks, else one.
int DisplayWidth(const CString& text);

// The text followed (or preceded) by as many blanks as make it `columns` wide.
CString PadRight(const CString& text, int columns);
CString PadLeft(const CString& text, int columns);
