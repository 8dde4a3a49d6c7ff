// Checking the request, recording under another name, and putting the result in its place.
#include "workbench/commands/RecordCommand.h"

#include <filesystem>
#include <memory>

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
#include "workbench/film/RecordingFile.h"
#include "workbench/terminal/Complaint.h"

namespace {

constexpr int kMostRate = 1000;
constexpr int kUsualRate = 10;
constexpr int kUsualBits = 24;

struct Request {
    std::vector<CString> frames;
    CString output;
    int rate = kUsualRate;
    int bits = kUsualBits;
};

// Reads the options; an ExitCode other than kExitOk when one of them is wrong, which is then said.
int ReadRequest(const RecordOptions& options, Request& request) {
    if (options.output.IsEmpty())
        return Refuse(kExitUsage, Say(L"没有给出录像文件：请写 -o 文件，例如 -o sun.avi"));
    request.frames = options.frames;
    request.output = options.output;
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

struct Size {
    int width = -1;
    int height = -1;
};

CString CancelledText(const CString& output) {
    std::error_code error;
    return std::filesystem::exists(PathOfRecording(output), error) ? Say(L"已取消，没有录像，原来的文件没有变")
                                                                   : Say(L"已取消，没有录像");
}

// Whether the whole recording has room, once the first picture tells the size of all.
CString WhyNoRoomFor(const Request& request, const Size& size) {
    const std::uint64_t bytes = RecordingBytes(size.width, size.height, request.bits, request.frames.size() + 1);
    return WhyNoRoom(request.output, bytes, Say(L"请用 --bits 8，或更小、更少的画面"));
}

// Loads one picture and appends it; an empty text, or what went wrong.
CString AddPicture(OrvoAVIFile& recorder, const CString& path, const Request& request, Size& size, CBitmap& bitmap) {
    CString cause;
    if (!LoadPicture(path, bitmap, cause))
        return SayFormat(L"“%s”：%s", Printable(path), cause);
    BITMAP information{};
    bitmap.GetBitmap(&information);
    if (size.width < 0) {
        size = {information.bmWidth, information.bmHeight};
        cause = WhyNoRoomFor(request, size);
    }
    if (!cause.IsEmpty())
        return cause;
    if (information.bmWidth != size.width || information.bmHeight != size.height)
        return SayFormat(L"“%s”的大小是 %d x %d，而第一幅是 %d x %d：所有画面要一样大", Printable(path),
                         static_cast<int>(information.bmWidth), static_cast<int>(information.bmHeight), size.width,
                         size.height);
    return recorder.AddFrame(bitmap) ? CString() : NotWrittenText(request.output);
}

// Records all frames into the file; an empty text, or what went wrong.
CString RecordTo(const GrowingRecording& file, const Request& request, Progress& progress, Size& size) {
    const int count = static_cast<int>(request.frames.size());
    const CString text = Say(L"正在录制第 %d 幅，共 %d 幅");
    {
        OrvoAVIFile recorder(file.GetName(), -1, -1, request.rate);
        recorder.SetColorNum(static_cast<UINT>(request.bits));
        std::unique_ptr<CBitmap> picture;
        for (std::size_t i = 0; i < request.frames.size(); ++i) {
            if (!progress.Show(static_cast<int>(i) + 1, count, text))
                return CancelledText(request.output);
            picture = std::make_unique<CBitmap>();
            const CString wrong = AddPicture(recorder, request.frames[i], request, size, *picture);
            if (!wrong.IsEmpty())
                return wrong;
        }
        if (!progress.Show(count, count, text))
            return CancelledText(request.output);
        // Nothing follows the last one: once more at the end of its second, unless its own position lasts that long.
        if (request.rate > 1 && !recorder.AddFrame(*picture))
            return NotWrittenText(request.output);
    }
    return file.IsComplete() ? CString() : IncompleteText(request.output);
}

// What was recorded, and where that is large, what would be smaller.
void Tell(const Request& request, const Size& size, Output& output) {
    constexpr std::uintmax_t kLarge = 10'000'000;
    std::error_code error;
    const std::uintmax_t bytes = std::filesystem::file_size(PathOfRecording(request.output), error);
    output.Line(SayFormat(L"%d 幅画面录入“%s”：%d x %d，每像素 %d 位，每幅 1 秒，%s",
                          static_cast<int>(request.frames.size()), Printable(request.output), size.width, size.height,
                          request.bits, BytesText(error ? 0 : bytes)));
    if (error || bytes < kLarge)
        return;
    if (request.bits > 8)
        output.Line(SayFormat(L"画面不压缩。--bits 8 的录像是它的 1/%d。", request.bits / 8));
    output.Line(Say(L"转成小的视频：ffmpeg -i FILE.avi -vf fps=10 -c:v libx264 -pix_fmt yuv420p FILE.mp4"));
}

}  // namespace

int RunRecord(const RecordOptions& options, Output& output, Progress& progress) {
    Request request;
    const int readCode = ReadRequest(options, request);
    if (readCode != kExitOk)
        return readCode;
    const int outputCode = CheckRecording({request.output, L"-o", options.isYes}, request.frames);
    if (outputCode != kExitOk)
        return outputCode;
    GrowingRecording file(request.output);
    Size size;
    const CString wrong = RecordTo(file, request, progress, size);
    if (!wrong.IsEmpty())
        return Refuse(kExitFailed, wrong);
    const CString notPlaced = file.TakePlace();
    if (!notPlaced.IsEmpty())
        return Refuse(kExitFailed, notPlaced);
    Tell(request, size, output);
    return kExitOk;
}

Subcommand RecordSubcommand() {
    return {
        L"record",
        L"把图像录成 AVI 动画，每幅一秒",
        {Required(ValuesOption(L"FRAMES", SubcommandOption::kMany, L"", L"图像文件（BMP、PNG 或 JPEG），按放映次序")),
         Required(ValueOption(L"-o,--output", L"FILE", L"录像文件")),
         ValueOption(L"--rate", L"N", L"每秒帧数，从 1 到 1000；不给出时为 10"),
         ValueOption(L"--bits", L"8|24|32", L"每像素位数；不给出时为 24"),
         FlagOption(L"-y,--yes", L"替换已有的文件而不询问")},
        {L"orvo record 0900.png 0930.png 1000.png -o sun.avi", L"orvo record *.bmp -o sun.avi --bits 8 --yes"},
        [](SubcommandCall& call) {
            return RunRecord({call.GetValues(L"FRAMES"), call.GetValue(L"--output").value_or(CString()),
                              call.GetValue(L"--rate"), call.GetValue(L"--bits"), call.HasFlag(L"--yes")},
                             call.GetOutput(), call.GetProgress());
        },
        Say};
}
