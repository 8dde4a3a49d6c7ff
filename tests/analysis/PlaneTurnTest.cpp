// Turns of three points against fractions without rounding.
#include "analysis/PlaneTurn.h"

#include <gmpxx.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

bool TurnsLeftByFractions(const PlanePoint& a, const PlanePoint& b, const PlanePoint& c) {
    const mpq_class ax(a.x), ay(a.y), bx(b.x), by(b.y), cx(c.x), cy(c.y);
    return (bx - ax) * (cy - ay) - (by - ay) * (cx - ax) > 0;
}

class Dice {
public:
    double Within(double least, double most) { return std::uniform_real_distribution<double>(least, most)(m_random); }
    // Of any size between 1e-6 and 1e16, and either sign.
    double Number() { return std::pow(10.0, Within(-6.0, 16.0)) * (Within(-1.0, 1.0) < 0.0 ? -1.0 : 1.0); }
    PlanePoint Point() { return {Number(), Number()}; }

private:
    std::mt19937 m_random{20};
};

}  // namespace

TEST(PlaneTurn, IsThatOfFractions) {
    Dice dice;
    int leftCount = 0;
    for (int i = 0; i < 20000; ++i) {
        const PlanePoint a = dice.Point(), b = dice.Point();
        // As near to the line through both as rounding lets it be, every other time.
        const double part = dice.Within(-2.0, 3.0);
        const PlanePoint on = {a.x + part * (b.x - a.x), a.y + part * (b.y - a.y)};
        const PlanePoint c = i % 2 == 0 ? on : dice.Point();
        EXPECT_EQ(TurnsLeft(a, b, c), TurnsLeftByFractions(a, b, c)) << i;
        EXPECT_EQ(TurnsLeft(b, c, a), TurnsLeft(a, b, c)) << i;
        leftCount += TurnsLeft(a, b, c) ? 1 : 0;
    }
    EXPECT_GT(leftCount, 5000);
    EXPECT_LT(leftCount, 15000);
}

TEST(PlaneTurn, OfPointsInOneLineIsNone) {
    for (const double far : {3.0, 3e8, 3e15}) {
        EXPECT_FALSE(TurnsLeft({0.0, 0.0}, {1.0, 2.0}, {far, 2.0 * far}));
        EXPECT_FALSE(TurnsLeft({far, 2.0 * far}, {1.0, 2.0}, {0.0, 0.0}));
        EXPECT_FALSE(TurnsLeft({1.0, 2.0}, {1.0, 2.0}, {far, far}));
        EXPECT_FALSE(TurnsLeft({far, 2.0}, {far, 7.0}, {far, -far}));
    }
}

// Beside a point as far away as what lies nearly in a window's plane, points a thousandth from each other still differ.
TEST(PlaneTurn, SeesNearPointsBesideFarOnes) {
    const PlanePoint far = {-6e14, 4.9e14};
    EXPECT_TRUE(TurnsLeft(far, {-2.4, 1.9}, {-1.8, 1.9}));
    EXPECT_TRUE(TurnsLeft(far, {0.0, 0.0}, {0.006, -0.0048}));
    EXPECT_FALSE(TurnsLeft(far, {0.0, 0.0}, {0.006, -0.005}));
}
