// Planes of a face, the light on it, its shadow matrix, and how points and faces lie to it.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "Bits.h"
#include "geometry/QcGeFace3dEX.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kAbove = std::nextafter(1e-12, 1.0);
const double kBelow = std::nextafter(1e-12, 0.0);

// On the ground, looking up; corner 0 is the origin.
QcGeFace3dEX Ground() {
    return {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}, true};
}

// A square of side 2 around (x, y, z), looking up, or down.
QcGeFace3dEX Flat(double x, double y, double z, bool isUp = true) {
    if (isUp)
        return {{x - 1, y - 1, z}, {x + 1, y - 1, z}, {x + 1, y + 1, z}, {x - 1, y + 1, z}, true};
    return {{x - 1, y - 1, z}, {x - 1, y + 1, z}, {x + 1, y + 1, z}, {x + 1, y - 1, z}, true};
}

// A wall along y at x, from z = from to z = to, that looks to the east (or the west).
QcGeFace3dEX Wall(double x, double from, double to, bool isEast = true) {
    if (isEast)
        return {{x, 0, from}, {x, 2, from}, {x, 2, to}, {x, 0, to}, true};
    return {{x, 0, from}, {x, 0, to}, {x, 2, to}, {x, 2, from}, true};
}

// A face with any normal that we like.
QcGeFace3dEX WithNormal(const QcGeVector3dEX& normal) {
    QcGeFace3dEX face = Ground();
    face.SetNormal(normal);
    return face;
}

TEST(FacePlane, EquationHasTheNormalAndGoesThroughCornerZero) {
    RandomNumbers random(6);
    int differs = 0;
    for (int i = 0; i < 1000; ++i) {
        const QcGePoint p = random.Point(1e4);
        const QcGePoint n = random.Point(1);
        QcGeFace3dEX face(p, random.Point(9), random.Point(9), true);
        face.SetNormal(n);
        const volatile double x = n.x * p.x;
        const volatile double y = n.y * p.y;
        const volatile double z = n.z * p.z;
        const volatile double xy = x + y;
        const PlaneEquation e = face.GetPlaneEquation();
        ASSERT_TRUE(SameBits(QcGePoint(e.a, e.b, e.c), n));
        ASSERT_EQ(Bits(e.d), Bits(-(xy + z)));
        PlaneEquation plane{};
        face.GetPlane().GetEquation(plane.a, plane.b, plane.c, plane.d);
        ASSERT_TRUE(SameBits(QcGePoint(plane.a, plane.b, plane.c), n));
        ASSERT_EQ(Bits(plane.d), Bits(e.d));
        QcGeBasePlane base{9, 9, 9, 9};
        face.GetXPlane(base);
        ASSERT_TRUE(SameBits(QcGePoint(base.a, base.b, base.c), n));
        ASSERT_EQ(Bits(base.d), Bits(e.d));
        const volatile double yz = y + z;
        differs += Bits(-(x + yz)) != Bits(e.d);
    }
    EXPECT_GT(differs, 50) << "the numbers tell the order";
}

TEST(FacePlane, UsesAndFillsTheCache) {
    QcGeFace3dEX face = Flat(0, 0, 7);
    EXPECT_EQ(face.GetPlaneEquation().d, -7);
    EXPECT_TRUE(face.IsNormalReady());
    face.SetNormal({0, 0, 2});
    EXPECT_EQ(face.GetPlaneEquation().c, 2);
    EXPECT_EQ(face.GetPlaneEquation().d, -14);
    EXPECT_TRUE(face.GetPlane() == Plane(0, 0, 2, -14));
}

TEST(FaceSide, TellsFrontFromBack) {
    QcGeFace3dEX face = Ground();
    EXPECT_EQ(face.CompareWithPoint({1, 1, 1}), RELATION3D_UPFACE);
    EXPECT_EQ(face.CompareWithPoint({1, 1, -1}), RELATION3D_DOWNFACE);
    EXPECT_EQ(face.CompareWithPoint({100, -3, 0}), RELATION3D_ONFACE);
    QcGeFace3dEX down = Flat(0, 0, 0, false);
    EXPECT_EQ(down.CompareWithPoint({1, 1, 1}), RELATION3D_DOWNFACE);
    EXPECT_EQ(down.CompareWithPoint({1, 1, -1}), RELATION3D_UPFACE);
}

