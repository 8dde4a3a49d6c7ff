// Texts and numbers as pages and pictures take them.
#pragma once

#include <string>

#include "platform/base/CString.h"

// A text as it stands between tags and in attributes, in UTF-8: what would end or begin either is escaped, and
// characters that XML does not know (controls, halves of pairs) are U+FFFD.
std::string Markup(const CString& text);

// A number with at most three decimals, without an exponent and without a zero that says nothing, whatever the locale;
// one that is not finite is 0, and one beyond a million million is that.
std::string Coordinate(double value);
