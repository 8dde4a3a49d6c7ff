// What is left of sunlit periods when somebody looks at the sun by a standard's step.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "CountedSun.h"

namespace {

std::string Stepped(const MinutePeriods& minutes, double step, SunPeriod span = kNineToThree) {
    Standard standard = TotalStandard();
    standard.step = step;
    return Texts(CountSun(SunlitAt(minutes, span), span, standard).stepped, span);
}

// Minutes that are this many billionths of an hour.
constexpr double BillionthsOfAnHour(double count) {
    return count * 60e-9;
}

}  // namespace

// Marks every 10 minutes: of 3 to 47 the marks 10, 20, 30, 40 are lit.
TEST(SunSteps, GoFromTheFirstLitMarkToTheLast) {
    EXPECT_EQ(Stepped({{3, 47}}, 10), "10-40");
    EXPECT_EQ(Stepped({{0, 360}}, 10), "0-360");
    EXPECT_EQ(Stepped({{3, 17}}, 10), "") << "a single mark, 10, has no length";
    EXPECT_EQ(Stepped({{11, 19}}, 10), "") << "no mark at all";
    EXPECT_EQ(Stepped({{3, 17}, {100, 125}}, 10), "100-120");
    EXPECT_EQ(Stepped({}, 10), "");
}

// The marks count from where the span begins, at 9:07 too.
TEST(SunSteps, CountFromTheStartOfTheSpan) {
    EXPECT_EQ(Stepped({{20, 40}}, 10, {9.0 + 7.0 / 60.0, 15.0}), "20-40");
    EXPECT_EQ(Stepped({{13, 33}}, 10, {9.0 + 7.0 / 60.0, 15.0}), "20-30") << "not 9:20, 9:30 and 9:40";
    EXPECT_EQ(Stepped({{3, 47}}, 10, {-2.5, 1.0}), "10-40");
}

// A step of 7 minutes: the last mark within the 360 minutes is the 51st, at 357.
TEST(SunSteps, EndBeforeTheSpanWhereItIsNotAMark) {
    EXPECT_EQ(Stepped({{300, 360}}, 7), "301-357");
    EXPECT_EQ(Stepped({{0, 360}}, 250), "0-250");
    EXPECT_EQ(Stepped({{0, 360}}, 361), "") << "the first mark is the only one";
    EXPECT_EQ(Stepped({{0, 360}}, 360), "0-360");
    EXPECT_EQ(Stepped({{0, 360}}, 0.7), "0-359.8") << "514 steps; the 515th would be at 360.5";
}

// Marks 0, 10, 20 ... : a gap is seen when a mark falls into it.
TEST(SunSteps, DoNotSeeAGapBetweenTwoMarks) {
    EXPECT_EQ(Stepped({{10, 31}, {39, 60}}, 10), "10-60");
    EXPECT_EQ(Stepped({{10, 31}, {41, 60}}, 10), "10-30 50-60");
    EXPECT_EQ(Stepped({{10, 13}, {17, 23}, {27, 35}}, 10), "10-30") << "each lights one mark alone";
    EXPECT_EQ(Stepped({{10, 31}, {33, 37}, {39, 60}}, 10), "10-60") << "what lights none parts nothing";
    EXPECT_EQ(Stepped({{10, 31}, {33, 37}, {41, 60}}, 10), "10-30 50-60") << "nor joins it";
}

// The end of a lit interval counts as lit.
TEST(SunSteps, TakeWhatALitIntervalTouches) {
    EXPECT_EQ(Stepped({{10, 30}}, 10), "10-30");
    EXPECT_EQ(Stepped({{10, 20}, {30, 40}}, 10), "10-40") << "all four marks are lit";
    const double within = BillionthsOfAnHour(0.9);
    const double beyond = BillionthsOfAnHour(1.1);
    EXPECT_EQ(Stepped({{10 + within, 30 - within}}, 10), "10-30");
    EXPECT_EQ(Stepped({{10 + beyond, 40}}, 10), "20-40");
    EXPECT_EQ(Stepped({{10, 40 - beyond}}, 10), "10-30");
}

// A span that ends a hair before a mark still has it.
TEST(SunSteps, TakeTheEndOfTheSpanForAMarkWhereAStepFallsOnIt) {
    const SunPeriod within{9.0, 15.0 - 0.9e-9};
    const SunPeriod beyond{9.0, 15.0 - 1.1e-9};
    EXPECT_EQ(Stepped({{300, 360}}, 10, within), "300-360");
    EXPECT_EQ(Stepped({{300, 360}}, 10, beyond), "300-350");
}

// A spark at mark 30 would lengthen 10 to 20 by a step.
TEST(SunSteps, PassOverSparks) {
    EXPECT_EQ(Stepped({{10, 20}, {30, 30 + BillionthsOfAnHour(1.2)}}, 10), "10-30");
    EXPECT_EQ(Stepped({{10, 20}, {30, 30 + BillionthsOfAnHour(0.8)}}, 10), "10-20");
}

