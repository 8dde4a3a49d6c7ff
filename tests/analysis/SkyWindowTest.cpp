// No box that the sun is seen through may be passed over.
#include "analysis/SkyWindow.h"

#include <gtest/gtest.h>

#include <cstring>
#include <numbers>
#include <random>

#include "analysis/SunPath.h"

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

// Whether the ray from the origin meets the box.
bool IsThrough(const Box& box, const Vector3& ray) {
    double first = 0.0;
    double last = 1e300;
    const auto slab = [&](double least, double most, double way) {
        first = std::max(first, std::min(least / way, most / way));
        last = std::min(last, std::max(least / way, most / way));
    };
    slab(box.least.x, box.most.x, ray.x);
    slab(box.least.y, box.most.y, ray.y);
    slab(box.least.z, box.most.z, ray.z);
    return first <= last;
}

// The axes of a sector, with the upright as it stands at latitude 40 at noon.
SunCurve CurveOf(double declination) {
    return {std::tan(declination), {std::cos(40.0 * kDegree), 0.0, std::sin(40.0 * kDegree)}, std::tan(kTurn / 6.0)};
}

TangentSpan TangentsOf(double start, double end) {
    return {std::tan(HourAngleOf(start)), std::tan(HourAngleOf(end))};
}

// The top of a box along the upright: that of its corners.
double TopOf(const Box& box, const Vector3& up) {
    return std::max(box.least.x * up.x, box.most.x * up.x) + std::max(box.least.y * up.y, box.most.y * up.y) +
           std::max(box.least.z * up.z, box.most.z * up.z);
}

bool IsSeen(const SkyWindow& view, const Box& box, const SunCurve& curve) {
    const WideTree tree({box}, {TopOf(box, curve.up)});
    return view.Look(tree.At(0)).lanes != 0;
}

struct Round {
    explicit Round(std::mt19937& random) {
        std::uniform_real_distribution<double> unit(-1.0, 1.0);
        declination = 23.44 * kDegree * unit(random);
        // Near the path, and flat ones too: it is among these that the least of the path matters.
        const Vector3 middle =
            SunAt(12.0 + 4.0 * unit(random)) * (0.5 + 0.4 * unit(random)) + Vector3{0.0, 0.0, 0.1 * unit(random)};
        const Vector3 half = {0.3 * std::abs(unit(random)), 0.3 * std::abs(unit(random)),
                              0.3 * std::pow(std::abs(unit(random)), 5.0)};
        box = {middle - half, middle + half};
        target.outward = {unit(random), unit(random), unit(random)};
        start = 12.0 + 4.0 * unit(random);
        end = start + (16.0 - start) * std::abs(unit(random));
    }
    Vector3 SunAt(double hour) const {
        const double angle = HourAngleOf(hour);
        return {std::cos(declination) * std::cos(angle), std::cos(declination) * std::sin(angle),
                std::sin(declination)};
    }
    double declination = 0.0;
    Box box;
    SunTarget target;
    double start = 0.0;
    double end = 0.0;
};

TEST(SkyWindow, LetsEveryBoxPassThatTheSunIsSeenThrough) {
    std::mt19937 random(11);
    int seen = 0;
    int passed = 0;
    constexpr int kRounds = 20'000;
    for (int i = 0; i < kRounds; ++i) {
        const Round round(random);
        const SunCurve curve = CurveOf(round.declination);
        SkyWindow view(round.target, curve);
        view.Want(TangentsOf(round.start, round.end));
        bool isSeen = false;
        for (int step = 0; step <= 60 && !isSeen; ++step) {
            const Vector3 sun = round.SunAt(round.start + (round.end - round.start) * step / 60.0);
            isSeen = Dot(sun, round.target.outward) > 0.0 && IsThrough(round.box, sun);
        }
        const bool isPassed = IsSeen(view, round.box, curve);
        EXPECT_TRUE(isPassed || !isSeen) << i;
        seen += isSeen ? 1 : 0;
        passed += isPassed ? 1 : 0;
    }
    EXPECT_GT(seen, kRounds / 20);
    EXPECT_LT(passed, 2 * seen) << "what passes is mostly what should";
}

// At noon the path is at its least: a flat box just there.
TEST(SkyWindow, KnowsThatNoonLiesBetweenTheSides) {
    const double declination = 20.0 * kDegree;
    SunTarget target;
    target.outward = {1.0, 0.0, 0.0};
    const SunCurve curve = CurveOf(declination);
    SkyWindow view(target, curve);
    view.Want(TangentsOf(9.0, 15.0));
    const double at = std::tan(declination);
    EXPECT_TRUE(IsSeen(view, {{0.999, -0.5, at - 0.001}, {1.0, 0.5, at + 0.001}}, curve));
    EXPECT_FALSE(IsSeen(view, {{0.999, -0.5, at - 0.02}, {1.0, 0.5, at - 0.01}}, curve));
    EXPECT_FALSE(IsSeen(view, {{-1.0, -0.5, at - 0.001}, {-0.999, 0.5, at + 0.001}}, curve)) << "behind";
}

