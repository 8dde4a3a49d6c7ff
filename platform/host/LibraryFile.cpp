// Asks the system what kind of file it is, and compares its size with the parts that are mapped when it is opened.
#include "platform/host/LibraryFile.h"

#include <link.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "platform/base/Language.h"

namespace fs = std::filesystem;

namespace {

template <class Value>
bool ReadAt(std::ifstream& file, std::uintmax_t place, Value& value) {
    file.seekg(static_cast<std::streamoff>(place));
    return static_cast<bool>(file.read(reinterpret_cast<char*>(&value), sizeof(value)));
}

// Whether the head can be read here: it is a library's, for this kind of machine.
bool IsLibraryHead(const ElfW(Ehdr) & head) {
    constexpr unsigned char kClass = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;
    return std::memcmp(head.e_ident, ELFMAG, SELFMAG) == 0 && head.e_ident[EI_CLASS] == kClass &&
           head.e_phentsize == sizeof(ElfW(Phdr));
}

// Whether all that is mapped is in the file. What has no such head is left to the dynamic linker, which refuses it.
bool IsComplete(const fs::path& path, std::uintmax_t size) {
    std::ifstream file(path, std::ios::binary);
    ElfW(Ehdr) head = {};
    if (!ReadAt(file, 0, head) || !IsLibraryHead(head))
        return true;
    for (int i = 0; i < head.e_phnum; ++i) {
        ElfW(Phdr) part = {};
        if (!ReadAt(file, head.e_phoff + static_cast<std::uintmax_t>(i) * sizeof(part), part))
            return false;
        if (part.p_type == PT_LOAD && (part.p_filesz > size || part.p_offset > size - part.p_filesz))
            return false;
    }
    return true;
}

}  // namespace

CString FaultOfLibraryFile(const CString& path) {
    const fs::path file(ToUtf8(path.View()));
    std::error_code error;
    if (!fs::is_regular_file(file, error))
        return PlatformText(L"不是普通文件");
    const std::uintmax_t size = fs::file_size(file, error);
    return error || IsComplete(file, size) ? CString() : PlatformText(L"文件不完整，请重新复制");
}