TEST(FaceSide, CornerZeroAndWhatIsCloserThanTheToleranceIsOnTheFace) {
    QcGeFace3dEX face = Ground();
    EXPECT_EQ(face.CompareWithPoint({0, 0, 0}), RELATION3D_ONFACE);
    EXPECT_EQ(face.CompareWithPoint({0, 0, kBelow}), RELATION3D_ONFACE);
    EXPECT_EQ(face.CompareWithPoint({0, 0, 1e-12}), RELATION3D_UPFACE) << "straight up, the cosine is 1";
    EXPECT_EQ(face.CompareWithPoint({0, 0, -1e-12}), RELATION3D_DOWNFACE);
}

TEST(FaceSide, TheToleranceIsOnTheCosine) {
    QcGeFace3dEX face = Ground();
    EXPECT_EQ(face.CompareWithPoint({1e13, 0, 1}), RELATION3D_ONFACE);
    EXPECT_EQ(face.CompareWithPoint({1e11, 0, 1}), RELATION3D_UPFACE);
    EXPECT_EQ(face.CompareWithPoint({1e-9, 0, 1e-13}), RELATION3D_UPFACE) << "a tiny distance at a wide angle";
}

// A way of length 1 is not scaled, so that the cosine is exactly the height.
TEST(FaceSide, TheToleranceItselfIsOnTheFace) {
    QcGeFace3dEX face = Ground();
    EXPECT_EQ(face.CompareWithPoint({1, 0, 1e-12}), RELATION3D_ONFACE);
    EXPECT_EQ(face.CompareWithPoint({1, 0, kAbove}), RELATION3D_UPFACE);
    EXPECT_EQ(face.CompareWithPoint({1, 0, -1e-12}), RELATION3D_ONFACE);
    EXPECT_EQ(face.CompareWithPoint({1, 0, -kAbove}), RELATION3D_DOWNFACE);
}

TEST(FaceSide, StartsFromCornerZeroAndUsesTheStoredNormal) {
    QcGeFace3dEX face = Flat(5, 5, 2);
    EXPECT_EQ(face.CompareWithPoint({0, 0, 1}), RELATION3D_DOWNFACE);
    face.SetNormal({0, 0, -1});
    EXPECT_EQ(face.CompareWithPoint({0, 0, 1}), RELATION3D_UPFACE);
    face.SetNormal({0, 0, 1e-13});
    EXPECT_EQ(face.CompareWithPoint({0, 0, 1}), RELATION3D_ONFACE) << "the normal's length counts";
}

TEST(FaceSide, NumbersThatAreNoneAreOnTheFace) {
    QcGeFace3dEX face = Ground();
    EXPECT_EQ(face.CompareWithPoint({kNaN, 1, 1}), RELATION3D_ONFACE);
    QcGeFace3dEX inLine({0, 0, 0}, {1, 0, 0}, {2, 0, 0}, true);
    EXPECT_EQ(inLine.CompareWithPoint({1, 2, 3}), RELATION3D_ONFACE);
}

TEST(FaceLight, APointLightShinesFromEitherSide) {
    QcGeFace3dEX face = Ground();
    EXPECT_TRUE(face.IsPosLightOn({1, 1, 1}));
    EXPECT_TRUE(face.IsPosLightOn({1, 1, -1}));
    EXPECT_FALSE(face.IsPosLightOn({7, -2, 0}));
    EXPECT_FALSE(face.IsPosLightOn({0, 0, 0}));
    EXPECT_FALSE(face.IsPosLightOn({0, 0, kBelow}));
    EXPECT_TRUE(face.IsPosLightOn({0, 0, 1e-12}));
}

TEST(FaceLight, APointLightAtTheToleranceShines) {
    QcGeFace3dEX face = Ground();
    EXPECT_TRUE(face.IsPosLightOn({1, 0, 1e-12}));
    EXPECT_TRUE(face.IsPosLightOn({1, 0, -1e-12}));
    EXPECT_FALSE(face.IsPosLightOn({1, 0, kBelow}));
    EXPECT_FALSE(face.IsPosLightOn({1, 0, -kBelow}));
    EXPECT_FALSE(face.IsPosLightOn({1e13, 0, 1})) << "the tolerance is on the cosine";
    EXPECT_FALSE(face.IsPosLightOn({kNaN, 0, 1}));
}

