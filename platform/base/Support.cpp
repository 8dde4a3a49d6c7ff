// The search for support files: plain POSIX calls on UTF-8 paths, so that nothing depends on a locale or throws.
#include "platform/base/Support.h"

#include <dlfcn.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/OpenFile.h"

namespace {

bool IsAbsolute(std::string_view path) {
    return !path.empty() && path.front() == '/';
}

// The value of a variable that should hold an absolute path; empty when it does not.
std::string AbsoluteFromEnvironment(const char* variable) {
    const char* value = std::getenv(variable);
    return value && IsAbsolute(value) ? value : std::string();
}

std::string HomeFolder() {
    std::string home = AbsoluteFromEnvironment("HOME");
    if (!home.empty())
        return home;
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found && IsAbsolute(found->pw_dir))
        home = found->pw_dir;
    return home;
}

std::string UserFolderBytes() {
    const std::string config = AbsoluteFromEnvironment("XDG_CONFIG_HOME");
    if (!config.empty())
        return config + "/orvo";
    const std::string home = HomeFolder();
    return home.empty() ? home : home + "/.config/orvo";
}

// The path with every symbolic link, "." and ".." resolved; empty (and errno set) when something of it is missing.
std::string RealPath(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(path.c_str(), nullptr), std::free);
    return resolved ? std::string(resolved.get()) : std::string();
}

std::string InstalledDataFolderBytes() {
    Dl_info info{};
    // Any address in this library will do.
    static const char here = 0;
    if (dladdr(&here, &info) == 0 || !info.dli_fname)
        return {};
    const std::string library = RealPath(info.dli_fname);
    if (library.empty())
        return {};
    std::string folder = FolderOf(library);
    std::string_view way = ORVO_LIBRARIES_TO_DATA;
    for (; way.starts_with("../"); way.remove_prefix(3))
        folder = FolderOf(folder);
    folder = (folder == "/" ? std::string() : folder) + "/" + std::string(way);
    std::string resolved = RealPath(folder);
    return resolved.empty() ? folder : resolved;
}

bool IsRegularFile(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

// The folders of the search, in order.
std::vector<std::string> SupportFolders() {
    std::vector<std::string> folders;
    const char* variable = std::getenv("ORVO_SUPPORT_PATH");
    std::string_view rest = variable ? variable : "";
    while (!rest.empty()) {
        const std::size_t colon = rest.find(':');
        const std::string_view entry = rest.substr(0, colon);
        if (IsAbsolute(entry))
            folders.emplace_back(entry);
        rest = colon == std::string_view::npos ? std::string_view() : rest.substr(colon + 1);
    }
    for (std::string folder : {UserFolderBytes(), InstalledDataFolderBytes()})
        if (!folder.empty())
            folders.push_back(std::move(folder));
    return folders;
}

bool IsBareName(const wchar_t* name) {
    if (!name || !*name)
        return false;
    const std::wstring_view text(name);
    return text.find_first_of(L"/\\") == std::wstring_view::npos && text.find(L"..") == std::wstring_view::npos &&
           text != L".";
}

// Searches for a relative path that was checked before.
bool FindRelative(const std::string& relative, CString& fullPath) {
    fullPath.Empty();
    for (const std::string& folder : SupportFolders()) {
        std::string path = folder;
        if (path.back() != '/')
            path += '/';
        path += relative;
        if (!IsRegularFile(path))
            continue;
        CString text = FromUtf8(path);
        // A path that does not survive as text could not be opened by whoever asked.
        if (ToUtf8(text.View()) != path)
            continue;
        fullPath = std::move(text);
        return true;
    }
    return false;
}

// Where the dangling link at `path` points; empty when it is no link.
std::string LinkTarget(const std::string& path) {
    std::vector<char> buffer(PATH_MAX + 1);
    const ssize_t length = readlink(path.c_str(), buffer.data(), buffer.size());
    if (length <= 0)
        return {};
    std::string target(buffer.data(), static_cast<std::size_t>(length));
    return IsAbsolute(target) ? target : FolderOf(path) + "/" + target;
}

// The real path of what exists, or the place where it would come to be: the real path of the nearest folder that exists
// is enough to judge by. Empty when that cannot be told.
std::string PlaceOf(std::string path, int linksLeft = kMostLinks) {
    while (true) {
        while (path.size() > 1 && path.back() == '/')
            path.pop_back();
        std::string resolved = RealPath(path);
        if (!resolved.empty())
            return resolved;
        const std::string target = LinkTarget(path);
        if (!target.empty())
            return linksLeft > 0 ? PlaceOf(target, linksLeft - 1) : std::string();
        if (path == "/" || path == ".")
            return {};
        path = FolderOf(path);
    }
}

}  // namespace

bool FindFile(const wchar_t* name, CString& fullPath) {
    if (!IsBareName(name)) {
        fullPath.Empty();
        return false;
    }
    return FindRelative(ToUtf8(name), fullPath);
}

bool FindFileInFolder(const wchar_t* folder, const wchar_t* name, CString& fullPath) {
    if (!IsBareName(folder) || !IsBareName(name)) {
        fullPath.Empty();
        return false;
    }
    return FindRelative(ToUtf8(folder) + "/" + ToUtf8(name), fullPath);
}

CString UserFolder() {
    return FromUtf8(UserFolderBytes());
}

CString InstalledDataFolder() {
    return FromUtf8(InstalledDataFolderBytes());
}

bool IsInstalledDataPath(const wchar_t* path) {
    if (!path || !*path)
        return false;
    const std::string installed = InstalledDataFolderBytes();
    const std::string place = PlaceOf(ToUtf8(path));
    if (installed.empty() || place.empty())
        return false;
    return place == installed || place.compare(0, installed.size() + 1, installed + "/") == 0;
}
