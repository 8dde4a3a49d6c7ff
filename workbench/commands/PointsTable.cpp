// Outlines as rows, and what to know of them.
#include "workbench/commands/PointsTable.h"

#include "facts/StandardWords.h"
#include "platform/base/TextNumber.h"
#include "platform/host/Output.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisHead.h"
#include "workbench/commands/AnalysisRemarks.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/PointsReport.h"

namespace {

using Align = TextTable::Align;

CString AreaText(double squareMetres) {
    CString text;
    text.Format(L"%.2f", squareMetres);
    return text;
}

CString ShareText(const std::optional<double>& share) {
    if (!share)
        return L"-";
    CString text;
    text.Format(L"%.1f%%", *share * 100.0);
    return text;
}

CString MinutesText(const OutlineResult& outline, double minutes) {
    return outline.pointCount == 0 ? CString(L"-") : DurationText(minutes);
}

}  // namespace

CString GridText(const PointRequest& request) {
    const CString spacing = DoubleToText(request.spacing);
    return request.level ? SayFormat(L"点距 %s 米，轮廓投影到标高 %s 米", spacing, DoubleToText(*request.level))
                         : SayFormat(L"点距 %s 米，在各轮廓自己的平面上", spacing);
}

TextTable OutlineTable(const PointsReport& report) {
    TextTable table({Align::Right, Align::Right, Align::Right, Align::Right, Align::Right, Align::Right, Align::Right});
    table.Add({Say(L"轮廓"), Say(L"面积（平方米）"), Say(L"点数"), Say(L"最少"), Say(L"平均"), Say(L"最多"),
               Say(L"够的比例")});
    for (const OutlineResult& outline : report.answer.outlines)
        table.Add({HandleOrNone(outline.handle), AreaText(outline.area), CountText(outline.pointCount),
                   MinutesText(outline, outline.least), MinutesText(outline, outline.mean),
                   MinutesText(outline, outline.most), ShareText(outline.share)});
    return table;
}

CString PointsSummary(const PointAnswer& answer) {
    return SayFormat(L"共 %s 个轮廓，%s 个点。", CountText(answer.outlines.size()), CountText(answer.points.size()));
}

std::vector<CString> ReadingNotes(const PointsReport& report) {
    std::vector<CString> notes;
    if (report.request.leastAltitude)
        notes.push_back(LeftOutByAltitudeText(*report.request.leastAltitude));
    for (const wchar_t* text :
         {L"最少、平均、最多是各点按标准计入的日照（时:分:秒）；“够的比例”是日照不少于要求的点所占的比例。",
          L"轮廓里的轮廓不是洞，各自计算；轮廓不投影子。", L"日面中心，平坦地平线，不计大气折射；赤纬和时差整日不变。",
          L"图形里没有的（地形、树木、窗框、玻璃）都不计。"})
        notes.push_back(Say(text));
    notes.push_back(SourceWarning());
    return notes;
}

void PrintPointsTable(const PointsReport& report, Output& output) {
    PrintHead(report, report.request, report.answer, {}, output);
    output.Line(GridText(report.request));
    output.Line(L"");
    if (!report.answer.outlines.empty()) {
        OutlineTable(report).PrintTo(output);
        output.Line(L"");
    }
    output.Line(PointsSummary(report.answer));
    for (const CString& note : ReadingNotes(report))
        output.Line(note);
}
