// Which periods a standard counts, rule by rule and where two rules meet. Periods are minutes after 9:00.
#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "CountedSun.h"

namespace {

// 30, 60, 20 and 60 minutes.
const MinutePeriods kFour = {{0, 30}, {50, 110}, {130, 150}, {170, 230}};

// Values that an integer of a file may hold.
constexpr int kAnyInteger[] = {std::numeric_limits<int>::min(), -60, -1, 0, 1, 2, 3, 7, 25, 45, 60, 300,
                               std::numeric_limits<int>::max()};

// That the count is the same whatever a field holds.
void ExpectNothingOf(int Standard::*field, Standard standard) {
    const SunCount wanted = CountAt(kFour, standard);
    for (const int value : kAnyInteger) {
        standard.*field = value;
        const SunCount count = CountAt(kFour, standard);
        EXPECT_EQ(Texts(count.counted), Texts(wanted.counted)) << value;
        EXPECT_EQ(Texts(count.dropped), Texts(wanted.dropped)) << value;
        EXPECT_EQ(count.judged, wanted.judged) << value;
    }
}

}  // namespace

// 30 + 60 + 20 + 60 = 170.
TEST(TotalSun, AddsUpAllPeriods) {
    ExpectCount(CountAt(kFour, TotalStandard()), "0-30 50-110 130-150 170-230", "", 170, 60);
    ExpectCount(CountAt({}, TotalStandard()), "", "", 0, 0);
}

// Without the 20 minutes: 150. Without the 30 minutes too: 120.
TEST(TotalSun, LeavesShortPeriodsOut) {
    Standard standard = TotalStandard();
    standard.minValidTime = 21;
    ExpectCount(CountAt(kFour, standard), "0-30 50-110 170-230", "130-150 short", 150, 60);
    standard.minValidTime = 20;
    ExpectCount(CountAt(kFour, standard), "0-30 50-110 130-150 170-230", "", 170, 60);
    standard.minValidTime = 31;
    ExpectCount(CountAt(kFour, standard), "50-110 170-230", "0-30 short, 130-150 short", 120, 60);
    standard.minValidTime = 61;
    ExpectCount(CountAt(kFour, standard), "", "0-30 short, 50-110 short, 130-150 short, 170-230 short", 0, 0);
}

// A step of 1e-7 minutes shows what is just short of 20 minutes.
TEST(TotalSun, CallsShortWhatMissesTheShortestByMoreThanAMillionthOfAMinute) {
    Standard standard = TotalStandard();
    standard.step = 1e-7;
    standard.minValidTime = 20;
    EXPECT_EQ(CountAt({{10, 30 - 0.7e-6}}, standard).counted.size(), 1U);
    EXPECT_EQ(CountAt({{10, 30 - 1.3e-6}}, standard).counted.size(), 0U);
}

TEST(TotalSun, AsksForOneLongPeriod) {
    Standard standard = TotalStandard();
    standard.minMaxValidTime = 60;
    ExpectCount(CountAt(kFour, standard), "0-30 50-110 130-150 170-230", "", 170, 60);
    standard.minMaxValidTime = 61;
    ExpectCount(CountAt(kFour, standard), "", "0-30 threshold, 50-110 threshold, 130-150 threshold, 170-230 threshold",
                0, 0);
    standard.step = 1e-7;
    standard.minMaxValidTime = 20;
    EXPECT_EQ(CountAt({{10, 30 - 0.7e-6}}, standard).counted.size(), 1U);
    EXPECT_EQ(CountAt({{10, 30 - 1.3e-6}}, standard).counted.size(), 0U);
}

// The two longest: 60 + 60. The three longest: 30 + 60 + 60.
TEST(TotalSun, AddsUpTheLongestPeriods) {
    Standard standard = TotalStandard();
    standard.totalTimeType = ORVO_TOTAL_LONGEST_TWO;
    ExpectCount(CountAt(kFour, standard), "50-110 170-230", "0-30 not among the longest, 130-150 not among the longest",
                120, 60);
    standard.totalTimeType = ORVO_TOTAL_LONGEST_THREE;
    ExpectCount(CountAt(kFour, standard), "0-30 50-110 170-230", "130-150 not among the longest", 150, 60);
    for (const int choice : {ORVO_TOTAL_LONGEST_TWO, ORVO_TOTAL_LONGEST_THREE}) {
        standard.totalTimeType = choice;
        ExpectCount(CountAt({{0, 30}, {50, 70}}, standard), "0-30 50-70", "", 50, 30);
        ExpectCount(CountAt({{0, 30}}, standard), "0-30", "", 30, 30);
        ExpectCount(CountAt({}, standard), "", "", 0, 0);
    }
}

