// Configuration files that the module could not use, about which it says nothing itself: what is in force instead.
// Why: docs/decisions/workbench.md
#pragma once

#include <vector>

#include "platform/base/CString.h"

// Looks at the three files as the module has read them. For one that was found and is damaged, or holds something else
// than it should, what was shipped comes into force, and a message tells the file, the cause and the way back. The file
// itself stays as it is until somebody saves. Only meaningful right after the module was initialised.
void ReplaceUnusableFiles();

// What was said, for a window that opens later.
const std::vector<CString>& MessagesOnUnusableFiles();
