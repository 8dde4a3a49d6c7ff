// From the options to the question, and from the answer to the streams.
#include "workbench/commands/AnalyseCommand.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "facts/NumberText.h"
#include "facts/ShippedSettings.h"
#include "facts/StandardSearch.h"
#include "platform/base/PlainText.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Output.h"
#include "platform/host/Progress.h"
#include "platform/host/Subcommands.h"
#include "settings/OrvoDataSet.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisAsCsv.h"
#include "workbench/commands/AnalysisAsJson.h"
#include "workbench/commands/AnalysisRemarks.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisTable.h"
#include "workbench/commands/AskedSettings.h"
#include "workbench/commands/HeightOptions.h"
#include "workbench/commands/NameLists.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Complaint.h"

namespace {

// An answer that is passed on when all of it is there.
class HeldOutput : public Output {
public:
    explicit HeldOutput(Output& to) : m_to(to) {}
    void Write(std::string_view text) override { m_text += text; }
    void Complain(const CString& text) override { m_to.Complain(text); }
    void PassOn() { m_to.Write(m_text); }

private:
    Output& m_to;
    std::string m_text;
};

CString BadDegreesText(const wchar_t* option, const CString& value) {
    return SayFormat(L"%s 的值“%s”不对：请写一个度数，例如 15 或 -7.5", option, Printable(value));
}

CString BadNeedText(const CString& value) {
    return SayFormat(L"--need 的值“%s”不对：请写需要的小时数，大于 0、不超过 24，例如 2 或 1.5", Printable(value));
}

CString BadAltitudeText(const CString& value) {
    return SayFormat(L"--least-altitude 的值“%s”不对：请写太阳高度角的度数，大于 0、小于 90，例如 5", Printable(value));
}

CString BadThreadsText(const CString& value) {
    return SayFormat(L"--threads 的值“%s”不对：请写同时计算的线程数，1 到 256", Printable(value));
}

// Gives an ExitCode, like the following ones. Whole turns are taken away.
int ReadDirection(const wchar_t* option, const std::optional<CString>& text, std::optional<double>& degrees) {
    constexpr double kTurn = 360.0;
    if (!text)
        return kExitOk;
    degrees = ParseDecimal(*text);
    if (!degrees)
        return Refuse(kExitUsage, BadDegreesText(option, *text));
    degrees = std::fmod(*degrees, kTurn);
    return kExitOk;
}

int ReadDirections(const AnalyseOptions& options, AnalysisRequest& request) {
    std::optional<double> north;
    const int code = ReadDirection(L"--north", options.north, north);
    request.north = north.value_or(0.0);
    return code ? code : ReadDirection(L"--facing", options.facing, request.facing);
}

int ReadLimits(const AnalyseOptions& options, AnalysisRequest& request) {
    constexpr double kMostHours = 24.0;
    constexpr double kZenith = 90.0;
    if (options.need) {
        request.need = ParseDecimal(*options.need);
        if (!request.need || *request.need <= 0.0 || *request.need > kMostHours)
            return Refuse(kExitUsage, BadNeedText(*options.need));
    }
    if (options.leastAltitude) {
        request.leastAltitude = ParseDecimal(*options.leastAltitude);
        if (!request.leastAltitude || *request.leastAltitude <= 0.0 || *request.leastAltitude >= kZenith)
            return Refuse(kExitUsage, BadAltitudeText(*options.leastAltitude));
    }
    return kExitOk;
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
    int code = ReadHeights(options.heights, request.heights);
    if (!code)
        code = ReadDirections(options, request);
    if (!code)
        code = ReadLimits(options, request);
    if (!code)
        code = ReadProposed(options, request);
    if (!code)
        code = ReadThreads(options, request);
    return code ? code : ReadAskedPlan(options.plan, request.plan);
}

int ReadSettings(const AnalyseOptions& options, AnalysisRequest& request) {
    const AskedSettings asked = ReadAskedSettings({options.place, options.date, options.standard});
    if (asked.code)
        return asked.code;
    request.settings = asked.settings;
    if (!request.settings.place)
        return kExitFailed;  // why has been said
    request.terms = TermsFor(request.settings.Day());
    return request.terms.IsReasonable() ? kExitOk : Refuse(kExitFailed, UnreasonableTermsText());
}

// Where the request's standard stands in the list, and what was changed in it.
void FindStandardOf(AnalysisReport& report) {
    const CString& name = report.request.settings.standard->name;
    const OrvoStdSet* kept = FindStandard(g_SunDataSet, name);
    if (!kept)
        return;
    const OrvoStdSet* current = StandardAt(g_SunDataSet, g_SunDataSet.m_nCurStd);
    report.isCurrentStandard = current && StandardOf(*current).name == name;
    if (report.isCurrentStandard)
        kept = current;  // of several with one name
    while (StandardAt(g_SunDataSet, report.standardIndex) != kept)
        ++report.standardIndex;
    report.changes = ChangesFromShipped(*kept, ReadShippedSettings().get());
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
    return AnalyseWindows(drawing, request, [&](std::size_t done, std::size_t total) {
        return progress.Show(static_cast<int>(done), static_cast<int>(total), text);
    });
}

bool IsAnyAnalysed(const AnalysisAnswer& answer) {
    return std::any_of(answer.windows.begin(), answer.windows.end(), IsAnalysed);
}

}  // namespace

