// The names that resource scripts may use without defining them.
#pragma once

#include <string_view>

#include "platform/base/FrameworkTypes.h"

// The value of a name of WindowStyles.h, of IDOK, IDCANCEL, IDYES, IDNO or of IDC_STATIC (here all 32 bits). False for
// any other name.
bool FindResourceName(std::string_view name, DWORD& value);
