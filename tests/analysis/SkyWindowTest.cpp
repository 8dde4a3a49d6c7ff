// No box that the sun is seen through may be passed over.
#include "analysis/SkyWindow.h"

#include <gtest/gtest.h>

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
        SkyWindow view(round.target, std::sin(round.declination), std::cos(round.declination), 0.0);
        view.Want(SunPeriod{round.start, round.end});
        bool isSeen = false;
        for (int step = 0; step <= 60 && !isSeen; ++step) {
            const Vector3 sun = round.SunAt(round.start + (round.end - round.start) * step / 60.0);
            isSeen = Dot(sun, round.target.outward) > 0.0 && IsThrough(round.box, sun);
        }
        const bool isPassed = view.Reaches(round.box);
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
    SkyWindow view(target, std::sin(declination), std::cos(declination), 0.0);
    view.Want(SunPeriod{9.0, 15.0});
    const double at = std::tan(declination);
    EXPECT_TRUE(view.Reaches({{0.999, -0.5, at - 0.001}, {1.0, 0.5, at + 0.001}}));
    EXPECT_FALSE(view.Reaches({{0.999, -0.5, at - 0.02}, {1.0, 0.5, at - 0.01}}));
    EXPECT_FALSE(view.Reaches({{-1.0, -0.5, at - 0.001}, {-0.999, 0.5, at + 0.001}})) << "behind";
}

TEST(SkyWindow, AsksOnlyForWhatIsWanted) {
    SunTarget target;
    target.outward = {1.0, 0.0, 0.0};
    SkyWindow view(target, 0.0, 1.0, 0.0);
    const Box atTwo = {{0.99, 0.5, -0.1}, {1.0, 0.65, 0.1}};  // from 13:47 to 14:12
    view.Want(SunPeriod{9.0, 13.5});
    EXPECT_FALSE(view.Reaches(atTwo));
    view.Want(HourSpans::Of({{9.0, 13.5}, {14.0, 14.1}}));
    EXPECT_TRUE(view.Reaches(atTwo));
    view.Want({});
    EXPECT_FALSE(view.Reaches(atTwo));
}

}  // namespace
