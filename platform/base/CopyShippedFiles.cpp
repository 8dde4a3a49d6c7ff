// Copies the files that the package ships into the user's folder at the first start.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

#include "platform/base/Language.h"
#include "platform/base/Message.h"
#include "platform/base/Support.h"

namespace {

constexpr mode_t kFolderMode = 0700;  // what a configuration folder gets by custom
constexpr mode_t kFileMode = 0666;    // less what the user's mask takes away

// An open file that is closed at the end of the scope.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return m_number; }
    bool IsOpen() const { return m_number >= 0; }
    bool Close() {
        const int number = m_number;
        m_number = -1;
        return number < 0 || close(number) == 0;
    }

private:
    int m_number;
};

bool Exists(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0;
}

void ReportFailure(const wchar_t* format, const std::string& path, int error) {
    const char* cause = strerrordesc_np(error);
    CString message;
    message.Format(PlatformText(format), FromUtf8(path), FromUtf8(cause ? cause : "?"));
    ReportMessage(message);
}

// Makes a folder and those above it; an errno, 0 for success.
int MakeFolders(const std::string& folder) {
    struct stat status {};
    if (stat(folder.c_str(), &status) == 0)
        return S_ISDIR(status.st_mode) ? 0 : ENOTDIR;
    const std::size_t slash = folder.rfind('/');
    if (slash != std::string::npos && slash > 0) {
        if (const int error = MakeFolders(folder.substr(0, slash)))
            return error;
    }
    if (mkdir(folder.c_str(), kFolderMode) == 0 || errno == EEXIST)
        return 0;
    return errno;
}

// Copies everything that is left to read; an errno, 0 for success.
int CopyBytes(int from, int to) {
    std::array<char, 65536> buffer{};
    while (true) {
        const ssize_t got = read(from, buffer.data(), buffer.size());
        if (got == 0)
            return 0;
        if (got < 0) {
            if (errno == EINTR)
                continue;
            return errno;
        }
        for (ssize_t done = 0; done < got;) {
            const ssize_t put = write(to, buffer.data() + done, static_cast<std::size_t>(got - done));
            if (put < 0 && errno != EINTR)
                return errno;
            if (put > 0)
                done += put;
        }
    }
}

// Gives a finished file its name unless the name is taken, which also counts as success; an errno, 0 for success.
int PublishIfFree(const std::string& temporary, const std::string& target) {
    if (renameat2(AT_FDCWD, temporary.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    int error = errno;
    // Not every file system knows the flag; a hard link has the same effect.
    if (error == EINVAL || error == ENOSYS || error == ENOTSUP)
        error = link(temporary.c_str(), target.c_str()) == 0 ? 0 : errno;
    unlink(temporary.c_str());
    return error == EEXIST ? 0 : error;
}

// Copies an open file into a new one beside the target and gives it the target's name; an errno, 0 for success.
int CopyBeside(int source, const std::string& target) {
    const std::string temporary = target + "." + std::to_string(getpid()) + ".new";
    unlink(temporary.c_str());  // left behind by a process of the same number
    Descriptor copy(open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kFileMode));
    if (!copy.IsOpen())
        return errno;
    int error = CopyBytes(source, copy.Number());
    if (error == 0 && fsync(copy.Number()) != 0)
        error = errno;
    if (!copy.Close() && error == 0)
        error = errno;
    if (error != 0) {
        unlink(temporary.c_str());
        return error;
    }
    return PublishIfFree(temporary, target);
}

bool CopyShipped(const std::string& shipped, const std::string& target) {
    Descriptor source(open(shipped.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status {};
    int error = source.IsOpen() && fstat(source.Number(), &status) == 0 ? 0 : errno;
    if (error == 0 && !S_ISREG(status.st_mode))
        error = EINVAL;
    if (error != 0) {
        ReportFailure(L"无法读取随软件提供的文件“%s”：%s。", shipped, error);
        return false;
    }
    error = CopyBeside(source.Number(), target);
    if (error != 0)
        ReportFailure(L"无法创建用户文件“%s”：%s。", target, error);
    return error == 0;
}

}  // namespace

bool CopyShippedFiles() {
    const std::string folder = ToUtf8(UserFolder().View());
    if (folder.empty()) {
        ReportMessage(PlatformText(L"找不到用户文件夹：未设置XDG_CONFIG_HOME和HOME。"));
        return false;
    }
    if (const int error = MakeFolders(folder)) {
        ReportFailure(L"无法创建用户文件夹“%s”：%s。", folder, error);
        return false;
    }
    const std::string shipped = ToUtf8(InstalledDataFolder().View());
    bool complete = true;
    for (const char* name : {"zone.xml", "SunTerm.xml", "SunSet.xml"}) {
        const std::string target = folder + "/" + name;
        if (!Exists(target) && !CopyShipped(shipped + "/" + name, target))
            complete = false;
    }
    return complete;
}
