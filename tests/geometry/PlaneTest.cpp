// Planes: their equation, when two are equal, and the three relations of points with their tolerance.
#include "geometry/Plane.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "Bits.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

PlaneEquation EquationOf(const Plane& plane) {
    PlaneEquation e{};
    plane.GetEquation(e.a, e.b, e.c, e.d);
    return e;
}

void ExpectBits(const PlaneEquation& e, double a, double b, double c, double d) {
    EXPECT_EQ(Bits(e.a), Bits(a));
    EXPECT_EQ(Bits(e.b), Bits(b));
    EXPECT_EQ(Bits(e.c), Bits(c));
    EXPECT_EQ(Bits(e.d), Bits(d));
}

TEST(Plane, HoldsFourDoublesAndBeginsWithoutValues) {
    static_assert(!std::is_polymorphic_v<Plane>);
    static_assert(sizeof(Plane) == 4 * sizeof(double));
    static_assert(std::is_trivially_default_constructible_v<Plane>, "the default constructor must not store anything");
    SUCCEED();
}

TEST(Plane, StoresItsEquationUnchanged) {
    ExpectBits(EquationOf(Plane(2, -0.0, 1e300, 5e-324)), 2, -0.0, 1e300, 5e-324);
    Plane plane(1, 2, 3, 4);
    plane.SetEquation(5, 6, 7, -8);
    ExpectBits(EquationOf(plane), 5, 6, 7, -8);
}

TEST(Plane, GoesThroughAPointWithItsNormalAsItIs) {
    ExpectBits(EquationOf(Plane(QcGeVector3dEX(0, 0, 2), QcGePoint(5, 6, 7))), 0, 0, 2, -14);
    Plane plane(1, 1, 1, 1);
    QcGePoint point(1, 2, 3);
    plane.SetPlane({3, 0, 4}, point);
    ExpectBits(EquationOf(plane), 3, 0, 4, -15);
}

TEST(Plane, FormsItsConstantTermFromLeftToRight) {
    RandomNumbers random(3);
    int differs = 0;
    for (int i = 0; i < 2000; ++i) {
        const QcGePoint n = random.Point(1);
        const QcGePoint p = random.Point(1e4);
        const volatile double x = -n.x * p.x;
        const volatile double y = n.y * p.y;
        const volatile double z = n.z * p.z;
        const volatile double xy = x - y;
        ASSERT_EQ(Bits(EquationOf(Plane(QcGeVector3dEX(n), p)).d), Bits(xy - z));
        const volatile double yz = -y - z;
        differs += Bits(xy - z) != Bits(x + yz);
    }
    EXPECT_GT(differs, 100) << "the numbers tell the order";
}

TEST(Plane, ItsConstantTermKeepsTheSignsOfZeros) {
    // -1*0 - 0*0 - 0*0 = -0 - 0 - 0 = -0
    ExpectBits(EquationOf(Plane(QcGeVector3dEX(1, 0, 0), QcGePoint(0, 0, 0))), 1, 0, 0, -0.0);
}

TEST(Plane, CopiesAndAssignsAllFour) {
    Plane original(1, 2, 3, 4);
    const Plane copy(original);
    Plane assigned(0, 0, 0, 0);
    EXPECT_EQ(&(assigned = original), &assigned);
    original.SetEquation(9, 9, 9, 9);
    ExpectBits(EquationOf(copy), 1, 2, 3, 4);
    ExpectBits(EquationOf(assigned), 1, 2, 3, 4);
}

TEST(Plane, ComparesEquationsNotPlanes) {
    EXPECT_FALSE(Plane(2, 0, 0, -2) == Plane(1, 0, 0, -1));
    EXPECT_TRUE(Plane(2, 0, 0, -2) != Plane(1, 0, 0, -1));
    EXPECT_TRUE(Plane(2, 0, 0, -2) == Plane(2, 0, 0, -2));
    EXPECT_FALSE(Plane(2, 0, 0, -2) != Plane(2, 0, 0, -2));
}

// Each of the four on its own, at the tolerance and just below it, for planes and bare equations alike.
TEST(Plane, EqualityToleratesLessThanTheTolerance) {
    const double below = std::nextafter(1e-12, 0.0);
    for (int i = 0; i < 4; ++i) {
        for (const double sign : {1.0, -1.0}) {
            double values[4] = {0, 0, 0, 0};
            const auto plane = [&] { return Plane(values[0], values[1], values[2], values[3]); };
            const auto equation = [&] { return PlaneEquation{values[0], values[1], values[2], values[3]}; };
            const Plane zero(0, 0, 0, 0);
            values[i] = sign * below;
            EXPECT_TRUE(plane() == zero) << i;
            EXPECT_TRUE(equation() == EquationOf(zero)) << i;
            values[i] = sign * 1e-12;
            EXPECT_FALSE(plane() == zero) << i;
            EXPECT_TRUE(plane() != zero) << i;
            EXPECT_FALSE(equation() == EquationOf(zero)) << i;
            values[i] = kNaN;
            EXPECT_FALSE(plane() == plane()) << i;
            EXPECT_FALSE(equation() == equation()) << i;
        }
    }
}

