// What stands in the sky, against angles on paper, against rays, and against the hours of the analysis.
#include "analysis/SkyOutlines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "DrawingForWindows.h"
#include "JudgedScene.h"
#include "SlowCaster.h"
#include "analysis/StandingFaces.h"
#include "settings/AnalysisParameters.h"

namespace {

constexpr double kDegree = 180.0 / 3.14159265358979323846;

SkyEye EyeAt(double x, double y, double z, double outX = 0.0, double outY = -1.0) {
    return {{x, y, z}, {outX, outY, 0.0}, 0.05};
}

struct Range {
    double left = 1e9;
    double right = -1e9;
    double low = 1e9;
    double high = -1e9;
};
Range RangeOf(const std::vector<SkyOutline>& outlines) {
    Range range;
    for (const SkyOutline& outline : outlines)
        for (const SkyPoint& corner : outline.corners) {
            range.left = std::min(range.left, corner.direction);
            range.right = std::max(range.right, corner.direction);
            range.low = std::min(range.low, corner.altitude);
            range.high = std::max(range.high, corner.altitude);
        }
    return range;
}

// By counting the sides to the right of a point.
bool Holds(const SkyOutline& outline, const SkyPoint& point) {
    bool isIn = false;
    for (std::size_t i = 0; i < outline.corners.size(); ++i) {
        const SkyPoint& a = outline.corners[i];
        const SkyPoint& b = outline.corners[(i + 1) % outline.corners.size()];
        if ((a.altitude > point.altitude) != (b.altitude > point.altitude) &&
            point.direction <
                a.direction + (b.direction - a.direction) * (point.altitude - a.altitude) / (b.altitude - a.altitude))
            isIn = !isIn;
    }
    return isIn;
}
bool IsHidden(const std::vector<SkyOutline>& outlines, const SkyPoint& point) {
    return std::any_of(outlines.begin(), outlines.end(), [&](const SkyOutline& each) { return Holds(each, point); });
}

double DistanceToSide(const SkyPoint& point, const SkyPoint& a, const SkyPoint& b) {
    const double x = b.direction - a.direction, y = b.altitude - a.altitude;
    const double length = std::max(x * x + y * y, 1e-30);
    const double along =
        std::clamp(((point.direction - a.direction) * x + (point.altitude - a.altitude) * y) / length, 0.0, 1.0);
    return std::hypot(point.direction - a.direction - along * x, point.altitude - a.altitude - along * y);
}
// Degrees to the nearest side of any outline.
double DistanceToSides(const std::vector<SkyOutline>& outlines, const SkyPoint& point) {
    double least = 1e9;
    for (const SkyOutline& outline : outlines)
        for (std::size_t i = 0; i < outline.corners.size(); ++i)
            least = std::min(
                least, DistanceToSide(point, outline.corners[i], outline.corners[(i + 1) % outline.corners.size()]));
    return least;
}

bool IsStopped(const OccluderSet& set, const Vector3& from, const Vector3& way) {
    const auto point = [](const Vector3& v) { return SlowPoint{v.x, v.y, v.z}; };
    for (const Occluder& face : set.faces)
        for (int i = 2; i < face.count; ++i)
            if (MeetsTriangle(point(from), point(way), point(face.corners[0]), point(face.corners[i - 1]),
                              point(face.corners[i])))
                return true;
    return false;
}

// The way to a place in the sky, by the definition of its two angles.
Vector3 WayTo(const SkyEye& eye, const SkyPoint& point) {
    const double direction = point.direction / kDegree, altitude = point.altitude / kDegree;
    const Vector3 right = {eye.outward.y, -eye.outward.x, 0.0};
    const Vector3 level = eye.outward * std::cos(direction) + right * std::sin(direction);
    return level * std::cos(altitude) + Vector3{0.0, 0.0, std::sin(altitude)};
}

constexpr Site kHere;

}  // namespace

