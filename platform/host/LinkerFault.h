// What the dynamic linker says of a library that it does not open, for people.
#pragma once

#include "platform/base/CString.h"

// In words without a full stop. The linker's own text begins with the file, which whoever tells it has named, and names
// functions as the compiler does.
CString LinkerFault(const CString& path, const char* said);
