// Rows and time lines; both are of a few short elements, since there can be thousands.
#include "workbench/commands/WindowSections.h"

#include <vector>

#include "facts/NearestNames.h"
#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/CompassWords.h"
#include "workbench/commands/WindowWords.h"
#include "workbench/report/HtmlPage.h"
#include "workbench/report/Joined.h"
#include "workbench/report/Markup.h"
#include "workbench/report/TimeLinePicture.h"

namespace {

std::string Cell(const CString& text, std::string_view kind = {}) {
    return kind.empty() ? Joined({"<td>", Markup(text), "</td>"})
                        : Joined({"<td class=\"", kind, "\">", Markup(text), "</td>"});
}

std::string Verdict(const std::optional<bool>& passes) {
    return Cell(VerdictWord(passes), passes.value_or(true) ? "" : "no");
}

CString SillText(const WindowResult& window) {
    CString text;
    text.Format(L"%.2f", window.sill);
    return text;
}

CString NotesText(const AnalysisReport& report, const WindowResult& window) {
    std::vector<CString> texts;
    const CString specials = SpecialsText(report, window);
    if (!specials.IsEmpty())
        texts.push_back(specials);
    for (const WindowNote note : window.notes)
        texts.push_back(NoteWord(note));
    return JoinNames(texts);
}

struct Heading {
    CString text;
    bool isNumber;
};

std::vector<Heading> Headings(bool isCompared) {
    std::vector<Heading> headings = {{Say(L"窗（句柄）"), false}};
    if (isCompared)
        headings.push_back({Say(L"前结论"), false});
    headings.insert(headings.end(), {{isCompared ? Say(L"后结论") : Say(L"结论"), false},
                                     {Say(L"楼"), false},
                                     {Say(L"楼层"), true},
                                     {Say(L"朝向（自东，度）"), true},
                                     {Say(L"窗台（米）"), true}});
    if (isCompared)
        headings.insert(headings.end(), {{Say(L"方案前"), true}, {Say(L"方案后"), true}, {Say(L"失去"), true}});
    else
        headings.push_back({Say(L"判定时数"), true});
    return headings;
}

std::string Row(const AnalysisReport& report, const WindowResult& window, std::size_t index) {
    const bool isCompared = IsCompared(report);
    const CString notes = NotesText(report, window);
    std::string row =
        Joined({"<tr><td class=\"name\"><a href=\"#", WindowAnchor(index), "\">", Markup(WindowLabel(window)), "</a>"});
    if (!notes.IsEmpty())
        row += Joined({"<br><span class=\"small\">", Markup(notes), "</span>"});
    row += "</td>";
    if (isCompared)
        row += Verdict(window.before ? window.before->passes : std::nullopt);
    row += Verdict(window.passes) + Cell(window.building.IsEmpty() ? CString(L"-") : Printable(window.building)) +
           Cell(FloorText(window), "r") + Cell(FacingText(window), "r") + Cell(SillText(window), "r");
    if (isCompared)
        row += Cell(BeforeText(window), "r") + Cell(JudgedText(window), "r") + Cell(LostText(window), "r");
    else
        row += Cell(JudgedText(window), "r");
    return row + "</tr>\n";
}

// "09:00:00-12:00:00 / 09:15:00-12:15:00  3:00  hidden by 2F", with blanks that a page keeps.
CString StretchText(const Stretch& stretch, double offset) {
    const CString gap = L"\x2003";
    CString text = PeriodText(stretch.period, 0.0) + L" / " + PeriodText(stretch.period, offset) + gap +
                   DurationText(stretch.period.Minutes());
    if (!stretch.before.IsEmpty())
        text += gap + stretch.before + L" " + JoinNames(stretch.words);
    else if (!stretch.words.empty())
        text += gap + JoinNames(stretch.words);
    return text;
}

std::string StretchList(const std::vector<Stretch>& stretches, double offset) {
    if (stretches.empty())
        return {};
    std::string list = "<dl class=\"hours\">";
    for (std::size_t i = 0; i < stretches.size(); ++i) {
        if (i > 0 && stretches[i].kind == stretches[i - 1].kind)
            list += "<br>";
        else
            list += Joined({i > 0 ? "</dd><dt>" : "<dt>", Markup(KindWord(stretches[i].kind)), "</dt><dd>"});
        list += Markup(StretchText(stretches[i], offset));
    }
    return list + "</dd></dl>";
}

std::string Bar(const CString& label, std::string_view picture) {
    return Joined({"<div class=\"bar\"><span>", Markup(label), "</span><div>", picture, "</div></div>"});
}

// One line, or with a project the one before over the one now.
std::string Bars(const AnalysisReport& report, const WindowResult& window) {
    if (!IsAnalysed(window))
        return {};
    const SunPeriod span = report.answer.span;
    const std::string now = DrawTimeLine({span, window, window.before ? &window.lost : nullptr});
    if (!window.before)
        return now;
    return Bar(Say(L"前"), DrawTimeLine({span, *window.before})) + Bar(Say(L"后"), now);
}

// Verdict, hours and facing below a window's name; nothing where they are not known.
std::string DayHead(const WindowResult& window) {
    if (!IsAnalysed(window))
        return {};
    const std::string_view kind = window.passes.value_or(true) ? "" : " class=\"no\"";
    const CString verdict = window.passes ? VerdictWord(window.passes) : CString();
    return Joined({"<br><span", kind, ">", Markup(verdict), " ", Markup(JudgedText(window)),
                   "</span><br><span class=\"small\">", Markup(SayFormat(L"朝%s", CompassWord(*window.facing))),
                   "</span>"});
}

std::string Day(const AnalysisReport& report, const WindowResult& window, std::size_t index) {
    std::string day = Joined({"<tr id=\"", WindowAnchor(index), "\"><th scope=\"row\"><b>", Markup(WindowLabel(window)),
                              "</b>", DayHead(window), "</th><td>", Bars(report, window),
                              StretchList(StretchesOf(window), report.answer.beijingOffset)});
    for (const WindowNote note : window.notes)
        day += Joined({"<p class=\"small\">", Markup(NoteWord(note)), "</p>"});
    return day + "</td></tr>\n";
}

// What the bars are, each as a bar of an hour.
std::string Legend(bool isCompared) {
    const SunPeriod hour = {0.0, 1.0};
    WindowHours counted;
    counted.counted = {hour};
    WindowHours dropped;
    dropped.dropped = {{hour, DropReason::Short}};
    WindowHours hidden;
    hidden.hidden = {{hour, {}}};
    const std::vector<HiddenPeriod> lost = {{hour, {}}};
    const auto entry = [&](const WindowHours& hours, const wchar_t* text, const std::vector<HiddenPeriod>* list) {
        return Joined({"<span>", DrawTimeLine({hour, hours, list}), Markup(Say(text)), "</span>"});
    };
    return Joined({"<div class=\"key\">", entry(counted, L"照到，计入", nullptr),
                   entry(dropped, L"照到，不计入", nullptr), entry(hidden, L"被遮挡", nullptr),
                   isCompared ? entry({}, L"被方案夺去", &lost) : std::string(),
                   entry({}, L"太阳在窗的背后或没有升起", nullptr), "</div>\n"});
}

// Browsers lay out what stands in a table as a whole: so many are laid out when one of them comes into sight.
constexpr std::size_t kDaysTogether = 20;
const std::string kDaysEnd = "</tbody>\n</table></div>\n";

std::string DaysHead(const AnalysisReport& report, const CString& title) {
    const std::string scale = DrawTimeScale(report.answer.span, report.answer.beijingOffset);
    return Joined({"<div class=\"some\"><table class=\"days\" aria-label=\"", Markup(title),
                   "\">\n<thead>\n<tr><th scope=\"col\">", Markup(Say(L"真太阳时")), "<br>", Markup(Say(L"北京时间")),
                   "</th><td>", IsCompared(report) ? Bar(L"\x00A0", scale) : scale, "</td></tr>\n</thead>\n<tbody>\n"});
}

}  // namespace

