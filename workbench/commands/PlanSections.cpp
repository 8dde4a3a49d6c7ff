// What the plan is told of windows and points.
#include "workbench/commands/PlanSections.h"

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "analysis/OccluderSet.h"
#include "facts/Settings.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/CompassWords.h"
#include "workbench/commands/PointsReport.h"
#include "workbench/commands/WindowSections.h"
#include "workbench/report/HtmlPage.h"
#include "workbench/report/Joined.h"
#include "workbench/report/LaidFlat.h"
#include "workbench/report/Markup.h"
#include "workbench/report/PlanPicture.h"

namespace {

// What A4 leaves between the margins and below a heading, millimetres.
constexpr double kSheetWidth = 174.0;
constexpr double kSheetHeight = 225.0;
constexpr double kBetween = 4.0;
constexpr double kElevationHeight = 105.0;  // two on a sheet

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
    return Joined({"<figure><figcaption>", Markup(caption), "</figcaption>", picture, "</figure>\n"});
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

// Which way an outline looks, by true north.
CString FacingWord(const OutlineResult& outline, double north) {
    return CompassWord(std::atan2(outline.outward.y, outline.outward.x) * 180.0 / std::numbers::pi - north);
}

// What a plan cannot show of facades.
void AddElevations(HtmlPage& page, const PointsReport& report) {
    const std::vector<std::size_t> upright = UprightOutlines(report.answer);
    if (upright.empty())
        return;
    page.Section(Say(L"立面图"));
    page.Paragraph(Say(L"从室外正对着看竖直的轮廓。"));
    const OccluderSet nothing;
    for (const std::size_t index : upright) {
        const OutlineResult& outline = report.answer.outlines[index];
        const PointAnswer flat = LaidFlat(report.answer, index);
        PlanPicture picture = BarePlan(report.request, nothing);
        picture.id = Joined({"elevation", std::to_string(index + 1)});
        picture.title =
            SayFormat(L"轮廓 %s，朝向 %s", HandleOrNone(outline.handle), FacingWord(outline, report.request.north));
        picture.height = kElevationHeight;
        picture.points = &flat;
        picture.spacing = report.request.spacing;
        picture.isElevation = true;
        page.Add(Figure(picture.title, DrawPlan(picture)));
    }
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
    AddElevations(page, report);
}
