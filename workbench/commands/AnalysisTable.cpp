// The head of the table, its order, and what stands below it.
#include "workbench/commands/AnalysisTable.h"

#include "facts/DayText.h"
#include "facts/NearestNames.h"
#include "facts/StandardWords.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/Output.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisChanges.h"
#include "workbench/commands/AnalysisRemarks.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisTotals.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/SunRows.h"
#include "workbench/commands/WindowRows.h"
#include "workbench/terminal/TextTable.h"

namespace {

// Without its folders, which belong to one machine.
CString NameOf(const CString& file) {
    return file.Mid(file.ReverseFind(L'/') + 1);
}

using Align = TextTable::Align;

CString HeightsText(const std::vector<LayerHeight>& heights) {
    std::vector<CString> texts;
    for (const LayerHeight& each : heights)
        texts.push_back(SayFormat(L"%s 高 %s 米", each.layer, DoubleToText(each.metres)));
    return JoinNames(texts);
}

void PrintHead(const AnalysisReport& report, Output& output) {
    const AnalysisRequest& request = report.request;
    const AnalysisAnswer& answer = report.answer;
    output.Line(Printable(NoteOf(request.settings)));
    output.Line(L"");
    TextTable table({Align::Left, Align::Left});
    if (!report.drawing.IsEmpty())
        table.Add({Say(L"图形"), Printable(NameOf(report.drawing))});
    AddPlaceRows(table, request.settings);
    table.Add({Say(L"分析日期"), Printable(DayInWords(request.terms.day))});
    AddTermRows(table, request.terms);
    table.Add({Say(L"分析时段"), SayFormat(L"真太阳时 %s，北京时间 %s", PeriodText(answer.span, 0.0),
                                           PeriodText(answer.span, answer.beijingOffset))});
    if (request.north != 0.0)
        table.Add({Say(L"正北"), SayFormat(L"从图形的 y 轴起逆时针 %s 度", DoubleToText(request.north))});
    if (!request.heights.empty())
        table.Add({Say(L"图层高度"), HeightsText(request.heights)});
    if (IsCompared(report))
        table.Add({Say(L"方案图层"), JoinNames(request.proposedLayers)});
    table.Add({Say(L"要求"), request.need ? SayFormat(L"%s（时:分）", DurationText(*request.need * 60.0))
                                          : Say(L"没有给出（--need），只列出日照")});
    table.PrintTo(output);
    output.Line(RulesInOneLine(*request.settings.standard));
    output.Line(L"");
}

void PrintEntities(const std::vector<ShadingEntity>& entities, const CString& heading, Output& output) {
    if (entities.empty())
        return;
    output.Line(L"");
    output.Line(heading);
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Right});
    table.Add({Say(L"句柄"), Say(L"类型"), Say(L"图层"), Say(L"受遮挡的窗")});
    for (const ShadingEntity& entity : entities)
        table.Add({HandleOrNone(entity.handle), Printable(entity.words.type), Printable(entity.words.layer),
                   IntToText(static_cast<int>(entity.windows))});
    table.PrintTo(output, 2);
}

void PrintLeftOut(const LeftOut& leftOut, Output& output) {
    if (leftOut.entities)
        output.Line(LeftOutByScopeText(*leftOut.entities));
    if (leftOut.belowAltitude)
        output.Line(LeftOutByAltitudeText(*leftOut.belowAltitude));
}

}  // namespace

bool PrintAnalysisTable(const AnalysisReport& report, Output& output, const AnalysisProgress& goOn) {
    PrintHead(report, output);
    if (!PrintWindowRows(report, output, goOn))
        return false;
    PrintTotals(report.answer.windows, output);
    PrintChanges(report, output);
    PrintEntities(report.shading, Say(L"遮挡日照的实体"), output);
    PrintEntities(report.taking, Say(L"方案中夺去日照的实体"), output);
    output.Line(L"");
    PrintSummary(report.answer.windows, output);
    PrintLeftOut(LeftOutOf(report), output);
    for (const wchar_t* text :
         {L"朝向是窗的外法线，从正东起逆时针计。", L"“日照”是精确的时段，“计入”是按标准的步长、计入判定的时段。",
          L"日面中心，平坦地平线，不计大气折射；赤纬和时差整日不变。",
          L"图形里没有的（地形、树木、窗框、玻璃）都不计。"})
        output.Line(Say(text));
    output.Line(SourceWarning());
    return true;
}
