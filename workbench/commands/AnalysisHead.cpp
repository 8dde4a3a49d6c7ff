// Rows of what was asked.
#include "workbench/commands/AnalysisHead.h"

#include <algorithm>

#include "analysis/DayRequest.h"
#include "facts/DayText.h"
#include "facts/NearestNames.h"
#include "facts/StandardWords.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/Output.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/DayReport.h"
#include "workbench/commands/SunRows.h"

namespace {

using Align = TextTable::Align;

// Without its folders, which belong to one machine.
CString NameOf(const CString& file) {
    return file.Mid(file.ReverseFind(L'/') + 1);
}

// Whether a height found nothing to raise, which the remarks tell why.
bool IsIdle(const LayerHeight& height, const std::vector<AnalysisRemark>& remarks) {
    return std::any_of(remarks.begin(), remarks.end(), [&](const AnalysisRemark& remark) {
        using Kind = AnalysisRemark::Kind;
        return (remark.kind == Kind::NothingToRaise || remark.kind == Kind::NoLayerToRaise) &&
               remark.subject == height.layer;
    });
}

CString HeightsText(const std::vector<LayerHeight>& heights, const std::vector<AnalysisRemark>& remarks) {
    std::vector<CString> texts;
    for (const LayerHeight& each : heights) {
        const CString metres = DoubleToText(each.metres);
        texts.push_back(IsIdle(each, remarks) ? SayFormat(L"%s 高 %s 米（没有用上）", each.layer, metres)
                                              : SayFormat(L"%s 高 %s 米", each.layer, metres));
    }
    return JoinNames(texts);
}

}  // namespace

TextTable HeadTable(const DayReport& report, const DayRequest& request, const DayAnswer& answer, const CString& day,
                    const std::vector<HeadRow>& own) {
    TextTable table({Align::Left, Align::Left});
    if (!report.drawing.IsEmpty())
        table.Add({Say(L"图形"), Printable(NameOf(report.drawing))});
    AddPlaceRows(table, request.settings);
    table.Add({Say(L"分析日期"), day});
    AddTermRows(table, request.terms);
    table.Add({Say(L"分析时段"), SayFormat(L"真太阳时 %s，北京时间 %s", PeriodText(answer.span, 0.0),
                                           PeriodText(answer.span, answer.beijingOffset))});
    if (request.north != 0.0)
        table.Add({Say(L"正北"), SayFormat(L"从图形的 y 轴起逆时针 %s 度", DoubleToText(request.north))});
    if (!request.heights.empty())
        table.Add({Say(L"图层高度"), HeightsText(request.heights, answer.remarks)});
    for (const HeadRow& row : own)
        table.Add({row.name, row.value});
    table.Add({Say(L"要求"), request.need ? SayFormat(L"%s（时:分:秒）", DurationText(*request.need * 60.0))
                                          : Say(L"没有给出（--need），只列出日照")});
    return table;
}

void PrintHead(const DayReport& report, const DayRequest& request, const DayAnswer& answer,
               const std::vector<HeadRow>& own, Output& output) {
    output.Line(Printable(NoteOf(request.settings)));
    output.Line(L"");
    HeadTable(report, request, answer, Printable(DayInWords(request.terms.day)), own).PrintTo(output);
    output.Line(RulesInOneLine(*request.settings.standard));
    output.Line(L"");
}