TEST(FaceLight, SunlightFallsOnTheFrontOnly) {
    QcGeFace3dEX face = Ground();
    EXPECT_TRUE(face.IsSunLightOn({1, 2, -1}, true));
    EXPECT_FALSE(face.IsSunLightOn({1, 2, 1}, true));
    EXPECT_FALSE(face.IsSunLightOn({1, 2, 0}, true));
    EXPECT_FALSE(face.IsSunLightOn({0, 0, 0}, true));
    EXPECT_FALSE(face.IsSunLightOn({kNaN, 0, -1}, true));
}

TEST(FaceLight, WithoutTheSunNothingIsLit) {
    QcGeFace3dEX face = Ground();
    for (const double z : {-1.0, 0.0, 1.0, -1e300})
        EXPECT_FALSE(face.IsSunLightOn({0, 0, z}, false));
    EXPECT_FALSE(face.IsNormalReady()) << "nothing had to be computed";
}

TEST(FaceLight, SunlightIsNotNormalisedBeforeItIsCompared) {
    QcGeFace3dEX face = Ground();
    EXPECT_FALSE(face.IsSunLightOn({0, 0, -1e-12}, true));
    EXPECT_TRUE(face.IsSunLightOn({0, 0, -kAbove}, true));
    EXPECT_TRUE(face.IsSunLightOn({1e13, 0, -1}, true)) << "a cosine below the tolerance";
    EXPECT_TRUE(WithNormal({0, 0, 1e-6}).IsSunLightOn({0, 0, -1.1e-6}, true));
    EXPECT_FALSE(WithNormal({0, 0, 1e-6}).IsSunLightOn({0, 0, -0.9e-6}, true));
}

TEST(FaceLight, AddsTheProductsFromLeftToRight) {
    EXPECT_TRUE(WithNormal({1e17, 1, 1}).IsSunLightOn({1, -1e17, -1}, true));
    EXPECT_FALSE(WithNormal({1, 1e17, 1}).IsSunLightOn({-1, 1e17, -1e17}, true)) << "(-1 + 1e34) - 1e17 > 0";
    // (-1 + 1e17) - 1e17 rounds to 0; from right to left it would be -1.
    EXPECT_FALSE(WithNormal({1, 1, 1}).IsSunLightOn({-1, 1e17, -1e17}, true));
}

// ---- The shadow matrix. ----

using Matrix = float[4][4];

TEST(ShadowMatrix, IsUntouchedWithoutTheSun) {
    Matrix m;
    std::memset(m, 0x5A, sizeof m);
    Matrix before;
    std::memcpy(before, m, sizeof m);
    Ground().CreateShadowMatrix(m, {1, 2, -3}, false);
    EXPECT_EQ(std::memcmp(m, before, sizeof m), 0);
}

TEST(ShadowMatrix, ProjectsOntoTheGroundAlongTheLight) {
    Matrix m;
    Ground().CreateShadowMatrix(m, {1, 2, -4}, true);
    const Matrix expected = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0.25F, 0.5F, 0, 0}, {0, 0, 0, 1}};
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            EXPECT_EQ(m[i][j], expected[i][j]) << i << j;
}

TEST(ShadowMatrix, HasEachElementFormedInDoubleAndRoundedOnce) {
    RandomNumbers random(7);
    int differs = 0;
    for (int i = 0; i < 500; ++i) {
        const QcGePoint n = random.Point(1);
        const QcGePoint l = random.Point(3);
        QcGeFace3dEX face(random.Point(100), random.Point(9), random.Point(9), true);
        face.SetNormal(n);
        Matrix m;
        face.CreateShadowMatrix(m, l, true);
        const volatile double kx = l.x * n.x;
        const volatile double ky = l.y * n.y;
        const volatile double kz = l.z * n.z;
        const volatile double kxy = kx + ky;
        const double k = kxy + kz;
        const double coefficient[] = {n.x, n.y, n.z, face.GetPlaneEquation().d};
        const double light[] = {l.x, l.y, l.z};
        for (int row = 0; row < 4; ++row) {
            for (int j = 0; j < 3; ++j) {
                const volatile double product = -light[j] * coefficient[row];
                const volatile double quotient = product / k;
                const double element = row == j ? quotient + 1.0 : quotient;
                ASSERT_EQ(std::bit_cast<std::uint32_t>(m[row][j]),
                          std::bit_cast<std::uint32_t>(static_cast<float>(element)));
                const float inFloat =
                    -static_cast<float>(light[j]) * static_cast<float>(coefficient[row]) / static_cast<float>(k) +
                    (row == j ? 1.0F : 0.0F);
                differs += m[row][j] != inFloat;
            }
            ASSERT_EQ(m[row][3], row == 3 ? 1.0F : 0.0F);
            ASSERT_FALSE(std::signbit(m[row][3]));
        }
    }
    EXPECT_GT(differs, 100) << "the numbers tell float from double";
}

