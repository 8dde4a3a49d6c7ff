// From the lists of an answer to lines of text.
#include "workbench/panel/DayStretches.h"

#include "workbench/Texts.h"
#include "workbench/commands/AnalysisWords.h"

namespace {

using Kind = DayStretch::Kind;

CString TextOf(Kind kind, SunPeriod period, double offset) {
    return SayFormat(L"%s：真太阳时 %s，北京时间 %s，%s", KindWord(kind), PeriodText(period, 0.0),
                     PeriodText(period, offset), DurationText(period.Minutes()));
}

bool Contains(SunPeriod period, double time) {
    return period.start <= time && time <= period.end;
}

}  // namespace

CString KindWord(Kind kind) {
    switch (kind) {
        case Kind::Lit:
            return Say(L"日照");
        case Kind::Counted:
            return Say(L"计入");
        case Kind::Dropped:
            return Say(L"不计");
        case Kind::Hidden:
            return Say(L"遮挡");
        default:
            return Say(L"夺去");
    }
}

std::vector<DayStretch> StretchesOf(const WindowHours& hours, const std::vector<HiddenPeriod>& lost, double offset,
                                    const NameOfEntity& nameOf) {
    std::vector<DayStretch> stretches;
    const auto add = [&](Kind kind, SunPeriod period, const CString& more) {
        stretches.push_back({kind, period, TextOf(kind, period, offset) + more});
    };
    const auto addHidden = [&](Kind kind, const std::vector<HiddenPeriod>& list) {
        for (const HiddenPeriod& hidden : list) {
            CString more = L"\n" + Say(L"被") + L" ";
            for (std::size_t i = 0; i < hidden.by.size(); ++i)
                more += (i == 0 ? L"" : L", ") + nameOf(hidden.by[i]);
            add(kind, hidden.period, more);
        }
    };
    for (const SunPeriod& period : hours.sunlit)
        add(Kind::Lit, period, {});
    for (const SunPeriod& period : hours.counted)
        add(Kind::Counted, period, {});
    for (const DroppedPeriod& dropped : hours.dropped)
        add(Kind::Dropped, dropped.period, L"\n" + ReasonWord(dropped.reason));
    addHidden(Kind::Hidden, hours.hidden);
    addHidden(Kind::Lost, lost);
    return stretches;
}

SunThen SunAt(const WindowHours& hours, double time) {
    for (const HiddenPeriod& hidden : hours.hidden)
        if (Contains(hidden.period, time))
            return {SunThen::State::Hidden, hidden.by};
    for (const SunPeriod& lit : hours.sunlit)
        if (Contains(lit, time))
            return {SunThen::State::Lit, {}};
    return {};
}
