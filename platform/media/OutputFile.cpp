// Writes at given places of a file, repeating the system's calls until everything is written.
#include "platform/media/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace {

// Drops what was written from the front of the pieces.
void Advance(std::vector<iovec>& pieces, std::size_t written) {
    while (!pieces.empty() && written >= pieces.front().iov_len) {
        written -= pieces.front().iov_len;
        pieces.erase(pieces.begin());
    }
    if (!pieces.empty()) {
        pieces.front().iov_base = static_cast<char*>(pieces.front().iov_base) + written;
        pieces.front().iov_len -= written;
    }
}

}  // namespace

OutputFile::~OutputFile() {
    Close();
}

bool OutputFile::Create(const std::string& path) {
    constexpr mode_t kMode = 0666;
    // Without waiting: a pipe that nobody reads would never open.
    do
        m_file = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, kMode);
    while (m_file < 0 && errno == EINTR);
    struct stat status {};
    if (m_file < 0)
        return false;
    // A new file is not emptied: some file systems write out a file that was, whole, when it is closed.
    const bool isUsable = fstat(m_file, &status) == 0 && S_ISREG(status.st_mode);
    if (!isUsable || (status.st_size > 0 && !Truncate(0)))
        Close();
    return IsOpen();
}

bool OutputFile::WriteAt(std::uint64_t offset, const std::vector<Piece>& pieces) const {
    std::vector<iovec> rest;
    for (const Piece& piece : pieces)
        if (piece.size > 0)
            rest.push_back({const_cast<void*>(piece.bytes), piece.size});
    while (!rest.empty()) {
        const ssize_t count = pwritev(m_file, rest.data(), static_cast<int>(rest.size()), static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        offset += static_cast<std::uint64_t>(count);
        Advance(rest, static_cast<std::size_t>(count));
    }
    return true;
}

bool OutputFile::WriteAt(std::uint64_t offset, const std::vector<std::uint8_t>& bytes) const {
    return WriteAt(offset, {{bytes.data(), bytes.size()}});
}

bool OutputFile::Truncate(std::uint64_t size) const {
    int result = 0;
    do
        result = ftruncate(m_file, static_cast<off_t>(size));
    while (result != 0 && errno == EINTR);
    return result == 0;
}

bool OutputFile::HasRoomFor(std::uint64_t bytes) const {
    struct statvfs disk {};
    if (fstatvfs(m_file, &disk) != 0 || disk.f_frsize == 0)
        return true;
    return bytes / disk.f_frsize < disk.f_bavail;
}

bool OutputFile::Close() {
    const int file = std::exchange(m_file, -1);
    return file >= 0 && (close(file) == 0 || errno == EINTR);
}
