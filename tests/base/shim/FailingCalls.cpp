// A library to preload: it lets one chosen system call of a save go wrong. Calls are counted from FailingCallsBegin on.
// Environment: FAILING_CALLS_AT, the number of the call (from 1); FAILING_CALLS_HOW, what happens there:
//   error      this call fails with EIO
//   interrupt  this call fails with EINTR
//   kill       the process dies before this call
//   dead       this call and every later one fail with EIO
//   full       from this call on whatever needs room on the disk fails with ENOSPC
//   short      this call, when it writes or reads, does so for one byte only
//   swept      another process removes the file that this call, when it locks one, is about to lock
// and FAILING_CALLS_NO_LINKS: no hard link can be made at all.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#define SHOWN extern "C" __attribute__((visibility("default")))

namespace {

bool g_isCounting = false;
int g_seen = 0;

std::string_view Setting(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool Is(const char* how) {
    return Setting("FAILING_CALLS_HOW") == how;
}

int At() {
    const char* value = std::getenv("FAILING_CALLS_AT");
    return value ? std::atoi(value) : 0;
}

// The names of the calls so far, each with a blank behind it.
char g_names[8192];
std::size_t g_nameEnd = 0;

void Note(const char* name) {
    const std::size_t length = std::strlen(name);
    if (g_nameEnd + length + 2 > sizeof g_names)
        return;
    std::memcpy(g_names + g_nameEnd, name, length);
    g_names[g_nameEnd + length] = ' ';
    g_nameEnd += length + 1;
}

// Whether the call that now begins is to fail; errno is then set.
bool Fails(const char* name, bool needsRoom = false) {
    if (!g_isCounting)
        return false;
    ++g_seen;
    Note(name);
    const int at = At();
    if (g_seen == at && Is("kill"))
        std::raise(SIGKILL);
    if (g_seen == at && Is("interrupt")) {
        errno = EINTR;
        return true;
    }
    if (at > 0 && g_seen >= at && needsRoom && Is("full")) {
        errno = ENOSPC;
        return true;
    }
    if ((g_seen == at && Is("error")) || (at > 0 && g_seen >= at && Is("dead"))) {
        errno = EIO;
        return true;
    }
    return false;
}

std::size_t Shortened(std::size_t size) {
    return g_isCounting && g_seen == At() && Is("short") ? std::min<std::size_t>(size, 1) : size;
}

template <class Function>
Function Real(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

#define REAL(name) Real<decltype(&name)>(#name)

SHOWN void FailingCallsBegin() {
    g_isCounting = true;
}
// Gives how many calls there were.
SHOWN int FailingCallsEnd() {
    g_isCounting = false;
    return g_seen;
}

SHOWN const char* FailingCallsNames() {
    return g_names;
}

SHOWN int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = (flags & O_CREAT) != 0 ? static_cast<mode_t>(va_arg(arguments, int)) : mode_t{0};
    va_end(arguments);
    return Fails("open", (flags & O_CREAT) != 0) ? -1 : REAL(open)(path, flags, mode);
}

SHOWN int close(int file) {
    // A close that fails has closed all the same.
    const bool fails = Fails("close");
    const int failure = errno;
    const int result = REAL(close)(file);
    errno = fails ? failure : errno;
    return fails ? -1 : result;
}

SHOWN ssize_t read(int file, void* buffer, size_t size) {
    return Fails("read") ? -1 : REAL(read)(file, buffer, Shortened(size));
}
SHOWN ssize_t write(int file, const void* buffer, size_t size) {
    return Fails("write", true) ? -1 : REAL(write)(file, buffer, Shortened(size));
}
SHOWN int fsync(int file) {
    return Fails("fsync", true) ? -1 : REAL(fsync)(file);
}
SHOWN int flock(int file, int operation) noexcept {
    if (g_isCounting && g_seen + 1 == At() && Is("swept")) {
        char path[4096] = {};
        const std::string link = "/proc/self/fd/" + std::to_string(file);
        if (REAL(readlink)(link.c_str(), path, sizeof path - 1) > 0)
            REAL(unlink)(path);
    }
    return Fails("flock") ? -1 : REAL(flock)(file, operation);
}
SHOWN int fchmod(int file, mode_t mode) {
    return Fails("fchmod") ? -1 : REAL(fchmod)(file, mode);
}
SHOWN int fchown(int file, uid_t user, gid_t group) {
    return Fails("fchown") ? -1 : REAL(fchown)(file, user, group);
}
SHOWN int rename(const char* from, const char* to) {
    return Fails("rename", true) ? -1 : REAL(rename)(from, to);
}
SHOWN int unlink(const char* path) {
    return Fails("unlink") ? -1 : REAL(unlink)(path);
}
SHOWN int link(const char* from, const char* to) noexcept {
    if (Fails("link", true))
        return -1;
    if (g_isCounting && !Setting("FAILING_CALLS_NO_LINKS").empty()) {
        errno = EPERM;
        return -1;
    }
    return REAL(link)(from, to);
}
SHOWN int stat(const char* path, struct stat* status) noexcept {
    using Function = int (*)(const char*, struct stat*);
    return Fails("stat") ? -1 : Real<Function>("stat")(path, status);
}
SHOWN int lstat(const char* path, struct stat* status) noexcept {
    using Function = int (*)(const char*, struct stat*);
    return Fails("lstat") ? -1 : Real<Function>("lstat")(path, status);
}
SHOWN int fstat(int file, struct stat* status) noexcept {
    using Function = int (*)(int, struct stat*);
    return Fails("fstat") ? -1 : Real<Function>("fstat")(file, status);
}
SHOWN ssize_t readlink(const char* path, char* buffer, size_t size) noexcept {
    return Fails("readlink") ? -1 : REAL(readlink)(path, buffer, size);
}
SHOWN int faccessat(int folder, const char* path, int mode, int flags) noexcept {
    return Fails("faccessat") ? -1 : REAL(faccessat)(folder, path, mode, flags);
}
SHOWN off_t lseek(int file, off_t offset, int whence) noexcept {
    return Fails("lseek") ? -1 : REAL(lseek)(file, offset, whence);
}
