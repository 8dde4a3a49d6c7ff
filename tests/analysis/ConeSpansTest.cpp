// What is left of the asked hours behind planes: against the planes' sides at many moments, and at the cases that an
// equation of the second degree gets wrong.
#include "analysis/ConeSpans.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace {

struct Plane {
    double a, b, c;

    double SideAt(double u) const { return a * std::sqrt(1.0 + u * u) + b + c * u; }
};

std::vector<TangentSpan> SpansBehind(const std::vector<Plane>& planes, TangentSpan asked) {
    ConeSpans cone;
    cone.Restart(AskedSpan(asked));
    std::vector<TangentSpan> spans;
    for (const Plane& plane : planes)
        if (!cone.Cut(plane.a, plane.b, plane.c))
            return spans;
    cone.ForEach([&](TangentSpan span) { spans.push_back(span); });
    return spans;
}

bool Holds(const std::vector<TangentSpan>& spans, double u) {
    for (const TangentSpan& span : spans)
        if (span.least <= u && u <= span.most)
            return true;
    return false;
}

Plane RandomPlane(std::mt19937& random) {
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    if (random() % 2 == 0)
        return {0.5 * unit(random), unit(random), unit(random)};
    // One that dips below 0 or rises above it, more likely than not.
    return {1.0, -1.0 - 0.5 * std::abs(unit(random)), 0.3 * unit(random)};
}

// Where a plane is passed, as hour angles have it: cos(H - m) = -a / hypot(b, c).
std::vector<double> RootsOf(const Plane& plane) {
    const double cosine = -plane.a / std::hypot(plane.b, plane.c);
    if (std::abs(cosine) >= 1.0)
        return {};
    const double middle = std::atan2(plane.c, plane.b);
    std::vector<double> roots;
    for (const double angle : {middle - std::acos(cosine), middle + std::acos(cosine)})
        if (std::cos(angle) > 0.5)
            roots.push_back(std::tan(angle));
    return roots;
}

// What is asked, between random moments or between such at which planes are passed: shadows of faces with a common edge
// end where others begin.
TangentSpan RandomAsked(std::mt19937& random, const std::vector<Plane>& planes) {
    std::uniform_real_distribution<double> unit(-1.7, 1.7);
    std::vector<double> ends;
    for (const Plane& plane : planes)
        for (const double root : RootsOf(plane))
            ends.push_back(root);
    while (ends.size() < 4)
        ends.push_back(unit(random));
    std::shuffle(ends.begin(), ends.end(), random);
    return {std::min(ends[0], ends[1]), std::max(ends[0], ends[1])};
}

TEST(ConeSpans, AreWhereAllPlanesHaveTheSunInside) {
    std::mt19937 random(3);
    int inside = 0;
    int parts = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::vector<Plane> planes;
        for (std::size_t count = 1 + random() % 4; planes.size() < count;)
            planes.push_back(RandomPlane(random));
        const TangentSpan asked = RandomAsked(random, planes);
        const std::vector<TangentSpan> spans = SpansBehind(planes, asked);
        parts += spans.size() > 1 ? 1 : 0;
        for (std::size_t i = 0; i + 1 < spans.size(); ++i)
            EXPECT_LE(spans[i].most, spans[i + 1].least);
        for (int step = 1; step < 100; ++step) {
            const double u = asked.least + (asked.most - asked.least) * step / 100.0;
            double least = 1.0;
            for (const Plane& plane : planes)
                least = std::min(least, plane.SideAt(u));
            if (std::abs(least) < 1e-9)
                continue;
            ASSERT_EQ(Holds(spans, u), least > 0.0) << "round " << round << ", tangent " << u;
            inside += least > 0.0 ? 1 : 0;
        }
    }
    EXPECT_GT(inside, 100'000);
    EXPECT_GT(parts, 100) << "gaps must occur";
}

