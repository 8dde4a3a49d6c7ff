// Coordinates near both ends of what doubles hold, and numbers that are not finite. Sizes are powers of two, so that a
// scaled face is exactly similar to the one that the fractions judge.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "Bits.h"
#include "ExactVector.h"
#include "geometry/Cylinder.h"
#include "geometry/Line.h"
#include "geometry/QcGeFace3dEX.h"

namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kHuge = 0x1p498;       // about 1e150: products of two fit, their squares do not
constexpr double kHugest = 0x1p996;     // about 1e300: products of two do not fit
constexpr double kTiny = 0x1p-498;      // about 1e-150
constexpr double kTiniest = 0x1p-1000;  // about 1e-301

QcGePoint Scaled(const QcGePoint& p, double scale) {
    return {p.x * scale, p.y * scale, p.z * scale};
}

// A triangle of coordinates up to 1, and the same in another scale.
struct Pair {
    Pair(RandomNumbers& random, double scale) {
        for (;;) {
            for (QcGePoint& p : corners)
                p = random.Point(1);
            const ExactVector e1 = ToExact(corners[1]) - ToExact(corners[0]);
            const ExactVector e2 = ToExact(corners[2]) - ToExact(corners[0]);
            normal = Cross(e1, e2);
            if (Length(normal) > 0.05 * Length(e1) * Length(e2))
                break;
        }
        scaled.SetPoint(Scaled(corners[0], scale), Scaled(corners[1], scale), Scaled(corners[2], scale));
    }
    QcGePoint corners[3];
    ExactVector normal;
    QcGeFace3dEX scaled;
};

bool HasNoNumber(const QcGePoint& p) {
    return std::isnan(p.x) && std::isnan(p.y) && std::isnan(p.z);
}

TEST(HugeCoordinates, SidesAndLightAreThoseOfASimilarFace) {
    RandomNumbers random(41);
    int judged = 0;
    for (int i = 0; i < 2000; ++i) {
        Pair pair(random, kHuge);
        const QcGePoint point = random.Point(2);
        const QcGePoint light = random.Point(1);
        const double side = Cosine(ToExact(point) - ToExact(pair.corners[0]), pair.normal);
        const double fall = Cosine(ToExact(light), pair.normal);
        if (std::fabs(side) < 1e-9 || std::fabs(fall) < 1e-9)
            continue;
        ++judged;
        const QcGePoint far = Scaled(point, kHuge);
        ASSERT_EQ(pair.scaled.CompareWithPoint(far), side > 0 ? RELATION3D_UPFACE : RELATION3D_DOWNFACE) << i;
        ASSERT_TRUE(pair.scaled.IsPosLightOn(far)) << i;
        ASSERT_EQ(pair.scaled.IsSunLightOn(light, true), fall < 0) << i;
        const double length = pair.scaled.GetNormal().Length3d();
        ASSERT_NEAR(length, 1, 1e-14) << i;
    }
    EXPECT_GT(judged, 1900);
}

// Whether a plane of the face's prism, an edge's or the face's own, has a whole speck on its outer side; 0 where the
// speck is too near a plane to be judged.
int SeparatedExactly(const Pair& pair, const QcGePoint& light, const QcGePoint& speck, bool withFacePlane) {
    bool isOut = false;
    for (int i = withFacePlane ? -1 : 0; i < 3; ++i) {
        const QcGePoint& at = pair.corners[i < 0 ? 0 : i];
        const ExactVector normal =
            i < 0 ? pair.normal : Cross(ToExact(pair.corners[(i + 1) % 3]) - ToExact(at), ToExact(light));
        const double cosine = Cosine(ToExact(speck) - ToExact(at), normal);
        if (std::fabs(cosine) < 1e-6)
            return 0;
        isOut = isOut || cosine < 0;
    }
    return isOut ? -1 : 1;
}

