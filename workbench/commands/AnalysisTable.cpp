// The order of the table, and what stands below it.
#include "workbench/commands/AnalysisTable.h"

#include "facts/NearestNames.h"
#include "facts/StandardWords.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/Output.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisChanges.h"
#include "workbench/commands/AnalysisHead.h"
#include "workbench/commands/AnalysisRemarks.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisTotals.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/WindowRows.h"

namespace {

using Align = TextTable::Align;

void AddEntities(const std::vector<ShadingEntity>& entities, const CString& title, std::vector<TitledTable>& tables) {
    if (entities.empty())
        return;
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Right});
    table.Add({Say(L"句柄"), Say(L"类型"), Say(L"图层"), Say(L"受遮挡的窗")});
    for (const ShadingEntity& entity : entities)
        table.Add({HandleOrNone(entity.handle), Printable(entity.words.type), Printable(entity.words.layer),
                   IntToText(static_cast<int>(entity.windows))});
    tables.push_back({title, std::move(table)});
}

}  // namespace

std::vector<HeadRow> OwnHeadRows(const AnalysisReport& report) {
    if (!IsCompared(report))
        return {};
    return {{Say(L"方案图层"), JoinNames(report.request.proposedLayers)}};
}

std::vector<TitledTable> EntityTables(const AnalysisReport& report) {
    std::vector<TitledTable> tables;
    AddEntities(report.shading, Say(L"遮挡日照的实体"), tables);
    AddEntities(report.taking, Say(L"方案中夺去日照的实体"), tables);
    return tables;
}

std::vector<CString> ReadingNotes(const AnalysisReport& report) {
    std::vector<CString> notes;
    const LeftOut leftOut = LeftOutOf(report);
    if (leftOut.entities)
        notes.push_back(LeftOutByScopeText(*leftOut.entities));
    if (leftOut.belowAltitude)
        notes.push_back(LeftOutByAltitudeText(*leftOut.belowAltitude));
    for (const wchar_t* text : {L"朝向是窗的外法线；度数从正东起逆时针计：北 90，西 180，南 270。",
                                L"“日照”是精确的时段，“计入”是按标准的步长、计入判定的时段。",
                                L"日面中心，平坦地平线，不计大气折射；赤纬和时差整日不变。",
                                L"图形里没有的（地形、树木、窗框、玻璃）都不计。"})
        notes.push_back(Say(text));
    notes.push_back(SourceWarning());
    return notes;
}

bool PrintAnalysisTable(const AnalysisReport& report, Output& output, const AnalysisProgress& goOn) {
    PrintHead(report, report.request, report.answer, OwnHeadRows(report), output);
    if (!PrintWindowRows(report, output, goOn))
        return false;
    PrintTotals(report.answer.windows, output);
    PrintChanges(report, output);
    for (const TitledTable& each : EntityTables(report))
        PrintTitled(each, output);
    output.Line(L"");
    PrintSummary(report.answer.windows, output);
    for (const CString& note : ReadingNotes(report))
        output.Line(note);
    return true;
}