TEST(SkyOutlines, AWallAheadHasTheAnglesOfItsEnds) {
    // Ten metres to the south, from 10 m to the east to 5 m to the west, to 8 m above the eye.
    const OccluderSet set = OccludersIn(Upright("8=WALL", kHere, -5000, -10000, 10000, -10000, 0, 9500));
    const std::vector<SkyOutline> outlines = FindSkyOutlines(set, EyeAt(0, 0, 1500));
    ASSERT_EQ(outlines.size(), 1U);
    const Range range = RangeOf(outlines);
    EXPECT_NEAR(range.left, -45.0, 1e-9);  // who looks south has the east on the left
    EXPECT_NEAR(range.right, std::atan(0.5) * kDegree, 1e-9);
    EXPECT_NEAR(range.low, 0.0, 1e-9);
    EXPECT_NEAR(range.high, std::atan(0.8) * kDegree, 0.01);               // straight ahead
    EXPECT_NEAR(outlines[0].distance, std::hypot(5000.0, 10000.0), 1e-6);  // of the lower corner on the left
    EXPECT_EQ(set.handles[outlines[0].entity], 0U);
}

TEST(SkyOutlines, AStraightEdgeIsACurveInTheSky) {
    const OccluderSet set = OccludersIn(Upright("8=WALL", kHere, -50000, -10000, 50000, -10000, 0, 9500));
    const std::vector<SkyOutline> outlines = FindSkyOutlines(set, EyeAt(0, 0, 1500));
    ASSERT_EQ(outlines.size(), 1U);
    // tan(altitude) = 0.8 cos(direction) all along it.
    int count = 0;
    for (std::size_t i = 0; i < outlines[0].corners.size(); ++i) {
        const SkyPoint& a = outlines[0].corners[i];
        const SkyPoint& b = outlines[0].corners[(i + 1) % outlines[0].corners.size()];
        if (a.altitude < 1.0 || b.altitude < 1.0 || std::abs(a.direction - b.direction) < 1e-9)
            continue;  // below, and at the ends
        ++count;
        for (const double part : {0.0, 0.25, 0.5, 0.75}) {
            const double direction = a.direction + part * (b.direction - a.direction);
            const double altitude = a.altitude + part * (b.altitude - a.altitude);
            EXPECT_NEAR(altitude, std::atan(0.8 * std::cos(direction / kDegree)) * kDegree, 0.02) << direction;
        }
    }
    EXPECT_GT(count, 20);
}

TEST(SkyOutlines, WhatIsBelowOrBehindIsNotSeen) {
    EXPECT_TRUE(
        FindSkyOutlines(OccludersIn(Level("8=WALL", kHere, -9000, -9000, 9000, 9000, 0)), EyeAt(0, 0, 1500)).empty());
    EXPECT_TRUE(FindSkyOutlines(OccludersIn(Upright("8=WALL", kHere, -9000, 10, 9000, 10, 0, 9000)), EyeAt(0, 0, 1500))
                    .empty());
    // From its edge: the eye lies in its plane.
    EXPECT_TRUE(
        FindSkyOutlines(OccludersIn(Upright("8=WALL", kHere, 0, -1000, 0, -9000, 0, 9000)), EyeAt(0, 0, 1500)).empty());
}

TEST(SkyOutlines, AWallThroughTheWindowsPlaneEndsThere) {
    // A fin to the right that goes on behind the wall.
    const OccluderSet set = OccludersIn(Upright("8=WALL", kHere, -1000, 5000, -1000, -2000, 0, 9000));
    const Range range = RangeOf(FindSkyOutlines(set, EyeAt(0, 0, 1500)));
    EXPECT_NEAR(range.right, 90.0, 1e-6);
    EXPECT_NEAR(range.left, std::atan(0.5) * kDegree, 1e-9);
    EXPECT_NEAR(range.high, std::atan(7.5) * kDegree, 0.01);
}

