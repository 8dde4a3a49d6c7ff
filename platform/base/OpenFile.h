// Files by their paths as the system takes them: open ones that close themselves, and what a path leads to.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>

#include <string>

// A file descriptor that closes itself. Programs that are started do not inherit it.
class OpenFile {
public:
    // Not open.
    OpenFile() = default;
    // Opens a path with the flags and the permissions of open(2); errno says why it is not open afterwards.
    OpenFile(const std::string& path, int flags, mode_t mode = 0);
    // Takes the file over; the other one is not open, or has what this one had.
    OpenFile(OpenFile&& other) noexcept;
    OpenFile& operator=(OpenFile&& other) noexcept;
    // Closes the file without hiding why the step before failed.
    ~OpenFile();

    // Whether there is a file.
    bool IsOpen() const { return m_file >= 0; }
    // The descriptor, which stays this object's; -1 for none.
    int Get() const { return m_file; }
    // False when it was not open, or could not be written: some file systems tell only now. (An interrupted close
    // has closed.)
    bool Close();
    // Brings what was written to the disk; false when that fails.
    bool Flush() const;
    // Takes the lock of the open file without waiting. False when another open file has it (errno EWOULDBLOCK), and
    // where the file system has no such locks.
    bool Lock() const;
    // Another descriptor of the same open file, which holds its lock, too; not open when there is none to be had.
    OpenFile Duplicate() const;

private:
    int m_file = -1;
};

// Removes a name without hiding why the step before failed.
void RemoveQuietly(const std::string& path);

// Everything before the last '/'; "/" for a path directly below the root and "." for a bare name.
std::string FolderOf(const std::string& path);

// As many symbolic links in a row as the system itself follows.
inline constexpr int kMostLinks = 40;

// The path behind all symbolic links of its last part, also when they lead nowhere yet; empty for a circle and when a
// link cannot be read; errno says why.
std::string FollowLinks(std::string path);

// Whether the path itself (no link followed) is the file of this status.
bool IsSameFile(const std::string& path, const struct stat& status);
