// Makes temporary files and removes abandoned ones. A file belongs to whoever holds its lock, which ends with the
// process at the latest.
#include "platform/base/TemporaryFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <set>
#include <string_view>

#include "platform/base/Characters.h"

namespace {

constexpr int kMostNames = 10000;
constexpr std::string_view kMark = ".saving-";
constexpr std::string_view kBackup = kBackupEnding;

bool IsNumber(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit<char>);
}

// The temporary file that a name in the folder stands for, or belongs to; empty for all other names.
std::string_view TemporaryOf(std::string_view name, std::string_view target) {
    if (name.substr(0, target.size()) != target)
        return {};
    std::string_view rest = name.substr(target.size());
    if (rest.substr(0, kMark.size()) != kMark)
        return {};
    rest.remove_prefix(kMark.size());
    if (rest.size() > kBackup.size() && rest.substr(rest.size() - kBackup.size()) == kBackup) {
        rest.remove_suffix(kBackup.size());
        name.remove_suffix(kBackup.size());
    }
    const std::size_t dash = rest.find('-');
    const bool isOne =
        dash != std::string_view::npos && IsNumber(rest.substr(0, dash)) && IsNumber(rest.substr(dash + 1));
    return isOne ? name : std::string_view();
}

// A file that is missing is made for the moment: as long as it is locked here, no save can take its name, and the
// copy of the file before is nobody's.
void RemoveIfAbandoned(const std::string& path) {
    const OpenFile file(path, O_RDONLY | O_CREAT | O_NONBLOCK | O_NOFOLLOW, 0600);
    struct stat status = {};
    if (!file.IsOpen() || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode) || !file.Lock() ||
        !IsSameFile(path, status))
        return;
    unlink((path + std::string(kBackup)).c_str());
    unlink(path.c_str());
}

}  // namespace

TemporaryFile::~TemporaryFile() {
    if (!m_name.empty())
        RemoveQuietly(m_name);
}

bool TemporaryFile::Create(const std::string& target, mode_t mode) {
    const std::string stem = target + std::string(kMark) + std::to_string(getpid()) + "-";
    for (int i = 0; i < kMostNames; ++i) {
        m_name = stem + std::to_string(i);
        m_file = OpenFile(m_name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
        if (!m_file.IsOpen()) {
            m_name.clear();
            if (errno == EEXIST)
                continue;
            return false;
        }
        // Between the two steps somebody may have taken it for abandoned.
        const bool isTaken = !m_file.Lock() && errno == EWOULDBLOCK;
        if (!isTaken && IsStillOurs())
            return true;
        m_name.clear();
    }
    errno = EEXIST;
    return false;
}

bool TemporaryFile::IsStillOurs() const {
    struct stat own = {};
    struct stat named = {};
    if (fstat(m_file.Get(), &own) == 0 && lstat(m_name.c_str(), &named) == 0)
        return own.st_dev == named.st_dev && own.st_ino == named.st_ino;
    // A name that is gone may be somebody else's by now.
    if (errno != ENOENT)
        RemoveQuietly(m_name);
    return false;
}

bool TemporaryFile::CloseForWriting() {
    m_lock = m_file.Duplicate();
    return !m_lock.IsOpen() || m_file.Close();
}

void RemoveAbandonedFiles(const std::string& target) {
    const std::string folder = FolderOf(target);
    const std::string name = target.substr(target.rfind('/') + 1);
    std::set<std::string> found;
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(folder.c_str()), closedir);
    while (const dirent* entry = listing ? readdir(listing.get()) : nullptr) {
        const std::string_view temporary = TemporaryOf(entry->d_name, name);
        if (!temporary.empty())
            found.emplace(temporary);
    }
    for (const std::string& each : found)
        RemoveIfAbandoned(folder + "/" + each);
}
