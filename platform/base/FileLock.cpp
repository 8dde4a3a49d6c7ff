// Takes and releases the lock. Its file may vanish between being opened and being locked, since its holder removes it:
// then the next try makes it anew.
#include "platform/base/FileLock.h"

#include <unistd.h>

#include <cerrno>
#include <thread>

#include "platform/base/CString.h"
#include "platform/base/Support.h"

namespace {

constexpr std::chrono::milliseconds kPause(20);

}  // namespace

FileLock::FileLock() = default;

FileLock::~FileLock() {
    Release();
}

FileLock::Taken FileLock::Take(const wchar_t* path, std::chrono::milliseconds patience) {
    Release();
    const std::string target = path && *path ? FollowLinks(ToUtf8(path)) : std::string();
    if (target.empty() || IsInstalledDataPath(FromUtf8(target)))
        return Taken::Impossible;
    m_path = target + ".lock";
    const auto end = std::chrono::steady_clock::now() + patience;
    Taken taken = TryOnce();
    while (taken == Taken::Busy && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kPause);
        taken = TryOnce();
    }
    return taken;
}

FileLock::Taken FileLock::TryOnce() {
    OpenFile file(m_path, O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK, 0666);
    if (!file.IsOpen() && errno == EACCES)
        file =
            OpenFile(m_path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);  // another user's, which can be locked all the same
    struct stat status = {};
    if (!file.IsOpen() || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode))
        return Taken::Impossible;
    if (!file.Lock())
        return errno == EWOULDBLOCK ? Taken::Busy : Taken::Impossible;
    if (!IsSameFile(m_path, status))
        return Taken::Busy;  // its holder has just removed it
    m_file = std::move(file);
    return Taken::Yes;
}

void FileLock::Release() {
    if (!m_file.IsOpen())
        return;
    RemoveQuietly(m_path);
    m_file.Close();
}
