// How wide texts are on a terminal, where some characters take two columns.
#pragma once

#include "platform/base/CString.h"

// How many columns a terminal takes for the text: two for the characters of Chinese, Japanese and Korean writing, none
// for combining marks, else one.
int DisplayWidth(const CString& text);

// The text followed (or preceded) by as many blanks as make it `columns` wide.
CString PadRight(const CString& text, int columns);
CString PadLeft(const CString& text, int columns);
