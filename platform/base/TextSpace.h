// Which characters separate words and numbers.
#pragma once

#include "platform/base/Api.h"

// White space as texts are trimmed of it and as the number readers skip it: blanks, tabs, line ends and the wide blanks
// of Unicode.
ORVO_API bool IsTextSpace(wchar_t character);
