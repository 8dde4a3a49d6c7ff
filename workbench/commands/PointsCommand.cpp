// From the options to the question, and from the answer to the streams.
#include "workbench/commands/PointsCommand.h"

#include <cmath>

#include "facts/NumberText.h"
#include "platform/base/PlainText.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/DrawingChange.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Progress.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/commands/AskedDate.h"
#include "workbench/commands/AskedPlace.h"
#include "workbench/commands/DrawingFile.h"
#include "workbench/commands/HeldOutput.h"
#include "workbench/commands/NameLists.h"
#include "workbench/commands/OutputNames.h"
#include "workbench/commands/PointRemarks.h"
#include "workbench/commands/PointsAsCsv.h"
#include "workbench/commands/PointsAsJson.h"
#include "workbench/commands/PointsOnDrawing.h"
#include "workbench/commands/PointsPage.h"
#include "workbench/commands/PointsReport.h"
#include "workbench/commands/PointsTable.h"
#include "workbench/commands/WriteOption.h"
#include "workbench/report/Sha256.h"
#include "workbench/terminal/Complaint.h"

namespace {

// Gives an ExitCode, like the following ones.
int ReadGrid(const PointsOptions& options, PointRequest& request) {
    constexpr double kMostSpacing = 1000.0;
    constexpr double kFarthestLevel = 10'000.0;
    if (options.spacing) {
        const std::optional<double> spacing = ParseDecimal(*options.spacing);
        if (!spacing || *spacing <= 0.0 || *spacing > kMostSpacing)
            return Refuse(kExitUsage,
                          SayFormat(L"--spacing 的值“%s”不对：请写点距的米数，大于 0、不超过 1000，例如 2 或 0.5",
                                    Printable(*options.spacing)));
        request.spacing = *spacing;
    }
    if (options.level) {
        request.level = ParseDecimal(*options.level);
        if (!request.level || std::fabs(*request.level) > kFarthestLevel)
            return Refuse(kExitUsage, SayFormat(L"--level 的值“%s”不对：请写标高的米数，-10000 到 10000，例如 0 或 1.5",
                                                Printable(*options.level)));
    }
    return kExitOk;
}

int ReadOptions(const PointsOptions& options, PointRequest& request) {
    if (!options.file || options.file->IsEmpty())
        return Refuse(kExitUsage,
                      Say(L"没有给出图形文件：请写一个 DXF 文件，例如 orvo points courtyard.dxf --areas GREEN"));
    if (options.isCsv && options.isJson)
        return Refuse(kExitUsage, Say(L"--csv 和 --json 只能给出一个"));
    bool hasBlank = options.areas.empty();
    for (CString layer : options.areas)
        hasBlank = hasBlank || layer.Trim().IsEmpty();
    if (hasBlank)
        return Refuse(kExitUsage, Say(L"没有给出轮廓的图层：请用 --areas 写轮廓所在图层的名字，例如 --areas GREEN"));
    request.areaLayers = options.areas;
    int code = RefuseResultLayers(L"--areas", options.areas);
    if (!code)
        code = ReadAskedDay(options.day, request);
    return code ? code : ReadGrid(options, request);
}

bool Print(const PointsReport& report, const PointsOptions& options, Output& output, Progress& progress) {
    const CString text = Say(L"正在写出第 %d 个点，共 %d 个");
    const AnalysisProgress goOn = [&](std::size_t done, std::size_t total) {
        return progress.Show(static_cast<int>(done) + 1, static_cast<int>(total), text);
    };
    if (options.isJson)
        return PrintPointsAsJson(report, output, goOn);
    if (options.isCsv)
        return PrintPointsAsCsv(report, output, goOn);
    PrintPointsTable(report, output);
    return true;
}

PointAnswer Analyse(const AcDbDatabase& drawing, const PointRequest& request, Progress& progress) {
    const CString text = Say(L"正在分析：%d 个点，共 %d 个");
    // Nobody knows how long they are before they are followed; that it takes longer than the points did is no hang.
    const CString isolines = Say(L"点已分析完，正在沿等时线分析");
    const CString reading = Say(L"正在整理图形的面");
    return AnalysePoints(drawing, request, [&](std::size_t done, std::size_t total) {
        const bool isFollowing = request.isolines && done == total;
        return progress.Show(static_cast<int>(done), static_cast<int>(total),
                             total == 0    ? reading
                             : isFollowing ? isolines
                                           : text);
    });
}

}  // namespace

