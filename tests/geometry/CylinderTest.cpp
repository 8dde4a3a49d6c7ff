// The prism between a face and the sun, and the sieve of occluders.
#include "geometry/Cylinder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>
#include <vector>

#include "Bits.h"
#include "geometry/QcGeFace3dEX.h"

namespace {

const double kAbove = std::nextafter(1e-12, 1.0);

QcGeFace3dEX Square(double x, double y, double z, double half = 0.5) {
    return {{x - half, y - half, z}, {x + half, y - half, z}, {x + half, y + half, z}, {x - half, y + half, z}, true};
}

PlaneEquation EquationOf(const Plane& plane) {
    PlaneEquation e{};
    plane.GetEquation(e.a, e.b, e.c, e.d);
    return e;
}

bool SameBits(const PlaneEquation& left, const PlaneEquation& right) {
    return Bits(left.a) == Bits(right.a) && Bits(left.b) == Bits(right.b) && Bits(left.c) == Bits(right.c) &&
           Bits(left.d) == Bits(right.d);
}

TEST(Cylinder, BeginsEmptyAndLetsEverythingIn) {
    static_assert(std::is_base_of_v<QcList<Plane>, Cylinder>);
    static_assert(sizeof(Cylinder) == sizeof(QcList<Plane>));
    Cylinder cylinder;
    EXPECT_EQ(cylinder.GetLength(), 0);
    EXPECT_TRUE(cylinder.IsSomeFacePointIn(Square(0, 0, 0)));
}

TEST(Cylinder, CopiesItsPlanes) {
    Cylinder original;
    original.Append(Plane(1, 2, 3, 4));
    Cylinder copy(original);
    original.Reset();
    ASSERT_EQ(copy.GetLength(), 1);
    EXPECT_TRUE(copy[0] == Plane(1, 2, 3, 4));
}

TEST(Cylinder, IsDestroyedThroughTheListsTable) {
    static_assert(std::has_virtual_destructor_v<Cylinder>);
    const QcDynArrayBase<Plane>* base = new Cylinder;
    delete base;
}

TEST(Cylinder, HasTheFacesPlaneAndOneForEachEdge) {
    QcGeFace3dEX face = Square(0, 0, 0);
    Cylinder cylinder;
    cylinder.Append(Plane(9, 9, 9, 9));
    face.ContructLightHalfCylinder(cylinder, {0, 0, -2});
    ASSERT_EQ(cylinder.GetLength(), 5) << "what was in it is gone";
    EXPECT_TRUE(cylinder[0] == Plane(0, 0, 1, 0));
    // e x L: (1,0,0) x (0,0,-2) = (0,2,0), not normalised; through (-0.5,-0.5,0)
    EXPECT_TRUE(cylinder[1] == Plane(0, 2, 0, 1));
    EXPECT_TRUE(cylinder[2] == Plane(-2, 0, 0, 1));
    EXPECT_TRUE(cylinder[3] == Plane(0, -2, 0, 1));
    EXPECT_TRUE(cylinder[4] == Plane(2, 0, 0, 1));
}

TEST(Cylinder, OfATriangleHasFourPlanes) {
    QcGeFace3dEX face({0, 0, 0}, {3, 0, 0}, {0, 4, 0}, true);
    face.m_pt[3] = {77, 77, 77};  // the last edge leads from corner 2 to corner 0, not to the fourth slot
    Cylinder cylinder;
    face.ContructLightHalfCylinder(cylinder, {0, 0, -1});
    ASSERT_EQ(cylinder.GetLength(), 4);
    EXPECT_TRUE(cylinder[3] == Plane(1, 0, 0, 0));
}

// Each edge plane as the rule forms it: unit edge, cross product with the light as it is, through the edge's start.
TEST(Cylinder, FormsItsPlanesToTheBit) {
    RandomNumbers random(8);
    for (int round = 0; round < 500; ++round) {
        const int count = 3 + random.Below(2);
        const QcGePoint corners[] = {random.Point(50), random.Point(50), random.Point(50), random.Point(50)};
        QcGeFace3dEX face(corners, count, true);
        const QcGePoint l = random.Point(2);
        Cylinder cylinder;
        face.ContructLightHalfCylinder(cylinder, l);
        ASSERT_EQ(cylinder.GetLength(), count + 1);
        ASSERT_TRUE(SameBits(EquationOf(cylinder[0]), EquationOf(face.GetPlane())));
        for (int i = 0; i < count; ++i) {
            const QcGePoint& p = corners[i];
            const QcGePoint& q = corners[(i + 1) % count];
            QcGeVector3dEX e(q.x - p.x, q.y - p.y, q.z - p.z);
            e.Normalize();
            const double nx = e.y * l.z - e.z * l.y;
            const double ny = e.z * l.x - e.x * l.z;
            const double nz = e.x * l.y - e.y * l.x;
            const double d = -(nx * p.x + ny * p.y + nz * p.z);
            ASSERT_TRUE(SameBits(EquationOf(cylinder[i + 1]), {nx, ny, nz, d})) << round << ' ' << i;
        }
    }
}

TEST(Cylinder, AnEdgeWithoutLengthBoundsNothing) {
    QcGeFace3dEX face({0, 0, 0}, {1, 0, 0}, {1, 0, 0}, {0, 1, 0}, true);
    Cylinder cylinder;
    face.ContructLightHalfCylinder(cylinder, {0, 0, -1});
    ASSERT_EQ(cylinder.GetLength(), 5);
    EXPECT_TRUE(cylinder[2] == Plane(0, 0, 0, 0));
    // A plane of zeros has a side of 0 everywhere, which keeps everything out.
    EXPECT_FALSE(cylinder.IsSomeFacePointIn(Square(0.2, 0.2, 5, 0.1)));
}

TEST(Cylinder, AShortEdgeStaysAsShortAsItIs) {
    QcGeFace3dEX face({0, 0, 0}, {1, 0, 0}, {1, 5e-13, 0}, {0, 1, 0}, true);
    Cylinder cylinder;
    face.ContructLightHalfCylinder(cylinder, {0, 0, -1});
    EXPECT_EQ(EquationOf(cylinder[2]).a, -5e-13);
}

class LitSquare : public testing::Test {
protected:
    LitSquare() { Square(0, 0, 0, 2).ContructLightHalfCylinder(m_cylinder, {1, 0, -1}); }
    Cylinder m_cylinder;  // leans to the west: at height z it spans x from -2 - z to 2 - z
};

TEST_F(LitSquare, LetsInWhatStandsTowardsTheSun) {
    EXPECT_TRUE(m_cylinder.IsSomeFacePointIn(Square(-10, 0, 10)));
    EXPECT_TRUE(m_cylinder.IsSomeFacePointIn(Square(0, 0, 1)));
    EXPECT_TRUE(m_cylinder.IsSomeFacePointIn(Square(-1e6, 1, 1e6)));
}

TEST_F(LitSquare, KeepsOutWhatStandsBeyondAnyOfItsPlanes) {
    EXPECT_FALSE(m_cylinder.IsSomeFacePointIn(Square(10, 0, 10))) << "east";
    EXPECT_FALSE(m_cylinder.IsSomeFacePointIn(Square(-20, 0, 10))) << "west";
    EXPECT_FALSE(m_cylinder.IsSomeFacePointIn(Square(-10, 5, 10))) << "north";
    EXPECT_FALSE(m_cylinder.IsSomeFacePointIn(Square(-10, -5, 10))) << "south";
    EXPECT_FALSE(m_cylinder.IsSomeFacePointIn(Square(1, 0, -1))) << "behind";
    EXPECT_FALSE(m_cylinder.IsSomeFacePointIn(Square(0, 0, 0))) << "in the face's own plane";
}

TEST_F(LitSquare, LetsInAFaceThatSurroundsIt) {
    EXPECT_TRUE(m_cylinder.IsSomeFacePointIn(Square(0, 0, 5, 1000))) << "no corner is inside, yet it shades";
}

TEST_F(LitSquare, MayLetInWhatIsOutsideNearAnEdge) {
    // Corner-wise beyond two planes, but wholly beyond neither.
    const QcGeFace3dEX outside({1, 4, 1}, {4, 1, 1}, {4, 4, 1}, true);
    EXPECT_TRUE(m_cylinder.IsSomeFacePointIn(QcGeFace3dEX({0, 2.9, 1}, {2.9, 0, 1}, {2.9, 2.9, 1}, true)));
    EXPECT_TRUE(m_cylinder.IsSomeFacePointIn(QcGeFace3dEX({0.9, 2.2, 1}, {1.2, 1.9, 1}, {1.2, 2.2, 1}, true)));
    EXPECT_FALSE(m_cylinder.IsSomeFacePointIn(outside));
}

TEST_F(LitSquare, LeavesTheCursorWhereTheWalkStopped) {
    ASSERT_FALSE(m_cylinder.IsSomeFacePointIn(Square(1, 0, -1)));
    EXPECT_EQ(m_cylinder.GetCurPos(), 0) << "the face's own plane separates";
    ASSERT_FALSE(m_cylinder.IsSomeFacePointIn(Square(-10, -5, 10)));
    EXPECT_EQ(m_cylinder.GetCurPos(), 1);
    ASSERT_FALSE(m_cylinder.IsSomeFacePointIn(Square(10, 0, 10)));
    EXPECT_EQ(m_cylinder.GetCurPos(), 2);
    ASSERT_FALSE(m_cylinder.IsSomeFacePointIn(Square(-10, 5, 10)));
    EXPECT_EQ(m_cylinder.GetCurPos(), 3);
    ASSERT_FALSE(m_cylinder.IsSomeFacePointIn(Square(-20, 0, 10)));
    EXPECT_EQ(m_cylinder.GetCurPos(), 4);
    ASSERT_TRUE(m_cylinder.IsSomeFacePointIn(Square(-10, 0, 10)));
    EXPECT_TRUE(m_cylinder.IsOut());
}

// A single plane z = 0 with its positive side up.
class HalfSpace : public testing::Test {
protected:
    HalfSpace() { m_cylinder.Append(Plane(0, 0, 1, 0)); }
    Cylinder m_cylinder;
};

TEST_F(HalfSpace, ACornerAtTheToleranceIsStillKeptOut) {
    EXPECT_FALSE(m_cylinder.IsSomeFacePointIn(Square(0, 0, 1e-12)));
    EXPECT_TRUE(m_cylinder.IsSomeFacePointIn(Square(0, 0, kAbove)));
}

TEST_F(HalfSpace, OneCornerInsideIsEnough) {
    for (int i = 0; i < 4; ++i) {
        QcGeFace3dEX face = Square(0, 0, -1);
        face.SetPoint({0, 0, 1}, i);
        EXPECT_TRUE(m_cylinder.IsSomeFacePointIn(face)) << i;
    }
}

TEST_F(HalfSpace, ATrianglesFourthSlotIsNoCorner) {
    QcGeFace3dEX triangle({0, 0, -1}, {1, 0, -1}, {0, 1, -1}, true);
    triangle.m_pt[3] = {0, 0, 5};
    EXPECT_FALSE(m_cylinder.IsSomeFacePointIn(triangle));
}

TEST_F(HalfSpace, ASideThatIsNotANumberKeepsNothingOut) {
    QcGeFace3dEX face = Square(0, 0, -1);
    face.SetPoint({NAN, 0, 0}, 2);
    EXPECT_TRUE(m_cylinder.IsSomeFacePointIn(face));
}

}  // namespace