// 0.1 minutes is no binary fraction: 4,200 times a sixtieth of it is not 7 hours in a computer, nor is their sum.
TEST(SunSteps, DoNotAddUpTheirErrors) {
    Standard standard = TotalStandard();
    standard.step = 0.1;
    for (const double hours : {1.0, 7.0, 14.0, 15.0, 24.0}) {
        const SunCount count = CountSun(SunPeriod{0.0, hours}, {0.0, 24.0}, standard);
        ASSERT_EQ(count.stepped.size(), 1U);
        EXPECT_EQ(count.stepped[0].end, hours);
    }
    standard.step = 10.0;
    const SunCount later = CountSun(SunPeriod{10.0, 12.0}, kNineToThree, standard);
    ASSERT_EQ(later.stepped.size(), 1U);
    EXPECT_EQ(later.stepped[0].start, 10.0);
    EXPECT_EQ(later.stepped[0].end, 12.0);
}

TEST(SunSteps, MayBeAsShortAsTheyLike) {
    for (const double step : {1e-3, 1e-9, 1e-100, std::numeric_limits<double>::denorm_min()}) {
        Standard standard = TotalStandard();
        standard.step = step;
        ASSERT_TRUE(IsStep(step));
        const SunCount count = CountAt({{10.5, 30.25}, {100, 101}}, standard);
        EXPECT_EQ(Texts(count.stepped), "10.5-30.25 100-101") << step;
        EXPECT_NEAR(count.judged, 20.75, 1e-5) << step;
    }
}

TEST(SunSteps, MustBeATime) {
    for (const double step : {0.0, -0.0, -1.0, -1e300, std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        Standard standard = TotalStandard();
        standard.step = step;
        EXPECT_FALSE(IsStep(step)) << step;
        const SunCount count = CountAt({{0, 360}}, standard);
        EXPECT_EQ(count.stepped.size(), 0U) << step;
        ExpectCount(count, "", "", 0, 0);
    }
    EXPECT_TRUE(IsStep(0.5));
    EXPECT_TRUE(IsStep(1e300));
    EXPECT_EQ(Stepped({{0, 360}}, 1e300), "");
}

TEST(SunSteps, NeedASpan) {
    for (const SunPeriod span : {SunPeriod{15.0, 9.0}, SunPeriod{9.0, 9.0}})
        EXPECT_TRUE(CountSun(SunPeriod{9.0, 15.0}, span, TotalStandard()).stepped.empty());
}

// Sun before and after the span lights no marks.
TEST(SunSteps, StayWithinTheSpan) {
    EXPECT_EQ(Stepped({{-100, 25}, {335, 1000}}, 10), "0-20 340-360");
}

// Another way: every mark is looked at, one after the other.
TEST(SunSteps, AreWhatLookingAtEveryMarkFinds) {
    std::mt19937 random(15);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    const double steps[] = {0.5, 1, 2, 5, 7, 10, 15, 30, 60, 2.5, 0.7, 45, 200};
    int periods = 0;
    for (int round = 0; round < 5000; ++round) {
        const bool isRound = round % 2 == 0;  // everything on whole minutes, so that ends meet marks
        const auto minutes = [&](double high) {
            const double value = between(0, high);
            return isRound ? std::floor(value) : value;
        };
        const SunPeriod span{minutes(720) / 60.0, 12.0 + (1.0 + minutes(700)) / 60.0};
        const double length = span.Minutes();
        MinutePeriods lit;
        for (std::size_t i = random() % 8; i > 0; --i) {
            const double start = minutes(length);
            lit.emplace_back(start, std::min(start + minutes(isRound ? 60 : 30), length));
        }
        const double step = isRound || round % 3 ? steps[random() % std::size(steps)] : between(0.3, 100);
        const HourSpans sunlit = SunlitAt(lit, span);
        MinutePeriods wanted;
        bool wasLit = false;
        for (int mark = 0; mark * step <= length + 60e-9; ++mark) {
            const double time = span.start + mark * step / 60.0;
            bool isLit = false;
            for (const SunPeriod& each : sunlit.All())
                isLit =
                    isLit || (each.end - each.start >= 1e-9 && time >= each.start - 1e-9 && time <= each.end + 1e-9);
            if (isLit && wasLit)
                wanted.back().second = mark * step;
            else if (isLit)
                wanted.emplace_back(mark * step, mark * step);
            wasLit = isLit;
        }
        std::erase_if(wanted, [](const auto& each) { return each.first == each.second; });
        Standard standard = TotalStandard();
        standard.step = step;
        const SunCount count = CountSun(sunlit, span, standard);
        ASSERT_EQ(count.stepped.size(), wanted.size()) << round;
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            EXPECT_NEAR((count.stepped[i].start - span.start) * 60.0, wanted[i].first, 1e-9) << round;
            EXPECT_NEAR((count.stepped[i].end - span.start) * 60.0, wanted[i].second, 1e-9) << round;
        }
        periods += static_cast<int>(wanted.size());
    }
    EXPECT_GT(periods, 5000) << "most rounds must have something to find";
}
