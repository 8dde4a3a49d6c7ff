// Outlines in their planes, and the grids in them. Lengths are millimetres.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "analysis/FlatArea.h"

namespace {

constexpr double kTurn = 6.283185307179586;

FlatArea AreaOf(const std::vector<Vector3>& corners) {
    FlatArea area;
    EXPECT_EQ(FlatAreaOf(corners, area), AreaFault::None);
    return area;
}

AreaFault FaultOf(const std::vector<Vector3>& corners) {
    FlatArea area;
    return FlatAreaOf(corners, area);
}

// By the angles under which the sides are seen: they make up a whole turn only from within.
bool IsWithin(const std::vector<Vector3>& corners, const Vector3& point) {
    double sum = 0.0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vector3 a = corners[i] - point;
        const Vector3 b = corners[(i + 1) % corners.size()] - point;
        sum += std::atan2(a.x * b.y - a.y * b.x, a.x * b.x + a.y * b.y);
    }
    return std::fabs(sum) > 0.25 * kTurn;
}

void ExpectNear(const Vector3& actual, const Vector3& expected) {
    EXPECT_LT(Length(actual - expected), 1e-6) << actual.x << ' ' << actual.y << ' ' << actual.z << " instead of "
                                               << expected.x << ' ' << expected.y << ' ' << expected.z;
}

}  // namespace

TEST(FlatArea, ARectangleHasTheMiddlesOfItsCellsRowByRow) {
    const FlatArea area = AreaOf({{1000, 2000, 500}, {1000, 4000, 500}, {4000, 4000, 500}, {4000, 2000, 500}});
    EXPECT_EQ(area.plane, AreaPlane::Level);
    EXPECT_NEAR(area.area, 6e6, 1e-6);
    const std::vector<FlatPoint> points = GridPoints(area, 1000.0);
    ASSERT_EQ(points.size(), 6U);
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 3; ++column)
            ExpectNear(area.At(points[static_cast<std::size_t>(row * 3 + column)]),
                       {1500.0 + column * 1000.0, 2500.0 + row * 1000.0, 500.0});
    ExpectNear(area.outward, {0, 0, 1});
    EXPECT_EQ(CountGridPoints(area, 1000.0), 6.0);
}

// 2.5 cells by 1.2: three by two cells around the middle, (1250, 600).
TEST(FlatArea, CellsThatDoNotFillTheRectangleLieAroundItsMiddle) {
    const FlatArea area = AreaOf({{0, 0, 0}, {2500, 0, 0}, {2500, 1200, 0}, {0, 1200, 0}});
    const std::vector<FlatPoint> points = GridPoints(area, 1000.0);
    ASSERT_EQ(points.size(), 6U);
    ExpectNear(area.At(points.front()), {250, 100, 0});
    ExpectNear(area.At(points.back()), {2250, 1100, 0});
}

TEST(FlatArea, RoundingMakesNoFurtherCell) {
    const double width = 0.1 + 0.2;  // a little more than 0.3
    const FlatArea area = AreaOf({{0, 0, 0}, {width * 1e4, 0, 0}, {width * 1e4, 2000, 0}, {0, 2000, 0}});
    EXPECT_EQ(GridPoints(area, 1000.0).size(), 6U);
}

TEST(FlatArea, OneSmallerThanACellHasOnePointInside) {
    // Of an L the middle of the rectangle around it is not in it.
    const std::vector<Vector3> corners = {{0, 0, 0},     {900, 0, 0},   {900, 100, 0},
                                          {100, 100, 0}, {100, 900, 0}, {0, 900, 0}};
    const FlatArea area = AreaOf(corners);
    const std::vector<FlatPoint> points = GridPoints(area, 1000.0);
    ASSERT_EQ(points.size(), 1U);
    EXPECT_TRUE(IsWithin(corners, area.At(points[0])));
}

TEST(FlatArea, ThePointInsideIsNotInANeedle) {
    const FlatArea area =
        AreaOf({{0, 0, 0}, {900, 0, 0}, {900, 440, 0}, {1500, 450, 0}, {900, 460, 0}, {900, 900, 0}, {0, 900, 0}});
    EXPECT_GT(area.inside.x, 100.0);
    EXPECT_LT(area.inside.x, 800.0);
}

TEST(FlatArea, GridsHoldWhatLiesWithin) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> radius(2000.0, 20000.0);
    for (int round = 0; round < 200; ++round) {
        std::vector<Vector3> corners;
        const int count = 3 + round % 12;
        for (int i = 0; i < count; ++i) {
            const double angle = (round % 2 != 0 ? -1.0 : 1.0) * i * kTurn / count;
            const double r = radius(random);
            corners.push_back({5e8 + r * std::cos(angle), r * std::sin(angle), 7.0});
        }
        const FlatArea area = AreaOf(corners);
        const std::vector<FlatPoint> points = GridPoints(area, 700.0);
        for (const FlatPoint& point : points)
            EXPECT_TRUE(IsWithin(corners, area.At(point)));
        // Each middle that is within is there: as many as a count over all of the same grid.
        const Vector3 first = area.At(points.front());
        std::size_t within = 0;
        for (int x = -70; x <= 70; ++x)
            for (int y = -70; y <= 70; ++y)
                within += IsWithin(corners, first + Vector3{x * 700.0, y * 700.0, 0.0}) ? 1 : 0;
        EXPECT_EQ(points.size(), within);
        EXPECT_NEAR(CountGridPoints(area, 700.0), static_cast<double>(within),
                    0.15 * static_cast<double>(within) + 30.0);
    }
}