void CompareHalfPrisms(unsigned seed, double scale, bool withFacePlane) {
    RandomNumbers random(seed);
    int inside = 0;
    int outside = 0;
    for (int i = 0; i < 4000; ++i) {
        Pair pair(random, scale);
        QcGePoint light = random.Point(1);
        const double fall = Cosine(ToExact(light), pair.normal);
        if (std::fabs(fall) < 0.05)
            continue;
        if (fall > 0)
            light = Scaled(light, -1);
        const QcGePoint speck = random.Point(1);
        const int expected = SeparatedExactly(pair, light, speck, withFacePlane);
        if (expected == 0)
            continue;
        ++(expected > 0 ? inside : outside);
        const QcGePoint far = Scaled(speck, scale);
        Cylinder cylinder;
        pair.scaled.ContructLightHalfCylinder(cylinder, light);
        ASSERT_EQ(cylinder.GetLength(), 4);
        ASSERT_EQ(cylinder.IsSomeFacePointIn(QcGeFace3dEX(far, far, far, true)), expected > 0) << i;
    }
    EXPECT_GT(inside, 50);
    EXPECT_GT(outside, 1000);
}

TEST(HugeCoordinates, HalfPrismsAreThoseOfASimilarFace) {
    CompareHalfPrisms(42, kHuge, true);
}

// The face's own plane has no numbers and keeps nothing out; those of the edges still do.
TEST(HugestCoordinates, HalfPrismsAreOpenBehindTheFace) {
    CompareHalfPrisms(43, kHugest, false);
}

TEST(HugestCoordinates, ANormalWhoseProductsOverflowHasNoNumbersAndNoSides) {
    QcGeFace3dEX face(Scaled({0.1, 0.2, 0.3}, kHugest), Scaled({0.9, 0.3, -0.4}, kHugest),
                      Scaled({-0.2, 0.8, 0.7}, kHugest), true);
    EXPECT_FALSE(std::isfinite(face.GetNormal().Length3d()));
    EXPECT_EQ(face.CompareWithPoint({1, 2, 3}), RELATION3D_ONFACE);
    EXPECT_FALSE(face.IsPosLightOn({1, 2, 3}));
    EXPECT_FALSE(face.IsSunLightOn({0.1, 0.2, -1}, true));
}

TEST(HugestCoordinates, AStoredNormalStillTellsTheSides) {
    const QcGePoint far = Scaled({1, 1, 1}, kHugest);
    QcGeFace3dEX face(far, far, far, true);
    face.SetNormal({0, 0, 1});
    EXPECT_EQ(face.CompareWithPoint(Scaled({0, 0, 2}, kHugest)), RELATION3D_UPFACE);
    EXPECT_EQ(face.CompareWithPoint(Scaled({0, 0, 0.5}, kHugest)), RELATION3D_DOWNFACE);
    EXPECT_EQ(face.CompareWithPoint(Scaled({5, 5, 1}, kHugest)), RELATION3D_ONFACE);
    EXPECT_TRUE(face.IsPosLightOn(Scaled({0, 0, 2}, kHugest)));
}

TEST(HugestCoordinates, VectorsAreNormalised) {
    for (const double size : {kHuge, kHugest}) {
        QcGeVector3dEX v(2 * size, -3 * size, 6 * size);  // 2, 3, 6: length 7
        EXPECT_TRUE(v.Normalize());
        EXPECT_NEAR(v.x, 2.0 / 7, 1e-15);
        EXPECT_NEAR(v.y, -3.0 / 7, 1e-15);
        EXPECT_NEAR(v.z, 6.0 / 7, 1e-15);
    }
}

TEST(TinyCoordinates, AFaceLooksUpwardsAndIsAPoint) {
    RandomNumbers random(44);
    for (const double size : {kTiny, kTiniest}) {
        for (int i = 0; i < 200; ++i) {
            Pair pair(random, size);
            ASSERT_TRUE(SameBits(pair.scaled.GetNormal(), QcGePoint(0, 0, 1)));
            const QcGePoint near = Scaled(random.Point(1), size);
            ASSERT_EQ(pair.scaled.CompareWithPoint(near), RELATION3D_ONFACE) << "closer than the tolerance";
            ASSERT_FALSE(pair.scaled.IsPosLightOn(near));
            const QcGePoint point(random.Next(-1, 1), random.Next(-1, 1), i % 2 == 0 ? 0.5 : -0.5);
            ASSERT_EQ(pair.scaled.CompareWithPoint(point), i % 2 == 0 ? RELATION3D_UPFACE : RELATION3D_DOWNFACE);
        }
    }
}