TEST(SkyWindow, AsksOnlyForWhatIsWanted) {
    SunTarget target;
    target.outward = {1.0, 0.0, 0.0};
    const SunCurve curve = CurveOf(0.0);
    SkyWindow view(target, curve);
    const Box atTwo = {{0.99, 0.5, -0.1}, {1.0, 0.65, 0.1}};  // from 13:47 to 14:12
    view.Want(TangentsOf(9.0, 13.5));
    EXPECT_FALSE(IsSeen(view, atTwo, curve));
    view.Want(TangentsOf(9.0, 14.1));
    EXPECT_TRUE(IsSeen(view, atTwo, curve));
}

// A wall 1 away and as high as the sun stands at noon: a little lower, and it is passed over although the box around
// it, in these tilted axes, is in the sun's way.
TEST(SkyWindow, PassesOverWhatIsTooLow) {
    const double declination = -20.0 * kDegree;
    SunTarget target;
    target.outward = {1.0, 0.0, 0.0};
    const SunCurve curve = CurveOf(declination);
    const Vector3 sun = {1.0, 0.0, std::tan(declination)};
    const Box around = {{0.9, -0.1, -0.5}, {1.1, 0.1, 0.5}};
    SkyWindow view(target, curve);
    view.Want(TangentsOf(11.5, 12.5));
    const double height = 0.9 * Dot(sun, curve.up);  // where the path comes to the box
    const auto isSeen = [&](double top) { return view.Look(WideTree({around}, {top}).At(0)).lanes != 0; };
    EXPECT_TRUE(isSeen(height + 0.001));
    EXPECT_FALSE(isSeen(height - 0.05));
}

// Below the horizon the way goes down, and the farthest of a box is what it may still reach.
TEST(SkyWindow, LooksDownToTheFarEndOfBoxes) {
    SunTarget target;
    target.outward = {1.0, 0.0, 0.0};
    const SunCurve curve{std::tan(-20.0 * kDegree), {0.0, 0.0, 1.0}, std::tan(kTurn / 6.0)};
    SkyWindow view(target, curve);
    view.Want(TangentsOf(11.5, 12.5));
    EXPECT_TRUE(IsSeen(view, {{0.1, -1.0, -3.0}, {5.0, 1.0, -1.0}}, curve));
}

// Beyond what single precision holds everything is let pass.
TEST(SkyWindow, SeesWhatIsTooFarToTell) {
    const SunCurve curve = CurveOf(-20.0 * kDegree);
    SunTarget target;
    target.outward = {1.0, 0.0, 0.0};
    SkyWindow near(target, curve);
    near.Want(TangentsOf(9.0, 15.0));
    EXPECT_TRUE(IsSeen(near, {{-1e40, 1e40, 1e40}, {-1e39, 1e41, 1e41}}, curve));
    target.middle = {1e30, 0.0, 0.0};
    SkyWindow far(target, curve);
    far.Want(TangentsOf(9.0, 15.0));
    EXPECT_TRUE(IsSeen(far, {{0.0, 0.0, 0.0}, {1.0, 1.0, 1.0}}, curve));
}

// Whatever the processor has, the answer is the same to the bit.
TEST(SkyWindow, LooksAlikeInWideAndNarrowRegisters) {
    std::mt19937 random(12);
    for (int i = 0; i < 2'000; ++i) {
        const Round first(random);
        std::vector<Box> boxes;
        std::vector<double> tops;
        const SunCurve curve = CurveOf(first.declination);
        for (std::size_t count = 1 + random() % 8; boxes.size() < count;) {
            boxes.push_back(Round(random).box);
            tops.push_back(TopOf(boxes.back(), curve.up));
        }
        SkyWindow view(first.target, curve);
        view.Want(TangentsOf(first.start, first.end));
        const WideTree tree(boxes, tops);
        const SeenBoxes one = view.Look(tree.At(0));
        const SeenBoxes other = view.LookPlainly(tree.At(0));
        ASSERT_EQ(one.lanes, other.lanes);
        EXPECT_EQ(std::memcmp(one.least, other.least, sizeof one.least), 0);
        EXPECT_EQ(std::memcmp(one.most, other.most, sizeof one.most), 0);
    }
}

}  // namespace
