// The files that a begun name can become.
#pragma once

#include <vector>

#include "platform/base/CString.h"

// Files and folders whose names begin with what is typed, with the folder as it is typed before them and a / behind
// folders, in the order of the alphabet. Without a point at the beginning hidden ones are left out; so are names that
// cannot be typed in a line: with control characters, with both kinds of quotes, or that are no text. None where the
// folder cannot be read.
std::vector<CString> FileNamesFrom(const CString& begun);
