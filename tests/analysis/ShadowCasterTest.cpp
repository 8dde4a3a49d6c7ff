// When faces hide a target: against rays from many of its points to the sun at many moments, and cases that have an
// answer on paper.
#include "analysis/ShadowCaster.h"

#include <gtest/gtest.h>

#include <numbers>
#include <random>

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr double kPrecision = 0.05;
constexpr double kSecond = 1.0 / 3600.0;

// Whether the ray from a point towards the sun meets the face: the plain textbook way, with the plane first and then
// the sides.
bool IsHit(const Occluder& face, const Vector3& point, const Vector3& sun) {
    const Vector3 normal = Cross(face.corners[1] - face.corners[0], face.corners[2] - face.corners[0]);
    const double fall = Dot(normal, sun);
    const double way = Dot(normal, face.corners[0] - point) / fall;
    if (fall == 0.0 || !(way > 0.0))
        return false;
    const Vector3 hit = point + sun * way;
    for (int i = 0; i < face.count; ++i) {
        const Vector3 side = face.corners[(i + 1) % face.count] - face.corners[i];
        if (Dot(Cross(side, hit - face.corners[i]), normal) < 0.0)
            return false;
    }
    return true;
}

// A convex face in a random plane near the target.
Occluder RandomFace(std::mt19937& random, double spread) {
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    const Vector3 at = {spread * unit(random), spread * unit(random), spread * unit(random)};
    Vector3 first = {unit(random), unit(random), unit(random)};
    Vector3 second = {unit(random), unit(random), unit(random)};
    const double size = 0.3 * spread * std::abs(unit(random)) + 1.0;
    Occluder face;
    face.count = random() % 2 == 0 ? 3 : 4;
    face.corners[0] = at;
    face.corners[1] = at + first * size;
    face.corners[2] = at + (first + second) * size;
    face.corners[3] = at + second * size;
    return face;
}

SunTarget TargetLooking(double angle, double halfWidth, double halfHeight) {
    SunTarget target;
    target.outward = {std::cos(angle), std::sin(angle), 0.0};
    target.right = {-std::sin(angle), std::cos(angle), 0.0};
    target.up = {0.0, 0.0, 1.0};
    target.halfWidth = halfWidth;
    target.halfHeight = halfHeight;
    return target;
}

// Whether any of 41 x 41 points of the target is hidden.
bool IsHiddenByRays(const OccluderSet& occluders, const SunTarget& target, const Vector3& sun) {
    constexpr int kHalf = 20;
    const int across = target.IsPoint() ? 0 : kHalf;
    for (int i = -across; i <= across; ++i)
        for (int j = -across; j <= across; ++j) {
            const Vector3 point = target.middle + target.right * (target.halfWidth * i / kHalf) +
                                  target.up * (target.halfHeight * j / kHalf);
            for (const Occluder& face : occluders.faces)
                if (IsHit(face, point, sun))
                    return true;
        }
    return false;
}

// No ray of the grid may be hidden in hours that are said to be open. A point's hours must agree both ways; a rectangle
// may be hidden between the grid's points, too, so that hidden hours are only looked at for points.
void CompareWithRays(const OccluderSet& occluders, const SunPath& path, const SunTarget& target, double step) {
    const SunPeriod day = {4.0, 20.0};
    const HourSpans wanted =
        Intersection(path.HoursBefore({0.0, 0.0, 1.0}, 0.0, day), path.HoursBefore(target.outward, 0.0, day));
    const ShadowCaster caster(occluders, path, path.HoursBefore({0.0, 0.0, 1.0}, 0.0, day), kPrecision);
    const HourSpans hidden = caster.HiddenHours(target, wanted);
    std::vector<SunPeriod> all;
    for (const CastShadow& shadow : caster.ShadowsOn(target, wanted))
        all.push_back(shadow.period);
    const HourSpans again = HourSpans::Of(all);
    for (const SunPeriod& period : wanted.All())
        for (double hour = period.start + 0.5 * step; hour < period.end; hour += step) {
            const SunPeriod around = {hour - kSecond, hour + kSecond};
            const bool isSure = hidden.Covers(around) || !hidden.Meets(around);
            EXPECT_EQ(hidden.Covers({hour, hour}), again.Covers({hour, hour})) << hour;
            if (!isSure)
                continue;
            const bool isHit = IsHiddenByRays(occluders, target, path.DirectionAt(hour));
            if (target.IsPoint())
                EXPECT_EQ(hidden.Covers({hour, hour}), isHit) << hour;
            else
                EXPECT_TRUE(hidden.Covers({hour, hour}) || !isHit) << hour;
        }
}