TEST(SkyOutlines, ABoardOverheadCoversTheZenith) {
    const OccluderSet set = OccludersIn(Level("8=WALL", kHere, -1000, -1500, 1000, 500, 4000));
    const SkyEye eye = EyeAt(0, 0, 1500);
    const std::vector<SkyOutline> outlines = FindSkyOutlines(set, eye);
    ASSERT_EQ(outlines.size(), 1U);
    const Range range = RangeOf(outlines);
    EXPECT_NEAR(range.high, 90.0, 1e-3);
    // Ahead it ends at 2500 up over 1500 out.
    const double edge = std::atan(2500.0 / 1500.0) * kDegree;
    for (const double direction : {-89.0, -45.0, 0.0, 45.0, 89.0})
        EXPECT_TRUE(Holds(outlines[0], {direction, 89.0})) << direction;
    EXPECT_TRUE(Holds(outlines[0], {0.0, edge + 0.1}));
    EXPECT_FALSE(Holds(outlines[0], {0.0, edge - 0.1}));
}

TEST(SkyOutlines, OfABodyTheNearSideIsEnoughUnlessTheEyeIsInIt) {
    const OccluderSet set = OccludersIn(Block(kHere, -2000, -9000, 2000, -5000, 0, 1000));
    // The front, and the top that is below: from 2 m to the side one more.
    EXPECT_EQ(FindSkyOutlines(set, EyeAt(0, 0, 500)).size(), 1U);
    EXPECT_EQ(FindSkyOutlines(set, EyeAt(4000, 0, 500)).size(), 2U);
    const std::vector<SkyOutline> within = FindSkyOutlines(set, EyeAt(0, -7000, 500));
    for (const double direction : {-80.0, 0.0, 80.0})
        EXPECT_TRUE(IsHidden(within, {direction, 10.0})) << direction;
}

TEST(SkyOutlines, TheProjectIsLeftOutWhereItIsNotThere) {
    const OpenDrawing drawing(DrawingWith(Upright("8=OLD", kHere, -1000, -9000, 0, -9000, 0, 9000) +
                                          Upright("8=NEW", kHere, 0, -9000, 1000, -9000, 0, 9000)));
    AnalysisRequest request;
    request.proposedLayers = {L"NEW"};
    const OccluderSet set = StandingFaces(drawing.database, request);
    EXPECT_EQ(FindSkyOutlines(set, EyeAt(0, 0, 0), true).size(), 2U);
    EXPECT_EQ(FindSkyOutlines(set, EyeAt(0, 0, 0), false).size(), 1U);
}

// To the last bit: what is nearly the same is the same.
TEST(SkyOutlines, SharedSidesAreDividedAtTheSamePoints) {
    std::mt19937 random(9);
    std::uniform_real_distribution<double> place(-9000.0, 9000.0);
    const auto point = [&] { return Vector3{place(random), place(random), place(random)}; };
    int shared = 0;
    for (int i = 0; i < 100; ++i) {
        // One side of both, run through in one way and the other; cut by the wall and by the horizon as it comes.
        const Vector3 from = point(), to = point();
        const Vector3 left = point(), right = point();
        const std::vector<SkyOutline> outlines = FindSkyOutlines(
            OccludersIn(Face("8=WALL", from, to, left, left) + Face("8=WALL", to, from, right, right)), EyeAt(0, 0, 0));
        if (outlines.size() < 2)
            continue;
        // Where the wall stands on the horizon all outlines that reach so far have a corner of their own.
        const auto isEnd = [](const SkyPoint& p) { return std::abs(p.direction) > 89.999 && p.altitude < 1e-3; };
        for (const SkyPoint& a : outlines[0].corners)
            for (const SkyPoint& b : outlines[1].corners)
                if (!isEnd(a) && std::abs(a.direction - b.direction) < 1e-7 &&
                    std::abs(a.altitude - b.altitude) < 1e-7) {
                    EXPECT_EQ(a.direction, b.direction) << i;
                    EXPECT_EQ(a.altitude, b.altitude) << i;
                    ++shared;
                }
    }
    EXPECT_GT(shared, 300);
}

