// Which hours are analysed, and the colour of what was found.
#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <random>

#include "analysis/SunCount.h"
#include "facts/Settings.h"
#include "settings/OrvoStdSet.h"

namespace {

using Span = std::optional<std::pair<double, double>>;

// Settings that are analysed from 8:30 to 16:15, with a standard of this span.
Settings SettingsWith(double start, double end) {
    Settings settings;
    settings.start = {8, 30};
    settings.end = {16, 15};
    settings.standard.emplace();
    settings.standard->start = start;
    settings.standard->end = end;
    return settings;
}

Span SpanWith(const Settings& settings, double beijingOffset = 0.25) {
    SunPeriod span;
    if (!SpanOf(settings, beijingOffset, span))
        return std::nullopt;
    return std::pair(span.start, span.end);
}

Span Is(double start, double end) {
    return std::pair(start, end);
}

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

}  // namespace

TEST(SunSpan, IsTheStandards) {
    EXPECT_EQ(SpanWith(SettingsWith(9, 15)), Is(9, 15));
    EXPECT_EQ(SpanWith(SettingsWith(0, 24)), Is(0, 24));
    EXPECT_EQ(SpanWith(SettingsWith(0, 15)), Is(0, 15)) << "midnight alone is a time like others";
}

TEST(SunSpan, IsTheSettingsWhereTheStandardHasNone) {
    EXPECT_EQ(SpanWith(SettingsWith(0, 0)), Is(8.5, 16.25));
    EXPECT_EQ(SpanWith(SettingsWith(-0.0, 0)), Is(8.5, 16.25));
    Settings settings = SettingsWith(9, 15);
    settings.standard.reset();
    EXPECT_EQ(SpanWith(settings), Is(8.5, 16.25));
}

// 9:00 of the clock, a quarter of an hour before the sun: 8:45 of true solar time.
TEST(SunSpan, IsTheClocksWithBeijingTime) {
    Settings settings = SettingsWith(9, 15);
    settings.standard->beijingTime = ORVO_BEIJING_TIME;
    EXPECT_EQ(SpanWith(settings, 0.25), Is(8.75, 14.75));
    EXPECT_EQ(SpanWith(settings, -0.5), Is(9.5, 15.5));
    settings.standard->start = settings.standard->end = 0.0;
    EXPECT_EQ(SpanWith(settings, 0.25), Is(8.25, 16.0)) << "the settings' span is read by the standard's clock";
    settings.standard->start = 0.0;
    settings.standard->end = 24.0;
    EXPECT_EQ(SpanWith(settings, 2.25), Is(-2.25, 21.75)) << "a day of the clock lies in two days of the sun";
    settings.standard->beijingTime = -7;
    EXPECT_EQ(SpanWith(settings, 2.25), Is(-2.25, 21.75)) << "whatever is not 0";
    settings.standard->beijingTime = ORVO_TRUE_SOLAR_TIME;
    EXPECT_EQ(SpanWith(settings, 2.25), Is(0, 24));
    settings.standard.reset();
    EXPECT_EQ(SpanWith(settings, 2.25), Is(8.5, 16.25)) << "settings alone mean the sun's time";
}

TEST(SunSpan, LiesWithinADay) {
    for (const auto& [start, end] : {std::pair(15.0, 9.0),
                                     {9.0, 9.0},
                                     {9.0, 0.0},
                                     {-1.0, 15.0},
                                     {9.0, 24.0001},
                                     {kNan, 15.0},
                                     {9.0, kNan},
                                     {kNan, kNan},
                                     {9.0, kInfinite},
                                     {-kInfinite, 15.0}})
        for (const int clock : {ORVO_TRUE_SOLAR_TIME, ORVO_BEIJING_TIME}) {
            Settings settings = SettingsWith(start, end);
            settings.standard->beijingTime = clock;
            EXPECT_EQ(SpanWith(settings), std::nullopt) << start << " to " << end;
        }
    Settings settings = SettingsWith(0, 0);
    for (const auto& [start, end] : {std::pair(ClockTime{15, 0}, ClockTime{9, 0}),
                                     {ClockTime{9, 0}, ClockTime{9, 0}},
                                     {ClockTime{-1, 0}, ClockTime{9, 0}},
                                     {ClockTime{9, 0}, ClockTime{24, 1}},
                                     {ClockTime{9, 0}, ClockTime{std::numeric_limits<int>::max(), 59}}}) {
        settings.start = start;
        settings.end = end;
        EXPECT_EQ(SpanWith(settings), std::nullopt) << start.hour << ":" << start.minute;
    }
    settings = SettingsWith(9, 15);
    settings.standard->beijingTime = ORVO_BEIJING_TIME;
    EXPECT_EQ(SpanWith(settings, kNan), std::nullopt) << "a place that has no clock";
}

// For the answer, which tells what was asked for.
TEST(SunSpan, IsToldWhereItCannotBeUsed) {
    SunPeriod span{1.0, 2.0};
    Settings settings = SettingsWith(15, 9);
    settings.standard->beijingTime = ORVO_BEIJING_TIME;
    EXPECT_FALSE(SpanOf(settings, 0.25, span));
    EXPECT_EQ(span.start, 14.75);
    EXPECT_EQ(span.end, 8.75);
    EXPECT_FALSE(SpanOf(SettingsWith(kNan, 9), 0.25, span));
    EXPECT_EQ(span.start, 14.75) << "but numbers only";
}

// 59.99995 minutes are 0.8 millionths of an hour short of the bound of 1 hour, 59.9998 minutes 3.3: one is within the
// tolerance of a millionth.
TEST(SunColor, IsThatOfTheJudgedHours) {
    Standard standard;
    standard.timeColors = {{0.0, 1}, {1.0, 2}, {2.5, 7}};
    EXPECT_EQ(ColorOf(standard, 0.0), 1);
    EXPECT_EQ(ColorOf(standard, 59.9998), 1);
    EXPECT_EQ(ColorOf(standard, 59.99995), 2);
    EXPECT_EQ(ColorOf(standard, 60.0), 2);
    EXPECT_EQ(ColorOf(standard, 149.0), 2);
    EXPECT_EQ(ColorOf(standard, 150.0), 7);
    EXPECT_EQ(ColorOf(standard, 1440.0), 7);
    standard.timeColors = {{1.0, 2}};
    EXPECT_EQ(ColorOf(standard, 30.0), 256) << "by layer";
    standard.timeColors.clear();
    EXPECT_EQ(ColorOf(standard, 30.0), 256);
}
