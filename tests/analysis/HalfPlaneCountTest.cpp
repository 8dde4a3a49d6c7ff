// How many points lie on each side of a line.
#include "analysis/HalfPlaneCount.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

TEST(HalfPlaneCount, CountsLikeALookAtEachPoint) {
    std::mt19937 random(3);
    // Whole numbers, so that many points lie on the line, and many in one place.
    std::uniform_int_distribution<int> at(-20, 20);
    for (const std::size_t count : {0U, 1U, 16U, 17U, 1000U, 5000U}) {
        std::vector<Vector3> points;
        for (std::size_t i = 0; i < count; ++i)
            points.push_back({1e8 + at(random), at(random) / 4.0, at(random) * 1e9});
        const HalfPlaneCount counts(points);
        for (int turn = 0; turn < 24; ++turn) {
            const double angle = turn * 0.2617993877991494;
            const Vector3 normal{std::cos(angle), std::sin(angle), 0.0};
            const Vector3 place{1e8 + at(random), at(random) / 4.0, 5.0};
            std::size_t before = 0, behind = 0;
            for (const Vector3& point : points) {
                const double away = (point.x - place.x) * normal.x + (point.y - place.y) * normal.y;
                before += away > 0.3 ? 1 : 0;
                behind += away < -0.3 ? 1 : 0;
            }
            const HalfPlaneCount::Sides sides = counts.Count(place, normal, 0.3);
            EXPECT_EQ(sides.before, before);
            EXPECT_EQ(sides.behind, behind);
        }
    }
}
