// The Shanghai rule, degree by degree.
#include "calendar/ShanghaiValidTime.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

// The direction that stands `degrees` counter-clockwise off the one with the full period.
double FacingAt(double degrees) {
    return (degrees - 90.0) * kDegree;
}

void ExpectPeriod(double direction, double start, double end) {
    const QcGePoint period = GetShanghaiValidTime(direction);
    EXPECT_EQ(period.x, start) << direction / kDegree;
    EXPECT_EQ(period.y, end) << direction / kDegree;
    EXPECT_EQ(period.z, 0.0) << direction / kDegree;
}

// The rule told by how long the period is: six hours shrinking to one and a half, in bands of 15 degrees that begin
// one degree behind their multiple; it ends early on one side and begins late on the other.
QcGePoint ByDuration(int degrees) {
    const double durations[] = {6.0, 5.5, 4.5, 3.5, 2.5, 1.5};
    const int off = degrees <= 180 ? degrees : 360 - degrees;
    if (off > 90)
        return QcGePoint(0, 0, 0);
    const double duration = durations[off == 0 ? 0 : (off - 1) / 15];
    return degrees <= 180 ? QcGePoint(9, 9 + duration, 0) : QcGePoint(15 - duration, 15, 0);
}

}  // namespace

TEST(ShanghaiValidTime, AnswersForEveryWholeDegree) {
    for (int degrees = 0; degrees < 360; ++degrees) {
        const QcGePoint expected = ByDuration(degrees);
        ExpectPeriod(FacingAt(degrees), expected.x, expected.y);
    }
}

TEST(ShanghaiValidTime, AnswersTheSameAnyNumberOfTurnsOn) {
    for (int turn = -3; turn <= 3; ++turn)
        for (int degrees = 0; degrees < 360; ++degrees) {
            const QcGePoint expected = ByDuration(degrees);
            ExpectPeriod(FacingAt(degrees) + turn * 2 * std::numbers::pi, expected.x, expected.y);
        }
}

TEST(ShanghaiValidTime, MirrorsTheTwoSidesAboutNoon) {
    for (int degrees = 1; degrees <= 90; ++degrees) {
        const QcGePoint left = GetShanghaiValidTime(FacingAt(degrees));
        const QcGePoint right = GetShanghaiValidTime(FacingAt(-degrees));
        EXPECT_EQ(12.0 - left.x, right.y - 12.0) << degrees;
        EXPECT_EQ(12.0 - right.x, left.y - 12.0) << degrees;
    }
}

TEST(ShanghaiValidTime, HoldsAtBothQuarterTurns) {
    ExpectPeriod(FacingAt(90), 9.0, 10.5);
    ExpectPeriod(FacingAt(270), 13.5, 15.0);
    ExpectPeriod(FacingAt(91), 0.0, 0.0);
    ExpectPeriod(FacingAt(269), 0.0, 0.0);
    ExpectPeriod(FacingAt(90.49), 9.0, 10.5);
    ExpectPeriod(FacingAt(90.51), 0.0, 0.0);
    ExpectPeriod(FacingAt(269.49), 0.0, 0.0);
    ExpectPeriod(FacingAt(269.51), 13.5, 15.0);
}

TEST(ShanghaiValidTime, RoundsUpToAFullTurn) {
    ExpectPeriod(FacingAt(359.9), 9.0, 15.0);
    ExpectPeriod(FacingAt(-1e-9), 9.0, 15.0);
    ExpectPeriod(FacingAt(359.5001), 9.0, 15.0);
}

TEST(ShanghaiValidTime, RoundsToWholeDegreesBeforeItChoosesTheBand) {
    ExpectPeriod(FacingAt(15.49), 9.0, 15.0);
    ExpectPeriod(FacingAt(15.51), 9.0, 14.5);
    ExpectPeriod(FacingAt(75.49), 9.0, 11.5);
    ExpectPeriod(FacingAt(75.51), 9.0, 10.5);
    ExpectPeriod(FacingAt(-15.49), 9.0, 15.0);
    ExpectPeriod(FacingAt(-15.51), 9.5, 15.0);
}

TEST(ShanghaiValidTime, RoundsHalfADegreeUpAtTheEdgesOfTheBands) {
    // Few directions come to exactly half a degree, so look for them; of the edges, these have one.
    const double quarter = 1.5707963267948966;
    for (const double half : {30.5, 45.5, 60.5, 75.5, 90.5, 269.5, 299.5, 329.5}) {
        const QcGePoint expected = ByDuration(static_cast<int>(half + 0.5));
        double direction = half * kDegree - quarter;
        for (int step = 0; step < 64; ++step)
            direction = std::nextafter(direction, -10.0);
        int found = 0;
        for (int step = 0; step < 128; ++step, direction = std::nextafter(direction, 10.0)) {
            if ((direction + quarter) * 180.0 / 3.141592653589793 != half)
                continue;
            ++found;
            ExpectPeriod(direction, expected.x, expected.y);
        }
        EXPECT_GT(found, 0) << half;
    }
}

TEST(ShanghaiValidTime, TakesADirectionThatIsNotFiniteAsTheFullPeriod) {
    const double infinity = std::numeric_limits<double>::infinity();
    ExpectPeriod(infinity, 9.0, 15.0);
    ExpectPeriod(-infinity, 9.0, 15.0);
    ExpectPeriod(std::numeric_limits<double>::quiet_NaN(), 9.0, 15.0);
}

TEST(ShanghaiValidTime, AnswersForDirectionsOfAnySize) {
    for (const double direction : {1e6, -1e6, 1e15, -1e15, 1e300, -1e300}) {
        const QcGePoint period = GetShanghaiValidTime(direction);
        EXPECT_TRUE((period.x == 0 && period.y == 0) ||
                    (period.x >= 9 && period.y <= 15 && period.y - period.x >= 1.5));
        EXPECT_EQ(period.z, 0.0);
    }
}
