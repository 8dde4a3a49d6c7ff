// The order of the sections.
#include "workbench/commands/PointsPage.h"

#include "analysis/StandingFaces.h"
#include "facts/Settings.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisHead.h"
#include "workbench/commands/AskedReport.h"
#include "workbench/commands/PagePieces.h"
#include "workbench/commands/PlanSections.h"
#include "workbench/commands/PointRemarks.h"
#include "workbench/commands/PointsReport.h"
#include "workbench/commands/PointsTable.h"
#include "workbench/report/HtmlPage.h"

std::string PointsPage(const PointsReport& report, const AcDbDatabase& drawing, const PageRequest& request) {
    const FieldWords words;
    const CString title = Say(L"场地日照分析报告");
    HtmlPage page(PageTitle(request, title));
    AddPageHead(page, title, request, report,
                AskedOnPage(report, report.request, report.answer, {{Say(L"点"), GridText(report.request)}}));
    page.Section(Say(L"结论"));
    page.Paragraph(PointsSummary(report.answer), "lead");
    if (!report.answer.outlines.empty())
        page.Table(OutlineTable(report));
    AddSignatures(page);
    AddPlan(page, report, StandingFaces(drawing, report.request));
    AddPageRules(page, report, *report.request.settings.standard);
    AddPageRemarks(page, MessagesOf(report.request, report.answer));
    AddPageLimits(page, ReadingNotes(report));
    return page.Whole();
}

int WritePointsPage(const PointsReport& report, const AcDbDatabase& drawing, const PageRequest& request) {
    return SavePage(PointsPage(report, drawing, request), request);
}