// Edges too short to be normalised give planes too flat to have an outside of more than the tolerance.
TEST(TinyCoordinates, NothingReachesIntoATinyFacesPrism) {
    RandomNumbers random(45);
    for (const double size : {kTiny, kTiniest}) {
        Pair pair(random, size);
        Cylinder cylinder;
        pair.scaled.ContructLightHalfCylinder(cylinder, {0, 0, -1});
        EXPECT_EQ(cylinder.GetLength(), 4);
        EXPECT_FALSE(cylinder.IsSomeFacePointIn(QcGeFace3dEX({-9, -9, 5}, {9, -9, 5}, {0, 9, 5}, true)));
    }
}

TEST(TinyCoordinates, TinyVectorsAndPlanesHaveNoDirectionAndNoSides) {
    for (const double size : {kTiny, kTiniest}) {
        QcGeVector3dEX v(size, -size, size);
        EXPECT_FALSE(v.Normalize());
        EXPECT_TRUE(SameBits(v, QcGePoint(size, -size, size)));
        EXPECT_TRUE(Plane(size, size, size, size) == Plane(0, 0, 0, 0));
        EXPECT_EQ(Plane(size, size, size, size).GetPointPlaneRelation({1e3, 1e3, 1e3}), RELATION3D_ONPLANE);
    }
}

TEST(NotFinite, SidesOfPlanesAtInfinity) {
    const Plane plane(0, 0, 1, -1);
    EXPECT_EQ(Plane(1, 1, 1, 0).GetPointPlaneRelation({1, 1, kInfinite}), RELATION3D_UPPLANE);
    EXPECT_TRUE(Plane(1, 1, 1, 0).IsDownPlane({1, 1, -kInfinite}));
    EXPECT_FALSE(plane.IsInPlane({kInfinite, 0, 1})) << "0 times infinity is no number";
    EXPECT_EQ(plane.GetPointPlaneRelation({kInfinite, 0, 5}), RELATION3D_ONPLANE);
    EXPECT_FALSE(Plane(kInfinite, 0, 0, 0) == Plane(kInfinite, 0, 0, 0)) << "infinity less infinity is no number";
}

TEST(NotFinite, ALineRunsThroughTheFormula) {
    const QcGePoint p = Line({1, 0, -1}, {5, 6, 7}).GetPoint(kInfinite);
    EXPECT_EQ(p.x, kInfinite);
    EXPECT_TRUE(std::isnan(p.y));
    EXPECT_EQ(p.z, -kInfinite);
}

TEST(NotFinite, PointsAndLightsAtInfinity) {
    QcGeFace3dEX face({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, true);
    EXPECT_EQ(face.CompareWithPoint({0, 0, kInfinite}), RELATION3D_ONFACE) << "the way there has no direction";
    EXPECT_FALSE(face.IsPosLightOn({0, 0, kInfinite}));
    EXPECT_TRUE(face.IsSunLightOn({0, 0, -kInfinite}, true)) << "not normalised, so below every tolerance";
    EXPECT_FALSE(face.IsSunLightOn({kInfinite, 0, -1}, true)) << "0 times infinity is no number";
}

TEST(NotFinite, CornersRunThroughEveryOperation) {
    for (const double odd : {kNaN, kInfinite, -kInfinite}) {
        for (int corner = 0; corner < 4; ++corner) {
            QcGeFace3dEX face({0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, true);
            ASSERT_TRUE(face.SetPoint({odd, odd, odd}, corner));
            const bool isInNormal = corner < 3;  // corner 3 is asked for only when the first edge is short
            EXPECT_EQ(HasNoNumber(face.GetNormal()), isInNormal) << odd << ' ' << corner;
            EXPECT_EQ(face.CompareWithPoint({5, 5, 5}), isInNormal ? RELATION3D_ONFACE : RELATION3D_UPFACE);
            EXPECT_EQ(face.IsSunLightOn({0, 0, -1}, true), !isInNormal);
            float m[4][4];
            face.CreateShadowMatrix(m, {0, 0, -1}, true);
            EXPECT_EQ(std::isnan(m[0][0]), isInNormal);
            Cylinder cylinder;
            face.ContructLightHalfCylinder(cylinder, {0, 0, -1});
            EXPECT_EQ(cylinder.GetLength(), 5);
            QcGeFace3dEX other({0, 0, 5}, {1, 0, 5}, {0, 1, 5}, true);
            EXPECT_EQ(other.GetShadowRelation(face), RELATION3D_UPFACE) << "the corners that are numbers are behind";
        }
    }
}

}  // namespace
