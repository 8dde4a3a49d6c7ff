// The file that a save writes before it gets its name, and what is left of those whose process died.
// Why: docs/decisions/base.md
#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/base/OpenFile.h"

// What the name of a copy of the file before ends with.
inline constexpr const char* kBackupEnding = ".bak";

// A new file TARGET.saving-PROCESS-NUMBER. Its lock is held as long as this object lives, which is how others tell it
// from one that nobody will ever finish; where the file system has no locks, none is held and none is ever removed.
class TemporaryFile {
public:
    TemporaryFile() = default;
    // Removes the file, unless it has got its name.
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    // False with errno, and nothing is left.
    bool Create(const std::string& target, mode_t mode);
    // Ends the writing but keeps the lock. False when the system tells only now that it could not write.
    bool CloseForWriting();
    int Get() const { return m_file.Get(); }
    const OpenFile& File() const { return m_file; }
    // Empty when there is none.
    const std::string& Name() const { return m_name; }
    // The file bears another name from now on.
    void Forget() { m_name.clear(); }

private:
    bool IsStillOurs() const;

    std::string m_name;
    OpenFile m_file;
    OpenFile m_lock;  // the same open file, once the writing has ended
};

// Removes the temporary files of saves of this target that died, their copies of the file before ("....bak") included.
// Those of saves that go on stay, in whatever process, and so does everything else. Failures do not matter.
void RemoveAbandonedFiles(const std::string& target);