struct Side {
    double value;
    bool isUp, isDown, isIn;
    RELATION3D relation;
};

TEST(Plane, TellsTheSidesByAnAbsoluteTolerance) {
    const double above = std::nextafter(1e-12, 1.0);
    const Side sides[] = {
        {1e-12, false, false, true, RELATION3D_ONPLANE}, {-1e-12, false, false, true, RELATION3D_ONPLANE},
        {above, true, false, false, RELATION3D_UPPLANE}, {-above, false, true, false, RELATION3D_DOWNPLANE},
        {0, false, false, true, RELATION3D_ONPLANE},     {5, true, false, false, RELATION3D_UPPLANE},
        {-5, false, true, false, RELATION3D_DOWNPLANE},  {kNaN, false, false, false, RELATION3D_ONPLANE},
    };
    for (const Side& side : sides) {
        Plane plane(0, 0, 1, 0);
        QcGePoint point(3, 4, side.value);
        EXPECT_EQ(plane.IsUpPlane(point), side.isUp) << side.value;
        EXPECT_EQ(plane.IsDownPlane(point), side.isDown) << side.value;
        EXPECT_EQ(plane.IsInPlane(point), side.isIn) << side.value;
        EXPECT_EQ(plane.GetPointPlaneRelation(point), side.relation) << side.value;
    }
}

TEST(Plane, TheToleranceGrowsWithTheNormal) {
    EXPECT_TRUE(Plane(0, 0, 1, 0).IsInPlane({0, 0, 0.9e-12}));
    EXPECT_TRUE(Plane(0, 0, 2, 0).IsUpPlane({0, 0, 0.9e-12}));
    EXPECT_TRUE(Plane(0, 0, 1e-13, 0).IsInPlane({0, 0, 9}));
}

TEST(Plane, AddsTheSideFromLeftToRightWithoutContraction) {
    RandomNumbers random(4);
    int differs = 0;
    for (int i = 0; i < 2000; ++i) {
        const QcGePoint n = random.Point(1);
        const QcGePoint p = random.Point(1e4);
        const double d = random.Next(-1e4, 1e4);
        const volatile double x = n.x * p.x;
        const volatile double y = n.y * p.y;
        const volatile double z = n.z * p.z;
        const volatile double xy = x + y;
        const volatile double xyz = xy + z;
        ASSERT_EQ(Bits(Plane(n.x, n.y, n.z, d).GetSide(p)), Bits(xyz + d));
        differs += Bits(xyz + d) != Bits(std::fma(n.x, p.x, std::fma(n.y, p.y, std::fma(n.z, p.z, d))));
    }
    EXPECT_GT(differs, 100) << "the numbers tell the two ways apart";
}

// Every comparison goes through the same side: also where only the order of adding decides.
TEST(Plane, TheOrderOfAddingDecidesARelation) {
    // (1e17 + -1e17) + 1e-3 + 0 = 1e-3, but 1e17 + (-1e17 + 1e-3) = 0.
    const Plane plane(1e17, -1e17, 1e-3, 0);
    EXPECT_EQ(plane.GetPointPlaneRelation({1, 1, 1}), RELATION3D_UPPLANE);
    EXPECT_TRUE(plane.IsUpPlane({1, 1, 1}));
    EXPECT_FALSE(plane.IsInPlane({1, 1, 1}));
}

TEST(Plane, RelationsHaveTheirValues) {
    EXPECT_EQ(static_cast<int>(RELATION3D_UPPLANE), 2);
    EXPECT_EQ(static_cast<int>(RELATION3D_DOWNPLANE), 3);
    EXPECT_EQ(static_cast<int>(RELATION3D_ONPLANE), 4);
    EXPECT_EQ(static_cast<int>(RELATION3D_UPFACE), 5);
    EXPECT_EQ(static_cast<int>(RELATION3D_DOWNFACE), 6);
    EXPECT_EQ(static_cast<int>(RELATION3D_ONFACE), 7);
    EXPECT_EQ(static_cast<int>(RELATION3D_CROSSFACE), 11);
}

}  // namespace
