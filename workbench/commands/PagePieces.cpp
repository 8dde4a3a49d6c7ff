// Sections that need nothing of what was analysed.
#include "workbench/commands/PagePieces.h"

#include "analysis/DayRequest.h"
#include "facts/Standard.h"
#include "facts/StandardWords.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisHead.h"
#include "workbench/commands/AskedReport.h"
#include "workbench/commands/DayReport.h"
#include "workbench/commands/StandardRules.h"
#include "workbench/report/HtmlPage.h"
#include "workbench/report/Joined.h"
#include "workbench/report/Markup.h"
#include "workbench/report/ReportFolder.h"
#include "workbench/report/Sha256.h"
#include "workbench/terminal/Complaint.h"
#include "workbench/terminal/TextTable.h"

namespace {

using Align = TextTable::Align;

// Where nothing was given there is a line to write on.
CString OrBlank(const CString& text) {
    return text.IsEmpty() ? CString(L'_', 24) : Printable(text);
}

constexpr const wchar_t* kAlmanac =
    L"太阳赤纬和时差来自节气表和公式，与天文年历相差可达 0.8 度和 40 "
    L"秒；在又长又平的遮挡边缘后面，时数会因此相差半小时以上，离要求不远的窗要另行核实。";

// Whether it was the same file all the time is known only afterwards.
CString FingerprintText(const DayReport& report) {
    if (report.isChanged)
        return Say(L"没有（图形有没有保存的改动：请先保存，再分析一次）");
    if (!report.fingerprint)
        return Say(L"没有（不是普通文件，不能再读一次）");
    if (Sha256OfFile(report.drawing) != report.fingerprint)
        return Say(L"没有（图形文件在分析的时候改变了：请再分析一次）");
    return *report.fingerprint;
}

// As letters and forms have it in the page's language, without the module's blanks before short numbers.
CString DayOnPage(const CalendarDay& day) {
    CString year;
    CString month;
    CString dayOfMonth;
    year.Format(L"%04d", day.year);
    month.Format(L"%02d", day.month);
    dayOfMonth.Format(L"%02d", day.day);
    return SayFormat(L"%s年%s月%s日", year, month, dayOfMonth);
}

}  // namespace

CString PageTitle(const PageRequest& request, const CString& title) {
    return request.project.IsEmpty() ? title : Printable(request.project) + L" - " + title;
}

TextTable AskedOnPage(const DayReport& report, const DayRequest& request, const DayAnswer& answer,
                      const std::vector<HeadRow>& own) {
    const Standard& standard = *request.settings.standard;
    std::vector<HeadRow> rows = {{Say(L"日照标准"), Printable(standard.name)},
                                 {Say(L"计算精度"), SayFormat(L"%s 分钟", DoubleToText(standard.step))}};
    rows.insert(rows.end(), own.begin(), own.end());
    return HeadTable(report, request, answer, DayOnPage(request.terms.day), rows);
}

void AddPageHead(HtmlPage& page, const CString& title, const PageRequest& request, const DayReport& report,
                 const TextTable& asked) {
    page.Title(title);
    TextTable head({Align::Left, Align::Left});
    head.Add({Say(L"项目"), OrBlank(request.project)});
    head.Add({Say(L"编制"), OrBlank(request.author)});
    head.Add({Say(L"报告日期"), DayOnPage(request.date)});
    head.Add({Say(L"程序"), CString(L"orvo ") + FromUtf8(ORVO_VERSION)});
    const CString drawing = Say(L"图形");
    for (const std::vector<CString>& row : asked.Rows()) {
        head.Add(row);
        if (row[0] == drawing)
            head.Add({Say(L"图形的 SHA-256"), FingerprintText(report)});
    }
    page.Facts(head);
}

void AddSignatures(HtmlPage& page) {
    page.Add("<div class=\"sign\">");
    for (const wchar_t* text : {L"编制（签字、日期）", L"校核（签字、日期）", L"审定（签字、日期）"})
        page.Add(Joined({"<div>", Markup(Say(text)), "</div>"}));
    page.Add("</div>\n");
}

void AddPageRules(HtmlPage& page, const DayReport& report, const Standard& standard) {
    page.Section(SayFormat(L"日照标准：%s", Printable(standard.name)));
    std::vector<Rule> rules = RulesInWords(standard);
    std::erase_if(rules, [](const Rule& rule) { return rule.kind == Rule::Kind::Colors; });
    for (Rule& rule : rules)
        if (rule.kind == Rule::Kind::Day)
            rule.words = DayOnPage(standard.day);
    page.Facts(RulesTable(rules, standard, report.changes));
}

void AddPageRemarks(HtmlPage& page, const std::vector<CString>& messages) {
    page.Section(Say(L"没有计入的和需要注意的"));
    if (messages.empty())
        page.Paragraph(Say(L"没有。"));
    page.List(messages);
}

void AddPageLimits(HtmlPage& page, const std::vector<CString>& notes) {
    page.Section(Say(L"怎样读这些数，它们不说明什么"));
    page.List(notes);
    std::vector<CString> limits;
    for (const wchar_t* text :
         {L"结果只和图形一样准：画错的尺寸、标高、层高和朝向会变成错的时数，没有画出的建筑不遮挡。",
          L"只计算直射的阳光，按晴天：没有云和雾，没有反射光和天空光；不能代替采光的计算。", kAlmanac,
          L"只是这一天：其他日子、其他年份的同一节气，时数会不同。", L"圆弧按弦计算，弦离弧不超过 50 毫米。",
          L"达标与否只按上面列出的规则判定；当地的规定和审批以主管部门的意见为准。"})
        limits.push_back(Say(text));
    page.List(limits);
}

int SavePage(std::string_view page, const PageRequest& request) {
    const CString fault = SaveReport(request.folder, page);
    return fault.IsEmpty() ? kExitOk : Refuse(kExitFailed, fault);
}
