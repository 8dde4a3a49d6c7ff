// Faces of SOLID, TRACE, LINE, ARC and CIRCLE.
#include <numbers>

#include "SceneForTests.h"

namespace {

std::string Corners(double z) {
    return At(0, 0, z) + At(4, 0, z, 11) + At(0, 3, z, 12) + At(5, 3, z, 13);
}

QcGeFace3dEX OnlyFace(const std::string& entity) {
    const Scene scene = SceneOf(entity);
    EXPECT_EQ(scene.faces.size(), 1U) << entity;
    return scene.faces.empty() ? QcGeFace3dEX() : scene.faces[0];
}

// The area of a regular polygon with this many sides on a circle, and its part over an angle.
double PolygonArea(double radius, int sides) {
    return 0.5 * sides * radius * radius * std::sin(2.0 * std::numbers::pi / sides);
}

}  // namespace

TEST(ThickFaces, OfASolidRunAroundItsCornersInTheOrder1243) {
    for (const char* type : {"SOLID", "TRACE"}) {
        ExpectCorners(OnlyFace(Entity(type, Corners(2))), {{0, 0, 2}, {4, 0, 2}, {5, 3, 2}, {0, 3, 2}});
        ExpectCorners(OnlyFace(Entity(type, At(0, 0, 2) + At(4, 0, 2, 11) + At(0, 3, 2, 12))),
                      {{0, 0, 2}, {4, 0, 2}, {0, 3, 2}});
        ExpectCorners(OnlyFace(Entity(type, At(0, 0, 2) + At(4, 0, 2, 11) + At(0, 3, 2, 12) + At(0, 3, 2, 13))),
                      {{0, 0, 2}, {4, 0, 2}, {0, 3, 2}});
    }
}

TEST(ThickFaces, OfASolidStandInObjectCoordinates) {
    ExpectCorners(OnlyFace(Entity("SOLID", Corners(2) + "210=1 220=0 230=0")),
                  {{2, 0, 0}, {2, 4, 0}, {2, 5, 3}, {2, 0, 3}});
}

TEST(ThickFaces, MakeASolidWithAThicknessABody) {
    for (const char* groups : {"39=10", "39=-10", "39=10 210=0 220=0 230=-1", "39=10 210=0.3 220=0.4 230=-2"}) {
        const Scene scene = SceneOf(Entity("SOLID", Corners(2) + groups));
        EXPECT_EQ(scene.faces.size(), 6U) << groups;
        ExpectBody(scene.faces, (4.0 + 5.0) / 2.0 * 3.0 * 10.0);
    }
    const Scene up = SceneOf(Entity("TRACE", Corners(2) + "39=10"));
    EXPECT_EQ(up.least, QcGePoint(0, 0, 2));
    EXPECT_EQ(up.most, QcGePoint(5, 3, 12));
    const Scene triangle = SceneOf(Entity("SOLID", At(0, 0, 0) + At(4, 0, 0, 11) + At(0, 3, 0, 12) + "39=2"));
    EXPECT_EQ(triangle.faces.size(), 5U);
    ExpectBody(triangle.faces, 12.0);
}

TEST(ThickFaces, OfALineAreItsWall) {
    const std::string line = At(1, 2, 3) + At(5, 2, 4, 11);
    ExpectCorners(OnlyFace(Entity("LINE", line + "39=10")), {{1, 2, 3}, {5, 2, 4}, {5, 2, 14}, {1, 2, 13}});
    ExpectCorners(OnlyFace(Entity("LINE", line + "39=-10")), {{1, 2, -7}, {5, 2, -6}, {5, 2, 4}, {1, 2, 3}});
    // The ends stay where they are: only the thickness goes the extrusion's way.
    ExpectCorners(OnlyFace(Entity("LINE", line + "39=10 210=0 220=2 230=0")),
                  {{1, 2, 3}, {5, 2, 4}, {5, 12, 4}, {1, 12, 3}});
}

TEST(ThickFaces, OfACircleAreABodyOfChords) {
    // A chord may be 50 from a circle with the radius 10000: 2 acos(0.995) = 0.2001, 15.7 of them for half a circle.
    for (const char* groups : {"39=3000", "39=-3000", "39=3000 210=0 220=0 230=-1"}) {
        const Scene scene = SceneOf(Entity("CIRCLE", At(500, -300, 7) + "40=10000 " + groups));
        EXPECT_EQ(scene.entities.size(), 1U);
        ExpectBody(scene.faces, PolygonArea(10000, 32) * 3000.0);
        EXPECT_NEAR(LevelArea(scene.faces, 1), PolygonArea(10000, 32), 1e-3);
        EXPECT_NEAR(LevelArea(scene.faces, -1), PolygonArea(10000, 32), 1e-3);
    }
    const Scene scene = SceneOf(Entity("CIRCLE", At(500, -300, 7) + "40=10000 39=3000"));
    EXPECT_NEAR(scene.most.x, 10500.0, 1e-6);
    EXPECT_NEAR(scene.least.x, -9500.0, 1e-6);
    EXPECT_EQ(scene.least.z, 7.0);
    EXPECT_EQ(scene.most.z, 3007.0);
}

