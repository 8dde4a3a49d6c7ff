// Cells and stretches of a window in words.
#include "workbench/commands/WindowWords.h"

#include "facts/NearestNames.h"
#include "platform/base/TextNumber.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/CompassWords.h"

namespace {

void AddHidden(StretchKind kind, const std::vector<HiddenPeriod>& list, std::vector<Stretch>& stretches) {
    for (const HiddenPeriod& hidden : list) {
        Stretch stretch = {kind, hidden.period, Say(L"被"), {}};
        for (const std::uint64_t handle : hidden.by)
            stretch.words.push_back(HandleOrNone(handle));
        stretches.push_back(std::move(stretch));
    }
}

}  // namespace

CString FloorText(const WindowResult& window) {
    return window.floor ? IntToText(*window.floor) : CString(L"-");
}

CString FacingText(const WindowResult& window) {
    return window.facing ? CompassWord(*window.facing) + L" " + DegreesText(*window.facing) : CString(L"-");
}

CString JudgedText(const WindowResult& window) {
    return IsAnalysed(window) ? DurationText(window.judged) : CString(L"-");
}

CString BeforeText(const WindowResult& window) {
    return window.before && IsAnalysed(window) ? DurationText(window.before->judged) : CString(L"-");
}

// Rounding may make a little of nothing.
CString LostText(const WindowResult& window) {
    if (!window.before || !IsAnalysed(window))
        return L"-";
    const double lost = LostMinutes(window);
    return lost < 0.0 ? CString(L"-") + DurationText(-lost) : DurationText(lost);
}

CString SpecialsText(const AnalysisReport& report, const WindowResult& window) {
    std::vector<CString> texts;
    if (window.part) {
        CString from;
        from.Format(L"%.2f", window.part->from);
        CString width;
        width.Format(L"%.2f", window.part->width);
        texts.push_back(SayFormat(L"按从左端 %s 米起、宽 %s 米的部分判定", from, width));
    }
    if (IsCompared(report) && !window.before)
        texts.push_back(Say(L"在方案上"));
    if (FailsNow(window))
        texts.push_back(Say(L"方案前达标"));
    return JoinNames(texts);
}

CString KindWord(StretchKind kind) {
    switch (kind) {
        case StretchKind::Sunlit:
            return Say(L"日照");
        case StretchKind::Counted:
            return Say(L"计入");
        case StretchKind::Dropped:
            return Say(L"不计");
        case StretchKind::Hidden:
            return Say(L"遮挡");
        case StretchKind::Lost:
            return Say(L"夺去");
    }
    return CString();
}

std::vector<Stretch> StretchesOf(const WindowResult& window) {
    std::vector<Stretch> stretches;
    for (const SunPeriod& period : window.sunlit)
        stretches.push_back({StretchKind::Sunlit, period, CString(), {}});
    for (const SunPeriod& period : window.counted)
        stretches.push_back({StretchKind::Counted, period, CString(), {}});
    for (const DroppedPeriod& dropped : window.dropped)
        stretches.push_back({StretchKind::Dropped, dropped.period, CString(), {ReasonWord(dropped.reason)}});
    AddHidden(StretchKind::Hidden, window.hidden, stretches);
    AddHidden(StretchKind::Lost, window.lost, stretches);
    return stretches;
}
