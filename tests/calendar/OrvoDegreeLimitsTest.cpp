// Angles that no sky has: not finite, beyond int, at its ends.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "calendar/OrvoDegree.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

void ExpectSplit(const OrvoDegree& angle, int degree, int minute, int second) {
    int split[3];
    angle.getDegree(split[0], split[1], split[2]);
    EXPECT_EQ(split[0], degree);
    EXPECT_EQ(split[1], minute);
    EXPECT_EQ(split[2], second);
}

}  // namespace

TEST(OrvoDegreeLimits, SaturatesTheSplitOfAnInfinityAndKeepsTheValue) {
    const OrvoDegree up(kInfinity);
    EXPECT_EQ(up.getDegree(), kInfinity);
    ExpectSplit(up, INT_MAX, INT_MAX, INT_MAX);
    const OrvoDegree down(-kInfinity);
    EXPECT_EQ(down.getDegree(), -kInfinity);
    ExpectSplit(down, INT_MIN, INT_MIN, INT_MIN);
}

TEST(OrvoDegreeLimits, SplitsWhatIsNoNumberIntoZeros) {
    const OrvoDegree angle(std::nan(""));
    EXPECT_TRUE(std::isnan(angle.getDegree()));
    ExpectSplit(angle, 0, 0, 0);
    EXPECT_EQ(angle.TimeFormat(true), L"00:00'00\"");
    EXPECT_EQ(angle.Format(false), L"000度00分");
}

TEST(OrvoDegreeLimits, SaturatesValuesBeyondInt) {
    ExpectSplit(OrvoDegree(1e300), INT_MAX, INT_MAX, INT_MAX);
    ExpectSplit(OrvoDegree(-1e300), INT_MIN, INT_MIN, INT_MIN);
    ExpectSplit(OrvoDegree(2147483647.0), INT_MAX, 0, 0);
    ExpectSplit(OrvoDegree(-2147483648.0), INT_MIN, 0, 0);
    ExpectSplit(OrvoDegree(2147483648.0), INT_MAX, 60, 0);
    ExpectSplit(OrvoDegree(2147483646.5), 2147483646, 30, 0);
}

TEST(OrvoDegreeLimits, DoesNotCarryPastTheLargestMinute) {
    // Just so large that the minutes saturate and exactly one of them is left over for the seconds.
    double value = 2147483647.0 + 2147483648.0 / 60.0;
    int seen = 0;
    for (int step = 0; step < 2000; ++step) {
        const OrvoDegree angle(value);
        int degree = 0;
        int minute = 0;
        int second = 0;
        angle.getDegree(degree, minute, second);
        ASSERT_EQ(degree, INT_MAX);
        ASSERT_GT(minute, 0);
        seen += minute == INT_MAX && second == 0 ? 1 : 0;
        value = std::nextafter(value, step < 1000 ? 0.0 : kInfinity);
    }
    EXPECT_GT(seen, 0) << "no value reached the carry";
}

TEST(OrvoDegreeLimits, ShowsTheEndsOfInt) {
    const OrvoDegree least(INT_MIN, INT_MIN, INT_MIN);
    EXPECT_EQ(least.TimeFormat(true), L"-2147483647:2147483647'2147483647\"");
    EXPECT_EQ(least.TimeFormat(false), L"-2147483647:2147483647");
    EXPECT_EQ(least.Format(true), L"-2147483647度2147483647分2147483647秒");
    const OrvoDegree most(INT_MAX, 59, 30);
    EXPECT_EQ(most.TimeFormat(false), L"2147483647:00");
    EXPECT_EQ(OrvoDegree(INT_MAX, INT_MAX, INT_MAX).Format(false), L"2147483647度2147483647分");
}

TEST(OrvoDegreeLimits, DividesByZeroIntoAnInfinityOrNoNumber) {
    OrvoDegree one(1.0);
    one / 0.0;
    EXPECT_EQ(one.getDegree(), kInfinity);
    ExpectSplit(one, INT_MAX, INT_MAX, INT_MAX);
    OrvoDegree zero;
    zero / 0.0;
    EXPECT_TRUE(std::isnan(zero.getDegree()));
    ExpectSplit(zero, 0, 0, 0);
}
