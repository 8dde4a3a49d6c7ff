// From the options to the question, and from the answer to the streams.
#include "workbench/commands/AnalyseCommand.h"

#include <algorithm>

#include "facts/NumberText.h"
#include "platform/base/PlainText.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/DrawingChange.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Progress.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisAsCsv.h"
#include "workbench/commands/AnalysisAsJson.h"
#include "workbench/commands/AnalysisPage.h"
#include "workbench/commands/AnalysisRemarks.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisTable.h"
#include "workbench/commands/AskedDate.h"
#include "workbench/commands/AskedPlace.h"
#include "workbench/commands/DrawingFile.h"
#include "workbench/commands/HeldOutput.h"
#include "workbench/commands/NameLists.h"
#include "workbench/commands/OutputNames.h"
#include "workbench/commands/WindowsOnDrawing.h"
#include "workbench/commands/WriteOption.h"
#include "workbench/film/Film.h"
#include "workbench/report/Sha256.h"
#include "workbench/terminal/Complaint.h"

namespace {

CString BadThreadsText(const CString& value) {
    return SayFormat(L"--threads 的值“%s”不对：请写同时计算的线程数，1 到 256", Printable(value));
}

int ReadProposed(const AnalyseOptions& options, AnalysisRequest& request) {
    for (const CString& layer : options.proposed)
        if (CString(layer).Trim().IsEmpty())
            return Refuse(kExitUsage, Say(L"--proposed 的值是空的：请写方案所在图层的名字，例如 --proposed PROJECT"));
    request.proposedLayers = options.proposed;
    return kExitOk;
}

int ReadThreads(const AnalyseOptions& options, AnalysisRequest& request) {
    constexpr int kMostThreads = 256;
    if (!options.threads)
        return kExitOk;
    const std::optional<int> threads = ParseWhole(*options.threads, 1, kMostThreads);
    if (!threads)
        return Refuse(kExitUsage, BadThreadsText(*options.threads));
    request.threads = static_cast<unsigned>(*threads);
    return kExitOk;
}

int ReadOptions(const AnalyseOptions& options, AnalysisRequest& request) {
    if (!options.file || options.file->IsEmpty())
        return Refuse(kExitUsage, Say(L"没有给出图形文件：请写一个 DXF 文件，例如 orvo analyse courtyard.dxf"));
    if (options.isCsv && options.isJson)
        return Refuse(kExitUsage, Say(L"--csv 和 --json 只能给出一个"));
    for (const CString& layer : options.windows)
        if (layer.IsEmpty())
            return Refuse(kExitUsage, Say(L"--windows 的值是空的：请写窗所在图层的名字，例如 --windows WINDOW"));
    request.windowLayers = options.windows;
    request.isScoped = options.isScoped;
    int code = RefuseResultLayers(L"--windows", options.windows);
    if (!code)
        code = RefuseResultLayers(L"--proposed", options.proposed);
    if (!code)
        code = ReadAskedDay(options.day, request);
    if (!code)
        code = ReadProposed(options, request);
    if (!code)
        code = ReadThreads(options, request);
    return code ? code : ReadAskedPlan(options.plan, request.plan);
}

bool Print(const AnalysisReport& report, const AnalyseOptions& options, Output& output, Progress& progress) {
    const CString text = Say(L"正在写出第 %d 个窗，共 %d 个");
    const AnalysisProgress goOn = [&](std::size_t done, std::size_t total) {
        return progress.Show(static_cast<int>(done) + 1, static_cast<int>(total), text);
    };
    if (options.isJson)
        return PrintAnalysisAsJson(report, output, goOn);
    if (options.isCsv)
        return PrintAnalysisAsCsv(report, output, goOn);
    return PrintAnalysisTable(report, output, goOn);
}

AnalysisAnswer Analyse(const AcDbDatabase& drawing, const AnalysisRequest& request, Progress& progress) {
    const CString text = Say(L"正在分析：%d 个窗，共 %d 个");
    const CString reading = Say(L"正在整理图形的面");
    return AnalyseWindows(drawing, request, [&](std::size_t done, std::size_t total) {
        return progress.Show(static_cast<int>(done), static_cast<int>(total), total == 0 ? reading : text);
    });
}

bool IsAnyAnalysed(const AnalysisAnswer& answer) {
    return std::any_of(answer.windows.begin(), answer.windows.end(), IsAnalysed);
}

}  // namespace

