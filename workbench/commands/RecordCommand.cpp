// Checking the request, recording under another name, and putting the result in its place.
#include "workbench/commands/RecordCommand.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>

#include "avi/OrvoAVIFile.h"
#include "facts/NumberText.h"
#include "platform/base/PlainText.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Output.h"
#include "platform/host/Progress.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/commands/PictureFile.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Complaint.h"
#include "workbench/terminal/OutputSink.h"

namespace fs = std::filesystem;

namespace {

constexpr int kMostRate = 1000;
constexpr int kUsualRate = 10;
constexpr int kUsualBits = 24;

struct Request {
    std::vector<CString> frames;
    fs::path output;
    int rate = kUsualRate;
    int bits = kUsualBits;
};

fs::path PathOf(const CString& text) {
    return {ToUtf8(text.View())};
}

CString TextOf(const fs::path& path) {
    return Printable(FromUtf8(path.string()));
}

// Reads the options; an ExitCode other than kExitOk when one of them is wrong, which is then said.
int ReadRequest(const RecordOptions& options, Request& request) {
    if (options.frames.empty())
        return Refuse(kExitUsage,
                      Say(L"没有给出画面：请写一个或多个图像文件，例如 orvo record 1.png 2.png -o sun.avi"));
    if (!options.output || options.output->IsEmpty())
        return Refuse(kExitUsage, Say(L"没有给出录像文件：请写 -o 文件，例如 -o sun.avi"));
    request.frames = options.frames;
    request.output = PathOf(*options.output);
    if (options.rate) {
        const std::optional<int> rate = ParseWhole(*options.rate, 1, kMostRate);
        if (!rate)
            return Refuse(kExitUsage, BadNumberText(L"--rate", *options.rate, 1, kMostRate));
        request.rate = *rate;
    }
    if (options.bits) {
        const std::optional<int> bits = ParseWhole(*options.bits, 8, 32);
        if (!bits || (*bits != 8 && *bits != 24 && *bits != 32))
            return Refuse(kExitUsage, SayFormat(L"--bits 的值“%s”不对：请写 8、24 或 32", Printable(*options.bits)));
        request.bits = *bits;
    }
    return kExitOk;
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

// The picture that the recording would replace; empty when it replaces none.
CString FrameInTheWay(const Request& request) {
    for (const CString& frame : request.frames) {
        std::error_code error;
        if (fs::equivalent(PathOf(frame), request.output, error))
            return frame;
    }
    return CString();
}

// Why what bears the output's name cannot be replaced: others may be waiting at its end.
CString NoFileText(const fs::path& output, fs::file_type type) {
    switch (type) {
        case fs::file_type::directory:
            return SayFormat(L"“%s”是文件夹，不能被录像替换；请用 -o 给出另一个文件名", TextOf(output));
        case fs::file_type::fifo:
            return SayFormat(L"“%s”是管道，不能被录像替换；请用 -o 给出另一个文件名", TextOf(output));
        case fs::file_type::block:
        case fs::file_type::character:
            return SayFormat(L"“%s”是设备，不能被录像替换；请用 -o 给出另一个文件名", TextOf(output));
        default:
            return SayFormat(L"“%s”不是普通文件，不能被录像替换；请用 -o 给出另一个文件名", TextOf(output));
    }
}

// What bears another kind's name would be taken for that by every player.
int CheckName(const fs::path& output) {
    if (const CString kind = FromUtf8(output.extension().string()); !kind.IsEmpty() && kind.CompareNoCase(L".avi") != 0)
        return Refuse(kExitUsage, SayFormat(L"录像是 AVI 文件，不能取名“%s”：请写 -o %s；之后可用 ffmpeg 转换",
                                            TextOf(output), TextOf(fs::path(output).replace_extension(".avi"))));
    return kExitOk;
}

// Whether the output may be written, as far as what is there now goes.
int CheckOutput(const Request& request, bool isYes) {
    const fs::path& output = request.output;
    if (const CString frame = FrameInTheWay(request); !frame.IsEmpty())
        return Refuse(kExitFailed, SayFormat(L"“%s”本身是一幅画面，不能被录像替换", Printable(frame)));
    if (const int code = CheckName(output))
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
        return Refuse(kExitFailed, NoFileText(output, there.type()));
    if (isYes)
        return kExitOk;
    if (!CanAsk())
        return Refuse(kExitFailed, SayFormat(L"“%s”已经存在；要替换它，请加 --yes", TextOf(output)));
    if (AsksYes(SayFormat(L"“%s”已经存在。替换它吗？[y/N]", TextOf(output))))
        return kExitOk;
    return Refuse(kExitFailed, Say(L"没有录像，原来的文件没有变"));
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

// Removes the file at the end unless it was given its place.
class TemporaryFile {
public:
    explicit TemporaryFile(const fs::path& output) : m_path(TemporaryName(output)) {}
    ~TemporaryFile() {
        std::error_code error;
        fs::remove(m_path, error);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    const fs::path& Path() const { return m_path; }

private:
    fs::path m_path;
};

struct Size {
    int width = -1;
    int height = -1;
};

CString NotWrittenText(const fs::path& output) {
    return SayFormat(L"写不进“%s”：文件夹不可写、磁盘已满，或画面太大", TextOf(output));
}

CString CancelledText(const fs::path& output) {
    std::error_code error;
    return fs::exists(output, error) ? Say(L"已取消，没有录像，原来的文件没有变") : Say(L"已取消，没有录像");
}

// Loads one picture and appends it; an empty text, or what went wrong.
CString AddPicture(OrvoAVIFile& recorder, const CString& path, const fs::path& output, Size& size, CBitmap& bitmap) {
    CString cause;
    if (!LoadPicture(path, bitmap, cause))
        return SayFormat(L"“%s”：%s", Printable(path), cause);
    BITMAP information{};
    bitmap.GetBitmap(&information);
    if (size.width < 0)
        size = {information.bmWidth, information.bmHeight};
    if (information.bmWidth != size.width || information.bmHeight != size.height)
        return SayFormat(L"“%s”的大小是 %d x %d，而第一幅是 %d x %d：所有画面要一样大", Printable(path),
                         static_cast<int>(information.bmWidth), static_cast<int>(information.bmHeight), size.width,
                         size.height);
    return recorder.AddFrame(bitmap) ? CString() : NotWrittenText(output);
}

// Whether the recorder came to the end: it marks a file as complete last of all.
bool IsComplete(const fs::path& path) {
    constexpr int kFlagsAt = 44;  // in the main header
    constexpr int kHasIndex = 0x10;
    std::ifstream file(path, std::ios::binary);
    file.seekg(kFlagsAt);
    return (file.get() & kHasIndex) != 0 && file.good();
}

// Records all frames into the file; an empty text, or what went wrong.
CString RecordTo(const fs::path& path, const Request& request, Progress& progress, Size& size) {
    const int count = static_cast<int>(request.frames.size());
    const CString text = Say(L"正在录制第 %d 幅，共 %d 幅");
    const CString name = FromUtf8(path.string());
    {
        OrvoAVIFile recorder(name, -1, -1, request.rate);
        recorder.SetColorNum(static_cast<UINT>(request.bits));
        std::unique_ptr<CBitmap> picture;
        for (std::size_t i = 0; i < request.frames.size(); ++i) {
            if (!progress.Show(static_cast<int>(i) + 1, count, text))
                return CancelledText(request.output);
            picture = std::make_unique<CBitmap>();
            const CString wrong = AddPicture(recorder, request.frames[i], request.output, size, *picture);
            if (!wrong.IsEmpty())
                return wrong;
        }
        if (!progress.Show(count, count, text))
            return CancelledText(request.output);
        // Nothing follows the last one: once more at the end of its second, unless its own position lasts that long.
        if (request.rate > 1 && !recorder.AddFrame(*picture))
            return NotWrittenText(request.output);
    }
    return IsComplete(path) ? CString() : SayFormat(L"“%s”没有写完：磁盘可能已满", TextOf(request.output));
}

}  // namespace

int RunRecord(const RecordOptions& options, Output& output, Progress& progress) {
    Request request;
    const int readCode = ReadRequest(options, request);
    if (readCode != kExitOk)
        return readCode;
    const int outputCode = CheckOutput(request, options.isYes);
    if (outputCode != kExitOk)
        return outputCode;
    const TemporaryFile temporary(request.output);
    Size size;
    const CString wrong = RecordTo(temporary.Path(), request, progress, size);
    if (!wrong.IsEmpty())
        return Refuse(kExitFailed, wrong);
    std::error_code error;
    fs::rename(temporary.Path(), request.output, error);
    if (error)
        return Refuse(kExitFailed, SayFormat(L"“%s”不能改名为“%s”：%s", TextOf(temporary.Path()),
                                             TextOf(request.output), FromUtf8(error.message())));
    output.Line(SayFormat(L"%d 幅画面录入“%s”：%d x %d，每像素 %d 位，每幅 1 秒",
                          static_cast<int>(request.frames.size()), TextOf(request.output), size.width, size.height,
                          request.bits));
    return kExitOk;
}

Subcommand RecordSubcommand() {
    return {L"record",
            L"把图像录成 AVI 动画，每幅一秒",
            {ValuesOption(L"FRAMES", SubcommandOption::kMany, L"", L"图像文件（BMP、PNG 或 JPEG），按放映次序"),
             ValueOption(L"-o,--output", L"FILE", L"录像文件"),
             ValueOption(L"--rate", L"N", L"每秒帧数，从 1 到 1000；不给出时为 10"),
             ValueOption(L"--bits", L"8|24|32", L"每像素位数；不给出时为 24"),
             FlagOption(L"-y,--yes", L"替换已有的文件而不询问")},
            {L"orvo record 0900.png 0930.png 1000.png -o sun.avi", L"orvo record *.bmp -o sun.avi --bits 8 --yes"},
            [](SubcommandCall& call) {
                return RunRecord({call.GetValues(L"FRAMES"), call.GetValue(L"--output"), call.GetValue(L"--rate"),
                                  call.GetValue(L"--bits"), call.HasFlag(L"--yes")},
                                 call.GetOutput(), call.GetProgress());
            },
            Say};
}
