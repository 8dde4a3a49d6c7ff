// Replaces a file in one step, and keeps the version before.
#pragma once

#include <string_view>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// Whether the reader of a file of this kind accepts the file at a path (as the system takes it).
using FileJudge = bool (*)(const char* path);

// What keeps a file from being saved, beside what the system has an errno for.
inline constexpr int kNoOrdinaryFile = -1;   // something is there, but no ordinary file
inline constexpr int kNoRoomForBackup = -2;  // a folder has the name of the backup
inline constexpr int kInstalledData = -3;    // the place lies in the installed data folder

// How a save ended.
struct [[nodiscard]] SaveResult {
    int cause = 0;  // 0: the file is saved; else an errno or one of the above

    // Whether the file is saved.
    explicit operator bool() const { return cause == 0; }
};

// Makes `bytes` the content of the file at `path`. At every instant, also when the process dies or the power fails, the
// path leads to the whole old file or to the whole new one.
//   - A file that holds these bytes already is not touched, and neither is anything beside it.
//   - The version before becomes NAME.bak, replacing the one there; when `isGood` refuses it (null: nothing is refused)
//     it becomes NAME.refused-1, or the next number that is free, and NAME.bak stays.
//   - Symbolic links stay: what they lead to is replaced. Permissions stay; owner and group where the system allows it.
//   - The folder must exist. A file that may not be read and written, and what is no ordinary file, is refused.
//   - In the installed data folder nothing is written.
// When a step fails the old file stands, and nothing is left beside it but possibly a NAME.bak of the same content. (A
// process that is killed can leave files NAME.saving-*; the next save that writes removes them.) Nobody is told: what
// to say of the cause is the caller's matter (SaveFailureText).
ORVO_API SaveResult SaveFileAtomically(const wchar_t* path, std::string_view bytes, FileJudge isGood);

// Where such a save keeps the version before: NAME.bak, beside what symbolic links lead to. Empty for an empty path,
// null and links that go in a circle.
ORVO_API CString BackupPath(const wchar_t* path);

// Gives the file at `path` the second name NAME.refused-1 (or the next number that is free), under which it outlives
// the saves to come; one that it has already is enough. False where there is no ordinary file, and when it cannot be.
ORVO_API bool KeepRefusedFile(const wchar_t* path);
