// Saves a file step by step: temporary file, flush, backup, rename, flush of the folder.
#include "platform/base/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/base/CString.h"
#include "platform/base/OpenFile.h"
#include "platform/base/Support.h"
#include "platform/base/TemporaryFile.h"

namespace {

constexpr int kMostNames = 10000;
constexpr mode_t kPermissionBits = 07777;
constexpr auto kSameUser = static_cast<uid_t>(-1);

bool FailWith(int error) {
    errno = error;
    return false;
}

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (count < 0 && errno == EINTR)
            continue;
        else
            return count < 0 ? false : FailWith(EIO);
    }
    return true;
}

// The next bytes of a file: how many, 0 at its end, -1 for a failure.
ssize_t ReadSome(int file, char* buffer, std::size_t size) {
    ssize_t count = 0;
    do
        count = read(file, buffer, size);
    while (count < 0 && errno == EINTR);
    return count;
}

class AtomicSave {
public:
    explicit AtomicSave(std::string target) : m_target(std::move(target)), m_folder(FolderOf(m_target)) {}
    ~AtomicSave();
    AtomicSave(const AtomicSave&) = delete;
    AtomicSave& operator=(const AtomicSave&) = delete;

    // The steps. Where one is false or finds the file unusable, errno says why.
    enum class Present { None, Same, Other, Unusable };
    Present LookAtPresent(std::string_view bytes);
    bool WriteTemporary(std::string_view bytes);
    bool KeepPresent(FileJudge isGood);
    bool Replace();
    // Instead of these: keeps the present file as a refused one, whatever it is.
    bool OnlyKeep();

private:
    bool TakeOverRights(int file) const;
    bool KeepAsBackup();
    bool KeepAsRefused();
    bool Copy(const std::string& from, const std::string& to) const;
    void Undo();

    std::string m_target;
    std::string m_folder;
    struct stat m_status = {};  // of the present file
    bool m_hasPresent = false;
    TemporaryFile m_temporary;
    std::string m_kept;        // the present file's second name
    bool m_isKeptNew = false;  // and it is to go when the save fails
};

AtomicSave::~AtomicSave() {
    if (m_isKeptNew)
        RemoveQuietly(m_kept);
}

AtomicSave::Present AtomicSave::LookAtPresent(std::string_view bytes) {
    // Looked at before it is opened, since opening a device can do things.
    if (stat(m_target.c_str(), &m_status) != 0)
        return errno == ENOENT ? Present::None : Present::Unusable;
    if (!S_ISREG(m_status.st_mode)) {
        errno = kNoOrdinaryFile;
        return Present::Unusable;
    }
    const OpenFile file(m_target, O_RDONLY | O_NONBLOCK);
    if (!file.IsOpen() || fstat(file.Get(), &m_status) != 0)
        return Present::Unusable;
    if (!S_ISREG(m_status.st_mode)) {
        errno = kNoOrdinaryFile;
        return Present::Unusable;
    }
    m_hasPresent = true;
    bool isSame = static_cast<std::uint64_t>(m_status.st_size) == bytes.size();
    while (isSame) {
        std::array<char, 65536> buffer;
        const ssize_t count = ReadSome(file.Get(), buffer.data(), buffer.size());
        if (count < 0)
            return Present::Unusable;
        if (count == 0)
            break;
        const std::string_view part(buffer.data(), static_cast<std::size_t>(count));
        isSame = bytes.substr(0, part.size()) == part;
        bytes.remove_prefix(std::min(part.size(), bytes.size()));
    }
    if (isSame && bytes.empty())
        return Present::Same;
    // Renaming would get round a protection against writing.
    return faccessat(AT_FDCWD, m_target.c_str(), W_OK, AT_EACCESS) == 0 ? Present::Other : Present::Unusable;
}

bool AtomicSave::TakeOverRights(int file) const {
    struct stat own = {};
    if (fstat(file, &own) != 0)
        return false;
    // Only a privileged process can give a file to another user; a member can give it to its group. What is not allowed
    // is left: the new file is then the user's own.
    if (own.st_uid != m_status.st_uid && fchown(file, m_status.st_uid, m_status.st_gid) != 0 && errno != EPERM)
        return false;
    if (own.st_gid != m_status.st_gid && fchown(file, kSameUser, m_status.st_gid) != 0 && errno != EPERM)
        return false;
    return fchmod(file, m_status.st_mode & kPermissionBits) == 0;
}

bool AtomicSave::WriteTemporary(std::string_view bytes) {
    RemoveAbandonedFiles(m_target);
    // A new file gets what the user's mask allows, a replacement nothing before it has the rights of the old one.
    return m_temporary.Create(m_target, m_hasPresent ? 0600 : 0666) && WriteAll(m_temporary.Get(), bytes) &&
           (!m_hasPresent || TakeOverRights(m_temporary.Get())) && m_temporary.File().Flush() &&
           m_temporary.CloseForWriting();
}

bool AtomicSave::KeepPresent(FileJudge isGood) {
    if (!m_hasPresent)
        return true;
    return !isGood || isGood(m_target.c_str()) ? KeepAsBackup() : KeepAsRefused();
}

