// Asks the dynamic linker which file an address was loaded from.
#include "platform/base/ModuleFile.h"

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/CString.h"

namespace {

constexpr unsigned kLongestTestName = 4095;
constinit wchar_t g_testName[kLongestTestName + 1] = {};
constinit bool g_hasTestName = false;

std::string ProgramFile() {
    std::vector<char> buffer(PATH_MAX + 1);
    const ssize_t length = readlink("/proc/self/exe", buffer.data(), buffer.size());
    return length > 0 ? std::string(buffer.data(), static_cast<std::size_t>(length)) : std::string();
}

// The path at the end of a line of the process's memory map, when the line's range holds the address.
std::string PathOfMapLine(std::string_view line, std::uintptr_t address) {
    std::uintptr_t first = 0;
    std::uintptr_t end = 0;
    const char* const last = line.data() + line.size();
    const auto dash = std::from_chars(line.data(), last, first, 16);
    if (dash.ptr == last || *dash.ptr != '-' || std::from_chars(dash.ptr + 1, last, end, 16).ec != std::errc())
        return {};
    const std::size_t slash = line.find('/');
    if (address < first || address >= end || slash == std::string_view::npos)
        return {};
    return std::string(line.substr(slash));
}

// The file that the system has mapped at the address. Needed where a library was opened by a relative name: the current
// folder may have changed since.
std::string MappedFile(std::uintptr_t address) {
    std::FILE* maps = std::fopen("/proc/self/maps", "re");
    if (!maps)
        return {};
    std::string line;
    std::string path;
    for (int character = 0; path.empty() && character != EOF;) {
        character = std::fgetc(maps);
        if (character != '\n' && character != EOF) {
            line.push_back(static_cast<char>(character));
            continue;
        }
        path = PathOfMapLine(line, address);
        line.clear();
    }
    std::fclose(maps);
    return path;
}

std::string FileOf(HINSTANCE module) {
    if (!module)
        return ProgramFile();
    // Unlike dladdr this does not go through the module's symbols, of which there are thousands.
    dl_find_object found{};
    if (_dl_find_object(const_cast<void*>(module), &found) != 0 || !found.dlfo_link_map)
        return {};
    const char* name = found.dlfo_link_map->l_name;
    if (!name || !*name)
        return ProgramFile();
    if (*name == '/')
        return name;
    // Any address of the module is good for the dynamic linker, but only its head is surely mapped from the file.
    return MappedFile(reinterpret_cast<std::uintptr_t>(found.dlfo_map_start));
}

unsigned CopyName(std::wstring_view name, wchar_t* buffer, unsigned size) {
    const std::size_t count = std::min<std::size_t>(name.size(), size - 1);
    *std::copy_n(name.data(), count, buffer) = L'\0';
    return static_cast<unsigned>(count);
}

}  // namespace

unsigned GetModuleFileName(HINSTANCE module, wchar_t* buffer, unsigned size) {
    if (!buffer || size == 0)
        return 0;
    if (g_hasTestName)
        return CopyName(g_testName, buffer, size);
    std::string path = FileOf(module);
    std::replace(path.begin(), path.end(), '/', '\\');
    return CopyName(FromUtf8(path).View(), buffer, size);
}

void SetModuleFileNameForTest(const wchar_t* name) {
    g_hasTestName = name != nullptr;
    if (name)
        CopyName(name, g_testName, kLongestTestName + 1);
}
