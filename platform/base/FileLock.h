// A lock between programs for one file: whoever holds it may read the file, change it and write it back.
#pragma once

#include <chrono>

#include "platform/base/Api.h"
#include "platform/base/OpenFile.h"

// How long it is worth waiting: longer than a save takes on a slow disk.
inline constexpr std::chrono::milliseconds kLockPatience(3000);

// The lock is a file NAME.lock beside the file (beside what it leads to, where it is a symbolic link), which is removed
// when the lock is released. One that a killed process left behind locks nothing. Only programs that ask for the lock
// are kept out.
class ORVO_API FileLock {
public:
    // Holds no lock.
    FileLock();
    // Releases it.
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    // How taking it ended.
    enum class Taken {
        Yes,         // this object has it
        Busy,        // another one had it all the time
        Impossible,  // no lock can be made there: the folder cannot be written, or its file system has no locks
    };
    // Takes the lock of the file at a path (which need not exist), waiting for others up to `patience`. A lock that
    // this object has already is released first. In the installed data folder, which nobody writes, it is impossible.
    Taken Take(const wchar_t* path, std::chrono::milliseconds patience);
    // Lets others have it; nothing without a lock.
    void Release();
    // Whether this object has a lock.
    bool IsHeld() const { return m_file.IsOpen(); }

private:
    Taken TryOnce();

    std::string m_path;  // of the lock's own file
    OpenFile m_file;
};
