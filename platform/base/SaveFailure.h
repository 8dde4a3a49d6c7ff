// What the user is told of a file that could not be saved.
// Why: docs/decisions/base.md
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// A cause beside those of SaveResult: the reader would refuse what was to be saved.
inline constexpr int kUnreadableContent = -100;

// One sentence in the user's language: the file, why it was not saved (a cause of SaveResult, or the one above), and
// what to do. A path that is null or empty is told as such, whatever the cause.
ORVO_API CString SaveFailureText(const wchar_t* path, int cause);
