// Points, vectors, faces and angles.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "platform/geometry/GetStdAngle.h"
#include "platform/geometry/QcGeBasePlane.h"
#include "platform/geometry/QcGeFace.h"
#include "platform/geometry/QcGePoint.h"
#include "platform/geometry/QcGeVector3d.h"
#include "platform/geometry/Tolerance.h"

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(QcGePoint, IsTheOriginByDefault) {
    const QcGePoint point;
    EXPECT_EQ(point.x, 0.0);
    EXPECT_EQ(point.y, 0.0);
    EXPECT_EQ(point.z, 0.0);
}

TEST(QcGePoint, HasTheLengthOfItsVector) {
    EXPECT_EQ(QcGePoint(2, 3, 6).Length3d(), 7.0);
    EXPECT_EQ(QcGePoint(-1, 2, -2).Length3d(), 3.0);
    EXPECT_EQ(QcGePoint().Length3d(), 0.0);
}

TEST(QcGePoint, HasALengthWhereTheSquaresHaveNone) {
    EXPECT_DOUBLE_EQ(QcGePoint(3e200, 4e200, 0).Length3d(), 5e200);
    EXPECT_DOUBLE_EQ(QcGePoint(0, 3e-200, 4e-200).Length3d(), 5e-200);
    EXPECT_EQ(QcGePoint(0, -kInfinity, 0).Length3d(), kInfinity);
    EXPECT_TRUE(std::isnan(QcGePoint(kNan, 0, 0).Length3d()));
}

TEST(QcGePoint, ComparesExactly) {
    const double next = std::nextafter(1.0, 2.0);
    EXPECT_TRUE(QcGePoint(1, 2, 3) == QcGePoint(1, 2, 3));
    EXPECT_FALSE(QcGePoint(1, 2, 3) != QcGePoint(1, 2, 3));
    EXPECT_TRUE(QcGePoint(1, 0, 0) != QcGePoint(next, 0, 0));
    EXPECT_TRUE(QcGePoint(0, 1, 0) != QcGePoint(0, next, 0));
    EXPECT_TRUE(QcGePoint(0, 0, 1) != QcGePoint(0, 0, next));
    EXPECT_TRUE(QcGePoint(0.0, 0, 0) == QcGePoint(-0.0, 0, 0));
    EXPECT_TRUE(QcGePoint(kNan, 0, 0) != QcGePoint(kNan, 0, 0));
    EXPECT_FALSE(QcGePoint(kNan, 0, 0) == QcGePoint(kNan, 0, 0));
}

TEST(QcGePoint, IsOrderedByXThenYThenZ) {
    EXPECT_TRUE(QcGePoint(2, 0, 0) > QcGePoint(1, 9, 9));
    EXPECT_FALSE(QcGePoint(1, 9, 9) > QcGePoint(2, 0, 0));
    EXPECT_TRUE(QcGePoint(1, 2, 0) > QcGePoint(1, 1, 9));
    EXPECT_FALSE(QcGePoint(1, 1, 9) > QcGePoint(1, 2, 0));
    EXPECT_TRUE(QcGePoint(1, 1, 2) > QcGePoint(1, 1, 1));
    EXPECT_FALSE(QcGePoint(1, 1, 1) > QcGePoint(1, 1, 1));
    EXPECT_TRUE(QcGePoint(std::nextafter(1.0, 2.0), 0, 0) > QcGePoint(1, 9, 9));
}

TEST(QcGeVector3d, IsTheDifferenceOfPoints) {
    const QcGeVector3d vector = QcGePoint(5, 7, 9) - QcGePoint(1, 2, 3);
    EXPECT_TRUE(vector == QcGePoint(4, 5, 6));
    EXPECT_EQ((QcGePoint(2, 3, 6) - QcGePoint()).Length(), 7.0);
}

TEST(QcGeVector3d, TakesTheCoordinatesOfAPoint) {
    EXPECT_TRUE(QcGeVector3d(QcGePoint(1, 2, 3)) == QcGeVector3d(1, 2, 3));
    EXPECT_TRUE(QcGeVector3d() == QcGePoint());
}

TEST(QcGeVector3d, MultipliesToTheRightHandedCrossProduct) {
    const QcGeVector3d x(1, 0, 0);
    const QcGeVector3d y(0, 1, 0);
    const QcGeVector3d z(0, 0, 1);
    EXPECT_TRUE(x * y == z);
    EXPECT_TRUE(y * z == x);
    EXPECT_TRUE(z * x == y);
    EXPECT_TRUE(y * x == QcGeVector3d(0, 0, -1));
    EXPECT_TRUE(QcGeVector3d(1, 2, 3) * QcGePoint(4, 5, 6) == QcGePoint(-3, 6, -3));
}

