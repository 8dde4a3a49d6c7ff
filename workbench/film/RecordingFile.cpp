// Looks at what bears the name, asks, and renames at the end.
#include "workbench/film/RecordingFile.h"

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/terminal/Complaint.h"
#include "workbench/terminal/OutputSink.h"

namespace fs = std::filesystem;

namespace {

CString TextOf(const fs::path& path) {
    return Printable(FromUtf8(path.string()));
}

// Somebody who can be asked is at the terminal, unless a window has taken the answers over.
bool CanAsk() {
    return !CurrentOutputSink() && isatty(STDIN_FILENO);
}

bool AsksYes(const CString& question) {
    const std::string text = ToUtf8(question.View()) + " ";
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::string line;
    std::getline(std::cin, line);
    return line == "y" || line == "Y" || line == "yes" || line == "是";
}

// The source that the recording would replace; empty when it replaces none.
CString SourceInTheWay(const fs::path& output, const std::vector<CString>& sources) {
    for (const CString& source : sources) {
        std::error_code error;
        if (fs::equivalent(PathOfRecording(source), output, error))
            return source;
    }
    return CString();
}

// Why what bears the output's name cannot be replaced: others may be waiting at its end.
CString NoFileText(const fs::path& output, fs::file_type type, const wchar_t* option) {
    switch (type) {
        case fs::file_type::directory:
            return SayFormat(L"“%s”是文件夹，不能被录像替换；请用 %s 给出另一个文件名", TextOf(output),
                             OptionWord(option));
        case fs::file_type::fifo:
            return SayFormat(L"“%s”是管道，不能被录像替换；请用 %s 给出另一个文件名", TextOf(output),
                             OptionWord(option));
        case fs::file_type::block:
        case fs::file_type::character:
            return SayFormat(L"“%s”是设备，不能被录像替换；请用 %s 给出另一个文件名", TextOf(output),
                             OptionWord(option));
        default:
            return SayFormat(L"“%s”不是普通文件，不能被录像替换；请用 %s 给出另一个文件名", TextOf(output),
                             OptionWord(option));
    }
}

// What bears another kind's name would be taken for that by every player.
int CheckName(const fs::path& output, const wchar_t* option) {
    if (const CString kind = FromUtf8(output.extension().string()); !kind.IsEmpty() && kind.CompareNoCase(L".avi") != 0)
        return Refuse(kExitUsage,
                      SayFormat(L"录像是 AVI 文件，不能取名“%s”：请写 %s %s；之后可用 ffmpeg 转换", TextOf(output),
                                OptionWord(option), TextOf(fs::path(output).replace_extension(".avi"))));
    return kExitOk;
}

// The file itself where the name is a link to one: it stays a link, and the room is that of the file's disk.
fs::path FileBehind(const fs::path& output) {
    std::error_code error;
    const fs::path file = fs::canonical(output, error);
    return error ? output : file;
}

// A name beside the output that no file has.
fs::path TemporaryName(const fs::path& output) {
    for (int number = 1;; ++number) {
        fs::path name = output;
        name += ".recording-" + std::to_string(getpid()) + "-" + std::to_string(number);
        std::error_code error;
        if (!fs::exists(fs::symlink_status(name, error)))
            return name;
    }
}

}  // namespace

fs::path PathOfRecording(const CString& file) {
    return {ToUtf8(file.View())};
}

