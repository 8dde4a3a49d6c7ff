// The cone in which a face stands before a target, at the cases that have an answer on paper.
#include "analysis/ShadowHull.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>

namespace {

constexpr double kPrecision = 0.05;

// A target at the origin in the plane y = 0, looking along -y: right is x, up is z.
SunTarget Looking(double halfWidth, double halfHeight) {
    return {{0, 0, 0}, {1, 0, 0}, {0, 0, 1}, {0, -1, 0}, halfWidth, halfHeight};
}

struct Cone {
    Cone(const SunTarget& target, std::initializer_list<Vector3> corners)
        : hides(hull.Build(target, corners.begin(), static_cast<int>(corners.size()), kPrecision)) {}
    // Whether the sun is hidden in this direction (from the target: x right, y behind it, z up).
    bool Has(const Vector3& direction) const {
        for (const Vector3& plane : hull.Planes())
            if (Dot(plane, direction) < 0.0)
                return false;
        return hides;
    }
    ShadowHull hull;
    bool hides;
};

// A wall 10 wide and 10 high, 10 before the target.
TEST(ShadowHull, OfAPointIsWhatThePointSees) {
    const Cone cone(Looking(0, 0), {{-5, -10, -5}, {5, -10, -5}, {5, -10, 5}, {-5, -10, 5}});
    EXPECT_TRUE(cone.Has({0, -1, 0}));
    EXPECT_TRUE(cone.Has({0.49, -1, 0.49}));
    EXPECT_FALSE(cone.Has({0.51, -1, 0}));
    EXPECT_FALSE(cone.Has({0, -1, -0.51}));
    EXPECT_EQ(cone.hull.Planes().size(), 4U);
}

// From the left end of a window 4 wide the same wall reaches 7 to the right: 0.7 of its distance.
TEST(ShadowHull, OfARectangleIsWhatAnyOfItsPointsSees) {
    const Cone cone(Looking(2, 1), {{-5, -10, -5}, {5, -10, -5}, {5, -10, 5}, {-5, -10, 5}});
    EXPECT_TRUE(cone.Has({0.69, -1, 0}));
    EXPECT_FALSE(cone.Has({0.71, -1, 0}));
    EXPECT_TRUE(cone.Has({0, -1, 0.59}));
    EXPECT_FALSE(cone.Has({0, -1, 0.61}));
}

// A post that is seen edge-on by every point of its own plane still hides the sun from all others.
TEST(ShadowHull, OfARectangleHasAnAreaHoweverThinTheFace) {
    const Cone cone(Looking(2, 2), {{0, -10, -5}, {0, -12, -5}, {0, -12, 5}, {0, -10, 5}});
    EXPECT_TRUE(cone.Has({0.19, -1, 0}));
    EXPECT_FALSE(cone.Has({0.21, -1, 0}));
    EXPECT_FALSE(Cone(Looking(0, 0), {{0, -10, -5}, {0, -12, -5}, {0, -12, 5}, {0, -10, 5}}).hides) << "seen edge-on";
}

TEST(ShadowHull, IsNothingForWhatLiesBehindOrInThePlane) {
    EXPECT_FALSE(Cone(Looking(2, 2), {{-5, 10, -5}, {5, 10, -5}, {5, 10, 5}, {-5, 10, 5}}).hides);
    EXPECT_FALSE(Cone(Looking(2, 2), {{-5, 0, -5}, {5, 0, -5}, {5, 0, 5}, {-5, 0, 5}}).hides);
    EXPECT_FALSE(Cone(Looking(2, 2), {{-5, -0.04, -5}, {5, -0.04, -5}, {5, -0.04, 5}, {-5, -0.04, 5}}).hides);
    EXPECT_TRUE(Cone(Looking(2, 2), {{-5, -0.06, -5}, {5, -0.06, -5}, {5, -0.06, 5}, {-5, -0.06, 5}}).hides);
    EXPECT_FALSE(Cone(Looking(0, 0), {{0.04, -10, -5}, {0.04, -12, -5}, {0.04, -12, 5}}).hides) << "holds the point";
    EXPECT_TRUE(Cone(Looking(0, 0), {{0.06, -10, -5}, {0.06, -12, -5}, {0.06, -12, 5}}).hides);
}

// A jamb of 1 beside the window's right edge and flush with it: from the edge itself everything to the right that does
// not pass before it is hidden, from the left edge 4 away only what is flatter than 1 in 4.
TEST(ShadowHull, OfAJambFlushWithTheEdgeIsAWedge) {
    const Cone cone(Looking(2, 2), {{2, 0, -50}, {2, -1, -50}, {2, -1, 50}, {2, 0, 50}});
    EXPECT_TRUE(cone.Has({1, -0.001, 0}));
    EXPECT_TRUE(cone.Has({1, -1000, 0})) << "from the edge";
    EXPECT_FALSE(cone.Has({-0.001, -1, 0}));
    EXPECT_FALSE(
        CutsTarget(Looking(2, 2), std::initializer_list<Vector3>{{2, 1, -50}, {2, -1, -50}, {2, -1, 50}}.begin(), 3));
}

// Only what stands before the plane counts of a face that runs through it beside the target.
TEST(ShadowHull, LeavesOutWhatIsBehindThePlane) {
    const Cone cone(Looking(0, 0), {{4, 10, -5}, {4, -10, -5}, {4, -10, 5}, {4, 10, 5}});
    EXPECT_TRUE(cone.Has({4, -0.001, 0}));
    EXPECT_TRUE(cone.Has({4, -9.9, 4.9}));
    EXPECT_FALSE(cone.Has({4, -10.1, 0}));
    EXPECT_FALSE(cone.Has({4, -9.9, 5.1}));
}

// A level roof 50 m above a window, from 11 m behind its plane to 25 m before it: what stands in the plane is seen
// infinitely far up, and the roof's front edge has to stay where it is beside that. Parts of the sun's direction by its
// rise, times how high the roof is above a point of the window, have to end over the roof as it is seen from there.
TEST(ShadowHull, OfARoofThatReachesBehindThePlaneEndsAtItsFront) {
    constexpr double kHalfWidth = 600.0, kHalfHeight = 750.0;
    constexpr double kLeft = -61745.0, kRight = -48169.0, kBack = 10931.0, kFront = 25405.0, kAbove = 49250.0;
    const Cone cone(
        Looking(kHalfWidth, kHalfHeight),
        {{kLeft, kBack, kAbove}, {kLeft, -kFront, kAbove}, {kRight, -kFront, kAbove}, {kRight, kBack, kAbove}});
    int hiddenCount = 0;
    for (double across = -1.5; across < 0.0; across += 0.0311)
        for (double out = 0.001; out < 0.6; out += 0.0103) {
            const double least = std::max(kAbove - kHalfHeight, (kRight + kHalfWidth) / across);
            const double most = std::min({kAbove + kHalfHeight, (kLeft - kHalfWidth) / across, kFront / out});
            EXPECT_EQ(cone.Has({across, -out, 1.0}), least <= most) << across << ", " << out;
            hiddenCount += least <= most ? 1 : 0;
        }
    EXPECT_GT(hiddenCount, 400);
}

TEST(CutsTarget, TellsWhatRunsThrough) {
    const auto cuts = [](std::initializer_list<Vector3> corners) {
        return CutsTarget(Looking(2, 2), corners.begin(), static_cast<int>(corners.size()));
    };
    EXPECT_TRUE(cuts({{0, 1, -5}, {0, -1, -5}, {0, -1, 5}, {0, 1, 5}})) << "a fin through the middle";
    EXPECT_TRUE(cuts({{-5, 1, 1.9}, {5, 1, 1.9}, {5, -1, 1.9}, {-5, -1, 1.9}})) << "a slab just below the top";
    EXPECT_FALSE(cuts({{-5, 1, 2}, {5, 1, 2}, {5, -1, 2}, {-5, -1, 2}})) << "flush with the top";
    EXPECT_FALSE(cuts({{0, 0, -5}, {0, -1, -5}, {0, -1, 5}, {0, 0, 5}})) << "only stands on the plane";
    EXPECT_FALSE(cuts({{-5, 0, -5}, {5, 0, -5}, {5, 0, 5}, {-5, 0, 5}})) << "lies in the plane";
    EXPECT_FALSE(cuts({{3, 1, -5}, {3, -1, -5}, {3, -1, 5}, {3, 1, 5}})) << "beside";
    EXPECT_TRUE(cuts({{1, 1, 1}, {1.5, -1, 1}, {1, -1, 1.5}})) << "a small triangle within";
    EXPECT_FALSE(
        CutsTarget(Looking(0, 0), std::initializer_list<Vector3>{{0, 1, -5}, {0, -1, -5}, {0, -1, 5}}.begin(), 3));
}

}  // namespace