// A ring whose inner outline is joined to the outer one by a slit: 20 by 20 less 10 by 10.
TEST(FlatArea, ACourtyardBehindASlitIsNotWithin) {
    const FlatArea area = AreaOf({{0, 0, 0},
                                  {20, 0, 0},
                                  {20, 20, 0},
                                  {0, 20, 0},
                                  {0, 0, 0},
                                  {5, 5, 0},
                                  {5, 15, 0},
                                  {15, 15, 0},
                                  {15, 5, 0},
                                  {5, 5, 0}});
    EXPECT_NEAR(area.area, 300.0, 1e-9);
    EXPECT_EQ(GridPoints(area, 1.0).size(), 300U);
}

// A roof that rises by 3 over 4 towards the north: its up goes that way, and it looks upwards and to the south.
TEST(FlatArea, TiltedPlanesLookUpwards) {
    const std::vector<Vector3> roof = {{0, 0, 3000}, {8000, 0, 3000}, {8000, 4000, 6000}, {0, 4000, 6000}};
    for (const bool isBackwards : {false, true}) {
        const std::vector<Vector3> corners = isBackwards ? std::vector<Vector3>(roof.rbegin(), roof.rend()) : roof;
        const FlatArea area = AreaOf(corners);
        EXPECT_EQ(area.plane, AreaPlane::Tilted);
        ExpectNear(area.outward, {0, -0.6, 0.8});
        ExpectNear(area.right, {1, 0, 0});
        ExpectNear(area.up, {0, 0.8, 0.6});
        EXPECT_NEAR(area.area, 8000.0 * 5000.0, 1e-3);
        const std::vector<FlatPoint> points = GridPoints(area, 1000.0);
        ASSERT_EQ(points.size(), 40U);
        ExpectNear(area.At(points[0]), {500, 400, 3300});
        ExpectNear(area.At(points[39]), {7500, 3600, 5700});
    }
}

TEST(FlatArea, UprightPlanesTurnWithTheirPointsInPlace) {
    FlatArea area = AreaOf({{0, 0, 1000}, {3000, 0, 1000}, {3000, 0, 3000}, {0, 0, 3000}});
    EXPECT_EQ(area.plane, AreaPlane::Upright);
    const Vector3 inside = area.At(area.inside);
    for (int turn = 0; turn < 2; ++turn) {
        ExpectNear(Cross(area.right, area.up), area.outward);
        ExpectNear(area.At(area.inside), inside);
        ExpectNear(area.up, {0, 0, 1});
        const std::vector<FlatPoint> points = GridPoints(area, 1000.0);
        ASSERT_EQ(points.size(), 6U);
        for (const FlatPoint& point : points) {
            const Vector3 at = area.At(point);
            EXPECT_NEAR(at.y, 0.0, 1e-9);
            EXPECT_TRUE(at.x > 0.0 && at.x < 3000.0 && at.z > 1000.0 && at.z < 3000.0);
        }
        area.Turn();
    }
}

TEST(FlatArea, WhatIsNoAreaSaysWhy) {
    EXPECT_EQ(FaultOf({{5, 5, 5}}), AreaFault::Empty);
    EXPECT_EQ(FaultOf({{0, 0, 0}, {1000, 0, 0}}), AreaFault::Empty);
    EXPECT_EQ(FaultOf({{0, 0, 0}, {1000, 0, 0}, {2000, 0, 0}, {500, 0, 0}}), AreaFault::Empty);
    // Two needles, out and back, of which one runs the other way.
    EXPECT_EQ(FaultOf({{5e6, 7000, 0}, {2000, 1000, 0}, {0, 7000, 0}, {2000.0001, 1000, 0}}), AreaFault::Empty);
    // A bow tie, whose halves run opposite ways and cancel each other out.
    EXPECT_EQ(FaultOf({{0, 0, 0}, {1000, 1000, 0}, {1000, 0, 0}, {0, 1000, 0}}), AreaFault::Crossed);
    EXPECT_EQ(FaultOf({{0, 0, 0}, {3000, 0, 0}, {1000, 2000, 0}, {1000, -500, 0}}), AreaFault::Crossed);
    EXPECT_EQ(FaultOf({{0, 0, 0}, {1000, 0, 0}, {1000, 1000, 50}, {0, 1000, 0}}), AreaFault::NotFlat);
    EXPECT_EQ(FaultOf({{0, 0, 0}, {1000, 0, 0}, {1000, 1000, 0.4}, {0, 1000, 0}}), AreaFault::None);
    std::vector<Vector3> many;
    for (std::size_t i = 0; i <= kMostPolygonCorners; ++i) {
        const double angle = static_cast<double>(i) * kTurn / static_cast<double>(kMostPolygonCorners + 1);
        many.push_back({1e6 * std::cos(angle), 1e6 * std::sin(angle), 0.0});
    }
    EXPECT_EQ(FaultOf(many), AreaFault::TooManyCorners);
    many.pop_back();
    EXPECT_EQ(FaultOf(many), AreaFault::None);
}

// A square kilometre in cells of a micrometre, and of next to nothing.
TEST(FlatArea, HoweverSmallTheCellsTheyAreCounted) {
    const FlatArea area = AreaOf({{0, 0, 0}, {1e6, 0, 0}, {1e6, 1e6, 0}, {0, 1e6, 0}});
    EXPECT_NEAR(CountGridPoints(area, 1e-3) / 1e18, 1.0, 1e-9);
    EXPECT_TRUE(std::isfinite(CountGridPoints(area, 1e-300)));
    const FlatArea strip = AreaOf({{0, 0, 0}, {1e6, 1e6, 0}, {1e6, 1e6 + 5, 0}, {0, 5, 0}});
    EXPECT_GE(CountGridPoints(strip, 1000.0), 1000.0);
}