TEST(ShadowMatrix, KeepsTheSignsOfZeros) {
    Matrix m;
    Ground().CreateShadowMatrix(m, {0, 0, -1}, true);
    // -L_x * c / k = -0 * 1 / -1 = 0; -L_x * a / k = -0 * 0 / -1 = 0; d = -0: -L_z * d / k = 1 * -0 / -1 = 0.
    EXPECT_FALSE(std::signbit(m[2][0]));
    EXPECT_FALSE(std::signbit(m[3][2]));
    Ground().CreateShadowMatrix(m, {0, 0, 1}, true);
    EXPECT_TRUE(std::signbit(m[2][0])) << "-0 * 1 / 1";
    EXPECT_EQ(m[2][2], 0);
}

TEST(ShadowMatrix, TheLightsLengthCancels) {
    Matrix shortLight;
    Matrix longLight;
    Flat(3, 4, 5).CreateShadowMatrix(shortLight, {0.5, 0.25, -0.5}, true);
    Flat(3, 4, 5).CreateShadowMatrix(longLight, {8, 4, -8}, true);
    EXPECT_EQ(std::memcmp(shortLight, longLight, sizeof shortLight), 0);
}

TEST(ShadowMatrix, ALightAlongTheFaceGivesNumbersThatAreNotFinite) {
    Matrix m;
    Ground().CreateShadowMatrix(m, {1, 0, 0}, true);
    EXPECT_TRUE(std::isinf(m[2][0]));
    EXPECT_TRUE(std::isnan(m[0][0]));
    EXPECT_EQ(m[3][3], 1);
    EXPECT_EQ(m[0][3], 0);
}

// ---- Faces and faces. ----

TEST(FaceToFace, NoCornerInFrontIsDown) {
    QcGeFace3dEX ground = Ground();
    QcGeFace3dEX above = Flat(1, 1, 3);
    QcGeFace3dEX below = Flat(1, 1, -3);
    QcGeFace3dEX in = Flat(9, 9, 0);
    QcGeFace3dEX through = Wall(1, -1, 1);
    EXPECT_FALSE(above.IsDownFace(ground));
    EXPECT_TRUE(below.IsDownFace(ground));
    EXPECT_TRUE(in.IsDownFace(ground));
    EXPECT_FALSE(through.IsDownFace(ground));
}

TEST(FaceToFace, NoCornerBehindIsUp) {
    QcGeFace3dEX ground = Ground();
    QcGeFace3dEX above = Flat(1, 1, 3);
    QcGeFace3dEX below = Flat(1, 1, -3);
    QcGeFace3dEX in = Flat(9, 9, 0);
    QcGeFace3dEX through = Wall(1, -1, 1);
    EXPECT_TRUE(above.IsUpFace(ground));
    EXPECT_FALSE(below.IsUpFace(ground));
    EXPECT_TRUE(in.IsUpFace(ground));
    EXPECT_FALSE(through.IsUpFace(ground));
}