// w = sqrt(1 + u^2) is 5/3 at u = -4/3 and at 4/3.
TEST(ConeSpans, HaveAGapWhereAConvexSideDips) {
    const std::vector<TangentSpan> spans = SpansBehind({{3.0, -5.0, 0.0}}, {-1.5, 1.5});
    ASSERT_EQ(spans.size(), 2U);
    EXPECT_EQ(spans[0].least, -1.5);
    EXPECT_DOUBLE_EQ(spans[0].most, -4.0 / 3.0);
    EXPECT_DOUBLE_EQ(spans[1].least, 4.0 / 3.0);
    EXPECT_EQ(spans[1].most, 1.5);
}

TEST(ConeSpans, HaveAMiddleWhereAConcaveSideRises) {
    const std::vector<TangentSpan> spans = SpansBehind({{-3.0, 5.0, 0.0}}, {-1.5, 1.5});
    ASSERT_EQ(spans.size(), 1U);
    EXPECT_DOUBLE_EQ(spans[0].least, -4.0 / 3.0);
    EXPECT_DOUBLE_EQ(spans[0].most, 4.0 / 3.0);
}

// b + c u alone: of an equinox, and of planes that hold the pole.
TEST(ConeSpans, KnowPlanesThroughThePole) {
    const std::vector<TangentSpan> spans = SpansBehind({{0.0, -1.0, 2.0}}, {-1.0, 1.0});
    ASSERT_EQ(spans.size(), 1U);
    EXPECT_DOUBLE_EQ(spans[0].least, 0.5);
    EXPECT_EQ(spans[0].most, 1.0);
}

// The other root is a quarter of a turn away: a = c, so that the equation has no square. With a = c = 1 and b = -2,
// w + u = 2 at u = 3/4.
TEST(ConeSpans, KnowPlanesWithARootAtTheEndOfTheSky) {
    const std::vector<TangentSpan> spans = SpansBehind({{1.0, -2.0, 1.0}}, {-1.5, 1.5});
    ASSERT_EQ(spans.size(), 1U);
    EXPECT_DOUBLE_EQ(spans[0].least, 0.75);
}

// The plane's other root lies at the end of the sky, or so near to it that rounding tells its side.
TEST(ConeSpans, ChooseTheRootThatLiesBetweenTheEnds) {
    for (const double s : {1.0, -1.0, 0.3, -7.0})
        for (const double hair : {0.0, 1e-16, -1e-16, 1e-13, -1e-13}) {
            const Plane plane = {s, -0.5 * s, -s * (1.0 + hair)};
            const std::vector<TangentSpan> spans = SpansBehind({plane}, {-1.5, 1.5});
            ASSERT_EQ(spans.size(), 1U);
            // w - u falls from 3.3 to 0.3, and is 1/2 at 3/4.
            EXPECT_NEAR(s > 0.0 ? spans[0].most : spans[0].least, 0.75, 1e-12);
            EXPECT_EQ(s > 0.0 ? spans[0].least : spans[0].most, s > 0.0 ? -1.5 : 1.5);
            const std::vector<TangentSpan> before = SpansBehind({plane}, {-1.5, 0.5});
            EXPECT_EQ(before.empty(), s < 0.0) << "all of it is on one side";
        }
}

// A vertical edge due south: the plane holds the pole but for a hair, and the sun goes through it at noon.
TEST(ConeSpans, KeepTheRootOfPlanesThatNearlyHoldThePole) {
    for (const double hair : {1e-9, 1e-12, -1e-12, 1e-16}) {
        const std::vector<TangentSpan> spans = SpansBehind({{hair, -hair, 1.0}}, {-1.0, 1.0});
        ASSERT_EQ(spans.size(), 1U) << hair;
        EXPECT_NEAR(spans[0].least, 0.0, 1e-15) << hair;
    }
}

TEST(ConeSpans, AreNoneBehindAPlaneThatIsNeverPassed) {
    EXPECT_TRUE(SpansBehind({{-1.0, 0.5, 0.0}}, {-1.0, 1.0}).empty());
    EXPECT_EQ(SpansBehind({{1.0, -0.5, 0.0}}, {-1.0, 1.0}).size(), 1U);
}

}  // namespace
