// The examples of docs/standards.md, whose numbers were computed by hand, by what the program does.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "CountedSun.h"
#include "calendar/ShanghaiValidTime.h"
#include "facts/Settings.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"

namespace {

double Clock(int hours, int minutes, double seconds = 0.0) {
    return hours + minutes / 60.0 + seconds / 3600.0;
}

// The tangent of the angle between south and the sun, seen from above; in the morning positive.
double TangentFromSouth(double declination, double latitude, double time) {
    const SunDirection sun = DirectionOfSun(ComputeSunDay(declination, 0.0, 120.0, latitude), time);
    return sun.east / -sun.north;
}

// 9:00 to 9:30, 9:50 to 10:50, 11:10 to 11:30, 11:50 to 12:50.
const MinutePeriods kFour = {{0, 30}, {50, 110}, {130, 150}, {170, 230}};

}  // namespace

TEST(StandardsPage, SaysHowFarTheShadowOfTheFinReaches) {
    EXPECT_NEAR(TangentFromSouth(-23.4, 31.0, 9.0), 0.962, 0.0005);
    EXPECT_NEAR(TangentFromSouth(-23.4, 31.0, Clock(9, 35, 21)), 0.75, 0.0001);
    EXPECT_NEAR(TangentFromSouth(-23.4, 31.0, Clock(9, 53, 6)), 0.65, 0.0001);
    EXPECT_NEAR(TangentFromSouth(-23.4, 31.0, Clock(10, 2, 12)), 0.6, 0.0001);
    EXPECT_NEAR(TangentFromSouth(-23.4, 31.0, Clock(10, 11, 27)), 0.55, 0.0001);
    EXPECT_NEAR(TangentFromSouth(-23.4, 31.0, Clock(11, 50)), 0.05, 0.001) << "in the picture, to the minute";
    EXPECT_NEAR(TangentFromSouth(-23.4, 31.0, 12.0), 0.0, 1e-12);
    EXPECT_NEAR((15.0 - Clock(9, 35, 21)) * 60.0, 324.6, 0.06);
    EXPECT_NEAR((15.0 - Clock(10, 2, 12)) * 60.0, 297.8, 0.06);
}

TEST(StandardsPage, SaysWhenTheAngleToTheWallIsLargeEnough) {
    EXPECT_NEAR(std::tan(12.0 * std::numbers::pi / 180.0), 0.2126, 0.00005);
    EXPECT_NEAR(-TangentFromSouth(-20.0, 40.0, Clock(12, 44, 35)), 0.2126, 0.0001);
    EXPECT_NEAR(-TangentFromSouth(-20.0, 40.0, Clock(12, 22)), std::tan(6.0 * std::numbers::pi / 180.0), 0.001);
    EXPECT_NEAR(-TangentFromSouth(-20.0, 40.0, Clock(15, 5)), 1.0, 0.005) << "in the picture, to the minute";
    EXPECT_NEAR((15.0 - Clock(12, 44, 35)) * 60.0, 135.4, 0.06);
    EXPECT_NEAR((Clock(12, 44, 35) - 12.0) * 60.0, 44.6, 0.06);
}

TEST(StandardsPage, SaysWhatTheShanghaiRuleGives) {
    // The picture's rows: the last degree of each, and the hours by east; by west they lie as far on the other side of
    // noon.
    const struct {
        int upTo;
        double start;
        double end;
    } rows[] = {{15, 9, 15}, {30, 9, 14.5}, {45, 9, 13.5}, {60, 9, 12.5}, {75, 9, 11.5}, {90, 9, 10.5}};
    const auto hours = [](double eastOfSouth) {
        const QcGePoint valid = GetShanghaiValidTime((eastOfSouth - 90.0) * std::numbers::pi / 180.0);
        return std::pair(valid.x, valid.y);
    };
    int first = 0;
    for (const auto& row : rows) {
        for (const int degrees : {first, row.upTo}) {
            EXPECT_EQ(hours(degrees), std::pair(row.start, row.end)) << degrees;
            EXPECT_EQ(hours(-degrees), std::pair(24.0 - row.end, 24.0 - row.start)) << -degrees;
        }
        first = row.upTo + 1;
    }
    EXPECT_EQ(hours(20), std::pair(9.0, 14.5));
    EXPECT_EQ(hours(91), std::pair(0.0, 0.0));
}

TEST(StandardsPage, SaysWhichSpanAClockHas) {
    const double offset = SunDay(ComputeSunDay(-20.0, -0.2, 105.0, 30.0)).noon - 12.0;
    EXPECT_NEAR(offset, 1.2, 1e-12);
    Settings settings;
    settings.standard.emplace();
    settings.standard->start = 9.0;
    settings.standard->end = 15.0;
    settings.standard->beijingTime = ORVO_BEIJING_TIME;
    SunPeriod span;
    ASSERT_TRUE(SpanOf(settings, offset, span));
    EXPECT_NEAR(span.start, Clock(7, 48), 1e-9);
    EXPECT_NEAR(span.end, Clock(13, 48), 1e-9);
}

TEST(StandardsPage, SaysWhatTheStepLeaves) {
    const MinutePeriods lit = {{3, 47}, {72, 78}, {83, 97}, {125, 151}, {159, 184}};
    Standard standard = TotalStandard();
    standard.step = 10;
    ExpectCount(CountAt(lit, standard), "10-40 130-180", "", 80, 50);
    standard.step = 1;
    const SunCount count = CountAt(lit, standard);
    EXPECT_EQ(count.counted.size(), 5U);
    EXPECT_NEAR(count.judged, 115, 1e-9);
}

TEST(StandardsPage, SaysWhatTheTotalIs) {
    const auto judged = [](int least, int leastLongest, int choice) {
        Standard standard = TotalStandard();
        standard.minValidTime = least;
        standard.minMaxValidTime = leastLongest;
        standard.totalTimeType = choice;
        return std::lround(CountAt(kFour, standard).judged);
    };
    EXPECT_EQ(judged(0, 0, ORVO_TOTAL_ALL), 170);
    EXPECT_EQ(judged(20, 0, ORVO_TOTAL_ALL), 170);
    EXPECT_EQ(judged(25, 0, ORVO_TOTAL_ALL), 150);
    EXPECT_EQ(judged(45, 0, ORVO_TOTAL_ALL), 120);
    EXPECT_EQ(judged(0, 0, ORVO_TOTAL_LONGEST_THREE), 150);
    EXPECT_EQ(judged(0, 0, ORVO_TOTAL_LONGEST_TWO), 120);
    EXPECT_EQ(judged(0, 60, ORVO_TOTAL_ALL), 170);
    EXPECT_EQ(judged(0, 61, ORVO_TOTAL_ALL), 0);
    EXPECT_EQ(judged(45, 60, ORVO_TOTAL_LONGEST_THREE), 120);
}

TEST(StandardsPage, SaysWhatTheLongestIs) {
    Standard standard = LongestStandard();
    ExpectCount(CountAt(kFour, standard), "50-110",
                "0-30 not among the longest, 130-150 not among the longest, 170-230 not among the longest", 60, 60);
    standard.allMaxContinueTime = 1;
    standard.minContinueTime = 25;
    EXPECT_NEAR(CountAt(kFour, standard).judged, 150, 1e-9);
    standard.minContinueTime = 60;
    EXPECT_EQ(Texts(CountAt(kFour, standard).counted), "50-110");
}

TEST(StandardsPage, SaysWhichColourHasTwoHoursAndAHalf) {
    EXPECT_EQ(ColorOf(StandardOf(OrvoStdSet()), 150.0), 3);
}