// Corners in the plane never decide; the last corner alone can. A triangle's fourth slot is no corner.
TEST(FaceToFace, EachCornerCountsAndNoMore) {
    QcGeFace3dEX ground = Ground();
    for (int i = 0; i < 4; ++i) {
        QcGeFace3dEX face = Flat(20, 20, 0);
        face.SetPoint({20, 20, 5}, i);
        EXPECT_FALSE(face.IsDownFace(ground)) << i;
        EXPECT_TRUE(face.IsUpFace(ground)) << i;
        face.SetPoint({20, 20, -5}, i);
        EXPECT_TRUE(face.IsDownFace(ground)) << i;
        EXPECT_FALSE(face.IsUpFace(ground)) << i;
    }
    QcGeFace3dEX triangle({20, 20, 0}, {21, 20, 0}, {20, 21, 0}, true);
    triangle.m_pt[3] = {20, 20, 5};
    EXPECT_TRUE(triangle.IsDownFace(ground));
    EXPECT_TRUE(triangle.IsUpFace(ground));
}

// One row for each way through the decision.
TEST(ShadowRelation, InFrontOfThisFaceIsDown) {
    QcGeFace3dEX ground = Ground();
    QcGeFace3dEX above = Flat(1, 1, 3);
    EXPECT_EQ(ground.GetShadowRelation(above), RELATION3D_DOWNFACE);
}

TEST(ShadowRelation, InThisFacesPlaneIsDown) {
    QcGeFace3dEX ground = Ground();
    QcGeFace3dEX beside = Flat(9, 9, 0);
    EXPECT_EQ(ground.GetShadowRelation(beside), RELATION3D_DOWNFACE);
}

TEST(ShadowRelation, AFaceThatIsBehindTheOtherOneIsDown) {
    QcGeFace3dEX ground = Ground();
    QcGeFace3dEX belowLookingDown = Flat(1, 1, -3, false);  // the other is behind this, and this behind the other
    EXPECT_EQ(ground.GetShadowRelation(belowLookingDown), RELATION3D_DOWNFACE);
    QcGeFace3dEX through = Wall(-1, -1, 1, false);  // crosses this plane; this lies wholly behind it
    EXPECT_EQ(ground.GetShadowRelation(through), RELATION3D_DOWNFACE);
}

TEST(ShadowRelation, FacesThatCrossEachOtherCross) {
    QcGeFace3dEX ground = Ground();
    QcGeFace3dEX through = Wall(2, -1, 1);
    EXPECT_EQ(ground.GetShadowRelation(through), RELATION3D_CROSSFACE);
}

TEST(ShadowRelation, OneCrossingAloneIsUp) {
    QcGeFace3dEX ground = Ground();
    QcGeFace3dEX through = Wall(-1, -1, 1);  // crosses this plane; this lies wholly in front of it
    EXPECT_EQ(ground.GetShadowRelation(through), RELATION3D_UPFACE);
    QcGeFace3dEX hanging = Wall(2, -3, -1);  // wholly behind this face, whose corners lie on both sides of it
    EXPECT_EQ(ground.GetShadowRelation(hanging), RELATION3D_UPFACE);
}

TEST(ShadowRelation, BehindThisFaceWhichIsInFrontOfItIsUp) {
    QcGeFace3dEX ground = Ground();
    QcGeFace3dEX below = Flat(1, 1, -3);
    EXPECT_EQ(ground.GetShadowRelation(below), RELATION3D_UPFACE);
}

TEST(ShadowRelation, BehindThisFaceWhichLiesInItsPlaneIsUp) {
    QcGeFace3dEX ground = Ground();
    // All of this face's corners lie in the other's plane by the tolerance on the cosine: it is far away.
    QcGeFace3dEX other = Flat(1e13, 0, -1);
    other.SetNormal({0, 0, 1});
    ASSERT_EQ(other.CompareWithPoint({0, 0, 0}), RELATION3D_ONFACE);
    ground.SetNormal({-1, 0, 0});  // so that the other one is behind it
    EXPECT_EQ(ground.GetShadowRelation(other), RELATION3D_UPFACE);
}

TEST(ShadowRelation, CornersInThePlaneHaveNoSay) {
    QcGeFace3dEX ground = Ground();
    QcGeFace3dEX hanging = Wall(-1, -1, 0);  // from the plane down, west of this face, looking at it
    EXPECT_EQ(ground.GetShadowRelation(hanging), RELATION3D_UPFACE);
    QcGeFace3dEX standing = Wall(-1, 0, 1);
    EXPECT_EQ(ground.GetShadowRelation(standing), RELATION3D_DOWNFACE);
}

}  // namespace