TEST(ShadowCaster, AgreesWithRaysFromAPoint) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    for (int round = 0; round < 300; ++round) {
        OccluderSet occluders;
        for (int i = 0; i < 12; ++i)
            occluders.faces.push_back(RandomFace(random, 20'000.0));
        const SunPath path(23.44 * unit(random), 80.0 * unit(random), 180.0 * unit(random));
        CompareWithRays(occluders, path, TargetLooking(std::numbers::pi * unit(random), 0.0, 0.0), 0.11);
    }
}

TEST(ShadowCaster, LeavesNoRayOfARectangleOut) {
    std::mt19937 random(4);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    for (int round = 0; round < 60; ++round) {
        OccluderSet occluders;
        for (int i = 0; i < 3; ++i)
            occluders.faces.push_back(RandomFace(random, 8'000.0));
        const SunPath path(23.44 * unit(random), 60.0 * unit(random), 0.0);
        CompareWithRays(occluders, path, TargetLooking(std::numbers::pi * unit(random), 900.0, 700.0), 0.21);
    }
}

OccluderSet Wall(double left, double right, double distance, double top) {
    OccluderSet occluders;
    Occluder face;
    face.count = 4;
    face.corners[0] = {left, -distance, -1e5};
    face.corners[1] = {right, -distance, -1e5};
    face.corners[2] = {right, -distance, top};
    face.corners[3] = {left, -distance, top};
    occluders.faces.push_back(face);
    return occluders;
}

// Behind an endless wall the sun shows while it stands steeper over it than the wall's top: up / -north >= top /
// distance. Below the equator of its circle that is around noon, so that morning and evening are hidden.
TEST(ShadowCaster, HidesMorningAndEveningBehindALongWall) {
    for (const double latitude : {25.0, 31.2, 40.0})
        for (const double north : {0.0, 30.0, -75.0, 180.0}) {
            const double declination = -20.0;
            const Vector3 atTen = SunPath(declination, latitude, 0.0).DirectionAt(10.0);
            const double slope = atTen.z / -atTen.y;
            const SunPath path(declination, latitude, north);
            const double turn = north * kDegree;
            OccluderSet occluders = Wall(-1e9, 1e9, 20'000.0, slope * 20'000.0);
            for (Vector3& corner : occluders.faces[0].corners)
                corner = {corner.x * std::cos(turn) - corner.y * std::sin(turn),
                          corner.x * std::sin(turn) + corner.y * std::cos(turn), corner.z};
            // In one piece, with noon in the middle.
            const HourSpans up = path.HoursBefore({0.0, 0.0, 1.0}, 0.0, {8.5, 15.5});
            const SunTarget target = TargetLooking(turn - 0.5 * std::numbers::pi, 0.0, 0.0);
            const HourSpans hidden = ShadowCaster(occluders, path, up, kPrecision).HiddenHours(target, up);
            ASSERT_EQ(hidden.All().size(), 2U) << latitude << " " << north;
            EXPECT_NEAR(hidden.All()[0].end, 10.0, 1e-9);
            EXPECT_NEAR(hidden.All()[1].start, 14.0, 1e-9);
            EXPECT_EQ(hidden.All()[0].start, up.All()[0].start);
        }
}

// A tower hides the sun while its azimuth is between its edges.
TEST(ShadowCaster, HidesTheSunBehindATower) {
    const SunPath path(-23.44, 31.2, 0.0);
    const OccluderSet occluders = Wall(-10'000.0, 10'000.0, 50'000.0, 1e6);
    const HourSpans up = path.HoursBefore({0.0, 0.0, 1.0}, 0.0, {4.0, 20.0});
    const HourSpans hidden =
        ShadowCaster(occluders, path, up, kPrecision).HiddenHours(TargetLooking(-0.5 * std::numbers::pi, 0.0, 0.0), up);
    ASSERT_EQ(hidden.All().size(), 1U);
    const Vector3 first = path.DirectionAt(hidden.All()[0].start);
    EXPECT_NEAR(first.x / -first.y, 0.2, 1e-9);
    EXPECT_NEAR(hidden.All()[0].start + hidden.All()[0].end, 24.0, 1e-9);
}

TEST(ShadowCaster, AsksOnlyEntitiesThatCount) {
    const SunPath path(-23.44, 31.2, 0.0);
    OccluderSet occluders = Wall(-10'000.0, 10'000.0, 50'000.0, 1e6);
    occluders.faces.push_back(Wall(-20'000.0, 20'000.0, 60'000.0, 1e6).faces[0]);
    occluders.faces[1].entity = 1;
    const HourSpans up = path.HoursBefore({0.0, 0.0, 1.0}, 0.0, {9.0, 15.0});
    const ShadowCaster caster(occluders, path, up, kPrecision);
    const SunTarget target = TargetLooking(-0.5 * std::numbers::pi, 0.0, 0.0);
    const auto onlyFirst = [](std::uint32_t entity) { return entity == 0; };
    EXPECT_EQ(caster.ShadowsOn(target, up).size(), 2U);
    ASSERT_EQ(caster.ShadowsOn(target, up, onlyFirst).size(), 1U);
    EXPECT_EQ(caster.ShadowsOn(target, up, onlyFirst)[0].entity, 0U);
    EXPECT_GT(caster.HiddenHours(target, up).All()[0].Minutes(),
              caster.HiddenHours(target, up, onlyFirst).All()[0].Minutes());
}

}  // namespace
