// The sun's circle against the facts' own formula, and the hours on one side of a plane against asking every moment.
#include "analysis/SunPath.h"

#include <gtest/gtest.h>

#include <random>

#include "facts/SunDay.h"
#include "facts/SunPosition.h"

namespace {

constexpr double kNear = 1e-12;

TEST(SunPath, IsWhereTheFactsSeeTheSun) {
    for (const double latitude : {-90.0, -35.0, 0.0, 31.2, 66.6, 90.0})
        for (const double declination : {-23.44, 0.0, 17.5})
            for (double hour = -6.0; hour <= 30.0; hour += 0.7) {
                const SunDay day = ComputeSunDay(declination, 0.0, 120.0, latitude);
                const SunDirection expected = DirectionOfSun(day, hour);
                const Vector3 sun = SunPath(declination, latitude, 0.0).DirectionAt(hour);
                EXPECT_NEAR(sun.x, expected.east, kNear);
                EXPECT_NEAR(sun.y, expected.north, kNear);
                EXPECT_NEAR(sun.z, expected.up, kNear);
            }
}

TEST(SunPath, IsACircleInTheSkysAxes) {
    const SunPath path(-20.0, 31.0, 40.0);
    const Vector3 sky = path.ToSky(path.DirectionAt(15.0));  // 45 degrees past noon
    const double cosine = std::cos(20.0 * std::numbers::pi / 180.0);
    EXPECT_NEAR(sky.x, cosine * std::sqrt(0.5), kNear);
    EXPECT_NEAR(sky.y, cosine * std::sqrt(0.5), kNear);
    EXPECT_NEAR(sky.z, -std::sin(20.0 * std::numbers::pi / 180.0), kNear);
}

// With true north 90 degrees counter-clockwise of the drawing's y axis, north is the drawing's -x.
TEST(SunPath, TurnsWithTheDrawingsNorth) {
    const Vector3 plain = SunPath(-20.0, 31.0, 0.0).DirectionAt(10.0);
    const Vector3 turned = SunPath(-20.0, 31.0, 90.0).DirectionAt(10.0);
    EXPECT_NEAR(turned.x, -plain.y, kNear);
    EXPECT_NEAR(turned.y, plain.x, kNear);
    EXPECT_NEAR(turned.z, plain.z, kNear);
}

TEST(SunPath, FindsTheHoursBeforeAPlane) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    for (int round = 0; round < 3000; ++round) {
        const SunPath path(23.44 * unit(random), 90.0 * unit(random), 180.0 * unit(random));
        const Vector3 normal = {unit(random), unit(random), unit(random)};
        const double threshold = 0.5 * unit(random);
        const SunPeriod within = {-6.0 + 5.0 * unit(random), 24.0 + 8.0 * unit(random)};
        const HourSpans found = path.HoursBefore(normal, threshold, within);
        for (double hour = within.start + 0.01; hour < within.end; hour += 0.37) {
            const double excess = Dot(path.DirectionAt(hour), normal) - threshold;
            if (std::abs(excess) > 1e-9)
                EXPECT_EQ(found.Covers({hour, hour}), excess > 0.0) << "round " << round << " hour " << hour;
        }
    }
}

// A wall due south at the equinox has the sun from 6 to 18; due north never; a level roof at the pole in summer always.
TEST(SunPath, KnowsSimpleWalls) {
    const SunPath equinox(0.0, 40.0, 0.0);
    const std::vector<SunPeriod> south = equinox.HoursBefore({0.0, -1.0, 0.0}, 0.0, {0.0, 24.0}).All();
    ASSERT_EQ(south.size(), 1U);
    EXPECT_NEAR(south[0].start, 6.0, 1e-9);
    EXPECT_NEAR(south[0].end, 18.0, 1e-9);
    const std::vector<SunPeriod> summer = SunPath(20.0, 90.0, 0.0).HoursBefore({0.0, 0.0, 1.0}, 0.0, {0.0, 24.0}).All();
    ASSERT_EQ(summer.size(), 1U);
    EXPECT_EQ(summer[0].start, 0.0);
    EXPECT_EQ(summer[0].end, 24.0);
    EXPECT_TRUE(SunPath(-20.0, 90.0, 0.0).HoursBefore({0.0, 0.0, 1.0}, 0.0, {0.0, 24.0}).IsEmpty());
}

TEST(SunPath, SolvesWhereTheCircleOnlyJustCrosses) {
    for (const double excess : {1e-3, 1e-6, 1e-9, 1e-12}) {
        const HourArc arc = SolveHourArc(-1.0 + excess, 0.0, -1.0);  // -sin H >= 1 - excess
        ASSERT_EQ(arc.kind, HourArc::Kind::Arc);
        EXPECT_NEAR(arc.middle, -std::numbers::pi / 2.0, kNear);
        EXPECT_NEAR(arc.half / std::sqrt(2.0 * excess), 1.0, 1e-3);
    }
    EXPECT_EQ(SolveHourArc(1.0, 0.6, 0.8).kind, HourArc::Kind::Always);
    EXPECT_EQ(SolveHourArc(-1.0, 0.6, 0.8).kind, HourArc::Kind::Never);
    EXPECT_EQ(SolveHourArc(0.0, 0.0, 0.0).kind, HourArc::Kind::Always) << "in the plane all day";
}

}  // namespace
