// How many entities of which kinds a drawing has, as a text.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/base/CString.h"

// One kind, and how many there are.
struct KindCount {
    std::string type;       // as the file names it, such as LINE
    std::size_t count = 0;  // at least 1 in a list
    // By both.
    bool operator==(const KindCount& other) const = default;
};

// "700 LINE, 11 INSERT": the first ten, and "..." for what is left. Empty for none. What a type consists of is up to
// the file.
CString KindsText(const std::vector<KindCount>& kinds);

// Whether entities of this type are bodies or surfaces that nobody here can read, so that a shadow is missing.
bool IsUnreadBody(const std::string& type);
