// Asks the system what kind of file it is, compares its size with the parts that are mapped when it is opened, and
// reads its notes.
#include "platform/host/LibraryFile.h"

#include <link.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include "platform/base/Language.h"
#include "platform/host/PlugInStamp.h"

namespace fs = std::filesystem;

namespace {

template <class Value>
bool ReadAt(std::ifstream& file, std::uintmax_t place, Value& value) {
    file.clear();  // an end that was met before is not this one's
    file.seekg(static_cast<std::streamoff>(place));
    return static_cast<bool>(file.read(reinterpret_cast<char*>(&value), sizeof(value)));
}

// Whether a library's head can be read here: it is for this kind of machine.
bool IsForThisMachine(const ElfW(Ehdr) & head) {
    constexpr unsigned char kClass = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;
    return head.e_ident[EI_CLASS] == kClass && head.e_phentsize == sizeof(ElfW(Phdr));
}

// The parts that the head announces; false when the file ends before.
bool ReadParts(std::ifstream& file, const ElfW(Ehdr) & head, std::vector<ElfW(Phdr)>& parts) {
    for (int i = 0; i < head.e_phnum; ++i) {
        ElfW(Phdr) part = {};
        if (!ReadAt(file, head.e_phoff + static_cast<std::uintmax_t>(i) * sizeof(part), part))
            return false;
        parts.push_back(part);
    }
    return true;
}

// Whether all that is mapped is in the file. What is for another machine is left to the dynamic linker, which refuses
// it.
bool IsComplete(std::ifstream& file, std::uintmax_t size) {
    ElfW(Ehdr) head = {};
    if (!ReadAt(file, 0, head))
        return false;
    std::vector<ElfW(Phdr)> parts;
    return !IsForThisMachine(head) ||
           (ReadParts(file, head, parts) && std::none_of(parts.begin(), parts.end(), [size](const ElfW(Phdr) & part) {
                return part.p_type == PT_LOAD && (part.p_filesz > size || part.p_offset > size - part.p_filesz);
            }));
}

constexpr std::size_t RoundedUp(std::size_t size, std::size_t unit) {
    return (size + unit - 1) / unit * unit;
}

// What a part holds. Nothing when the file ends before, or when it is larger than notes are: who damaged a file is not
// to keep the program busy.
std::vector<char> BytesOf(std::ifstream& file, const ElfW(Phdr) & part) {
    constexpr std::uintmax_t kMost = 64 * 1024;
    if (part.p_filesz > kMost)
        return {};
    std::vector<char> bytes(part.p_filesz);
    file.clear();
    file.seekg(static_cast<std::streamoff>(part.p_offset));
    return file.read(bytes.data(), static_cast<std::streamsize>(bytes.size())) ? bytes : std::vector<char>();
}

// The stamps among the notes of one part.
void AddStamps(std::ifstream& file, const ElfW(Phdr) & part, std::vector<std::string>& stamps) {
    const std::vector<char> bytes = BytesOf(file, part);
    const std::size_t unit = part.p_align == 8 ? 8 : 4;
    constexpr std::size_t kHeadSize = offsetof(PlugInNote, name);
    for (std::size_t at = 0; at + kHeadSize <= bytes.size();) {
        ElfW(Nhdr) head = {};
        static_assert(sizeof(head) == kHeadSize);
        std::memcpy(&head, bytes.data() + at, sizeof(head));
        PlugInNote note = {};
        if (head.n_namesz == sizeof(note.name) && head.n_descsz == sizeof(note.stamp) &&
            head.n_type == kPlugInNoteType && at + sizeof(note) <= bytes.size()) {
            std::memcpy(&note, bytes.data() + at, sizeof(note));
            if (std::memcmp(note.name, kPlugInNoteName, sizeof(note.name)) == 0)
                stamps.emplace_back(note.stamp, strnlen(note.stamp, sizeof(note.stamp)));
        }
        at += RoundedUp(kHeadSize + head.n_namesz, unit) + RoundedUp(head.n_descsz, unit);
    }
}

}  // namespace

CString FaultOfLibraryFile(const CString& path) {
    const fs::path name(ToUtf8(path.View()));
    std::error_code error;
    if (fs::is_directory(name, error))
        return PlatformText(L"这是文件夹，不是程序库：请给出其中编译好的文件，例如 NAME.so");
    if (!fs::is_regular_file(name, error))
        return PlatformText(L"不是普通文件");
    std::ifstream file(name, std::ios::binary);
    char mark[SELFMAG] = {};
    if (file && (!ReadAt(file, 0, mark) || std::memcmp(mark, ELFMAG, SELFMAG) != 0))
        return PlatformText(L"这不是程序库：请给出编译好的文件，例如 build/NAME.so");
    file.clear();
    const std::uintmax_t size = fs::file_size(name, error);
    return error || (file.is_open() && !IsComplete(file, size)) ? PlatformText(L"文件不完整，请重新复制") : CString();
}

CString FaultOfStamps(const CString& path) {
    std::ifstream file(fs::path(ToUtf8(path.View())), std::ios::binary);
    ElfW(Ehdr) head = {};
    std::vector<ElfW(Phdr)> parts;
    if (!ReadAt(file, 0, head) || !IsForThisMachine(head) || !ReadParts(file, head, parts))
        return CString();
    std::vector<std::string> stamps;
    constexpr int kMostNotes = 64;  // linkers make two or three
    int count = 0;
    for (const ElfW(Phdr) & part : parts)
        if (part.p_type == PT_NOTE && ++count <= kMostNotes)
            AddStamps(file, part, stamps);
    CString fault;
    if (stamps.empty())
        fault.Format(
            PlatformText(
                L"它没有说明是用哪个版本的头文件编译的：请在定义 acrxEntryPoint 的源文件中包含 "
                L"platform/host/HostMessages.h，用本程序（%s）的头文件重新编译；和程序的源码一起编译时，它要是 CMake "
                L"的 MODULE 库"),
            FromUtf8(ORVO_PLUGIN_STAMP));
    const auto other =
        std::find_if(stamps.begin(), stamps.end(), [](const std::string& stamp) { return stamp != ORVO_PLUGIN_STAMP; });
    if (other != stamps.end())
        fault.Format(
            PlatformText(
                L"它是用 %s 的头文件编译的，而本程序是 %s：请用本程序的头文件重新编译；随程序提供的，请重新安装程序"),
            FromUtf8(*other), FromUtf8(ORVO_PLUGIN_STAMP));
    return fault;
}
