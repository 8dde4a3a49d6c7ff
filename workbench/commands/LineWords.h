// Splitting a line at the prompt into words.
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"

// Words are separated by white space. Quotes, single or double, hold blanks together and may stand anywhere in a word;
// "" is an empty word. None when a quote is not closed.
std::optional<std::vector<CString>> SplitWords(const CString& line);

// The word at the end of a line that is being typed.
struct BegunWord {
    int start = 0;       // where it begins in the line; at the end of one that ends in a blank
    CString text;        // without its quotes
    wchar_t quote = 0;   // that is still open; 0 for none
    bool isBare = true;  // without any quotes
};
BegunWord LastWord(const CString& line);
