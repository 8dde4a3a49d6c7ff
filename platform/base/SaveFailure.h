// What the user is told of a file that could not be saved.
// Why: docs/decisions/base.md
#pragma once

#include "platform/base/CString.h"

// In place of an errno: something is there, but no ordinary file.
inline constexpr int kNoOrdinaryFile = -1;
// In place of an errno: the reader would refuse what was to be saved.
inline constexpr int kUnreadableContent = -2;
// In place of an errno: a folder has the name of the backup.
inline constexpr int kNoRoomForBackup = -3;

// One sentence in the user's language: the file, why it was not saved (an errno, or one of the above), and what to do.
// A path that is null or empty is told as such, whatever the cause.
CString SaveFailureText(const wchar_t* path, int error);