TEST(SkyOutlines, AgreeWithRaysInRandomSkies) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-30000.0, 30000.0);
    std::uniform_real_distribution<double> turn(0.0, 360.0);
    int hidden = 0;
    int asked = 0;
    for (int scene = 0; scene < 30; ++scene) {
        std::string entities;
        for (int i = 0; i < 8; ++i) {
            const Site site{turn(random), {place(random), place(random), 0.0}};
            entities += Block(site, 0, 0, 4000 + 200 * i, 9000, 300 * i, 6000 + 2000 * i);
        }
        const OccluderSet set = OccludersIn(entities);
        const double facing = turn(random) / kDegree;
        const SkyEye eye = EyeAt(place(random), place(random), 1500, std::cos(facing), std::sin(facing));
        const std::vector<SkyOutline> outlines = FindSkyOutlines(set, eye);
        std::uniform_real_distribution<double> direction(-89.5, 89.5);
        std::uniform_real_distribution<double> altitude(0.1, 85.0);
        for (int i = 0; i < 300; ++i) {
            const SkyPoint point{direction(random), altitude(random)};
            if (DistanceToSides(outlines, point) < 0.03)
                continue;
            const bool isStopped = IsStopped(set, eye.place, WayTo(eye, point));
            EXPECT_EQ(IsHidden(outlines, point), isStopped)
                << scene << ": " << point.direction << ' ' << point.altitude;
            hidden += isStopped ? 1 : 0;
            ++asked;
        }
    }
    EXPECT_GT(hidden, asked / 20);
    EXPECT_LT(hidden, asked * 19 / 20);
}

// The sill's middle is one point, so that its hidden hours are those with the sun in an outline.
TEST(SkyOutlines, HoldTheSunWhenTheAnalysisSaysThatItIsHidden) {
    JudgedScene scene;
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    scene.Box(-26000, -40000, 0, -12000, -30000, 40000);
    scene.Box(2000, -36000, 0, 9000, -30000, 22000);
    scene.Box(1500, -900, 0, 1700, 0, 9000);
    const std::uint64_t handle = scene.Window(-750, 0, 1000, 1500, 1500);
    for (const double north : {0.0, 25.0}) {
        AnalysisRequest request = RequestFor(31.2, -23.44);
        request.north = north;
        request.settings.standard->fullWindow = 0;
        const OpenDrawing drawing(scene.Text());
        const WindowResult window = WindowOf(AnalyseWindows(drawing.database, request), handle);
        ASSERT_FALSE(window.hidden.empty());
        const SkyEye eye = EyeAt(0.0, -g_nSunWinOffset, 1000 + g_nSunDistPrec);
        const std::vector<SkyOutline> outlines = FindSkyOutlines(StandingFaces(drawing.database, request), eye);
        const SlowCaster caster(scene.Faces(), {31.2, -23.44, north}, scene.SillOf(handle), 100.0);
        int asked = 0;
        for (int minute = 6 * 60; minute <= 18 * 60; ++minute) {
            const double hours = minute / 60.0;
            if (caster.AltitudeAt(hours) < 0.1 || !caster.IsBeforeWindow(hours))
                continue;
            const SlowPoint sun = caster.SunAt(hours);
            const SkyPoint point = SkyPointOf(eye, {sun.x, sun.y, sun.z});
            if (DistanceToSides(outlines, point) < 0.05)
                continue;
            const bool isHidden = std::any_of(
                window.hidden.begin(), window.hidden.end(),
                [&](const HiddenPeriod& each) { return each.period.start <= hours && hours <= each.period.end; });
            EXPECT_EQ(IsHidden(outlines, point), isHidden) << hours << " north " << north;
            ++asked;
        }
        EXPECT_GT(asked, 300);
    }
}
