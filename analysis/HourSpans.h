// Sets of hours: what is lit, what is hidden.
#pragma once

#include <vector>

#include "analysis/SunPeriod.h"

// Periods in order of time that neither overlap nor touch. Periods without a length are none.
class HourSpans {
public:
    HourSpans() = default;
    HourSpans(SunPeriod period) { Add(period); }
    // Of periods in any order.
    static HourSpans Of(std::vector<SunPeriod> periods);

    const std::vector<SunPeriod>& All() const { return m_periods; }
    bool IsEmpty() const { return m_periods.empty(); }
    // Whether every moment of the period belongs to the set.
    bool Covers(SunPeriod period) const;
    // Whether any moment of the period does, its ends aside.
    bool Meets(SunPeriod period) const;

    void Add(SunPeriod period);
    // Drops periods shorter than this many hours.
    void DropShorterThan(double hours);

    friend HourSpans Union(const HourSpans& left, const HourSpans& right);
    friend HourSpans Intersection(const HourSpans& left, const HourSpans& right);
    // What is in `left` and not in `right`.
    friend HourSpans Difference(const HourSpans& left, const HourSpans& right);

private:
    std::vector<SunPeriod> m_periods;
};

HourSpans Union(const HourSpans& left, const HourSpans& right);
HourSpans Intersection(const HourSpans& left, const HourSpans& right);
HourSpans Difference(const HourSpans& left, const HourSpans& right);
