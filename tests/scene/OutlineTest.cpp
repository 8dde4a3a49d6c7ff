// Arcs and their chords.
#include "scene/Outline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;

// The bulge of an arc over this angle.
double BulgeOf(double angle) {
    return std::tan(angle / 4.0);
}
double ChordOf(double angle, double radius) {
    return 2.0 * radius * std::sin(angle / 2.0);
}

Outline OutlineOf(const std::vector<OutlineVertex>& vertices, bool isClosed = false) {
    ArcDivision division;
    Outline outline;
    EXPECT_TRUE(MakeOutline(vertices, isClosed, division, outline));
    return outline;
}

}  // namespace

TEST(Outline, TakesAsFewChordsAsKeepTheSagitta) {
    for (const double radius : {300.0, 2000.0, 9000.0, 20000.0, 60000.0})
        for (const double angle : {0.3, 1.0, kPi / 2.0, kPi, 5.0, 6.2}) {
            const double size = ChordOf(angle, radius);
            const std::size_t chords = CountChords(BulgeOf(angle), size, 50.0);
            const auto sagitta = [&](std::size_t count) {
                return radius * (1.0 - std::cos(angle / static_cast<double>(count) / 2.0));
            };
            EXPECT_GE(chords, 4U);
            EXPECT_LE(chords, 64U);
            if (chords < 64)
                EXPECT_LE(sagitta(chords), 50.0 + 1e-9) << radius << " " << angle;
            if (chords > 4)
                EXPECT_GT(sagitta(chords - 1), 50.0 - 1e-9) << radius << " " << angle;
            EXPECT_EQ(CountChords(-BulgeOf(angle), size, 50.0), chords) << "the other way round";
        }
}

TEST(Outline, TakesFourToSixtyFourChords) {
    EXPECT_EQ(CountChords(1.0, 10.0, 50.0), 4U);
    EXPECT_EQ(CountChords(1e-6, 10.0, 50.0), 4U);
    EXPECT_EQ(CountChords(1.0, 1e6, 50.0), 64U);
    EXPECT_EQ(CountChords(1e30, 1e6, 50.0), 64U);
    EXPECT_EQ(CountChords(1.0, 1e50, 50.0), 64U);
}

TEST(Outline, PutsTheChordsEndsEvenlyOnTheArc) {
    for (const double angle : {0.01, 1.0, kPi, 4.0, 6.0, -2.0}) {
        const double radius = 5000.0;
        // From the angle 0.7 around (100, -200).
        const auto at = [&](double turned) {
            return OutlineVertex{100.0 + radius * std::cos(0.7 + turned), -200.0 + radius * std::sin(0.7 + turned),
                                 0.0};
        };
        OutlineVertex from = at(0.0);
        from.bulge = BulgeOf(angle);
        const Outline outline = OutlineOf({from, at(angle)});
        const std::size_t chords = outline.points.size() - 1;
        ASSERT_GE(chords, 4U);
        for (std::size_t i = 0; i <= chords; ++i) {
            const OutlineVertex expected = at(angle * static_cast<double>(i) / static_cast<double>(chords));
            EXPECT_NEAR(outline.points[i].x, expected.x, 1e-7) << angle << " " << i;
            EXPECT_NEAR(outline.points[i].y, expected.y, 1e-7) << angle << " " << i;
            EXPECT_EQ(outline.points[i].isInArc, i > 0 && i < chords);
        }
    }
}

TEST(Outline, KeepsTheVerticesThemselvesExactly) {
    const Outline outline = OutlineOf({{0.1, 0.2, 0.7}, {1234.5678, 9.1, 0.0}});
    EXPECT_EQ(outline.points.front().x, 0.1);
    EXPECT_EQ(outline.points.front().y, 0.2);
    EXPECT_EQ(outline.points.back().x, 1234.5678);
    EXPECT_EQ(outline.points.back().y, 9.1);
}

TEST(Outline, TakesAnArcThatHardlyRisesForStraight) {
    EXPECT_EQ(OutlineOf({{0, 0, 1e-9}, {1000, 0, 0}}).points.size(), 2U);
    EXPECT_EQ(OutlineOf({{0, 0, 1e-7}, {1000, 0, 0}}).points.size(), 5U);
}

TEST(Outline, IgnoresTheLastBulgeOfAnOpenPath) {
    EXPECT_EQ(OutlineOf({{0, 0, 0}, {1000, 0, 1}}).points.size(), 2U);
    EXPECT_EQ(OutlineOf({{0, 0, 0}, {10, 0, 1}}, true).points.size(), 5U) << "a closed path has a segment there";
}

TEST(Outline, DropsRepeatedPointsWithTheirSegment) {
    // The bulge of the dropped segment goes, the one behind it stays.
    const Outline outline = OutlineOf({{0, 0, 0}, {10, 0, 1}, {10, 0, 0}, {20, 0, 0}});
    EXPECT_EQ(outline.points.size(), 3U);
    EXPECT_EQ(OutlineOf({{0, 0, 0}, {10, 0, 0}, {10, 0, 1}, {20, 0, 0}}).points.size(), 6U);
}

TEST(Outline, IsClosedWhenItComesBack) {
    const Outline outline = OutlineOf({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 0, 1}});
    EXPECT_TRUE(outline.isClosed);
    EXPECT_EQ(outline.points.size(), 3U);
    EXPECT_FALSE(OutlineOf({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}}).isClosed);
}

TEST(Outline, FallsBackToFourChordsWhenTheDrawingHasNoneToSpare) {
    ArcDivision division;
    division.spareChords = 20;
    const std::vector<OutlineVertex> arc = {{0, 0, 1}, {40000, 0, 0}};  // 23 chords: 19 more than the least
    Outline outline;
    ASSERT_TRUE(MakeOutline(arc, false, division, outline));
    EXPECT_EQ(outline.points.size(), 24U);
    EXPECT_EQ(division.spareChords, 1U);
    ASSERT_TRUE(MakeOutline(arc, false, division, outline));
    EXPECT_EQ(outline.points.size(), 6U);
    ASSERT_TRUE(MakeOutline(arc, false, division, outline));
    EXPECT_EQ(outline.points.size(), 5U);
}

TEST(Outline, IsNoneWithOnePlaceOrBeyondTheFarthest) {
    ArcDivision division;
    Outline outline;
    EXPECT_FALSE(MakeOutline({}, true, division, outline));
    EXPECT_FALSE(MakeOutline({{1, 1, 0}}, true, division, outline));
    EXPECT_FALSE(MakeOutline({{1, 1, 0}, {1, 1 + 1e-7, 0}}, true, division, outline));
    EXPECT_FALSE(MakeOutline({{0, 0, 1e40}, {1e30, 0, 0}}, false, division, outline));
    EXPECT_TRUE(MakeOutline({{1, 1, 0}, {1, 1 + 2e-6, 0}}, true, division, outline));
}
