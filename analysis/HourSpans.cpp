// Sums, products and differences of sets of hours, each in one pass over both.
#include "analysis/HourSpans.h"

#include <algorithm>

HourSpans HourSpans::Of(std::vector<SunPeriod> periods) {
    std::sort(periods.begin(), periods.end(), [](const SunPeriod& a, const SunPeriod& b) { return a.start < b.start; });
    HourSpans spans;
    for (const SunPeriod& period : periods) {
        if (!(period.start < period.end))
            continue;
        if (!spans.m_periods.empty() && period.start <= spans.m_periods.back().end)
            spans.m_periods.back().end = std::max(spans.m_periods.back().end, period.end);
        else
            spans.m_periods.push_back(period);
    }
    return spans;
}

bool HourSpans::Covers(SunPeriod period) const {
    return std::any_of(m_periods.begin(), m_periods.end(),
                       [&](const SunPeriod& mine) { return mine.start <= period.start && period.end <= mine.end; });
}

bool HourSpans::Meets(SunPeriod period) const {
    return std::any_of(m_periods.begin(), m_periods.end(),
                       [&](const SunPeriod& mine) { return mine.start < period.end && period.start < mine.end; });
}

void HourSpans::Add(SunPeriod period) {
    if (!(period.start < period.end))
        return;
    const auto first = std::find_if(m_periods.begin(), m_periods.end(),
                                    [&](const SunPeriod& mine) { return mine.end >= period.start; });
    auto last = first;
    for (; last != m_periods.end() && last->start <= period.end; ++last) {
        period.start = std::min(period.start, last->start);
        period.end = std::max(period.end, last->end);
    }
    m_periods.insert(m_periods.erase(first, last), period);
}

void HourSpans::DropShorterThan(double hours) {
    std::erase_if(m_periods, [=](const SunPeriod& mine) { return mine.end - mine.start < hours; });
}

HourSpans Union(const HourSpans& left, const HourSpans& right) {
    std::vector<SunPeriod> all = left.m_periods;
    all.insert(all.end(), right.m_periods.begin(), right.m_periods.end());
    return HourSpans::Of(std::move(all));
}

HourSpans Intersection(const HourSpans& left, const HourSpans& right) {
    HourSpans both;
    auto other = right.m_periods.begin();
    for (auto mine = left.m_periods.begin(); mine != left.m_periods.end() && other != right.m_periods.end();) {
        const SunPeriod common{std::max(mine->start, other->start), std::min(mine->end, other->end)};
        if (common.start < common.end)
            both.m_periods.push_back(common);
        if (mine->end < other->end)
            ++mine;
        else
            ++other;
    }
    return both;
}

HourSpans Difference(const HourSpans& left, const HourSpans& right) {
    HourSpans rest;
    auto other = right.m_periods.begin();
    for (const SunPeriod& mine : left.m_periods) {
        double start = mine.start;
        while (other != right.m_periods.end() && other->end <= start)
            ++other;
        for (auto taken = other; taken != right.m_periods.end() && taken->start < mine.end; ++taken) {
            if (start < taken->start)
                rest.m_periods.push_back({start, taken->start});
            start = std::max(start, taken->end);
        }
        if (start < mine.end)
            rest.m_periods.push_back({start, mine.end});
    }
    return rest;
}
