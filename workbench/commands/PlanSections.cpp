// What the plan is told of windows and points.
#include "workbench/commands/PlanSections.h"

#include <string>
#include <vector>

#include "facts/Settings.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/PointsReport.h"
#include "workbench/commands/WindowSections.h"
#include "workbench/report/HtmlPage.h"
#include "workbench/report/Joined.h"
#include "workbench/report/Markup.h"
#include "workbench/report/PlanPicture.h"

namespace {

// What A4 leaves between the margins and below a heading, millimetres.
constexpr double kSheetWidth = 174.0;
constexpr double kSheetHeight = 225.0;
constexpr double kBetween = 4.0;

PlanPicture BarePlan(const DayRequest& request, const OccluderSet& faces) {
    PlanPicture picture{.faces = faces};
    picture.north = request.north;
    picture.colors = request.settings.standard->timeColors;
    picture.id = "plan";
    picture.width = kSheetWidth;
    picture.height = kSheetHeight;
    return picture;
}

PlanWindow PlanWindowOf(const WindowResult& window, const WindowHours& hours, std::size_t index) {
    return {.corners = window.corners,
            .name = window.name,
            .link = Joined({"#", WindowAnchor(index)}),
            .minutes = hours.judged,
            .isTold = IsAnalysed(window),
            .passes = hours.passes};
}

std::vector<PlanWindow> WindowsNow(const AnalysisReport& report) {
    std::vector<PlanWindow> windows;
    for (std::size_t i = 0; i < report.answer.windows.size(); ++i)
        windows.push_back(PlanWindowOf(report.answer.windows[i], report.answer.windows[i], i));
    return windows;
}

std::vector<PlanWindow> WindowsBefore(const AnalysisReport& report) {
    std::vector<PlanWindow> windows;
    for (std::size_t i = 0; i < report.answer.windows.size(); ++i)
        if (const WindowResult& window = report.answer.windows[i]; window.before)
            windows.push_back(PlanWindowOf(window, *window.before, i));
    return windows;
}

std::string Figure(const CString& caption, const std::string& picture) {
    return Joined({"<figure>", picture, "<figcaption>", Markup(caption), "</figcaption></figure>\n"});
}

// Smaller, and beside each other.
void AddBoth(HtmlPage& page, const AnalysisReport& report, PlanPicture now) {
    page.Section(Say(L"方案前后的平面图"), true);
    now.id = "plannow";
    now.title = Say(L"方案后");
    now.width = (kSheetWidth - kBetween) / 2.0;
    PlanPicture before = now;
    before.title = Say(L"方案前");
    before.id = "planbefore";
    before.withProject = false;
    before.windows = WindowsBefore(report);
    page.Add(Joined({"<div class=\"pair\">\n", Figure(before.title, DrawPlan(before)), Figure(now.title, DrawPlan(now)),
                     "</div>\n"}));
}

}  // namespace

void AddPlan(HtmlPage& page, const AnalysisReport& report, const OccluderSet& faces) {
    page.Section(Say(L"平面图"), true);
    PlanPicture now = BarePlan(report.request, faces);
    now.windows = WindowsNow(report);
    page.Add(Joined({"<figure>", DrawPlan(now), "</figure>\n"}));
    if (IsCompared(report))
        AddBoth(page, report, now);
}

void AddPlan(HtmlPage& page, const PointsReport& report, const OccluderSet& faces) {
    page.Section(Say(L"平面图"), true);
    PlanPicture picture = BarePlan(report.request, faces);
    picture.points = &report.answer;
    picture.spacing = report.request.spacing;
    page.Add(Joined({"<figure>", DrawPlan(picture), "</figure>\n"}));
}
