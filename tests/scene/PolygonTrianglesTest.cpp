// Polygons in pieces: their areas add up, and none is turned round.
#include "scene/PolygonTriangles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace {

using Polygon = std::vector<FlatPoint>;

Polygon Of(const std::vector<std::array<double, 2>>& points) {
    Polygon polygon;
    for (const auto& [x, y] : points)
        polygon.push_back({x, y, false});
    return polygon;
}

// The shoelace formula, by itself.
double Shoelace(const Polygon& polygon) {
    double twice = 0.0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const FlatPoint& a = polygon[i];
        const FlatPoint& b = polygon[(i + 1) % polygon.size()];
        twice += a.x * b.y - b.x * a.y;
    }
    return twice / 2.0;
}

double AreaOf(const Polygon& polygon, const PolygonPiece& piece) {
    Polygon part;
    for (int i = 0; i < piece.count; ++i)
        part.push_back(polygon[piece.corners[i]]);
    return Shoelace(part);
}

// Divides it and its mirror image in sense; the pieces have the polygon's sense and its area.
void ExpectDivided(const Polygon& polygon, double area) {
    for (const Polygon& each : {polygon, Polygon(polygon.rbegin(), polygon.rend())}) {
        std::vector<PolygonPiece> pieces;
        ASSERT_TRUE(DividePolygon(each, pieces));
        const double sense = Shoelace(each) > 0.0 ? 1.0 : -1.0;
        double sum = 0.0;
        for (const PolygonPiece& piece : pieces) {
            EXPECT_GT(AreaOf(each, piece) * sense, 0.0);
            sum += AreaOf(each, piece) * sense;
        }
        EXPECT_NEAR(sum, area, 1e-9 * area);
    }
}

void ExpectRefused(const Polygon& polygon) {
    std::vector<PolygonPiece> pieces(1);
    EXPECT_FALSE(DividePolygon(polygon, pieces));
    EXPECT_TRUE(pieces.empty());
}

// A comb with n teeth: every tooth is 1 wide and 9 high, with gaps of 1 between, on a back of height 1.
Polygon Comb(int teeth) {
    Polygon polygon = Of({{0, 0}, {2.0 * teeth - 1, 0}});
    for (int i = teeth - 1; i >= 0; --i)
        for (const auto& [x, y] : {std::pair(2 * i + 1, 10), {2 * i, 10}, {2 * i, 1}, {2 * i - 1, 1}})
            if (i > 0 || y == 10)
                polygon.push_back({static_cast<double>(x), static_cast<double>(y), false});
    return polygon;
}

// A band of width 1 that winds inwards in right angles.
Polygon Spiral(int turns) {
    Polygon outer;
    Polygon inner;
    double left = 0, bottom = 0, right = 8.0 * turns, top = 8.0 * turns;
    for (int i = 0; i < turns; ++i) {
        for (const auto& p : {FlatPoint{left, bottom}, {right, bottom}, {right, top}, {left + 2, top}})
            outer.push_back(p);
        for (const auto& p : {FlatPoint{i == 0 ? left : left + 1, bottom + 1},
                              {right - 1, bottom + 1},
                              {right - 1, top - 1},
                              {left + 3, top - 1}})
            inner.push_back(p);
        left += 2, bottom += 2, right -= 2, top -= 2;
    }
    Polygon polygon = outer;
    polygon.insert(polygon.end(), inner.rbegin(), inner.rend());
    return polygon;
}

}  // namespace

TEST(PolygonTriangles, LeaveATriangleAsItIs) {
    const Polygon polygon = Of({{0, 0}, {3, 0}, {0, 4}});
    std::vector<PolygonPiece> pieces;
    ASSERT_TRUE(DividePolygon(polygon, pieces));
    ASSERT_EQ(pieces.size(), 1U);
    EXPECT_DOUBLE_EQ(AreaOf(polygon, pieces[0]), 6.0);
}

TEST(PolygonTriangles, LeaveAConvexQuadrilateralAsItIs) {
    std::vector<PolygonPiece> pieces;
    ASSERT_TRUE(DividePolygon(Of({{0, 0}, {3, 0}, {4, 4}, {0, 4}}), pieces));
    ASSERT_EQ(pieces.size(), 1U);
    EXPECT_EQ(pieces[0].count, 4);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(pieces[0].corners[i], i);
}

TEST(PolygonTriangles, AreTwoLessThanTheCorners) {
    std::vector<PolygonPiece> pieces;
    ASSERT_TRUE(DividePolygon(Of({{0, 0}, {40, 0}, {40, 14}, {14, 14}, {14, 35}, {0, 35}}), pieces));
    EXPECT_EQ(pieces.size(), 4U);
    ASSERT_TRUE(DividePolygon(Of({{0, 0}, {2, 1}, {4, 0}, {2, 4}}), pieces));
    EXPECT_EQ(pieces.size(), 2U);
}

TEST(PolygonTriangles, CoverConcaveShapes) {
    ExpectDivided(Of({{0, 0}, {40, 0}, {40, 14}, {14, 14}, {14, 35}, {0, 35}}), 854.0);
    ExpectDivided(Comb(2), 3.0 + 2 * 9.0);
    ExpectDivided(Comb(50), 99.0 + 50 * 9.0);
    ExpectDivided(Comb(1024), 2047.0 + 1024 * 9.0);
}

TEST(PolygonTriangles, CoverASpiral) {
    const Polygon spiral = Spiral(6);
    ExpectDivided(spiral, std::fabs(Shoelace(spiral)));
}

