// Lines of equal hours on areas whose hours are formulas. Lengths are millimetres, the spacing is a metre.
#include "analysis/Isolines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "IsolineJudge.h"
#include "analysis/CrossedLattice.h"

namespace {

constexpr double kAllowed = 100.0;  // a tenth of the spacing

FlatArea AreaOf(const std::vector<Vector3>& corners) {
    FlatArea area;
    EXPECT_EQ(FlatAreaOf(corners, area), AreaFault::None);
    return area;
}

FlatArea Square(double size) {
    return AreaOf({{0, 0, 0}, {size, 0, 0}, {size, size, 0}, {0, size, 0}});
}

struct Asked {
    IsolineOutcome outcome = IsolineOutcome::Done;
    std::vector<FlatIsoline> lines;
};

Asked LinesIn(
    const FlatArea& area, int mostHours, const MinutesAt& minutesAt, unsigned threads = 1,
    std::size_t cellsLeft = kMostIsolineCells, const std::function<bool(double)>& goOn = [](double) { return true; }) {
    IsolineSearch search{area};
    search.mostHours = mostHours;
    search.threads = threads;
    search.minutesAt = minutesAt;
    search.goOn = goOn;
    Asked asked;
    asked.outcome = FindIsolines(search, cellsLeft, asked.lines);
    return asked;
}

// By the sides that a ray to the right meets.
IsWithinArea Within(const FlatArea& area) {
    return [corners = area.corners](const FlatPoint& place) {
        bool isWithin = false;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const FlatPoint& a = corners[i];
            const FlatPoint& b = corners[(i + 1) % corners.size()];
            if ((a.y > place.y) != (b.y > place.y) && place.x < a.x + (b.x - a.x) * (place.y - a.y) / (b.y - a.y))
                isWithin = !isWithin;
        }
        return isWithin;
    };
}

void ExpectTrue(const FlatArea& area, int mostHours, const MinutesAt& minutesAt) {
    const Asked asked = LinesIn(area, mostHours, minutesAt);
    ASSERT_EQ(asked.outcome, IsolineOutcome::Done);
    EXPECT_EQ(PlacesOff(asked.lines, kAllowed, minutesAt, Within(area)), 0U);
    FlatPoint low{INFINITY, INFINITY};
    FlatPoint high{-INFINITY, -INFINITY};
    for (const FlatPoint& corner : area.corners) {
        low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
        high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
    }
    const DenseChanges changes =
        ChangesIn(low, high, 0.5 * kAllowed, kAllowed, mostHours, asked.lines, minutesAt, Within(area));
    EXPECT_GT(changes.count, 0U);
    EXPECT_EQ(changes.withoutLine, 0U) << "of " << changes.count;
}

double AngleOf(double x, double y) {
    return std::atan2(y, x);
}

}  // namespace

TEST(Isolines, AStraightChangeIsALineFromEdgeToEdge) {
    // Three hours below y = 4321, five above, so that two lines lie on each other.
    const Asked asked =
        LinesIn(Square(8000), 7, [](const FlatPoint& place) { return place.y < 4321.0 ? 180.0 : 300.0; });
    ASSERT_EQ(asked.lines.size(), 2U);
    for (std::size_t i = 0; i < 2; ++i) {
        const FlatIsoline& line = asked.lines[i];
        EXPECT_EQ(line.hours, static_cast<int>(i) + 4);
        EXPECT_FALSE(line.isClosed);
        ASSERT_EQ(line.points.size(), 2U);
        // More is above, and on the left of a line that runs to the right.
        EXPECT_NEAR(line.points[0].x, 0.0, 1e-9);
        EXPECT_NEAR(line.points[1].x, 8000.0, 1e-9);
        for (const FlatPoint& point : line.points)
            EXPECT_NEAR(point.y, 4321.0, 1000.0 / 256.0);
    }
}