int RunAnalyse(const AnalyseOptions& options, Output& output, Progress& progress) {
    AnalysisReport report;
    report.drawing = options.file.value_or(CString());
    int code = ReadOptions(options, report.request);
    if (!code)
        code = ReadSettings(options, report.request);
    if (code)
        return code;
    AcDbDatabase drawing;
    CString message;
    if (drawing.dxfIn(*options.file, &message) != Acad::eOk)
        return Refuse(kExitFailed, message);
    report.answer = Analyse(drawing, report.request, progress);
    if (report.answer.failure != AnalysisFailure::None)
        return Refuse(kExitFailed, FailureText(report.request, report.answer));
    FindStandardOf(report);
    if (!options.isJson && !options.isCsv)
        report.shading = ShadingEntitiesOf(drawing, report.answer);
    if (!options.isJson && !options.isCsv && IsCompared(report))
        report.taking = ShadingEntitiesOf(drawing, report.answer, &WindowResult::lost);
    HeldOutput held(output);
    if (!Print(report, options, held, progress))
        return Refuse(kExitFailed, Say(L"已取消，没有分析"));
    for (const CString& each : MessagesOf(report.request, report.answer))
        Complain(each);
    held.PassOn();
    return IsAnyAnalysed(report.answer) ? kExitOk : kExitFailed;
}

Subcommand AnalyseSubcommand() {
    return {L"analyse",
            L"分析图形中每个窗的日照：何时照到，被什么遮挡，是否达标",
            {ValueOption(L"FILE", L"", L"DXF 文件（文本格式）"),
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
             ValueOption(L"--place", L"NAME", L"地区名，或 省份/地区", PlaceNames),
             ValueOption(L"--date", L"Y-M-D", L"分析日期，例如 2025-12-22"),
             ValueOption(L"--standard", L"NAME", L"日照标准名", StandardNames),
             FlagOption(L"--csv", L"以 CSV 输出，供电子表格使用"), FlagOption(L"--json", L"以 JSON 输出")},
            {L"orvo analyse courtyard.dxf --need 2 --standard 国标大寒日",
             L"orvo analyse courtyard.dxf --windows WINDOW --north 15 --json"},
            [](SubcommandCall& call) {
                return RunAnalyse(
                    {call.GetValue(L"FILE"),
                     call.GetValues(L"--windows"),
                     call.GetValues(L"--height"),
                     call.GetValue(L"--north"),
                     call.GetValue(L"--facing"),
                     call.GetValue(L"--need"),
                     call.GetValue(L"--least-altitude"),
                     call.GetValues(L"--proposed"),
                     call.GetValue(L"--threads"),
                     call.HasFlag(L"--scope"),
                     call.GetValue(L"--place"),
                     call.GetValue(L"--date"),
                     call.GetValue(L"--standard"),
                     call.HasFlag(L"--csv"),
                     call.HasFlag(L"--json"),
                     {call.GetValue(L"--sill"), call.GetValue(L"--window-height"), call.GetValue(L"--storeys")}},
                    call.GetOutput(), call.GetProgress());
            },
            Say};
}

Subcommand AnalyzeSubcommand() {
    Subcommand row = AnalyseSubcommand();
    row.name = L"analyze";
    row.description = L"与 analyse 相同";
    return row;
}