TEST(PolygonTriangles, CoverStarsOfAnyRoughness) {
    // Star-shaped around the origin, so that it cannot cross itself, with radii at random.
    std::mt19937 random(7);
    for (int round = 0; round < 60; ++round) {
        const int corners = 5 + round * 5;
        Polygon polygon;
        for (int i = 0; i < corners; ++i) {
            const double angle = 2.0 * std::numbers::pi * i / corners;
            const double radius = 1000.0 * (1.0 + static_cast<double>(random() % 1000));
            polygon.push_back({5e8 + radius * std::cos(angle), -3e8 + radius * std::sin(angle), false});
        }
        // Far from the origin the shoelace formula loses digits: measure from the centre.
        Polygon near = polygon;
        for (FlatPoint& point : near)
            point = {point.x - 5e8, point.y + 3e8, false};
        std::vector<PolygonPiece> pieces;
        ASSERT_TRUE(DividePolygon(polygon, pieces));
        double sum = 0.0;
        for (const PolygonPiece& piece : pieces) {
            EXPECT_GT(AreaOf(near, piece), 0.0);
            sum += AreaOf(near, piece);
        }
        EXPECT_NEAR(sum, Shoelace(near), 1e-7 * Shoelace(near)) << corners;
    }
}

TEST(PolygonTriangles, PassOverPointsInOneLineAndOnTopOfEachOther) {
    ExpectDivided(Of({{0, 0}, {1, 0}, {2, 0}, {4, 0}, {4, 4}, {4, 4}, {4, 4}, {2, 4}, {0, 4}, {0, 2}}), 16.0);
    ExpectDivided(Of({{0, 0}, {0, 0}, {4, 0}, {0, 4}}), 8.0);
    // A spike there and back has no area.
    ExpectDivided(Of({{0, 0}, {4, 0}, {9, 0}, {4, 0}, {4, 4}, {0, 4}}), 16.0);
}

TEST(PolygonTriangles, CoverAnOutlineThatTouchesItself) {
    // A hole on a slit, and two squares that share a corner.
    ExpectDivided(Of({{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}, {3, 3}, {3, 6}, {6, 6}, {6, 3}, {3, 3}}), 72.0);
    ExpectDivided(Of({{0, 0}, {2, 0}, {2, 2}, {4, 2}, {4, 4}, {2, 4}, {2, 2}, {0, 2}}), 8.0);
    // A corner on the middle of another edge.
    ExpectDivided(Of({{0, 0}, {10, 0}, {10, 10}, {5, 0}, {0, 10}}), 50.0);
}

TEST(PolygonTriangles, AreRefusedWhenTheOutlineCrossesItself) {
    ExpectRefused(Of({{0, 0}, {10, 10}, {10, 0}, {0, 7}}));
    ExpectRefused(Of({{0, 10}, {6, -8}, {-9.5, 3}, {9.5, 3}, {-6, -8}}));
    ExpectRefused(Of({{0, 0}, {10, 0}, {10, 10}, {5, -5}, {0, 10}}));
    // Two lobes of opposite sense with one corner in common.
    ExpectRefused(Of({{0, 0}, {2, 0}, {2, 2}, {2, 3}, {3, 3}, {3, 2}, {2, 2}, {0, 2}}));
}

TEST(PolygonTriangles, AreRefusedWithoutAnArea) {
    ExpectRefused({});
    ExpectRefused(Of({{0, 0}, {1, 1}}));
    ExpectRefused(Of({{0, 0}, {1, 1}, {2, 2}}));
    ExpectRefused(Of({{0, 0}, {1, 1}, {2, 2}, {7, 7}, {3, 3}}));
    ExpectRefused(Of({{5, 5}, {5, 5}, {5, 5}, {5, 5}}));
}

TEST(PolygonTriangles, AreRefusedBeyondTheMostCorners) {
    const auto circle = [](std::size_t corners) {
        Polygon polygon;
        for (std::size_t i = 0; i < corners; ++i) {
            const double angle = 2.0 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(corners);
            polygon.push_back({1e6 * std::cos(angle), 1e6 * std::sin(angle), false});
        }
        return polygon;
    };
    std::vector<PolygonPiece> pieces;
    EXPECT_TRUE(DividePolygon(circle(kMostPolygonCorners), pieces));
    EXPECT_EQ(pieces.size(), kMostPolygonCorners - 2);
    ExpectRefused(circle(kMostPolygonCorners + 1));
}

TEST(PolygonTriangles, KeepTheHiddenEdgesAndHideTheirOwn) {
    Polygon polygon = Of({{0, 0}, {4, 0}, {6, 3}, {2, 6}, {-2, 3}});
    polygon[1].isHidden = true;
    std::vector<PolygonPiece> pieces;
    ASSERT_TRUE(DividePolygon(polygon, pieces));
    ASSERT_EQ(pieces.size(), 3U);
    for (const PolygonPiece& piece : pieces)
        for (std::size_t i = 0; i < 3; ++i) {
            const std::size_t from = piece.corners[i];
            const bool isOwn = piece.corners[(i + 1) % 3] == (from + 1) % 5;
            EXPECT_EQ(piece.isHidden[i], !isOwn || from == 1) << "from corner " << from;
        }
}

TEST(PolygonTriangles, ShowAnEdgeThatHasACornerInItsMiddle) {
    // Without the corner in one line, three edges are left, none of them a diagonal.
    std::vector<PolygonPiece> pieces;
    ASSERT_TRUE(DividePolygon(Of({{0, 0}, {2, 0}, {4, 0}, {0, 4}}), pieces));
    ASSERT_EQ(pieces.size(), 1U);
    for (const bool isHidden : {pieces[0].isHidden[0], pieces[0].isHidden[1], pieces[0].isHidden[2]})
        EXPECT_FALSE(isHidden);
}
