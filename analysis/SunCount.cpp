// From what is lit to what counts: the step marks of a span, the periods between them, and the standard's choice.
#include "analysis/SunCount.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "analysis/Tolerances.h"
#include "facts/Settings.h"
#include "facts/Standard.h"
#include "settings/OrvoStdSet.h"

namespace {

constexpr double kMinutesPerHour = 60.0;
constexpr double kHoursPerDay = 24.0;
// Minutes. Finer marks tell nothing more, and their numbers would outgrow whole numbers in a double.
constexpr double kFinestStep = 1e-10;

// The times at which somebody with the standard's step looks at the sun, numbered from 0.
class StepMarks {
public:
    StepMarks(SunPeriod span, double step)
        : m_start(span.start), m_step(std::max(step, kFinestStep)), m_last(LastBefore(span.end)) {}

    double First(const SunPeriod& lit) const {
        return std::max(std::ceil((lit.start - kShortestHours - m_start) * kMinutesPerHour / m_step), 0.0);
    }
    double Last(const SunPeriod& lit) const { return std::min(LastBefore(lit.end), m_last); }
    double TimeOf(double mark) const { return m_start + mark * m_step / kMinutesPerHour; }

private:
    double LastBefore(double time) const {
        return std::floor((time + kShortestHours - m_start) * kMinutesPerHour / m_step);
    }

    double m_start;
    double m_step;
    double m_last;
};

// A gap that no mark falls into is not seen, and neither is a period with a single mark.
std::vector<SunPeriod> SteppedPeriods(HourSpans sunlit, const StepMarks& marks) {
    sunlit.DropShorterThan(kShortestHours);
    // First and last of lit marks that follow each other; the last before the first where there is none.
    std::vector<std::pair<double, double>> runs;
    for (const SunPeriod& lit : sunlit.All()) {
        const double first = marks.First(lit);
        const double last = marks.Last(lit);
        if (!runs.empty() && first <= runs.back().second + 1.0)
            runs.back().second = last;
        else
            runs.emplace_back(first, last);
    }
    std::vector<SunPeriod> stepped;
    for (const auto& [first, last] : runs)
        if (first < last)
            stepped.push_back({marks.TimeOf(first), marks.TimeOf(last)});
    return stepped;
}

// Which periods count, and why the others do not.
class Choice {
public:
    explicit Choice(const std::vector<SunPeriod>& periods) : m_periods(periods), m_dropped(periods.size()) {}

    template <class IsDropped>
    void DropWhere(DropReason reason, const IsDropped& isDropped) {
        for (const std::size_t i : Counted())
            if (isDropped(m_periods[i].Minutes()))
                m_dropped[i] = reason;
    }

    // Keeps this many, of equally long ones the earlier.
    void KeepLongest(int count, DropReason reason) {
        std::vector<std::size_t> rest = Counted();
        for (; count > 0 && !rest.empty(); --count) {
            const double longest = LongestOf(rest);
            rest.erase(std::find_if(rest.begin(), rest.end(), [&](std::size_t i) {
                return m_periods[i].Minutes() >= longest - kMinuteTolerance;
            }));
        }
        for (const std::size_t i : rest)
            m_dropped[i] = reason;
    }

    double Longest() const { return LongestOf(Counted()); }

    void Tell(SunCount& count) const {
        for (std::size_t i = 0; i < m_periods.size(); ++i) {
            if (m_dropped[i]) {
                count.dropped.push_back({m_periods[i], *m_dropped[i]});
            } else {
                count.counted.push_back(m_periods[i]);
                count.total += m_periods[i].Minutes();
            }
        }
        count.longest = Longest();
    }

private:
    // Indexes, in order of time.
    std::vector<std::size_t> Counted() const {
        std::vector<std::size_t> counted;
        for (std::size_t i = 0; i < m_periods.size(); ++i)
            if (!m_dropped[i])
                counted.push_back(i);
        return counted;
    }

    double LongestOf(const std::vector<std::size_t>& some) const {
        double longest = 0.0;
        for (const std::size_t i : some)
            longest = std::max(longest, m_periods[i].Minutes());
        return longest;
    }

    const std::vector<SunPeriod>& m_periods;
    std::vector<std::optional<DropReason>> m_dropped;
};

void ChooseForTotal(Choice& choice, const Standard& standard) {
    choice.DropWhere(DropReason::Short,
                     [&](double minutes) { return minutes < standard.minValidTime - kMinuteTolerance; });
    if (choice.Longest() < standard.minMaxValidTime - kMinuteTolerance)
        choice.KeepLongest(0, DropReason::Threshold);
    if (standard.totalTimeType == ORVO_TOTAL_LONGEST_TWO)
        choice.KeepLongest(2, DropReason::NotAmongLongest);
    else if (standard.totalTimeType == ORVO_TOTAL_LONGEST_THREE)
        choice.KeepLongest(3, DropReason::NotAmongLongest);
}

void ChooseForLongest(Choice& choice, const Standard& standard) {
    if (!standard.allMaxContinueTime) {
        choice.KeepLongest(1, DropReason::NotAmongLongest);
        return;
    }
    const double threshold = standard.minContinueTime + kMinuteTolerance;
    if (choice.Longest() > threshold)
        choice.DropWhere(DropReason::Threshold, [=](double minutes) { return minutes <= threshold; });
    else
        choice.KeepLongest(1, DropReason::Threshold);
}

double HoursOf(const ClockTime& time) {
    return time.hour + time.minute / kMinutesPerHour;
}

}  // namespace

bool SpanOf(const Settings& settings, double beijingOffset, SunPeriod& span) {
    SunPeriod clock{HoursOf(settings.start), HoursOf(settings.end)};
    const bool isStandards = settings.standard && !(settings.standard->start == 0.0 && settings.standard->end == 0.0);
    if (isStandards)
        clock = {settings.standard->start, settings.standard->end};
    const double offset = settings.standard && settings.standard->beijingTime ? beijingOffset : 0.0;
    const SunPeriod solar{clock.start - offset, clock.end - offset};
    if (!std::isfinite(solar.start) || !std::isfinite(solar.end))
        return false;
    span = solar;
    return clock.start >= 0.0 && clock.start < clock.end && clock.end <= kHoursPerDay;
}

bool IsStep(double minutes) {
    return std::isfinite(minutes) && minutes > 0.0;
}

SunCount CountSun(const HourSpans& sunlit, SunPeriod span, const Standard& standard) {
    SunCount count;
    if (!IsStep(standard.step))
        return count;
    count.stepped = SteppedPeriods(sunlit, StepMarks(span, standard.step));
    Choice choice(count.stepped);
    if (standard.maxContinue == ORVO_COUNT_TOTAL)
        ChooseForTotal(choice, standard);
    else
        ChooseForLongest(choice, standard);
    choice.Tell(count);
    count.judged = count.total;  // of one period where the longest alone counts
    return count;
}

int ColorOf(const Standard& standard, double minutes) {
    return standard.TimeColorOf(minutes / kMinutesPerHour);
}
