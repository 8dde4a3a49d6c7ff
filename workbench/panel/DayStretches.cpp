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

// What is in no list was not looked at: the first reason for that is told.
SunThen SunAt(const WindowHours& hours, const SeenSun& sun, double time) {
    using State = SunThen::State;
    for (const HiddenPeriod& hidden : hours.hidden)
        if (Contains(hidden.period, time))
            return {State::Hidden, hidden.by, {}};
    for (const DroppedPeriod& dropped : hours.dropped)
        if (Contains(dropped.period, time))
            return {State::Dropped, {}, dropped.reason};
    for (const SunPeriod& lit : hours.sunlit)
        if (Contains(lit, time))
            return {State::Lit, {}, {}};
    if (!Contains(sun.span, time))
        return {State::Outside, {}, {}};
    const SunDirection direction = DirectionOfSun(sun.day, time);
    const double altitude = PositionOf(direction).altitude;
    if (altitude <= 0.0)
        return {State::Down, {}, {}};
    if (altitude < sun.leastAltitude)
        return {State::Low, {}, {}};
    const double before =
        direction.east * sun.outward.east + direction.north * sun.outward.north + direction.up * sun.outward.up;
    return {before <= 0.0 ? State::Behind : State::Invalid, {}, {}};
}

CString SunThenText(const SunThen& then) {
    switch (then.state) {
        case SunThen::State::Lit:
            return Say(L"太阳照到这里");
        case SunThen::State::Dropped:
            return SayFormat(L"太阳照到这里，但不计：%s", ReasonWord(then.reason));
        case SunThen::State::Hidden:
            return Say(L"太阳被遮住，被");
        case SunThen::State::Outside:
            return Say(L"这时不在分析的时段里");
        case SunThen::State::Down:
            return Say(L"太阳在地平线以下");
        case SunThen::State::Low:
            return Say(L"太阳太低，低于要求计入的高度角");
        case SunThen::State::Behind:
            return Say(L"太阳在背后");
        case SunThen::State::Invalid:
            return Say(L"太阳在前面，但标准对这个朝向不计这时的太阳");
    }
    return CString();
}
