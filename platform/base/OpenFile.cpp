// Open files and paths by the system's calls, which are made again when a signal interrupts them.
#include "platform/base/OpenFile.h"

#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <utility>

OpenFile::OpenFile(const std::string& path, int flags, mode_t mode) {
    do
        m_file = open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode);
    while (m_file < 0 && errno == EINTR);
}

OpenFile::OpenFile(OpenFile&& other) noexcept : m_file(std::exchange(other.m_file, -1)) {}

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept {
    std::swap(m_file, other.m_file);
    return *this;
}

OpenFile::~OpenFile() {
    const int error = errno;
    Close();
    errno = error;
}

bool OpenFile::Close() {
    const int file = std::exchange(m_file, -1);
    return file >= 0 && (close(file) == 0 || errno == EINTR);
}

bool OpenFile::Flush() const {
    int result = 0;
    do
        result = fsync(m_file);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

bool OpenFile::Lock() const {
    int result = 0;
    do
        result = flock(m_file, LOCK_EX | LOCK_NB);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

OpenFile OpenFile::Duplicate() const {
    OpenFile other;
    other.m_file = fcntl(m_file, F_DUPFD_CLOEXEC, 0);
    return other;
}

void RemoveQuietly(const std::string& path) {
    const int error = errno;
    unlink(path.c_str());
    errno = error;
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string FollowLinks(std::string path) {
    for (int i = 0; i < kMostLinks; ++i) {
        std::array<char, PATH_MAX> link = {};
        const ssize_t length = readlink(path.c_str(), link.data(), link.size());
        if (length < 0)
            return errno == EINVAL || errno == ENOENT ? path : std::string();  // no link
        const std::string to(link.data(), static_cast<std::size_t>(length));
        path = to.rfind('/', 0) == 0 ? to : FolderOf(path) + "/" + to;
    }
    errno = ELOOP;
    return std::string();
}

bool IsSameFile(const std::string& path, const struct stat& status) {
    struct stat other = {};
    return lstat(path.c_str(), &other) == 0 && other.st_dev == status.st_dev && other.st_ino == status.st_ino;
}