std::string WindowAnchor(std::size_t index) {
    return Joined({"w", std::to_string(index + 1)});
}

void AddWindowTable(HtmlPage& page, const AnalysisReport& report) {
    const CString title = Say(L"各窗");
    page.Section(title);
    page.Add(Joined(
        {"<div class=\"wide\"><table class=\"sort findable\" aria-label=\"", Markup(title), "\">\n<thead>\n<tr>"}));
    for (const Heading& heading : Headings(IsCompared(report)))
        page.Add(Joined({heading.isNumber ? "<th scope=\"col\" class=\"r\">" : "<th scope=\"col\">",
                         Markup(heading.text), "</th>"}));
    page.Add("</tr>\n</thead>\n<tbody>\n");
    for (std::size_t i = 0; i < report.answer.windows.size(); ++i)
        page.Add(Row(report, report.answer.windows[i], i));
    page.Add("</tbody>\n</table></div>\n");
}

void AddTimeLines(HtmlPage& page, const AnalysisReport& report) {
    const CString title = Say(L"各窗的一天");
    page.Section(title);
    page.Paragraph(
        Say(L"时段先写真太阳时，再写北京时间，然后是时长；遮挡物写图形里的句柄。条上的竖线是真太阳时的整点。"));
    page.Add(Legend(IsCompared(report)));
    const std::string head = DaysHead(report, title);
    page.Add("<div class=\"findable\">\n");
    for (std::size_t i = 0; i < report.answer.windows.size(); ++i) {
        if (i % kDaysTogether == 0)
            page.Add(i == 0 ? head : kDaysEnd + head);
        page.Add(Day(report, report.answer.windows[i], i));
    }
    page.Add(kDaysEnd + "</div>\n");
}
