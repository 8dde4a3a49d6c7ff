// How a line that is being typed can go on.
#pragma once

#include <functional>
#include <vector>

#include "platform/base/CString.h"

struct LineCompletion {
    // The words that the last one of the line may become; empty when there is none.
    std::vector<CString> choices;
    // What can be added to the line because all of them agree on it; behind the only one a blank, unless it is a folder
    // and goes on. Empty when they go different ways at once.
    CString rest;
    // How many characters before the cursor it takes the place of: the whole word, where that has to stand in quotes.
    int replaced = 0;
};

// Is given the line up to the cursor. Throws nothing: it is called while a key is being handled.
using LineCompleter = std::function<LineCompletion(const CString& line)>;
