// The normal of any face, and the three states in which a face keeps its own.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "Bits.h"
#include "geometry/GetFaceNormal.h"
#include "geometry/QcGeFace3dEX.h"

namespace {

QcGeFace FaceOf(const QcGePoint& p0, const QcGePoint& p1, const QcGePoint& p2, const QcGePoint& p3) {
    QcGeFace face;
    face.m_pt[0] = p0;
    face.m_pt[1] = p1;
    face.m_pt[2] = p2;
    face.m_pt[3] = p3;
    return face;
}

const QcGePoint kOrigin(0, 0, 0);
const QcGePoint kUp(0, 0, 1);
const double kBelow = std::nextafter(1e-6, 0.0);

TEST(GetFaceNormal, PointsToWhereTheCornersRunCounterClockwise) {
    EXPECT_TRUE(SameBits(GetFaceNormal(FaceOf(kOrigin, {2, 0, 0}, {2, 3, 0}, {0, 3, 0})), kUp));
    const QcGeVector3d down = GetFaceNormal(FaceOf(kOrigin, {0, 3, 0}, {2, 3, 0}, {2, 0, 0}));
    EXPECT_EQ(down.z, -1);
    const QcGeVector3d east = GetFaceNormal(FaceOf(kOrigin, {0, 1, 0}, {0, 1, 1}, {0, 0, 1}));
    EXPECT_EQ(east.x, 1);
}

TEST(GetFaceNormal, AShortFirstEdgeOfAQuadrilateralIsReplacedByTheOneToCornerThree) {
    for (const double edge : {0.0, kBelow, -kBelow}) {
        const QcGeVector3d normal = GetFaceNormal(FaceOf(kOrigin, {edge, 0, 0}, {0, 2, 0}, {-3, 1, 0}));
        // corner 3 first, then corner 2: clockwise from above
        EXPECT_EQ(normal.z, -1) << edge;
    }
}

TEST(GetFaceNormal, AnEdgeOfTheToleranceIsLongEnough) {
    const QcGeVector3d normal = GetFaceNormal(FaceOf(kOrigin, {1e-6, 0, 0}, {0, 2, 0}, {-3, 1, 0}));
    EXPECT_EQ(normal.z, 1) << "corner 1 counts";
    EXPECT_EQ(GetFaceNormal(FaceOf(kOrigin, {0, 1, 0}, {1e-6, 0, 0}, kOrigin)).z, -1) << "corner 2 counts";
    EXPECT_EQ(GetFaceNormal(FaceOf(kOrigin, kOrigin, {0, 2, 0}, {-1e-6, 0, 0})).z, -1) << "corner 3 counts";
}

TEST(GetFaceNormal, AShortEdgeToCornerTwoGivesUpwardsWhateverTheOthers) {
    for (const double edge : {0.0, kBelow}) {
        EXPECT_TRUE(SameBits(GetFaceNormal(FaceOf(kOrigin, {1, 0, 0}, {0, edge, 0}, {0, 0, 1})), kUp));
        EXPECT_TRUE(SameBits(GetFaceNormal(FaceOf(kOrigin, kOrigin, {0, edge, 0}, {0, 1, 1})), kUp));
        EXPECT_TRUE(SameBits(GetFaceNormal(FaceOf(kOrigin, {NAN, 0, 0}, {0, edge, 0}, {NAN, 1, 1})), kUp));
    }
}

TEST(GetFaceNormal, AShortEdgeToCornerThreeAfterAShortFirstOneGivesUpwards) {
    for (const double edge : {0.0, kBelow})
        EXPECT_TRUE(SameBits(GetFaceNormal(FaceOf(kOrigin, kOrigin, {1, 0, 1}, {0, edge, 0})), kUp));
}

TEST(GetFaceNormal, AShortFirstEdgeOfATriangleAlwaysGivesUpwards) {
    QcGeFace3dEX triangle({1, 1, 1}, {1, 1, 1}, {2, 5, 9}, true);
    EXPECT_TRUE(SameBits(GetFaceNormal(triangle), kUp));
}

// The count plays no part: a quadrilateral that calls itself a triangle is still asked for its last slot.
TEST(GetFaceNormal, DoesNotAskForTheCount) {
    QcGeFace3dEX face(kOrigin, kOrigin, {0, 2, 0}, true);
    face.m_pt[3] = {-3, 1, 0};
    ASSERT_TRUE(face.IsTriangle());
    EXPECT_EQ(GetFaceNormal(face).z, -1);
}

TEST(GetFaceNormal, LengthsAreOfSpaceNotOfCoordinates) {
    // Each coordinate of the first edge is shorter than the tolerance, the edge is not.
    const double part = 0.9e-6;
    const QcGeVector3d normal = GetFaceNormal(FaceOf(kOrigin, {part, 0, part}, {0, 2, 0}, {-3, 1, 0}));
    EXPECT_LT(normal.x, 0);
}

TEST(GetFaceNormal, DividesEachComponent) {
    RandomNumbers random(5);
    int differs = 0;
    for (int i = 0; i < 2000; ++i) {
        const QcGeFace face = FaceOf(random.Point(50), random.Point(50), random.Point(50), random.Point(50));
        const QcGeVector3d e1 = face.m_pt[1] - face.m_pt[0];
        const QcGeVector3d e2 = face.m_pt[2] - face.m_pt[0];
        const volatile double products[] = {e1.y * e2.z, e1.z * e2.y, e1.z * e2.x,
                                            e1.x * e2.z, e1.x * e2.y, e1.y * e2.x};
        const double x = products[0] - products[1];
        const double y = products[2] - products[3];
        const double z = products[4] - products[5];
        const volatile double squares[] = {x * x, y * y, z * z};
        const volatile double sum = squares[0] + squares[1];
        const double length = std::sqrt(sum + squares[2]);
        const QcGeVector3d normal = GetFaceNormal(face);
        ASSERT_TRUE(SameBits(normal, QcGePoint(x / length, y / length, z / length))) << i;
        const double scale = 1.0 / length;
        differs += !SameBits(normal, QcGePoint(x * scale, y * scale, z * scale));
    }
    EXPECT_GT(differs, 100) << "the numbers tell the two ways apart";
}

TEST(GetFaceNormal, CornersInOneLineGiveNoFiniteNumbers) {
    const QcGeVector3d normal = GetFaceNormal(FaceOf(kOrigin, {1, 1, 1}, {2, 2, 2}, {0, 5, 0}));
    EXPECT_TRUE(std::isnan(normal.x) && std::isnan(normal.y) && std::isnan(normal.z));
}

TEST(GetFaceNormal, CornersThatAreNotNumbersGiveNone) {
    const QcGeVector3d normal = GetFaceNormal(FaceOf({NAN, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 0}));
    EXPECT_TRUE(std::isnan(normal.x) || std::isnan(normal.y) || std::isnan(normal.z));
}

TEST(GetFaceNormal, WorksAtLargeCoordinates) {
    const double far = 1e140;
    EXPECT_TRUE(SameBits(GetFaceNormal(FaceOf(kOrigin, {far, 0, 0}, {far, far, 0}, {0, far, 0})), kUp));
}

// ---- The cache. ----

class CachedNormal : public testing::Test {
protected:
    QcGeFace3dEX m_face{{0, 0, 0}, {2, 0, 0}, {2, 3, 0}, {0, 3, 0}, true};
    QcGeFace3dEX m_bare{{0, 0, 0}, {2, 0, 0}, {2, 3, 0}, {0, 3, 0}, false};
    const QcGeVector3dEX m_odd{7, -8, 9};
};

TEST_F(CachedNormal, IsFilledWhenFirstAskedFor) {
    EXPECT_FALSE(m_face.IsNormalReady());
    EXPECT_TRUE(SameBits(m_face.GetNormal(), kUp));
    EXPECT_TRUE(m_face.IsNormalReady());
    EXPECT_TRUE(SameBits(m_face.Normal(), kUp));
}

TEST_F(CachedNormal, IsGivenAsStoredOnceReady) {
    m_face.GetNormal();
    m_face.m_pt[1] = {0, 2, 5};  // past SetPoint
    EXPECT_TRUE(SameBits(m_face.GetNormal(), kUp));
    m_face.Normal() = m_odd;
    EXPECT_TRUE(SameBits(m_face.GetNormal(), m_odd));
}

TEST_F(CachedNormal, WithoutStorageIsComputedEachTime) {
    EXPECT_TRUE(SameBits(m_bare.GetNormal(), kUp));
    EXPECT_FALSE(m_bare.IsNormalReady());
    m_bare.m_pt[1] = {0, 3, 0};
    m_bare.m_pt[2] = {2, 3, 0};
    EXPECT_EQ(m_bare.GetNormal().z, -1);
}

TEST_F(CachedNormal, SetNormalStoresItUnchangedUntilACornerChanges) {
    EXPECT_TRUE(m_face.SetNormal(m_odd));
    EXPECT_TRUE(m_face.IsNormalReady());
    EXPECT_TRUE(SameBits(m_face.GetNormal(), m_odd));
    m_face.SetPoint({0, 3, 1}, 3);
    EXPECT_TRUE(SameBits(m_face.GetNormal(), kUp));
}

TEST_F(CachedNormal, SetNormalNeedsStorage) {
    EXPECT_FALSE(m_bare.SetNormal(m_odd));
    EXPECT_FALSE(m_bare.IsNormalReady());
    EXPECT_TRUE(SameBits(m_bare.GetNormal(), kUp));
    m_bare.SetNormalSaved(true);
    EXPECT_FALSE(m_bare.IsNormalReady()) << "what was refused left no trace";
}

TEST_F(CachedNormal, NormalIsTheStorageWhateverItsState) {
    EXPECT_TRUE(SameBits(m_face.Normal(), kOrigin));
    m_face.SetNormal(m_odd);
    const QcGeVector3dEX* const storage = &m_face.Normal();
    m_face.SetPoint({1, 1, 1}, 2);
    EXPECT_EQ(&m_face.Normal(), storage);
    EXPECT_TRUE(SameBits(m_face.Normal(), m_odd));
}

TEST_F(CachedNormal, SavingWhatIsSavedDoesNothing) {
    m_face.SetNormal(m_odd);
    const QcGeVector3dEX* const storage = &m_face.Normal();
    m_face.SetNormalSaved(true);
    EXPECT_EQ(&m_face.Normal(), storage);
    EXPECT_TRUE(SameBits(m_face.GetNormal(), m_odd));
    m_bare.SetNormalSaved(false);
    EXPECT_FALSE(m_bare.IsNormalSaved());
}

TEST_F(CachedNormal, StorageThatComesAndGoesLeavesReadinessAlone) {
    m_face.GetNormal();
    m_face.SetNormalSaved(false);
    EXPECT_FALSE(m_face.IsNormalSaved());
    EXPECT_FALSE(m_face.IsNormalReady());
    EXPECT_TRUE(SameBits(m_face.GetNormal(), kUp));
    m_face.SetNormalSaved(true);
    EXPECT_TRUE(m_face.IsNormalReady());
    EXPECT_TRUE(SameBits(m_face.GetNormal(), kOrigin)) << "new storage, and still ready";
    m_face.SetPoint({2, 3, 1}, 2);
    EXPECT_FALSE(SameBits(m_face.GetNormal(), kOrigin));
}

TEST_F(CachedNormal, StorageGivenToAnUnreadyFaceIsFilledWhenAskedFor) {
    m_bare.SetNormalSaved(true);
    EXPECT_TRUE(SameBits(m_bare.Normal(), kOrigin));
    EXPECT_FALSE(m_bare.IsNormalReady());
    EXPECT_TRUE(SameBits(m_bare.GetNormal(), kUp));
    EXPECT_TRUE(m_bare.IsNormalReady());
}

TEST_F(CachedNormal, ACornerChangedWithoutStorageIsRememberedAsUnready) {
    m_face.GetNormal();
    m_face.SetNormalSaved(false);
    m_face.SetPoint({5, 5, 5}, 1);
    m_face.SetNormalSaved(true);
    EXPECT_FALSE(m_face.IsNormalReady());
}

}  // namespace