TEST(QcGeFace, HasZeroCornersAndFlagsByDefault) {
    const QcGeFace face;
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(face.m_pt[i] == QcGePoint());
        EXPECT_EQ(face.m_flag[i], 0);
    }
}

TEST(QcGeFace, IsATriangleWhenTheLastSlotEqualsTheFirst) {
    QcGeFace face;
    EXPECT_TRUE(face.IsTriangle());
    face.m_pt[0] = face.m_pt[3] = QcGePoint(1, 2, 3);
    EXPECT_TRUE(face.IsTriangle());
    face.m_pt[3].z = std::nextafter(3.0, 4.0);
    EXPECT_FALSE(face.IsTriangle());
}

TEST(QcGeFace, CopiesCornersAndFlags) {
    QcGeFace face;
    face.m_pt[2] = QcGePoint(1, 2, 3);
    face.m_flag[1] = 200;
    QcGeFace copy(face);
    EXPECT_TRUE(copy.m_pt[2] == QcGePoint(1, 2, 3));
    EXPECT_EQ(copy.m_flag[1], 200);
    copy = QcGeFace();
    EXPECT_TRUE(copy.m_pt[2] == QcGePoint());
    EXPECT_EQ(copy.m_flag[1], 0);
}

TEST(QcGeFace, IsDestroyedThroughItsBase) {
    struct Derived : QcGeFace {
        explicit Derived(bool& gone) : m_gone(gone) {}
        ~Derived() override { m_gone = true; }
        bool& m_gone;
    };
    bool gone = false;
    const QcGeFace* face = new Derived(gone);
    delete face;
    EXPECT_TRUE(gone);
}

TEST(QcGeBasePlane, IsZeroByDefault) {
    const QcGeBasePlane plane;
    EXPECT_TRUE(plane.a == 0.0 && plane.b == 0.0 && plane.c == 0.0 && plane.d == 0.0);
}

TEST(Tolerance, IsAMillionth) {
    EXPECT_EQ(g_fZero, 1e-6);
}

TEST(GetStdAngle, KeepsAnglesWithinOneTurn) {
    for (const double angle : {0.0, 1e-300, 0.5, kPi, 6.28, std::nextafter(2 * kPi, 0.0)})
        EXPECT_EQ(GetStdAngle(angle), angle);
}

TEST(GetStdAngle, BringsOtherAnglesIntoTheTurn) {
    EXPECT_EQ(GetStdAngle(2 * kPi), 0.0);
    EXPECT_EQ(GetStdAngle(-2 * kPi), 0.0);
    EXPECT_NEAR(GetStdAngle(-kPi / 2), 1.5 * kPi, 1e-15);
    EXPECT_NEAR(GetStdAngle(5 * kPi), kPi, 1e-14);
    EXPECT_NEAR(GetStdAngle(-5 * kPi), kPi, 1e-14);
}

TEST(GetStdAngle, PointsTheSameWay) {
    for (int i = -1000; i <= 1000; ++i) {
        const double angle = i * 0.37;
        const double standard = GetStdAngle(angle);
        EXPECT_GE(standard, 0.0);
        EXPECT_LT(standard, 2 * kPi);
        EXPECT_NEAR(std::sin(standard), std::sin(angle), 1e-12) << angle;
        EXPECT_NEAR(std::cos(standard), std::cos(angle), 1e-12) << angle;
    }
}

TEST(GetStdAngle, GivesZeroForNegativeAnglesTooSmallToMatter) {
    for (const double angle : {-0.0, -1e-17, -1e-300, -std::numeric_limits<double>::denorm_min()}) {
        EXPECT_EQ(GetStdAngle(angle), 0.0);
        EXPECT_FALSE(std::signbit(GetStdAngle(angle)));
    }
    EXPECT_LT(GetStdAngle(-1e-15), 2 * kPi);
    EXPECT_GT(GetStdAngle(-1e-15), 6.28);
}

TEST(GetStdAngle, EndsForHugeAngles) {
    for (const double angle : {1e300, -1e300, std::numeric_limits<double>::max()}) {
        EXPECT_GE(GetStdAngle(angle), 0.0);
        EXPECT_LT(GetStdAngle(angle), 2 * kPi);
    }
}

TEST(GetStdAngle, GivesZeroForWhatIsNotFinite) {
    for (const double angle : {kInfinity, -kInfinity, kNan})
        EXPECT_EQ(GetStdAngle(angle), 0.0);
}

}  // namespace
