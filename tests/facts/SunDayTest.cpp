// Noon, rise and set, the kinds of days, and the two time bases.
#include "facts/SunDay.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "facts/DayTerms.h"
#include "facts/Place.h"
#include "facts/SunPosition.h"

namespace {

using Kind = SunDay::Kind;

// Hours from noon to sunset, by halving the sine of the altitude.
double HalfDay(double declination, double latitude) {
    const double p = latitude * std::numbers::pi / 180.0;
    const double d = declination * std::numbers::pi / 180.0;
    double low = 0.0;
    double high = 12.0;
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2.0;
        const double sine =
            std::sin(p) * std::sin(d) + std::cos(p) * std::cos(d) * std::cos(middle * 15.0 * std::numbers::pi / 180.0);
        (sine > 0.0 ? low : high) = middle;
    }
    return low;
}

}  // namespace

TEST(TheSunsDay, HasItsNoonByLongitudeAndEquationOfTime) {
    EXPECT_DOUBLE_EQ(ComputeSunDay(0.0, 0.0, 120.0, 30.0).noon, 12.0);
    EXPECT_DOUBLE_EQ(ComputeSunDay(0.0, 0.25, 120.0, 30.0).noon, 11.75);
    EXPECT_DOUBLE_EQ(ComputeSunDay(0.0, 0.0, 90.0, 30.0).noon, 14.0);
    EXPECT_DOUBLE_EQ(ComputeSunDay(0.0, -0.2, -90.0, 30.0).noon, 26.2);
}

TEST(TheSunsDay, LastsAsLongAsTheSunIsUp) {
    for (double latitude = -65.0; latitude <= 65.0; latitude += 6.5) {
        for (const double declination : {-23.45, -11.0, 0.0, 0.2, 17.0, 23.45}) {
            const SunDay day = ComputeSunDay(declination, 0.1, 100.0, latitude);
            ASSERT_EQ(day.kind, Kind::Ordinary);
            const double half = HalfDay(declination, latitude);
            EXPECT_NEAR(day.noon - day.sunrise, half, 1e-9);
            EXPECT_NEAR(day.sunset - day.noon, half, 1e-9);
            EXPECT_NEAR(day.dayLength, 2.0 * half, 1e-9);
        }
    }
}

TEST(TheSunsDay, BeginsAndEndsOnTheHorizon) {
    const SunDay day = ComputeSunDay(-20.0, -0.18, 121.5, 31.2);
    EXPECT_NEAR(PositionOfSun(day, day.TrueSolarTime(day.sunrise)).altitude, 0.0, 1e-9);
    EXPECT_NEAR(PositionOfSun(day, day.TrueSolarTime(day.sunset)).altitude, 0.0, 1e-9);
}

TEST(TheSunsDay, MayHaveNoNightOrNoDay) {
    struct Case {
        double declination;
        double latitude;
        Kind kind;
    };
    for (const Case& each :
         {Case{23.45, 66.6, Kind::PolarDay}, Case{23.45, 66.5, Kind::Ordinary}, Case{-23.45, 66.6, Kind::PolarNight},
          Case{-23.45, -66.6, Kind::PolarDay}, Case{10.0, 90.0, Kind::PolarDay}, Case{-10.0, 90.0, Kind::PolarNight},
          Case{-0.01, -90.0, Kind::PolarDay}, Case{0.01, -90.0, Kind::PolarNight}}) {
        const SunDay day = ComputeSunDay(each.declination, 0.0, 120.0, each.latitude);
        EXPECT_EQ(day.kind, each.kind) << each.declination << " at " << each.latitude;
        if (each.kind == Kind::Ordinary)
            continue;
        EXPECT_EQ(day.dayLength, each.kind == Kind::PolarDay ? 24.0 : 0.0);
    }
}

TEST(TheSunsDay, KnowsTheWayBetweenTheTwoTimes) {
    const SunDay day = ComputeSunDay(5.0, 0.25, 105.0, 30.0);
    // Beijing time + equation of time - (120 - longitude) / 15
    EXPECT_DOUBLE_EQ(day.TrueSolarTime(10.0), 9.25);
    EXPECT_DOUBLE_EQ(day.BeijingTime(9.25), 10.0);
    EXPECT_DOUBLE_EQ(day.TrueSolarTime(day.noon), 12.0);
}

TEST(TheSunsDay, IsThatOfTheTermsOverThePlace) {
    DayTerms terms;
    terms.declination = -23.45;
    terms.equationOfTime = 0.031389;
    const SunDay day = ComputeSunDay(terms, {L"上海", L"上海", 121.4726, 31.2317});
    EXPECT_DOUBLE_EQ(day.noon, 12.0 - 0.031389 + (120.0 - 121.4726) / 15.0);
    EXPECT_EQ(day.declination, -23.45);
    EXPECT_EQ(day.equationOfTime, 0.031389);
    EXPECT_EQ(day.longitude, 121.4726);
    EXPECT_EQ(day.latitude, 31.2317);
}
