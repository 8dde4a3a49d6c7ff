// Splitting a line at the prompt into words.
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"

// Words are separated by white space. Quotes, single or double, hold blanks together and may stand anywhere in a word;
// "" is an empty word. None when a quote is not closed.
std::optional<std::vector<CString>> SplitWords(const CString& line);
