// A face's making, copying and assigning, its corners and its material.
#include "geometry/QcGeFace3dEX.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <vector>

#include "Bits.h"
#include "geometry/Cylinder.h"
#include "platform/base/Abandon.h"

namespace {

const QcGePoint kA(1, 2, 3);
const QcGePoint kB(4, 2, 3);
const QcGePoint kC(4, 6, 3);
const QcGePoint kD(1, 6, 3);
const QcGePoint kCorners[] = {kA, kB, kC, kD};
const QcGeVector3dEX kOdd(0.25, -7, 1e9);

// The corners, as bits.
void ExpectCorners(const QcGeFace& face, const QcGePoint& p0, const QcGePoint& p1, const QcGePoint& p2,
                   const QcGePoint& p3) {
    EXPECT_TRUE(SameBits(face.m_pt[0], p0));
    EXPECT_TRUE(SameBits(face.m_pt[1], p1));
    EXPECT_TRUE(SameBits(face.m_pt[2], p2));
    EXPECT_TRUE(SameBits(face.m_pt[3], p3));
}

void SetFlags(QcGeFace& face) {
    for (int i = 0; i < 4; ++i)
        face.m_flag[i] = static_cast<unsigned char>(200 + i);
}

void ExpectFlags(const QcGeFace& face) {
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(face.m_flag[i], 200 + i);
}

QcGeFace PlainFace(bool isTriangle) {
    QcGeFace face;
    for (int i = 0; i < 4; ++i)
        face.m_pt[i] = kCorners[i];
    if (isTriangle)
        face.m_pt[3] = kA;
    SetFlags(face);
    return face;
}

// A ready quadrilateral that differs from a new one in everything.
QcGeFace3dEX FullFace() {
    QcGeFace3dEX face(kA, kB, kC, kD, true);
    SetFlags(face);
    face.SetMaterialIndex(5);
    face.SetNormal(kOdd);
    return face;
}

TEST(QcGeFace3dEX, IsANewTriangleWithStorage) {
    QcGeFace3dEX face;
    EXPECT_EQ(face.GetPointNum(), 3);
    EXPECT_EQ(face.GetMaterialIndex(), -1);
    EXPECT_TRUE(face.IsNormalSaved());
    EXPECT_FALSE(face.IsNormalReady());
    EXPECT_TRUE(SameBits(face.Normal(), QcGePoint(0, 0, 0)));
    ExpectCorners(face, {}, {}, {}, {});
    EXPECT_EQ(face.m_flag[0] + face.m_flag[1] + face.m_flag[2] + face.m_flag[3], 0);
}

TEST(QcGeFace3dEX, HasStorageOnlyWhenAsked) {
    EXPECT_TRUE(QcGeFace3dEX(true).IsNormalSaved());
    EXPECT_FALSE(QcGeFace3dEX(false).IsNormalSaved());
    EXPECT_TRUE(QcGeFace3dEX(kA, kB, kC, kD, true).IsNormalSaved());
    EXPECT_FALSE(QcGeFace3dEX(kA, kB, kC, kD, false).IsNormalSaved());
    EXPECT_TRUE(QcGeFace3dEX(kA, kB, kC, true).IsNormalSaved());
    EXPECT_FALSE(QcGeFace3dEX(kA, kB, kC, false).IsNormalSaved());
    EXPECT_TRUE(QcGeFace3dEX(kCorners, 4, true).IsNormalSaved());
    EXPECT_FALSE(QcGeFace3dEX(kCorners, 4, false).IsNormalSaved());
}

TEST(QcGeFace3dEX, ItsOnlyVirtualOperationIsTheDestructor) {
    static_assert(std::is_base_of_v<QcGeFace, QcGeFace3dEX>);
    struct Counted : QcGeFace3dEX {
        explicit Counted(int& aCount) : count(aCount) {}
        ~Counted() override { ++count; }
        int& count;
    };
    int count = 0;
    const QcGeFace* face = new Counted(count);
    delete face;
    EXPECT_EQ(count, 1);
}

TEST(QcGeFace3dEX, AQuadrilateralHasFourCorners) {
    const QcGeFace3dEX face(kA, kB, kC, kD, true);
    EXPECT_EQ(face.GetPointNum(), 4);
    EXPECT_FALSE(face.IsTriangle());
    EXPECT_TRUE(face.IsRectangle());
    EXPECT_EQ(face.GetMaterialIndex(), -1);
    EXPECT_FALSE(face.IsNormalReady());
    ExpectCorners(face, kA, kB, kC, kD);
}

TEST(QcGeFace3dEX, ATriangleRepeatsItsFirstCorner) {
    const QcGeFace3dEX face(kA, kB, kC, true);
    EXPECT_EQ(face.GetPointNum(), 3);
    EXPECT_TRUE(face.IsTriangle());
    EXPECT_FALSE(face.IsRectangle());
    ExpectCorners(face, kA, kB, kC, kA);
}

TEST(QcGeFace3dEX, TakesCornersFromAnArray) {
    ExpectCorners(QcGeFace3dEX(kCorners, 4, true), kA, kB, kC, kD);
    ExpectCorners(QcGeFace3dEX(kCorners, 3, true), kA, kB, kC, kA);
    QcGePoint changeable[] = {kD, kC, kB};
    ExpectCorners(QcGeFace3dEX(changeable, 3, false), kD, kC, kB, kD);
}

// An array of exactly that many points, so that the sanitizer sees every point read beyond it.
TEST(QcGeFace3dEX, AnArrayConstructorKeepsAnyCountAndStaysInItsSlots) {
    for (const int count : {-3, 0, 1, 2, 5, 9, 1000}) {
        std::vector<QcGePoint> points(static_cast<std::size_t>(std::max(count, 0)), kB);
        QcGeFace3dEX face(points.data(), count, true);
        EXPECT_EQ(face.GetPointNum(), count);
        for (int i = 0; i < 4; ++i) {
            EXPECT_TRUE(SameBits(face.m_pt[i], i < count ? kB : QcGePoint()));
            EXPECT_EQ(face.m_flag[i], 0);
        }
        EXPECT_FALSE(face.IsTriangle());
        EXPECT_FALSE(face.IsRectangle());
        EXPECT_FALSE(face.IsNormalReady());
        EXPECT_FALSE(face.SetPoint(kC, std::max(4, count)));
        EXPECT_FALSE(face.SetPoint(kC, 4));
        Cylinder cylinder;
        face.ContructLightHalfCylinder(cylinder, {0, 0, -1});
        EXPECT_EQ(cylinder.GetLength(), 1 + std::clamp(count, 0, 4));
        QcGeFace3dEX other(kA, kB, kC, true);
        face.IsUpFace(other);
        other.GetShadowRelation(face);
        cylinder.IsSomeFacePointIn(face);
    }
}

TEST(QcGeFace3dEX, IsMadeFromAPlainFace) {
    for (const bool isTriangle : {true, false}) {
        const QcGeFace plain = PlainFace(isTriangle);
        const QcGeFace3dEX face(plain);
        EXPECT_EQ(face.GetPointNum(), isTriangle ? 3 : 4);
        ExpectCorners(face, kA, kB, kC, isTriangle ? kA : kD);
        ExpectFlags(face);
        EXPECT_TRUE(face.IsNormalSaved());
        EXPECT_FALSE(face.IsNormalReady());
        EXPECT_EQ(face.GetMaterialIndex(), -1);
    }
}

TEST(QcGeFace3dEX, ACopyHasItsOwnStorageWithAReadyNormal) {
    QcGeFace3dEX original = FullFace();
    const QcGeFace3dEX copy(original);
    EXPECT_EQ(copy.GetPointNum(), 4);
    ExpectCorners(copy, kA, kB, kC, kD);
    ExpectFlags(copy);
    EXPECT_EQ(copy.GetMaterialIndex(), 5);
    EXPECT_TRUE(copy.IsNormalReady());
    EXPECT_TRUE(SameBits(copy.Normal(), kOdd));
    EXPECT_NE(&copy.Normal(), &original.Normal());
    original.SetNormal({1, 1, 1});
    EXPECT_TRUE(SameBits(copy.Normal(), kOdd));
}

TEST(QcGeFace3dEX, ACopyOfAnUnreadyFaceHasZeroedStorage) {
    QcGeFace3dEX original = FullFace();
    original.SetPoint({0, 0, 9}, 1);
    ASSERT_TRUE(SameBits(original.Normal(), kOdd)) << "what was stored is still there, though no longer ready";
    const QcGeFace3dEX copy(original);
    EXPECT_TRUE(copy.IsNormalSaved());
    EXPECT_FALSE(copy.IsNormalReady());
    EXPECT_TRUE(SameBits(copy.Normal(), QcGePoint(0, 0, 0)));
}

TEST(QcGeFace3dEX, ACopyOfAFaceWithoutStorageIsNotReadyWhateverTheFaceRemembers) {
    QcGeFace3dEX original = FullFace();
    original.SetNormalSaved(false);  // leaves it "ready"
    QcGeFace3dEX copy(original);
    EXPECT_FALSE(copy.IsNormalSaved());
    copy.SetNormalSaved(true);
    EXPECT_FALSE(copy.IsNormalReady());
    original.SetNormalSaved(true);
    EXPECT_TRUE(original.IsNormalReady());
}

TEST(QcGeFace3dEX, AssigningCopiesAndGivesAnotherCopy) {
    const QcGeFace3dEX original = FullFace();
    QcGeFace3dEX face(kD, kC, kB, false);
    static_assert(std::is_same_v<decltype(face = original), QcGeFace3dEX>);
    const QcGeFace3dEX given = (face = original);
    for (const QcGeFace3dEX* copy : {&static_cast<const QcGeFace3dEX&>(face), &given}) {
        EXPECT_EQ(copy->GetPointNum(), 4);
        ExpectCorners(*copy, kA, kB, kC, kD);
        ExpectFlags(*copy);
        EXPECT_EQ(copy->GetMaterialIndex(), 5);
        EXPECT_TRUE(copy->IsNormalReady());
        EXPECT_TRUE(SameBits(copy->Normal(), kOdd));
        EXPECT_NE(&copy->Normal(), &original.Normal());
    }
    EXPECT_NE(&given.Normal(), &face.Normal());
}

TEST(QcGeFace3dEX, AssigningAnUnreadyFaceZeroesTheStorage) {
    QcGeFace3dEX unready = FullFace();
    unready.SetPoint(kD, 0);
    QcGeFace3dEX face = FullFace();
    face = unready;
    EXPECT_TRUE(face.IsNormalSaved());
    EXPECT_FALSE(face.IsNormalReady());
    EXPECT_TRUE(SameBits(face.Normal(), QcGePoint(0, 0, 0)));
}

TEST(QcGeFace3dEX, AssigningAFaceWithoutStorageTakesItAway) {
    QcGeFace3dEX bare = FullFace();
    bare.SetNormalSaved(false);
    QcGeFace3dEX face = FullFace();
    face = bare;
    EXPECT_FALSE(face.IsNormalSaved());
    face.SetNormalSaved(true);
    EXPECT_FALSE(face.IsNormalReady());
}

TEST(QcGeFace3dEX, AssigningItselfKeepsAReadyNormal) {
    QcGeFace3dEX face = FullFace();
    const QcGeVector3dEX* const before = &face.Normal();
    const std::size_t count = AbandonedCount();
    const QcGeFace3dEX& same = face;
    face = same;
    EXPECT_EQ(AbandonedCount(), count + 1);
    EXPECT_NE(&face.Normal(), before);
    EXPECT_TRUE(SameBits(*before, kOdd)) << "abandoned, and readable";
    EXPECT_TRUE(face.IsNormalReady());
    EXPECT_TRUE(SameBits(face.Normal(), kOdd));
    EXPECT_EQ(face.GetMaterialIndex(), 5);
    ExpectCorners(face, kA, kB, kC, kD);
}

TEST(QcGeFace3dEX, AssigningAPlainFaceStartsAfresh) {
    for (const bool isTriangle : {true, false}) {
        QcGeFace3dEX face = FullFace();
        const QcGeFace plain = PlainFace(isTriangle);
        static_assert(std::is_same_v<decltype(face = plain), QcGeFace3dEX>);
        const QcGeFace3dEX given = (face = plain);
        for (const QcGeFace3dEX* copy : {&static_cast<const QcGeFace3dEX&>(face), &given}) {
            EXPECT_EQ(copy->GetPointNum(), isTriangle ? 3 : 4);
            ExpectCorners(*copy, kA, kB, kC, isTriangle ? kA : kD);
            ExpectFlags(*copy);
            EXPECT_EQ(copy->GetMaterialIndex(), -1);
            EXPECT_TRUE(copy->IsNormalSaved());
            EXPECT_FALSE(copy->IsNormalReady());
            EXPECT_TRUE(SameBits(copy->Normal(), QcGePoint(0, 0, 0)));
        }
    }
}

TEST(QcGeFace3dEX, AssigningAPlainFaceGivesStorageWhereThereWasNone) {
    QcGeFace3dEX face(false);
    face = PlainFace(true);
    EXPECT_TRUE(face.IsNormalSaved());
}

TEST(QcGeFace3dEX, AssigningAbandonsTheOldStorageReadableAsItWas) {
    QcGeFace3dEX face = FullFace();
    const QcGeVector3dEX& before = face.Normal();
    std::size_t count = AbandonedCount();
    const QcGeFace3dEX other(kD, kC, kB, true);
    face = other;
    EXPECT_EQ(AbandonedCount(), count + 1);
    face = PlainFace(false);
    EXPECT_EQ(AbandonedCount(), count + 2);
    EXPECT_TRUE(SameBits(before, kOdd));

    QcGeFace3dEX bare(false);
    count = AbandonedCount();
    bare = other;
    QcGeFace3dEX another(false);
    another = PlainFace(true);
    EXPECT_EQ(AbandonedCount(), count) << "there was no storage to give up";
    QcGeFace3dEX taken = FullFace();
    taken = QcGeFace3dEX(false);
    EXPECT_EQ(AbandonedCount(), count + 1) << "also where no other storage comes";
}

TEST(QcGeFace3dEX, SettingFourCornersMakesAQuadrilateral) {
    QcGeFace3dEX face(kA, kA, kA, true);
    face.SetNormal(kOdd);
    face.SetPoint(kA, kB, kC, kD);
    EXPECT_EQ(face.GetPointNum(), 4);
    ExpectCorners(face, kA, kB, kC, kD);
    EXPECT_FALSE(face.IsNormalReady());
}

TEST(QcGeFace3dEX, SettingThreeCornersMakesATriangle) {
    QcGeFace3dEX face = FullFace();
    face.SetPoint(kD, kC, kB);
    EXPECT_EQ(face.GetPointNum(), 3);
    ExpectCorners(face, kD, kC, kB, kD);
    EXPECT_FALSE(face.IsNormalReady());
    EXPECT_EQ(face.GetMaterialIndex(), 5);
}

TEST(QcGeFace3dEX, SettingTheSameCornersAllAtOnceClearsTheNormalAllTheSame) {
    QcGeFace3dEX face = FullFace();
    face.SetPoint(kA, kB, kC, kD);
    EXPECT_FALSE(face.IsNormalReady());
    face.SetNormal(kOdd);
    EXPECT_TRUE(face.SetPoint(kCorners, 4));
    EXPECT_FALSE(face.IsNormalReady());
}

TEST(QcGeFace3dEX, ReplacesOneCorner) {
    for (int i = 0; i < 4; ++i) {
        QcGeFace3dEX face = FullFace();
        EXPECT_TRUE(face.SetPoint({9, 9, 9}, i));
        EXPECT_FALSE(face.IsNormalReady());
        for (int k = 0; k < 4; ++k)
            EXPECT_TRUE(SameBits(face[k], k == i ? QcGePoint(9, 9, 9) : kCorners[k])) << i << k;
    }
}

TEST(QcGeFace3dEX, ReplacingCornerZeroOfATriangleMovesTheLastSlotToo) {
    QcGeFace3dEX face(kA, kB, kC, true);
    EXPECT_TRUE(face.SetPoint(kD, 0));
    ExpectCorners(face, kD, kB, kC, kD);
    EXPECT_TRUE(face.SetPoint(kA, 1));
    ExpectCorners(face, kD, kA, kC, kD);
}

TEST(QcGeFace3dEX, RefusesCornersThatItDoesNotHave) {
    QcGeFace3dEX triangle(kA, kB, kC, true);
    triangle.SetNormal(kOdd);
    for (const int i : {-1, 3, 4, 1000, -2147483647 - 1, 2147483647}) {
        EXPECT_FALSE(triangle.SetPoint({9, 9, 9}, i)) << i;
        ExpectCorners(triangle, kA, kB, kC, kA);
        EXPECT_TRUE(triangle.IsNormalReady());
    }
    QcGeFace3dEX quad = FullFace();
    for (const int i : {-1, 4}) {
        EXPECT_FALSE(quad.SetPoint({9, 9, 9}, i)) << i;
        ExpectCorners(quad, kA, kB, kC, kD);
        EXPECT_TRUE(quad.IsNormalReady());
    }
}

TEST(QcGeFace3dEX, AnEqualCornerKeepsAReadyNormal) {
    QcGeFace3dEX face = FullFace();
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(face.SetPoint(kCorners[i], i));
    EXPECT_TRUE(face.IsNormalReady());
    EXPECT_TRUE(face.SetPoint({std::nextafter(1.0, 2.0), 2, 3}, 0));  // equality is exact
    EXPECT_FALSE(face.IsNormalReady());
}

TEST(QcGeFace3dEX, ZerosOfEitherSignAreEqualAndNothingIsChanged) {
    QcGeFace3dEX face(QcGePoint(0, 0, 0), kB, kC, true);
    face.SetNormal(kOdd);
    EXPECT_TRUE(face.SetPoint({-0.0, 0, 0}, 0));
    EXPECT_TRUE(face.IsNormalReady());
    EXPECT_EQ(Bits(face.m_pt[0].x), Bits(0.0));
}

TEST(QcGeFace3dEX, ACornerThatIsNotANumberAlwaysDiffers) {
    QcGeFace3dEX face(QcGePoint(NAN, 0, 0), kB, kC, true);
    face.SetNormal(kOdd);
    EXPECT_TRUE(face.SetPoint({NAN, 0, 0}, 0));
    EXPECT_FALSE(face.IsNormalReady());
}

TEST(QcGeFace3dEX, SetsCornersFromAnArrayOfThreeOrFour) {
    QcGeFace3dEX face = FullFace();
    QcGePoint three[] = {kD, kC, kB};
    EXPECT_TRUE(face.SetPoint(three, 3));
    EXPECT_EQ(face.GetPointNum(), 3);
    ExpectCorners(face, kD, kC, kB, kD);
    EXPECT_FALSE(face.IsNormalReady());
    EXPECT_TRUE(face.SetPoint(kCorners, 4));
    EXPECT_EQ(face.GetPointNum(), 4);
    ExpectCorners(face, kA, kB, kC, kD);
}

TEST(QcGeFace3dEX, RefusesArraysOfAnotherSize) {
    QcGeFace3dEX face = FullFace();
    for (const int n : {-1, 0, 1, 2, 5, 2147483647}) {
        EXPECT_FALSE(face.SetPoint(kCorners, n)) << n;
        EXPECT_EQ(face.GetPointNum(), 4);
        ExpectCorners(face, kA, kB, kC, kD);
        EXPECT_TRUE(face.IsNormalReady());
    }
}

TEST(QcGeFace3dEX, MayTakeItsOwnCorners) {
    QcGeFace3dEX face = FullFace();
    EXPECT_TRUE(face.SetPoint(&face.m_pt[1], 3));
    ExpectCorners(face, kB, kC, kD, kB);
    QcGeFace3dEX turned = FullFace();
    turned.SetPoint(turned.m_pt[3], turned.m_pt[2], turned.m_pt[1], turned.m_pt[0]);
    ExpectCorners(turned, kD, kC, kB, kA);
}

TEST(QcGeFace3dEX, ShrinkingToATriangleKeepsTheNormal) {
    QcGeFace3dEX face = FullFace();
    EXPECT_TRUE(face.SetPointNum(3));
    EXPECT_EQ(face.GetPointNum(), 3);
    ExpectCorners(face, kA, kB, kC, kA);
    EXPECT_TRUE(face.IsNormalReady());
    EXPECT_TRUE(SameBits(face.GetNormal(), kOdd));
}

TEST(QcGeFace3dEX, GrowingToAQuadrilateralClearsTheNormal) {
    QcGeFace3dEX face(kA, kB, kC, true);
    face.SetNormal(kOdd);
    EXPECT_TRUE(face.SetPointNum(4));
    EXPECT_EQ(face.GetPointNum(), 4);
    ExpectCorners(face, kA, kB, kC, kA);
    EXPECT_FALSE(face.IsNormalReady());
}

TEST(QcGeFace3dEX, SettingTheCountItHasKeepsTheNormal) {
    QcGeFace3dEX quad = FullFace();
    EXPECT_TRUE(quad.SetPointNum(4));
    EXPECT_TRUE(quad.IsNormalReady());
    ExpectCorners(quad, kA, kB, kC, kD);
    QcGeFace3dEX triangle(kA, kB, kC, true);
    triangle.SetNormal(kOdd);
    triangle.m_pt[3] = kD;
    EXPECT_TRUE(triangle.SetPointNum(3));
    EXPECT_TRUE(triangle.IsNormalReady());
    ExpectCorners(triangle, kA, kB, kC, kA);
}

TEST(QcGeFace3dEX, RefusesOtherCounts) {
    QcGeFace3dEX face = FullFace();
    for (const int n : {-1, 0, 2, 5, 2147483647}) {
        EXPECT_FALSE(face.SetPointNum(n)) << n;
        EXPECT_EQ(face.GetPointNum(), 4);
        EXPECT_TRUE(face.IsNormalReady());
        ExpectCorners(face, kA, kB, kC, kD);
    }
}

TEST(QcGeFace3dEX, AccessGivesACopyOfASlot) {
    QcGeFace3dEX face = FullFace();
    static_assert(std::is_same_v<decltype(face[0]), QcGePoint>);
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(SameBits(face[i], kCorners[i]));
    EXPECT_TRUE(SameBits(QcGeFace3dEX(kA, kB, kC, true)[3], kA));
}

TEST(QcGeFace3dEX, KeepsAMaterialFromZeroOn) {
    QcGeFace3dEX face;
    EXPECT_FALSE(face.IsMaterialReady());
    EXPECT_TRUE(face.IsThisMaterialIndex(-1));
    EXPECT_TRUE(face.SetMaterialIndex(0));
    EXPECT_TRUE(face.IsMaterialReady());
    EXPECT_EQ(face.GetMaterialIndex(), 0);
    EXPECT_TRUE(face.IsThisMaterialIndex(0));
    EXPECT_FALSE(face.IsThisMaterialIndex(1));
    EXPECT_TRUE(face.SetMaterialIndex(2147483647));
    EXPECT_EQ(face.GetMaterialIndex(), 2147483647);
}

TEST(QcGeFace3dEX, RefusesANegativeMaterialAndCancelsOne) {
    QcGeFace3dEX face;
    face.SetMaterialIndex(7);
    EXPECT_FALSE(face.SetMaterialIndex(-1));
    EXPECT_FALSE(face.SetMaterialIndex(-2147483647 - 1));
    EXPECT_EQ(face.GetMaterialIndex(), 7);
    face.CancelMaterial();
    EXPECT_EQ(face.GetMaterialIndex(), -1);
    EXPECT_FALSE(face.IsMaterialReady());
}

}  // namespace
