// Sums of products round after each step and from left to right, everywhere: with inputs for which a fused or reordered
// sum would give not only other bits but another answer.
#include <gtest/gtest.h>

#include <cmath>

#include "Bits.h"
#include "geometry/Cylinder.h"
#include "geometry/GetFaceNormal.h"
#include "geometry/QcGeFace3dEX.h"

namespace {

// x y - y x is 0 when both products are rounded. Where one of them goes unrounded into the sum, what is left is that
// product's rounding error, which the factor lifts far above all tolerances.
constexpr double kLift = 0x1p80;

// A direction of unit length in the plane of x and y, whose product x y does not fit into a double.
QcGeVector3dEX AwkwardDirection(RandomNumbers& random) {
    for (;;) {
        QcGeVector3dEX direction(random.Next(0.1, 1), random.Next(0.1, 1), 0);
        direction.Normalize();
        const bool isUnit = std::fabs(direction.Length3d() - 1.0) <= 1e-12;
        if (isUnit && std::fma(direction.x, direction.y, -(direction.x * direction.y)) != 0)
            return direction;
    }
}

QcGeVector3dEX LiftedNormal(const QcGeVector3dEX& direction) {
    return {direction.y * kLift, -direction.x * kLift, 0};
}

QcGeFace3dEX FaceAtOrigin(const QcGeVector3dEX& normal) {
    QcGeFace3dEX face({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, true);
    face.SetNormal(normal);
    return face;
}

TEST(RoundingOrder, ProductsAreRoundedBeforeTheyAreAddedInSidesOfFaces) {
    RandomNumbers random(31);
    for (int i = 0; i < 500; ++i) {
        const QcGeVector3dEX direction = AwkwardDirection(random);
        QcGeFace3dEX face = FaceAtOrigin(LiftedNormal(direction));
        ASSERT_EQ(face.CompareWithPoint(direction), RELATION3D_ONFACE) << i;
        ASSERT_FALSE(face.IsPosLightOn(direction)) << i;
        ASSERT_FALSE(face.IsSunLightOn(direction, true)) << i;
        ASSERT_FALSE(face.IsSunLightOn({-direction.x, -direction.y, 0}, true)) << i;
    }
}

TEST(RoundingOrder, ProductsAreRoundedBeforeTheyAreAddedInSidesOfPlanes) {
    RandomNumbers random(32);
    for (int i = 0; i < 500; ++i) {
        const QcGeVector3dEX at = AwkwardDirection(random);
        const QcGeVector3dEX normal = LiftedNormal(at);
        const Plane plane(normal.x, normal.y, normal.z, 0);
        ASSERT_TRUE(plane.IsInPlane(at)) << i;
        ASSERT_FALSE(plane.IsUpPlane(at) || plane.IsDownPlane(at)) << i;
        ASSERT_EQ(plane.GetPointPlaneRelation(at), RELATION3D_ONPLANE) << i;
        // The same plane turned round: one of the two rounding errors is positive, and would let the face in.
        for (const double sign : {1.0, -1.0}) {
            Cylinder cylinder;
            cylinder.Append(Plane(sign * normal.x, sign * normal.y, 0, 0));
            ASSERT_FALSE(cylinder.IsSomeFacePointIn(QcGeFace3dEX(at, at, at, true))) << i;
        }
    }
}

TEST(RoundingOrder, ProductsAreRoundedBeforeTheyAreAddedInConstantTerms) {
    RandomNumbers random(33);
    for (int i = 0; i < 500; ++i) {
        const QcGeVector3dEX at = AwkwardDirection(random);
        QcGeFace3dEX face(at, {1, 0, 0}, {0, 1, 0}, true);
        face.SetNormal(LiftedNormal(at));
        PlaneEquation plane{};
        face.GetPlane().GetEquation(plane.a, plane.b, plane.c, plane.d);
        QcGeBasePlane base{1, 1, 1, 1};
        face.GetXPlane(base);
        ASSERT_EQ(face.GetPlaneEquation().d, 0) << i;
        ASSERT_EQ(plane.d, 0) << i;
        ASSERT_EQ(base.d, 0) << i;
    }
}

TEST(RoundingOrder, ProductsAreRoundedBeforeTheyAreAddedInTheMatrixDivisor) {
    RandomNumbers random(34);
    for (int i = 0; i < 500; ++i) {
        const QcGeVector3dEX light = AwkwardDirection(random);
        QcGeFace3dEX face = FaceAtOrigin(LiftedNormal(light));
        float m[4][4];
        face.CreateShadowMatrix(m, light, true);
        ASSERT_TRUE(std::isinf(m[0][0])) << "the divisor is 0 and not a rounding error";
        ASSERT_TRUE(std::isinf(m[1][0]));
    }
}

// Corners in one line: each component of the cross product is a difference of two equal products.
TEST(RoundingOrder, ProductsAreRoundedBeforeTheyAreSubtractedInNormals) {
    RandomNumbers random(35);
    for (int i = 0; i < 500; ++i) {
        const QcGePoint p = random.Point(100);
        QcGeFace face;
        face.m_pt[1] = p;
        face.m_pt[2] = {4 * p.x, 4 * p.y, 4 * p.z};
        const QcGeVector3d normal = GetFaceNormal(face);
        ASSERT_TRUE(std::isnan(normal.x) && std::isnan(normal.y) && std::isnan(normal.z)) << i;
    }
}

// Two large terms that cancel, then a small one: added from the right, the small one is lost.
TEST(RoundingOrder, SidesOfFacesAreAddedFromTheLeft) {
    const QcGePoint way(0.5, 0.5, std::sqrt(0.5));
    ASSERT_LE(std::fabs(way.Length3d() - 1.0), 1e-12) << "it is not scaled";
    QcGeFace3dEX face = FaceAtOrigin({1e20, -1e20, 1e-3});
    EXPECT_EQ(face.CompareWithPoint(way), RELATION3D_UPFACE);
    EXPECT_TRUE(face.IsPosLightOn(way));
    EXPECT_TRUE(face.IsSunLightOn({-way.x, -way.y, -way.z}, true));

    // And the small one first: added from the left it is lost.
    QcGeFace3dEX turned = FaceAtOrigin({1e-3, 1e20, -1e20});
    const QcGePoint turnedWay(std::sqrt(0.5), 0.5, 0.5);
    EXPECT_EQ(turned.CompareWithPoint(turnedWay), RELATION3D_ONFACE);
    EXPECT_FALSE(turned.IsPosLightOn(turnedWay));
    EXPECT_FALSE(turned.IsSunLightOn({-turnedWay.x, -turnedWay.y, -turnedWay.z}, true));
}

TEST(RoundingOrder, SidesInCylindersAreAddedFromTheLeft) {
    const QcGeFace3dEX speck({1, 1, 1}, {1, 1, 1}, {1, 1, 1}, true);
    Cylinder first;
    first.Append(Plane(1e20, -1e20, 1e-3, 0));
    EXPECT_TRUE(first.IsSomeFacePointIn(speck));
    Cylinder last;
    last.Append(Plane(1e-3, 1e20, -1e20, 0));
    EXPECT_FALSE(last.IsSomeFacePointIn(speck));
    Cylinder constant;  // the constant term comes last
    constant.Append(Plane(1e-3, 1e20, 0, -1e20));
    EXPECT_FALSE(constant.IsSomeFacePointIn(speck));
}

TEST(RoundingOrder, TheMatrixMultipliesBeforeItDivides) {
    // -L * coefficient overflows although the quotient of either one by k would not.
    QcGeFace3dEX face = FaceAtOrigin({1e200, 0, 0});
    float m[4][4];
    face.CreateShadowMatrix(m, {1e200, 1, 0}, true);
    EXPECT_TRUE(std::isnan(m[0][0])) << "-1e400 / 1e400, both infinite";
    EXPECT_EQ(m[0][1], 0.0F) << "-1e200 / infinity";
}

}  // namespace