bool AtomicSave::OnlyKeep() {
    const bool isKept = m_hasPresent && KeepAsRefused();
    m_isKeptNew = m_isKeptNew && !isKept;
    return isKept;
}

// The backup appears in one step too: a second name first, which then takes the place of the backup before.
bool AtomicSave::KeepAsBackup() {
    const std::string second = m_temporary.Name() + kBackupEnding;
    if (link(m_target.c_str(), second.c_str()) != 0 && !Copy(m_target, second)) {
        RemoveQuietly(second);
        return false;
    }
    m_kept = m_target + kBackupEnding;
    const bool isGood = rename(second.c_str(), m_kept.c_str()) == 0;
    if (!isGood && errno == EISDIR)
        errno = kNoRoomForBackup;
    // Renaming does nothing when both names lead to the same file already.
    RemoveQuietly(second);
    return isGood;
}

bool AtomicSave::KeepAsRefused() {
    for (int i = 1; i < kMostNames; ++i) {
        m_kept = m_target + ".refused-" + std::to_string(i);
        // A save that was killed may have kept this very file.
        if (IsSameFile(m_kept, m_status))
            return true;
        struct stat other = {};
        if (lstat(m_kept.c_str(), &other) == 0)
            continue;
        m_isKeptNew = link(m_target.c_str(), m_kept.c_str()) == 0 || (errno != EEXIST && Copy(m_target, m_kept));
        if (m_isKeptNew || errno != EEXIST)
            return m_isKeptNew;
    }
    return FailWith(EEXIST);
}

// For file systems without hard links. `to` must not exist yet.
bool AtomicSave::Copy(const std::string& from, const std::string& to) const {
    const OpenFile source(from, O_RDONLY | O_NONBLOCK);
    OpenFile copy(to, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
    if (!copy.IsOpen())
        return false;
    bool isGood = source.IsOpen();
    std::array<char, 65536> buffer;
    while (isGood) {
        const ssize_t count = ReadSome(source.Get(), buffer.data(), buffer.size());
        if (count == 0)
            break;
        isGood = count > 0 && WriteAll(copy.Get(), {buffer.data(), static_cast<std::size_t>(count)});
    }
    isGood = isGood && TakeOverRights(copy.Get()) && copy.Flush() && copy.Close();
    if (!isGood) {
        RemoveQuietly(to);
        if (errno == EEXIST)
            errno = EIO;  // the copy was made: it is not the name that is taken
    }
    return isGood;
}

bool AtomicSave::Replace() {
    const OpenFile folder(m_folder, O_RDONLY | O_DIRECTORY);
    if (!folder.IsOpen() || rename(m_temporary.Name().c_str(), m_target.c_str()) != 0)
        return false;
    // Some file systems cannot flush a folder and say so.
    if (!folder.Flush() && errno != EINVAL) {
        const int error = errno;
        Undo();
        return FailWith(error);
    }
    m_temporary.Forget();
    m_isKeptNew = false;
    return true;
}

// Puts the old file back, or nothing where there was none.
void AtomicSave::Undo() {
    if (!m_hasPresent) {
        unlink(m_target.c_str());
        return;
    }
    const std::string& temporary = m_temporary.Name();
    const OpenFile kept(m_kept, O_RDONLY | O_NONBLOCK);
    kept.Lock();  // or another save might take the link for abandoned
    const bool isThere = link(m_kept.c_str(), temporary.c_str()) == 0 || Copy(m_kept, temporary);
    // Should even this fail, the second name is all that is left of the old file.
    m_isKeptNew = isThere && rename(temporary.c_str(), m_target.c_str()) == 0 && m_isKeptNew;
}

// Why the step before failed. One that failed has said so; to be sure, none is taken for a success.
SaveResult Failure() {
    return {errno != 0 ? errno : EIO};
}

}  // namespace

SaveResult SaveFileAtomically(const wchar_t* path, std::string_view bytes, FileJudge isGood) {
    const std::string given = path ? ToUtf8(path) : std::string();
    errno = ENOENT;  // for a path that is empty
    const std::string target = given.empty() ? given : FollowLinks(given);
    if (target.empty())
        return Failure();
    if (IsInstalledDataPath(path) || IsInstalledDataPath(FromUtf8(target)))
        return {kInstalledData};
    AtomicSave save(target);
    const AtomicSave::Present present = save.LookAtPresent(bytes);
    if (present == AtomicSave::Present::Same)
        return {};
    const bool isSaved = present != AtomicSave::Present::Unusable && save.WriteTemporary(bytes) &&
                         save.KeepPresent(isGood) && save.Replace();
    return isSaved ? SaveResult() : Failure();
}

CString BackupPath(const wchar_t* path) {
    const std::string target = FollowLinks(ToUtf8(CString(path).View()));
    return target.empty() ? CString() : FromUtf8(target + kBackupEnding);
}

bool KeepRefusedFile(const wchar_t* path) {
    const std::string target = path && *path ? FollowLinks(ToUtf8(path)) : std::string();
    if (target.empty() || IsInstalledDataPath(FromUtf8(target)))
        return false;
    AtomicSave save(target);
    save.LookAtPresent({});
    return save.OnlyKeep();
}