TEST(Isolines, ARoundChangeIsClosed) {
    const auto minutesAt = [](const FlatPoint& place) {
        return std::hypot(place.x - 4100.0, place.y - 3900.0) < 2345.0 ? 119.0 : 120.0;
    };
    const Asked asked = LinesIn(Square(8000), 2, minutesAt);
    ASSERT_EQ(asked.lines.size(), 1U);
    EXPECT_TRUE(asked.lines[0].isClosed);
    EXPECT_EQ(asked.lines[0].hours, 2);
    EXPECT_LT(asked.lines[0].points.size(), 80U);
    for (const FlatPoint& point : asked.lines[0].points)
        EXPECT_NEAR(std::hypot(point.x - 4100.0, point.y - 3900.0), 2345.0, 8.0);
    // More is outside, so that the line runs clockwise.
    EXPECT_NEAR(TwiceSignedArea(asked.lines[0].points) / (2.0 * std::numbers::pi * 2345.0 * 2345.0), -1.0, 0.01);
    ExpectTrue(Square(8000), 2, minutesAt);
}

// Slopes, corners, and jumps of several hours, in an outline that is neither straight nor convex.
TEST(Isolines, AreTrueToATenthOfTheSpacing) {
    const FlatArea bent = AreaOf({{0, 0, 0}, {9100, 300, 0}, {8000, 7700, 0}, {5000, 2500, 0}, {1200, 8300, 0}});
    const MinutesAt slope = [](const FlatPoint& place) { return 0.07 * place.x + 0.03 * place.y; };
    const MinutesAt fan = [](const FlatPoint& place) {
        return 240.0 + 90.0 * AngleOf(place.x - 3333.0, place.y - 1777.0);
    };
    const MinutesAt steps = [](const FlatPoint& place) {
        return (std::fmod(place.x + 0.3 * place.y, 3000.0) < 1400.0 ? 60.0 : 240.0) + (place.y > 3210.0 ? 100.0 : 0.0);
    };
    for (const MinutesAt& minutesAt : {slope, fan, steps}) {
        ExpectTrue(bent, 8, minutesAt);
        ExpectTrue(Square(7300), 8, minutesAt);
    }
}

// A strip 100 mm wide that reaches in from the edge, and one that ends in the middle: far narrower than a cell.
TEST(Isolines, FollowsNarrowStripsThatMeetAnEdgeOrALine) {
    const MinutesAt strips = [](const FlatPoint& place) {
        const bool isEdges = place.x < 3000.0 && std::fabs(place.y - 2222.0) < 50.0;
        const bool isLines = place.x > 6000.0 || (place.x > 4300.0 && std::fabs(place.y - 5555.0) < 50.0);
        return isEdges || isLines ? 30.0 : 90.0;
    };
    ExpectTrue(Square(9000), 1, strips);
}

// What lies along the edge, less than a sixteenth of the spacing from it.
TEST(Isolines, SeesWhatRunsAlongTheEdge) {
    const MinutesAt rim = [](const FlatPoint& place) { return place.x < 40.0 ? 30.0 : 90.0; };
    const Asked asked = LinesIn(Square(5000), 1, rim);
    ASSERT_EQ(asked.lines.size(), 1U);
    for (const FlatPoint& point : asked.lines[0].points)
        EXPECT_NEAR(point.x, 40.0, 10.0);
    ExpectTrue(Square(5000), 1, rim);
    // A wall that stands on the edge, up to what rounding puts over it.
    const Asked wall = LinesIn(Square(5000), 1, [](const FlatPoint& place) { return place.x < 0.5 ? 0.0 : 90.0; });
    EXPECT_TRUE(wall.lines.empty());
}

// Islands of half a spacing hold one of the places that are always asked.
TEST(Isolines, IslandsOfHalfASpacingAreFound) {
    for (const double x : {3000.0, 3123.0, 3250.0, 3499.0}) {
        const auto isIn = [=](const FlatPoint& place) {
            return place.x > x && place.x < x + 510.0 && place.y > 2700.0 && place.y < 3210.0;
        };
        const Asked asked =
            LinesIn(Square(7000), 3, [&](const FlatPoint& place) { return isIn(place) ? 60.0 : 200.0; });
        ASSERT_EQ(asked.lines.size(), 2U) << x;
        EXPECT_TRUE(asked.lines[0].isClosed && asked.lines[1].isClosed);
    }
}