TEST(TotalSun, OfEqualPeriodsTakesTheEarlier) {
    Standard standard = TotalStandard();
    standard.totalTimeType = ORVO_TOTAL_LONGEST_TWO;
    const MinutePeriods equal = {{0, 20}, {31, 51}, {62, 82}, {93, 113}};
    ExpectCount(CountAt(equal, standard), "0-20 31-51", "62-82 not among the longest, 93-113 not among the longest", 40,
                20);
    standard.totalTimeType = ORVO_TOTAL_LONGEST_THREE;
    ExpectCount(CountAt(equal, standard), "0-20 31-51 62-82", "93-113 not among the longest", 60, 20);
    const MinutePeriods later = {{0, 20}, {31, 51}, {62, 90}};
    standard.totalTimeType = ORVO_TOTAL_LONGEST_TWO;
    ExpectCount(CountAt(later, standard), "0-20 62-90", "31-51 not among the longest", 48, 28);
}

TEST(TotalSun, AddsUpAllWithAChoiceThatNobodyKnows) {
    Standard standard = TotalStandard();
    for (const int choice : {-1, 3, 4, 1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        standard.totalTimeType = choice;
        EXPECT_NEAR(CountAt(kFour, standard).judged, 170, 1e-9) << choice;
    }
}

TEST(TotalSun, KnowsNoThreshold) {
    Standard standard = TotalStandard();
    ExpectNothingOf(&Standard::allMaxContinueTime, standard);
    ExpectNothingOf(&Standard::minContinueTime, standard);
    standard.allMaxContinueTime = 1;
    ExpectNothingOf(&Standard::minContinueTime, standard);
    standard.minValidTime = 25;
    standard.totalTimeType = ORVO_TOTAL_LONGEST_TWO;
    ExpectNothingOf(&Standard::minContinueTime, standard);
}

// What is short is out before the longest is looked at, and the longest is looked at before two or three are chosen.
TEST(TotalSun, AsksItsRulesInTurn) {
    Standard standard = TotalStandard();
    standard.minValidTime = 25;
    standard.totalTimeType = ORVO_TOTAL_LONGEST_THREE;
    ExpectCount(CountAt(kFour, standard), "0-30 50-110 170-230", "130-150 short", 150, 60);
    standard.minValidTime = 45;
    ExpectCount(CountAt(kFour, standard), "50-110 170-230", "0-30 short, 130-150 short", 120, 60);
    standard.minMaxValidTime = 90;
    ExpectCount(CountAt(kFour, standard), "", "0-30 short, 50-110 threshold, 130-150 short, 170-230 threshold", 0, 0);
    standard.minValidTime = 0;
    standard.totalTimeType = ORVO_TOTAL_LONGEST_TWO;
    ExpectCount(CountAt(kFour, standard), "", "0-30 threshold, 50-110 threshold, 130-150 threshold, 170-230 threshold",
                0, 0);
    standard.minMaxValidTime = 60;
    ExpectCount(CountAt(kFour, standard), "50-110 170-230", "0-30 not among the longest, 130-150 not among the longest",
                120, 60);
    standard.minValidTime = 45;
    ExpectCount(CountAt(kFour, standard), "50-110 170-230", "0-30 short, 130-150 short", 120, 60);
    standard.minValidTime = 70;
    ExpectCount(CountAt(kFour, standard), "", "0-30 short, 50-110 short, 130-150 short, 170-230 short", 0, 0);
}

// With a step of 15 minutes the marks 0 to 30, 60 to 105, 135 to 150, 180 to 225 are lit: 30, 45, 15 and 45 minutes.
TEST(TotalSun, IsJudgedByTheStep) {
    Standard standard = TotalStandard();
    standard.step = 15;
    ExpectCount(CountAt(kFour, standard), "0-30 60-105 135-150 180-225", "", 135, 45);
    standard.minValidTime = 20;
    ExpectCount(CountAt(kFour, standard), "0-30 60-105 180-225", "135-150 short", 120, 45);
    standard.minMaxValidTime = 50;
    EXPECT_EQ(CountAt(kFour, standard).judged, 0.0) << "though 60 minutes are lit";
    // A gap of 10 minutes between two marks: 25 and 20 minutes of sun are one period from 0 to 45.
    standard.minMaxValidTime = 45;
    ExpectCount(CountAt({{0, 31}, {41, 50}}, standard), "0-45", "", 45, 45);
}

TEST(LongestSun, CountsOnePeriod) {
    ExpectCount(CountAt(kFour, LongestStandard()), "50-110",
                "0-30 not among the longest, 130-150 not among the longest, 170-230 not among the longest", 60, 60);
    ExpectCount(CountAt({{0, 30}, {50, 81}}, LongestStandard()), "50-81", "0-30 not among the longest", 31, 31);
    ExpectCount(CountAt({{7, 30}}, LongestStandard()), "7-30", "", 23, 23);
    ExpectCount(CountAt({}, LongestStandard()), "", "", 0, 0);
}

// Whatever is not 0 is this choice.
TEST(LongestSun, IsAskedForByAnyNumberButZero) {
    Standard standard = LongestStandard();
    for (const int choice : kAnyInteger) {
        standard.maxContinue = choice;
        EXPECT_NEAR(CountAt(kFour, standard).judged, choice == 0 ? 170 : 60, 1e-9) << choice;
    }
}

// Lengths that are the same but for a computer's rounding: no binary fraction begins at 9:10 or at 11:20.
TEST(LongestSun, OfEqualPeriodsIsTheEarlier) {
    for (int first = 0; first < 100; ++first) {
        const double later = first + 77.0;
        const SunCount count = CountAt({{first + 0.0, first + 50.0}, {later, later + 50.0}}, LongestStandard());
        ASSERT_EQ(count.counted.size(), 1U);
        EXPECT_NEAR(count.counted[0].start, 9.0 + first / 60.0, 1e-9) << first;
    }
}

// More than the threshold: 60 is not over 60.
TEST(LongestSun, AddsUpWhatExceedsTheThreshold) {
    Standard standard = LongestStandard();
    standard.allMaxContinueTime = 1;
    standard.minContinueTime = 29;
    ExpectCount(CountAt(kFour, standard), "0-30 50-110 170-230", "130-150 threshold", 150, 60);
    standard.minContinueTime = 30;
    ExpectCount(CountAt(kFour, standard), "50-110 170-230", "0-30 threshold, 130-150 threshold", 120, 60);
    standard.minContinueTime = -5;
    ExpectCount(CountAt(kFour, standard), "0-30 50-110 130-150 170-230", "", 170, 60);
    for (const int flag : kAnyInteger) {
        standard.allMaxContinueTime = flag;
        EXPECT_NEAR(CountAt(kFour, standard).judged, flag == 0 ? 60 : 170, 1e-9) << flag;
    }
}

TEST(LongestSun, ExceedsByMoreThanAMillionthOfAMinute) {
    Standard standard = LongestStandard();
    standard.step = 1e-7;
    standard.allMaxContinueTime = 1;
    standard.minContinueTime = 20;
    EXPECT_EQ(CountAt({{10, 30 + 1.3e-6}, {50, 70 + 1.3e-6}}, standard).counted.size(), 2U);
    EXPECT_EQ(CountAt({{10, 30 + 0.7e-6}, {50, 70 + 1.3e-6}}, standard).counted.size(), 1U);
}

// None is longer than 60 minutes: the first of the two of 60 counts.
TEST(LongestSun, CountsAloneWhereNothingExceedsTheThreshold) {
    Standard standard = LongestStandard();
    standard.allMaxContinueTime = 1;
    standard.minContinueTime = 60;
    ExpectCount(CountAt(kFour, standard), "50-110", "0-30 threshold, 130-150 threshold, 170-230 threshold", 60, 60);
    standard.minContinueTime = 300;
    ExpectCount(CountAt(kFour, standard), "50-110", "0-30 threshold, 130-150 threshold, 170-230 threshold", 60, 60);
    ExpectCount(CountAt({{0, 12}}, standard), "0-12", "", 12, 12);
    ExpectCount(CountAt({}, standard), "", "", 0, 0);
}

// With a step of 15 minutes the 60 minutes of 50 to 110 are 45, and no longer over 50.
TEST(LongestSun, IsJudgedByTheStep) {
    Standard standard = LongestStandard();
    standard.allMaxContinueTime = 1;
    standard.minContinueTime = 50;
    ExpectCount(CountAt(kFour, standard), "50-110 170-230", "0-30 threshold, 130-150 threshold", 120, 60);
    standard.step = 15;
    ExpectCount(CountAt(kFour, standard), "60-105", "0-30 threshold, 135-150 threshold, 180-225 threshold", 45, 45);
    standard.minContinueTime = 40;
    ExpectCount(CountAt(kFour, standard), "60-105 180-225", "0-30 threshold, 135-150 threshold", 90, 45);
    // The mark at 120 falls into the gap of two minutes; of the marks 50, 100, 150 none does.
    standard.allMaxContinueTime = 0;
    standard.step = 20;
    ExpectCount(CountAt({{60, 119}, {121, 161}}, standard), "60-100", "140-160 not among the longest", 40, 40);
    standard.step = 50;
    ExpectCount(CountAt({{60, 119}, {121, 161}}, standard), "100-150", "", 50, 50);
}

TEST(LongestSun, KnowsNoRuleOfTheTotal) {
    for (const int accumulates : {0, 1}) {
        Standard standard = LongestStandard();
        standard.allMaxContinueTime = accumulates;
        standard.minContinueTime = 25;
        ExpectNothingOf(&Standard::minValidTime, standard);
        ExpectNothingOf(&Standard::minMaxValidTime, standard);
        ExpectNothingOf(&Standard::totalTimeType, standard);
    }
    ExpectNothingOf(&Standard::minContinueTime, LongestStandard());
}

// What is decided before anything is counted, or after it.
TEST(CountedSun, HangsOnNoOtherField) {
    for (const Standard& standard : {TotalStandard(), LongestStandard()})
        for (int Standard::*field : {&Standard::fullWindow, &Standard::limitWidth, &Standard::beijingTime,
                                     &Standard::validSunType, &Standard::minValidAngle})
            ExpectNothingOf(field, standard);
}