int RunPoints(const PointsOptions& options, Output& output, Progress& progress) {
    PointsReport report;
    report.drawing = options.file.value_or(CString());
    PageRequest page;
    int code = ReadOptions(options, report.request);
    if (!code)
        code = ReadAskedReport(options.page, page);
    if (!code)
        code = ReadDaySettings(options.day, report.request);
    if (code)
        return code;
    code = CheckWriteOption(*options.file, options.write);
    if (!code)
        code = CheckOutputNames(OutputNames(options.write.value_or(CString()), CString(), page.folder));
    if (code)
        return code;
    report.request.isolines = options.write.has_value() || page.IsAskedFor();
    AcDbDatabase drawing;
    if (page.IsAskedFor())
        report.fingerprint = Sha256OfFile(report.drawing);
    if (const int readCode = ReadDrawing(drawing, *options.file))
        return readCode;
    report.answer = Analyse(drawing, report.request, progress);
    if (report.answer.failure != AnalysisFailure::None)
        return Refuse(kExitFailed, PointFailureText(report.request, report.answer));
    FindStandardOf(report.request.settings, report);
    HeldOutput held(output);
    if (!Print(report, options, held, progress))
        return Refuse(kExitFailed, Say(L"已取消，没有分析"));
    for (const CString& each : MessagesOf(report.request, report.answer))
        Complain(each);
    code = page.IsAskedFor() ? WritePointsPage(report, drawing, page) : kExitOk;
    held.PassOn();  // whatever became of the page
    if (options.write && !code)
        code = WriteDrawing(drawing, PointsOnDrawing(report, drawing), *options.write);
    return report.answer.points.empty() ? kExitFailed : code;
}

Subcommand PointsSubcommand() {
    Subcommand row = {
        L"points",
        L"分析轮廓里（地面、屋顶、墙面）一格格的点的日照，以及日照足够的比例",
        {Required(ValueOption(L"FILE", L"", L"DXF 文件（文本格式）")),
         Required(ValuesOption(L"--areas", SubcommandOption::kMany, L"LAYER", L"轮廓所在的图层，可以给出多次")),
         ValueOption(L"--spacing", L"METRES", L"点距，大于 0、不超过 1000；不给出时为 1"),
         ValueOption(L"--level", L"METRES", L"把轮廓投影到这个标高；不给出时在轮廓自己的平面上"),
         ValuesOption(L"--height", SubcommandOption::kMany, L"LAYER=METRES",
                      L"图层上没有厚度的闭合轮廓的高度（米），可以给出多次"),
         ValueOption(L"--need", L"HOURS", L"点需要的日照小时数，大于 0、不超过 24；给出时才有比例"),
         ValueOption(L"--north", L"DEGREES", L"正北从图形的 y 轴起逆时针的度数；不给出时为 0"),
         ValueOption(L"--facing", L"DEGREES", L"分不清室外侧的竖直轮廓的朝向，从正东起逆时针的度数"),
         ValueOption(L"--least-altitude", L"DEGREES", L"太阳高度角低于它的时间不计，大于 0、小于 90"), PlaceOption(),
         DateOption(), ValueOption(L"--standard", L"NAME", L"日照标准名", StandardNames), WriteOption(),
         FlagOption(L"--csv", L"以 CSV 输出，供电子表格使用"), FlagOption(L"--json", L"以 JSON 输出")},
        {L"orvo points courtyard.dxf --areas 地面 --spacing 2 --need 2",
         L"orvo points courtyard.dxf --areas 地面 --level 1.5 --json"},
        [](SubcommandCall& call) {
            return RunPoints({call.GetValue(L"FILE"), call.GetValues(L"--areas"), call.GetValue(L"--spacing"),
                              call.GetValue(L"--level"), AskedDayOf(call), call.HasFlag(L"--csv"),
                              call.HasFlag(L"--json"), call.GetValue(L"--write"), AskedReportOf(call, false)},
                             call.GetOutput(), call.GetProgress());
        },
        Say};
    AddReportOptions(row.options, false);
    return row;
}
