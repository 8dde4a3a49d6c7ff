// The order of the sections.
#include "workbench/commands/AnalysisPage.h"

#include "analysis/StandingFaces.h"
#include "facts/Settings.h"
#include "platform/base/PlainText.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisChanges.h"
#include "workbench/commands/AnalysisHead.h"
#include "workbench/commands/AnalysisRemarks.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisTable.h"
#include "workbench/commands/AnalysisTotals.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/AskedReport.h"
#include "workbench/commands/PagePieces.h"
#include "workbench/commands/PlanSections.h"
#include "workbench/commands/SkyChoice.h"
#include "workbench/commands/SkySections.h"
#include "workbench/commands/WindowSections.h"
#include "workbench/report/HtmlPage.h"
#include "workbench/terminal/Complaint.h"

namespace {

void AddTables(HtmlPage& page, const std::vector<TitledTable>& tables) {
    for (const TitledTable& each : tables) {
        page.Part(each.title);
        page.Table(each.table, VerdictWord(false));
    }
}

void AddTotals(HtmlPage& page, const AnalysisReport& report) {
    page.Section(Say(L"合计"), true);
    AddTables(page, TotalTables(report.answer.windows));
    AddTables(page, ChangeTables(report));
    for (const TitledNames& each : WhoFailsNow(report)) {
        page.Part(each.title);
        page.List(each.names);
    }
}

void AddEntities(HtmlPage& page, const AnalysisReport& report) {
    const std::vector<TitledTable> tables = EntityTables(report);
    if (tables.empty())
        return;
    page.Section(Say(L"遮挡物"));
    AddTables(page, tables);
}

}  // namespace

std::string AnalysisPage(const AnalysisReport& report, const AcDbDatabase& drawing, const PageRequest& request,
                         const SkyChoice& skies, const AnalysisProgress& progress) {
    const FieldWords words;
    std::size_t done = 0;
    constexpr std::size_t kSteps = 6;
    const auto goOn = [&] { return !progress || progress(done++, kSteps); };
    const CString title = Say(L"日照分析报告");
    HtmlPage page(PageTitle(request, title));
    AddPageHead(page, title, request, report, AskedOnPage(report, report.request, report.answer, OwnHeadRows(report)));
    page.Section(Say(L"结论"));
    if (report.answer.windows.empty())
        page.Paragraph(Say(L"没有分析任何窗，所以没有结论。原因写在“没有计入的和需要注意的”里：改正以后请再分析一次。"),
                       "lead");
    else
        for (const CString& line : SummaryLines(report.answer.windows))
            page.Paragraph(line, "lead");
    AddSignatures(page);
    if (!goOn())
        return {};
    const OccluderSet faces = StandingFaces(drawing, report.request);
    if (!goOn())
        return {};
    AddPlan(page, report, faces);
    if (!goOn())
        return {};
    if (!report.answer.windows.empty()) {
        AddTotals(page, report);
        AddWindowTable(page, report);
        AddTimeLines(page, report);
        if (!goOn())
            return {};
        AddSkies(page, report, faces, skies);
    }
    if (!goOn())
        return {};
    AddEntities(page, report);
    AddPageRules(page, report, *report.request.settings.standard);
    AddPageRemarks(page, MessagesOf(report.request, report.answer));
    AddPageLimits(page, ReadingNotes(report));
    return goOn() ? page.Whole() : std::string();
}

int WriteAnalysisPage(const AnalysisReport& report, const AcDbDatabase& drawing, const PageRequest& request,
                      const AnalysisProgress& progress) {
    const SkyChoice skies = ChooseSkies(report.answer.windows, request.skies);
    const std::string whole = AnalysisPage(report, drawing, request, skies, progress);
    if (whole.empty())
        return Refuse(kExitFailed, Say(L"已取消，没有写出报告"));
    const int code = SavePage(whole, request);
    for (const CString& unknown : skies.unknown)
        Complain(SayFormat(L"没有窗的名字或句柄是“%s”（--sky）", Printable(unknown)));
    return code || skies.unknown.empty() ? code : kExitFailed;
}