int CheckRecording(const RecordingName& name, const std::vector<CString>& sources) {
    const fs::path output = PathOfRecording(name.file);
    if (const CString source = SourceInTheWay(output, sources); !source.IsEmpty())
        return Refuse(kExitFailed, SayFormat(L"“%s”是录像的来源，不能被录像替换", Printable(source)));
    if (const int code = CheckName(output, name.option))
        return code;
    std::error_code error;
    const fs::file_status there = fs::status(output, error);
    if (!fs::exists(there)) {
        const fs::path folder = output.parent_path();
        return folder.empty() || fs::is_directory(folder, error)
                   ? kExitOk
                   : Refuse(kExitFailed, SayFormat(L"写不进“%s”：没有文件夹“%s”", TextOf(output), TextOf(folder)));
    }
    if (!fs::is_regular_file(there))
        return Refuse(kExitFailed, NoFileText(output, there.type(), name.option));
    if (name.mayReplace)
        return kExitOk;
    if (!CanAsk())
        return Refuse(kExitFailed, SayFormat(L"“%s”已经存在；要替换它，请加 --yes", TextOf(output)));
    if (AsksYes(SayFormat(L"“%s”已经存在。替换它吗？[y/N]", TextOf(output))))
        return kExitOk;
    return Refuse(kExitFailed, Say(L"没有录像，原来的文件没有变"));
}

std::uint64_t RecordingBytes(int width, int height, int bits, std::size_t pictures) {
    constexpr std::uint64_t kBitsOfUnit = 32;         // rows are whole units of four bytes
    constexpr std::uint64_t kOfPicture = 8 + 16 + 8;  // the chunk's head, and its lines in the indexes
    constexpr std::uint64_t kOfFile = 8192;
    const std::uint64_t bitsOfRow = static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(bits);
    const std::uint64_t row = (bitsOfRow + kBitsOfUnit - 1) / kBitsOfUnit * (kBitsOfUnit / 8);
    return kOfFile + pictures * (row * static_cast<std::uint64_t>(height) + kOfPicture);
}

CString WhyNoRoom(const CString& file, std::uint64_t bytes, const CString& advice) {
    const fs::path output = FileBehind(PathOfRecording(file));
    const fs::path trial = TemporaryName(output);
    std::error_code error;
    const bool isMade = std::ofstream(trial, std::ios::binary).is_open();
    const fs::space_info space = fs::space(output.has_parent_path() ? output.parent_path() : fs::path("."), error);
    const bool hasSpace = error || space.available >= bytes;
    fs::remove(trial, error);
    if (!isMade)
        return SayFormat(L"“%s”不能写：文件夹不可写", TextOf(output));
    return hasSpace ? CString()
                    : SayFormat(L"“%s”放不下：录像要 %s，磁盘只剩 %s；%s", TextOf(output), BytesText(bytes),
                                BytesText(space.available), advice);
}

CString BytesText(std::uint64_t bytes) {
    constexpr double kMega = 1e6;
    CString text;
    text.Format(L"%.1f MB", static_cast<double>(bytes) / kMega);
    return text;
}

GrowingRecording::GrowingRecording(const CString& file)
    : m_output(FileBehind(PathOfRecording(file))), m_path(TemporaryName(m_output)) {}

GrowingRecording::~GrowingRecording() {
    std::error_code error;
    fs::remove(m_path, error);
}

CString GrowingRecording::GetName() const {
    return FromUtf8(m_path.string());
}

// The recorder marks a file as complete last of all.
bool GrowingRecording::IsComplete() const {
    constexpr int kFlagsAt = 44;  // in the main header
    constexpr int kHasIndex = 0x10;
    std::ifstream file(m_path, std::ios::binary);
    file.seekg(kFlagsAt);
    return (file.get() & kHasIndex) != 0 && file.good();
}

CString GrowingRecording::TakePlace() {
    std::error_code error;
    fs::rename(m_path, m_output, error);
    return error ? SayFormat(L"“%s”不能改名为“%s”：%s", TextOf(m_path), TextOf(m_output), FromUtf8(error.message()))
                 : CString();
}

CString NotWrittenText(const CString& file) {
    return SayFormat(L"写不进“%s”：文件夹不可写、磁盘已满，或画面太大", Printable(file));
}

CString IncompleteText(const CString& file) {
    return SayFormat(L"“%s”没有写完：磁盘可能已满", Printable(file));
}
