// Sums, products and differences of sets of hours.
#include "analysis/HourSpans.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Periods = std::vector<std::pair<double, double>>;

Periods PeriodsOf(const HourSpans& spans) {
    Periods periods;
    for (const SunPeriod& each : spans.All())
        periods.emplace_back(each.start, each.end);
    return periods;
}

HourSpans SpansOf(const Periods& periods) {
    std::vector<SunPeriod> all;
    for (const auto& [start, end] : periods)
        all.push_back({start, end});
    return HourSpans::Of(all);
}

TEST(HourSpans, JoinWhatOverlapsOrTouches) {
    EXPECT_EQ(PeriodsOf(SpansOf({{11, 12}, {8, 9}, {8.5, 10}, {10, 10.5}, {13, 13}, {15, 14}})),
              (Periods{{8, 10.5}, {11, 12}}));
}

TEST(HourSpans, TakeOneMorePeriodIn) {
    HourSpans spans = SpansOf({{8, 9}, {10, 11}, {12, 13}});
    spans.Add({9.5, 9.75});
    spans.Add({10.5, 12});
    spans.Add({7, 8});
    spans.Add({20, 20});
    EXPECT_EQ(PeriodsOf(spans), (Periods{{7, 9}, {9.5, 9.75}, {10, 13}}));
}

TEST(HourSpans, KnowWhatTheyCoverAndMeet) {
    const HourSpans spans = SpansOf({{8, 9}, {10, 11}});
    EXPECT_TRUE(spans.Covers({8, 9}));
    EXPECT_FALSE(spans.Covers({8.5, 10.5}));
    EXPECT_TRUE(spans.Meets({8.5, 9.5}));
    EXPECT_FALSE(spans.Meets({9, 10})) << "ends alone are no meeting";
}

TEST(HourSpans, DropWhatIsTooShort) {
    HourSpans spans = SpansOf({{8, 8.25}, {10, 11}});
    spans.DropShorterThan(0.5);
    EXPECT_EQ(PeriodsOf(spans), (Periods{{10, 11}}));
}

// Against sets of whole hours as bits.
TEST(HourSpans, AreSetsOfMoments) {
    std::mt19937 random(1);
    const auto spansOfBits = [](unsigned bits) {
        HourSpans spans;
        for (int hour = 0; hour < 12; ++hour)
            if ((bits >> hour & 1U) != 0)
                spans.Add({static_cast<double>(hour), hour + 1.0});
        return spans;
    };
    for (int round = 0; round < 2000; ++round) {
        const unsigned left = random() & 0xFFFU;
        const unsigned right = random() & 0xFFFU;
        EXPECT_EQ(PeriodsOf(Union(spansOfBits(left), spansOfBits(right))), PeriodsOf(spansOfBits(left | right)));
        EXPECT_EQ(PeriodsOf(Intersection(spansOfBits(left), spansOfBits(right))), PeriodsOf(spansOfBits(left & right)));
        EXPECT_EQ(PeriodsOf(Difference(spansOfBits(left), spansOfBits(right))), PeriodsOf(spansOfBits(left & ~right)));
    }
}

}  // namespace