// A ring around a courtyard, joined to it by a slit that lines pass.
TEST(Isolines, PassSlits) {
    const FlatArea ring = AreaOf({{0, 0, 0},
                                  {9000, 0, 0},
                                  {9000, 9000, 0},
                                  {0, 9000, 0},
                                  {0, 0, 0},
                                  {3000, 3000, 0},
                                  {3000, 6000, 0},
                                  {6000, 6000, 0},
                                  {6000, 3000, 0},
                                  {3000, 3000, 0}});
    const MinutesAt round = [](const FlatPoint& place) {
        return std::hypot(place.x - 4500.0, place.y - 4500.0) < 3900.0 ? 30.0 : 90.0;
    };
    const Asked asked = LinesIn(ring, 1, round);
    ASSERT_EQ(asked.lines.size(), 1U);
    EXPECT_TRUE(asked.lines[0].isClosed);
    ExpectTrue(ring, 1, round);
    const Asked across = LinesIn(ring, 1, [](const FlatPoint& place) { return place.x < 4321.0 ? 30.0 : 90.0; });
    EXPECT_EQ(across.lines.size(), 2U);
}

TEST(Isolines, AnOutlineSmallerThanACellHasItsLine) {
    const Asked asked = LinesIn(Square(300), 1, [](const FlatPoint& place) { return place.y < 120.0 ? 10.0 : 70.0; });
    ASSERT_EQ(asked.lines.size(), 1U);
    EXPECT_NEAR(asked.lines[0].points.front().y, 120.0, 1000.0 / 256.0);
}

TEST(Isolines, NoneWithoutHours) {
    int asked = 0;
    EXPECT_TRUE(LinesIn(Square(5000), 0, [&](const FlatPoint& place) {
                    ++asked;
                    return place.x;
                }).lines.empty());
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(LinesIn(Square(5000), 8, [](const FlatPoint&) { return 300.0; }).lines.empty());
}

TEST(Isolines, AreTheSameWithAnyNumberOfThreads) {
    const auto minutesAt = [](const FlatPoint& place) {
        return 200.0 + 150.0 * std::sin(place.x / 900.0) * std::cos(place.y / 700.0);
    };
    const Asked expected = LinesIn(Square(12000), 5, minutesAt, 1);
    ASSERT_GT(expected.lines.size(), 20U);
    for (const unsigned threads : {2U, 5U}) {
        const Asked asked = LinesIn(Square(12000), 5, minutesAt, threads);
        ASSERT_EQ(asked.lines.size(), expected.lines.size());
        for (std::size_t i = 0; i < asked.lines.size(); ++i) {
            ASSERT_EQ(asked.lines[i].points.size(), expected.lines[i].points.size());
            for (std::size_t k = 0; k < asked.lines[i].points.size(); ++k) {
                EXPECT_EQ(asked.lines[i].points[k].x, expected.lines[i].points[k].x);
                EXPECT_EQ(asked.lines[i].points[k].y, expected.lines[i].points[k].y);
            }
        }
    }
}

// Hours that change from node to node, and an edge that is longer than all that may be looked into.
TEST(Isolines, TooManyAreNotFollowed) {
    const auto noise = [](const FlatPoint& place) {
        return std::fmod(std::fabs(std::sin(place.x * 12.9898 + place.y * 78.233)) * 43758.5453, 1.0) * 600.0;
    };
    const Asked many = LinesIn(Square(20000), 9, noise, 2, 10'000);
    EXPECT_EQ(many.outcome, IsolineOutcome::TooMany);
    EXPECT_TRUE(many.lines.empty());
    EXPECT_EQ(LinesIn(Square(1e9), 9, noise).outcome, IsolineOutcome::TooMany);
}

TEST(Isolines, CanBeCancelled) {
    int left = 40;
    const Asked asked = LinesIn(
        Square(20000), 9, [](const FlatPoint& place) { return place.x * 0.03; }, 1, kMostIsolineCells,
        [&](double) { return --left > 0; });
    EXPECT_EQ(asked.outcome, IsolineOutcome::Cancelled);
    EXPECT_TRUE(asked.lines.empty());
}

TEST(Isolines, NodesHaveNumbersOfTheirOwn) {
    for (const std::int32_t x : {-kMostLatticeNumber, -1, 0, 7, kMostLatticeNumber})
        for (const std::int32_t y : {-kMostLatticeNumber, -1, 0, 7, kMostLatticeNumber}) {
            EXPECT_EQ(NodeOf(NodeKey(x, y)).x, x);
            EXPECT_EQ(NodeOf(NodeKey(x, y)).y, y);
        }
    EXPECT_LT(NodeKey(5, -1), NodeKey(-5, 0));
}