int RunAnalyse(const AnalyseOptions& options, Output& output, Progress& progress) {
    AnalysisReport report;
    report.drawing = options.file.value_or(CString());
    std::optional<FilmRequest> asked;
    PageRequest page;
    int code = ReadOptions(options, report.request);
    if (!code)
        code = ReadAskedFilm(options.film, asked);
    if (!code)
        code = ReadAskedReport(options.page, page);
    if (!code)
        code = ReadDaySettings(options.day, report.request);
    if (code)
        return code;
    code = CheckWriteOption(*options.file, options.write);
    if (!code)
        code = CheckOutputNames(
            OutputNames(options.write.value_or(CString()), asked ? asked->file : CString(), page.folder));
    if (code)
        return code;
    AcDbDatabase drawing;
    if (page.IsAskedFor())
        report.fingerprint = Sha256OfFile(report.drawing);
    if (const int readCode = ReadDrawing(drawing, *options.file))
        return readCode;
    std::optional<Film> film;
    if (asked)
        code = film.emplace(*asked).Check(report.request, report.drawing);
    if (film && !code)
        code = film->Prepare();
    if (code)
        return code;
    report.answer = Analyse(drawing, report.request, progress);
    if (report.answer.failure != AnalysisFailure::None)
        return Refuse(kExitFailed, FailureText(report.request, report.answer));
    FindStandardOf(report.request.settings, report);
    if (page.IsAskedFor() || !(options.isJson || options.isCsv))
        TellEntities(drawing, report);
    HeldOutput held(output);
    if (!Print(report, options, held, progress))
        return Refuse(kExitFailed, Say(L"已取消，没有分析"));
    for (const CString& each : MessagesOf(report.request, report.answer))
        Complain(each);
    code = page.IsAskedFor() ? WriteAnalysisPage(report, drawing, page) : kExitOk;
    held.PassOn();  // whatever became of the page
    if (options.write && !code)
        code = WriteDrawing(drawing, WindowsOnDrawing(report, drawing), *options.write);
    if (film && !code)
        code = film->Shoot(drawing, report.request, report.answer, progress);
    return IsAnyAnalysed(report.answer) ? code : kExitFailed;
}

Subcommand AnalyseSubcommand() {
    Subcommand row = {
        L"analyse",
        L"分析图形中每个窗的日照：何时照到，被什么遮挡，是否达标",
        {Required(ValueOption(L"FILE", L"", L"DXF 文件（文本格式）")),
         ValuesOption(L"--windows", SubcommandOption::kMany, L"LAYER",
                      L"窗所在的图层，可以给出多次；不给出时为 WINDOW 和 窗"),
         ValuesOption(L"--height", SubcommandOption::kMany, L"LAYER=METRES",
                      L"图层上没有厚度的闭合轮廓的高度（米），可以给出多次"),
         ValueOption(L"--need", L"HOURS", L"窗需要的日照小时数，大于 0、不超过 24；给出时才有结论"),
         ValueOption(L"--north", L"DEGREES", L"正北从图形的 y 轴起逆时针的度数；不给出时为 0"),
         ValueOption(L"--facing", L"DEGREES", L"分不清室外侧的窗的朝向，从正东起逆时针的度数"),
         ValueOption(L"--sill", L"METRES", L"平面图里标高为 0 的窗的窗台标高"),
         ValueOption(L"--window-height", L"METRES", L"平面图里没有厚度的窗的窗高，大于 0"),
         ValueOption(L"--storeys", L"N=METRES", L"把平面图里的窗重复成 N 层，层高为 METRES"),
         ValuesOption(L"--proposed", SubcommandOption::kMany, L"LAYER",
                      L"方案所在的图层，可以给出多次；给出时每个窗都有方案前后的比较"),
         ValueOption(L"--threads", L"N", L"同时计算的线程数，1 到 256；不给出时为全部核心"),
         FlagOption(L"--scope", L"按范围、高度的参数略去太远的遮挡"),
         ValueOption(L"--least-altitude", L"DEGREES", L"太阳高度角低于它的时间不计，大于 0、小于 90"),
         PlaceOption(),
         DateOption(),
         ValueOption(L"--standard", L"NAME", L"日照标准名", StandardNames),
         WriteOption(),
         ValueOption(L"--film", L"FILE", L"把分析的一天录成 AVI 动画，带阴影"),
         ValueOption(L"--every", L"MINUTES", L"录像每隔多少分钟一幅画面，1 到 720；不给出时为 5"),
         ValueOption(L"--size", L"WIDTHxHEIGHT", L"录像画面的大小，到 3840x2160；不给出时为 1280x720"),
         ValueOption(L"--view", L"NAME", L"从哪里看：top、south、east、north、west、southeast 或 southwest", ViewNames),
         ValueOption(L"--camera", L"AZIMUTH,ALTITUDE", L"从哪里看：从正北起顺时针的度数，和高度角"),
         ValueOption(L"--zoom", L"FACTOR", L"录像画面的放大倍数，0.1 到 100；不给出时全部看得到"),
         FlagOption(L"-y,--yes", L"替换已有的文件而不询问"),
         FlagOption(L"--csv", L"以 CSV 输出，供电子表格使用"),
         FlagOption(L"--json", L"以 JSON 输出")},
        {L"orvo analyse courtyard.dxf --need 2 --standard 国标大寒日",
         L"orvo analyse courtyard.dxf --windows WINDOW --north 15 --json",
         L"orvo analyse courtyard.dxf --need 2 --report report",
         L"orvo analyse courtyard.dxf --film sun.avi --every 10 --view southwest"},
        [](SubcommandCall& call) {
            return RunAnalyse(
                {call.GetValue(L"FILE"),
                 call.GetValues(L"--windows"),
                 AskedDayOf(call),
                 call.GetValues(L"--proposed"),
                 call.GetValue(L"--threads"),
                 call.HasFlag(L"--scope"),
                 call.HasFlag(L"--csv"),
                 call.HasFlag(L"--json"),
                 {call.GetValue(L"--sill"), call.GetValue(L"--window-height"), call.GetValue(L"--storeys")},
                 call.GetValue(L"--write"),
                 AskedFilmOf(call),
                 AskedReportOf(call, true)},
                call.GetOutput(), call.GetProgress());
        },
        Say};
    AddReportOptions(row.options, true);
    return row;
}

Subcommand AnalyzeSubcommand() {
    Subcommand row = AnalyseSubcommand();
    row.name = L"analyze";
    row.description = L"与 analyse 相同";
    return row;
}
