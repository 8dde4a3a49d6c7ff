// The vector: what it is made from, when it is normalised, and to which bits.
#include "geometry/QcGeVector3dEX.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "Bits.h"

namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(QcGeVector3dEX, IsZeroByDefault) {
    EXPECT_TRUE(SameBits(QcGeVector3dEX(), QcGePoint(0, 0, 0)));
}

TEST(QcGeVector3dEX, HoldsThreeDoublesAndNothingElse) {
    static_assert(!std::is_polymorphic_v<QcGeVector3dEX>);
    static_assert(sizeof(QcGeVector3dEX) == 3 * sizeof(double));
    const QcGeVector3dEX v(1, 2, 3);
    EXPECT_EQ(v.x, 1);
    EXPECT_EQ(v.y, 2);
    EXPECT_EQ(v.z, 3);
    EXPECT_EQ(reinterpret_cast<const double*>(&v), &v.x);
    EXPECT_EQ(&v.x + 1, &v.y);
    EXPECT_EQ(&v.y + 1, &v.z);
}

TEST(QcGeVector3dEX, ConvertsFreelyToAndFromThePlatformsTypes) {
    static_assert(std::is_convertible_v<QcGePoint, QcGeVector3dEX>);
    static_assert(std::is_convertible_v<QcGeVector3d, QcGeVector3dEX>);
    static_assert(std::is_convertible_v<QcGeVector3dEX, QcGePoint>);
    static_assert(std::is_convertible_v<QcGeVector3dEX, QcGeVector3d>);
    const QcGeVector3dEX fromPoint = QcGePoint(1, 2, 3);
    const QcGeVector3dEX fromVector = QcGeVector3d(4, 5, 6);
    const QcGePoint point = fromPoint;
    const QcGeVector3d vector = fromVector;
    EXPECT_TRUE(SameBits(point, QcGePoint(1, 2, 3)));
    EXPECT_TRUE(SameBits(vector, QcGePoint(4, 5, 6)));
}

TEST(QcGeVector3dEX, CopiesAlsoFromOneThatMayChange) {
    QcGeVector3dEX original(1, 2, 3);
    const QcGeVector3dEX copy(original);
    original.x = 9;
    EXPECT_TRUE(SameBits(copy, QcGePoint(1, 2, 3)));
}

TEST(QcGeVector3dEX, ReverseNegatesEachComponent) {
    QcGeVector3dEX v(1, -2, 0);
    v.reverse();
    EXPECT_TRUE(SameBits(v, QcGePoint(-1, 2, -0.0)));
    v.reverse();
    EXPECT_TRUE(SameBits(v, QcGePoint(1, -2, 0)));
}

TEST(QcGeVector3dEX, ZeroIsNotNormalised) {
    QcGeVector3dEX v;
    EXPECT_FALSE(v.Normalize());
    EXPECT_TRUE(SameBits(v, QcGePoint(0, 0, 0)));
}

TEST(QcGeVector3dEX, LengthsBelowTheToleranceAreNotNormalised) {
    for (const double length : {5e-13, std::nextafter(1e-12, 0.0), 1e-200, std::numeric_limits<double>::denorm_min()}) {
        QcGeVector3dEX v(0, length, 0);
        EXPECT_FALSE(v.Normalize()) << length;
        EXPECT_TRUE(SameBits(v, QcGePoint(0, length, 0)));
    }
}

TEST(QcGeVector3dEX, ALengthOfTheToleranceIsNormalised) {
    for (const double length : {1e-12, std::nextafter(1e-12, 1.0)}) {
        QcGeVector3dEX v(0, 0, -length);
        EXPECT_TRUE(v.Normalize());
        EXPECT_TRUE(SameBits(v, QcGePoint(0, 0, -length * (1.0 / length)))) << length;
    }
}

TEST(QcGeVector3dEX, AUnitVectorStaysBitForBit) {
    QcGeVector3dEX v(1, 0, 0);
    EXPECT_TRUE(v.Normalize());
    EXPECT_TRUE(SameBits(v, QcGePoint(1, 0, 0)));
}

// The nearest doubles on both sides of "1 within 1e-12", as the subtraction sees them.
TEST(QcGeVector3dEX, ALengthWithinTheToleranceOfOneStaysBitForBit) {
    for (const double towards : {0.0, 2.0}) {
        double edge = towards == 0.0 ? 1.0 - 1e-12 : 1.0 + 1e-12;
        while (std::fabs(edge - 1.0) <= 1e-12)
            edge = std::nextafter(edge, towards);
        const double inside = std::nextafter(edge, 1.0);
        ASSERT_LE(std::fabs(inside - 1.0), 1e-12);

        QcGeVector3dEX kept(0, inside, 0);
        EXPECT_TRUE(kept.Normalize());
        EXPECT_EQ(Bits(kept.y), Bits(inside));

        QcGeVector3dEX scaled(0, edge, 0);
        EXPECT_TRUE(scaled.Normalize());
        EXPECT_EQ(Bits(scaled.y), Bits(edge * (1.0 / edge)));
        EXPECT_NE(Bits(scaled.y), Bits(edge));
    }
}

TEST(QcGeVector3dEX, ScalesByOneReciprocalAndThreeProducts) {
    RandomNumbers random(1);
    int differsFromDivision = 0;
    for (int i = 0; i < 2000; ++i) {
        const QcGePoint p = random.Point(1000);
        QcGeVector3dEX v(p);
        ASSERT_TRUE(v.Normalize());
        const double length = std::sqrt(p.x * p.x + p.y * p.y + p.z * p.z);
        const double scale = 1.0 / length;
        ASSERT_TRUE(SameBits(v, QcGePoint(p.x * scale, p.y * scale, p.z * scale))) << i;
        differsFromDivision += !SameBits(v, QcGePoint(p.x / length, p.y / length, p.z / length));
    }
    EXPECT_GT(differsFromDivision, 100) << "the numbers tell the two ways apart";
}

TEST(QcGeVector3dEX, NormalisesLengthsWhoseSquaresOverflow) {
    QcGeVector3dEX v(3e200, 4e200, 0);
    EXPECT_TRUE(v.Normalize());
    EXPECT_NEAR(v.x, 0.6, 1e-15);
    EXPECT_NEAR(v.y, 0.8, 1e-15);
}

TEST(QcGeVector3dEX, ALengthThatIsNotANumberPassesBothTests) {
    QcGeVector3dEX v(kNaN, 1, 2);
    EXPECT_TRUE(v.Normalize());
    EXPECT_TRUE(std::isnan(v.x) && std::isnan(v.y) && std::isnan(v.z));
}

TEST(QcGeVector3dEX, AnInfiniteLengthIsDividedOut) {
    QcGeVector3dEX v(kInfinite, 1, 2);
    EXPECT_TRUE(v.Normalize());
    EXPECT_TRUE(std::isnan(v.x));
    EXPECT_EQ(v.y, 0);
    EXPECT_EQ(v.z, 0);
}

}  // namespace
