// Short forms for the tests of what a standard counts.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "analysis/SunCount.h"
#include "facts/Standard.h"
#include "settings/OrvoStdSet.h"

// A span in which tests count: six hours, so that a step of a minute has 361 marks.
inline constexpr SunPeriod kNineToThree{9.0, 15.0};

// By the minute, all periods of a total count.
inline Standard TotalStandard() {
    Standard standard;
    standard.step = 1.0;
    standard.maxContinue = ORVO_COUNT_TOTAL;
    return standard;
}

// By the minute, the longest period counts.
inline Standard LongestStandard() {
    Standard standard = TotalStandard();
    standard.maxContinue = ORVO_COUNT_LONGEST;
    return standard;
}

// Periods by minutes after the span's start.
using MinutePeriods = std::vector<std::pair<double, double>>;

inline HourSpans SunlitAt(const MinutePeriods& minutes, SunPeriod span = kNineToThree) {
    std::vector<SunPeriod> periods;
    for (const auto& [start, end] : minutes)
        periods.push_back({span.start + start / 60.0, span.start + end / 60.0});
    return HourSpans::Of(periods);
}

inline SunCount CountAt(const MinutePeriods& minutes, const Standard& standard) {
    return CountSun(SunlitAt(minutes), kNineToThree, standard);
}

// Periods as "start-end", in minutes after the span's start, rounded to a thousandth.
inline std::string MinuteText(SunPeriod period, SunPeriod span = kNineToThree) {
    const auto text = [&](double hours) {
        char digits[64];
        std::snprintf(digits, sizeof digits, "%.3f", (hours - span.start) * 60.0);
        std::string number = digits;
        number.erase(number.find_last_not_of('0') + 1);
        return number.back() == '.' ? number.substr(0, number.size() - 1) : number;
    };
    return text(period.start) + "-" + text(period.end);
}

inline std::string Texts(const std::vector<SunPeriod>& periods, SunPeriod span = kNineToThree) {
    std::string all;
    for (const SunPeriod& each : periods)
        all += (all.empty() ? "" : " ") + MinuteText(each, span);
    return all;
}

inline std::string Texts(const std::vector<DroppedPeriod>& dropped) {
    const char* const reasons[] = {"facing", "angle", "short", "not among the longest", "threshold"};
    std::string all;
    for (const DroppedPeriod& each : dropped)
        all += (all.empty() ? "" : ", ") + MinuteText(each.period) + " " + reasons[static_cast<int>(each.reason)];
    return all;
}

// What counts and what does not, and the sums of it.
inline void ExpectCount(const SunCount& count, const std::string& counted, const std::string& dropped, double total,
                        double longest) {
    EXPECT_EQ(Texts(count.counted), counted);
    EXPECT_EQ(Texts(count.dropped), dropped);
    EXPECT_NEAR(count.total, total, 1e-9);
    EXPECT_NEAR(count.longest, longest, 1e-9);
    EXPECT_NEAR(count.judged, total, 1e-9);
}