TEST(ThickFaces, OfAnArcAreWallsCounterClockwiseFromItsStart) {
    // A quarter from 315 to 45 degrees, in two halves of four chords each.
    const Scene scene = SceneOf(Entity("ARC", At(10, 20, 0) + "40=2 50=315 51=45 39=3"));
    ASSERT_EQ(scene.faces.size(), 8U);
    const double half = std::sqrt(2.0);
    EXPECT_NEAR(scene.faces[0][0].x, 10 + half, 1e-9);
    EXPECT_NEAR(scene.faces[0][0].y, 20 - half, 1e-9);
    EXPECT_NEAR(scene.faces[4][0].x, 12, 1e-9);
    EXPECT_NEAR(scene.faces[4][0].y, 20, 1e-9);
    EXPECT_NEAR(scene.faces[7][1].x, 10 + half, 1e-9);
    EXPECT_NEAR(scene.faces[7][1].y, 20 + half, 1e-9);
    for (const QcGeFace3dEX& face : scene.faces) {
        EXPECT_NEAR(std::hypot(face[0].x - 10, face[0].y - 20), 2.0, 1e-9);
        EXPECT_GT(AreaVectorOf(face)[0], 0.0) << "to the right, which is away from the centre";
        EXPECT_NEAR(AreaOf(face), 3.0 * 4.0 * std::sin(std::numbers::pi / 4.0 / 8.0), 1e-9);
    }
}

TEST(ThickFaces, OfAnArcAllTheWayRoundAreABody) {
    for (const char* angles : {"50=30 51=30", "50=0 51=360", "50=-90 51=270"}) {
        const Scene scene = SceneOf(Entity("ARC", At(0, 0, 0) + "40=2 39=3 " + std::string(angles)));
        ExpectBody(scene.faces, PolygonArea(2, 8) * 3.0);
    }
}

TEST(ThickFaces, NeedAThickness) {
    const Scene scene =
        SceneOf(Entity("LINE", At(0, 0, 0) + At(1, 0, 0, 11)) + Entity("CIRCLE", At(0, 0, 0) + "40=2 39=0") +
                Entity("ARC", At(0, 0, 0) + "40=2 50=0 51=90"));
    EXPECT_TRUE(scene.faces.empty());
    EXPECT_EQ(OtherCount(scene), 3U);
    EXPECT_EQ(scene.faultyCount, 0U);
}

TEST(ThickFaces, AreNoneOfUnsoundData) {
    ExpectFaulty(Entity("SOLID", At(0, 0, 0) + At(1, 0, 0, 11)), "two corners");
    ExpectFaulty(Entity("SOLID", Corners(0) + "39=x"), "thickness");
    ExpectFaulty(Entity("SOLID", Corners(0) + "210=0 220=0 230=0"), "extrusion");
    ExpectFaulty(Entity("TRACE", At(0, 0, 0) + At(1, 0, 0, 11) + At(2, 0, 0, 12)), "in one line");
    ExpectFaulty(Entity("SOLID", At(0, 0, 0) + At(1, 0, 0, 11) + At(0, 1, 0, 12) + "13=4"), "half a corner");
    ExpectFaulty(Entity("LINE", At(0, 0, 0) + "39=3"), "one end");
    ExpectFaulty(Entity("LINE", At(0, 0, 0) + At(0, 0, 0, 11) + "39=3"), "no length");
    ExpectFaulty(Entity("LINE", At(0, 0, 0) + At(0, 0, 5, 11) + "39=3"), "along its thickness");
    ExpectFaulty(Entity("LINE", At(0, 0, 0) + At(1, 0, 0, 11) + "39=nan"), "thickness");
    for (const char* radius : {"", "40=0", "40=-2", "40=x", "40=1e50"}) {
        ExpectFaulty(Entity("CIRCLE", "10=1e50 20=0 39=3 " + std::string(radius)), radius);
        ExpectFaulty(Entity("ARC", "10=1e50 20=0 39=3 50=0 51=90 " + std::string(radius)), radius);
    }
    ExpectFaulty(Entity("ARC", At(0, 0, 0) + "39=3 40=2 50=0"), "no end");
    ExpectFaulty(Entity("ARC", At(0, 0, 0) + "39=3 40=2 50=0 51=x"), "end");
    ExpectFaulty(Entity("CIRCLE", "20=0 39=3 40=2"), "no centre");
}
