// Times of day and durations as texts.
#include "facts/ClockText.h"

#include <gtest/gtest.h>

#include "support/TableSwitch.h"

namespace {

std::string Clock(double hours) {
    return ToUtf8(ClockText(hours).View());
}

constexpr double kSecond = 1.0 / 3600.0;

std::string Minutes(double hours) {
    return ToUtf8(MinutesText(hours).View());
}

}  // namespace

TEST(TypedClocks, AreEveryMinuteOfTheDayInBothWays) {
    for (int hour = 0; hour < 24; ++hour) {
        for (int minute = 0; minute < 60; ++minute) {
            CString text;
            text.Format(L"%d:%02d", hour, minute);
            EXPECT_EQ(ParseClock(text), hour * 60 + minute);
            text.Format(L"%02d:%02d", hour, minute);
            EXPECT_EQ(ParseClock(text), hour * 60 + minute);
        }
    }
    EXPECT_EQ(ParseClock(L"24:00"), 1440);
}

TEST(TypedClocks, AreReadStrictly) {
    for (const wchar_t* text : {L"",      L":",     L"9",     L"9:",      L":30",   L"9:3",   L"9:300", L"009:30",
                                L"24:01", L"25:00", L"9:60",  L"-9:30",   L"+9:30", L" 9:30", L"9:30 ", L"9: 3",
                                L"9：30", L"９:30", L"9:3０", L"9:30:00", L"9.30",  L"0x:10", L"9:-1",  L"9:+1"})
        EXPECT_FALSE(ParseClock(text)) << ToUtf8(text);
}

TEST(ShownClocks, AreRoundedToTheSecond) {
    EXPECT_EQ(Clock(0.0), "00:00:00");
    EXPECT_EQ(Clock(12.5), "12:30:00");
    EXPECT_EQ(Clock(12.0 + 0.4 * kSecond), "12:00:00");
    EXPECT_EQ(Clock(12.0 + 0.6 * kSecond), "12:00:01");
    EXPECT_EQ(Clock(12.0 - 0.6 * kSecond), "11:59:59");
    EXPECT_EQ(Clock(9.0 + 59.0 / 60.0 + 59.6 * kSecond), "10:00:00");
    EXPECT_EQ(Clock(24.0 - 0.6 * kSecond), "23:59:59");
    EXPECT_EQ(Clock(-0.4 * kSecond), "00:00:00") << "no second before midnight";
}

TEST(ShownClocks, AreMarkedOnTheDayBeforeAndAfter) {
    EXPECT_EQ(Clock(24.0 - 0.4 * kSecond), "00:00:00（次日）") << "23:59:59.6";
    EXPECT_EQ(Clock(24.0), "00:00:00（次日）");
    EXPECT_EQ(Clock(47.0), "23:00:00（次日）");
    EXPECT_EQ(Clock(-kSecond), "23:59:59（前一日）");
    EXPECT_EQ(Clock(-0.5), "23:30:00（前一日）");
    EXPECT_EQ(Clock(-24.0), "00:00:00（前一日）");
}

TEST(ShownClocks, AreMarkedWithTheNumberOfDaysFurtherAway) {
    EXPECT_EQ(Clock(48.0), "00:00:00（2 日后）");
    EXPECT_EQ(Clock(80.25), "08:15:00（3 日后）");
    EXPECT_EQ(Clock(-24.0 - kSecond), "23:59:59（2 日前）");
    EXPECT_EQ(Clock(-50.0), "22:00:00（3 日前）");
}

TEST(ShownClocks, AreInTheLanguageOfTheInterface) {
    const TableSwitch english({{L"（次日）", L" (the next day)"}, {L"（%d 日后）", L" (%d days later)"}});
    EXPECT_EQ(Clock(25.0), "01:00:00 (the next day)");
    EXPECT_EQ(Clock(49.0), "01:00:00 (2 days later)");
}

TEST(SplitSeconds, LeavesTheHoursUnbounded) {
    for (const int seconds : {0, 59, 60, 3599, 3600, 86399, 86400, 360061}) {
        const ClockParts parts = SplitSeconds(seconds);
        EXPECT_EQ(parts.hours * 3600 + parts.minutes * 60 + parts.seconds, seconds);
        EXPECT_TRUE(parts.minutes >= 0 && parts.minutes < 60 && parts.seconds >= 0 && parts.seconds < 60) << seconds;
    }
}

TEST(ShownDurations, HaveASignAndAreRoundedToTheSecond) {
    EXPECT_EQ(Minutes(0.0), "+0分00秒");
    EXPECT_EQ(Minutes(0.031389), "+1分53秒");
    EXPECT_EQ(Minutes(-0.2325), "-13分57秒");
    EXPECT_EQ(Minutes(-0.4 * kSecond), "+0分00秒") << "no negative zero";
    EXPECT_EQ(Minutes(-0.6 * kSecond), "-0分01秒");
    EXPECT_EQ(Minutes(59.6 * kSecond), "+1分00秒");
    EXPECT_EQ(Minutes(1.5), "+90分00秒");
}
