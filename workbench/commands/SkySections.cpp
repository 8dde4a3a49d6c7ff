// A picture a window, and how to read it.
#include "workbench/commands/SkySections.h"

#include <string>

#include "workbench/Texts.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/SkyChoice.h"
#include "workbench/commands/WindowSections.h"
#include "workbench/commands/WindowWords.h"
#include "workbench/report/HtmlPage.h"
#include "workbench/report/Joined.h"
#include "workbench/report/Markup.h"
#include "workbench/report/SkyPicture.h"

namespace {

constexpr double kSheetWidth = 173.8;  // millimetres; what is left is for half of the frame's line

CString Caption(const wchar_t* before, const WindowResult& window, const WindowHours& hours) {
    const CString label = WindowLabel(window);
    const CString verdict = hours.passes ? VerdictWord(hours.passes) + L" " : CString();
    return label + (*before ? CString(L"  ") + Say(before) : CString()) + L"  " + verdict + DurationText(hours.judged);
}

std::string Figure(const CString& caption, const std::string& picture) {
    return Joined({"<figure><figcaption>", Markup(caption), "</figcaption>", picture, "</figure>\n"});
}

SkyPicture PictureOf(const AnalysisReport& report, const OccluderSet& faces, std::size_t place, bool isBefore,
                     const CString& title) {
    const WindowResult& window = report.answer.windows[place];
    return {.faces = faces,
            .request = report.request,
            .answer = report.answer,
            .window = window,
            .hours = isBefore ? *window.before : static_cast<const WindowHours&>(window),
            .id = Joined({isBefore ? "skybefore" : "sky", WindowAnchor(place)}),
            .title = title,
            .withProject = !isBefore,
            .width = kSheetWidth};
}

}  // namespace

void AddSkies(HtmlPage& page, const AnalysisReport& report, const OccluderSet& faces, const SkyChoice& choice) {
    if (choice.windows.empty())
        return;
    page.Section(Say(L"窗看到的天空"), true);
    page.Paragraph(Say(L"从窗（判定的部分）中点看出去的天空：横向是方位，纵向是高度角。"));
    for (const std::size_t place : choice.windows) {
        const WindowResult& window = report.answer.windows[place];
        if (!IsAnalysed(window)) {
            page.Paragraph(SayFormat(L"%s：%s", WindowLabel(window), NoteWord(WindowNote::NoSide)));
            continue;
        }
        page.Add("<div class=\"whole\">\n");
        if (window.before) {
            const CString before = Caption(L"方案前", window, *window.before);
            page.Add(Figure(before, DrawSky(PictureOf(report, faces, place, true, before))));
        }
        const CString now = Caption(window.before ? L"方案后" : L"", window, window);
        page.Add(Figure(now, DrawSky(PictureOf(report, faces, place, false, now))));
        page.Add("</div>\n");
    }
}
