// Walls, bottoms and tops of polylines with a thickness.
#include <numbers>

#include "SceneForTests.h"

namespace {

using Points = std::vector<std::array<double, 2>>;

std::string PointsText(const Points& points) {
    std::ostringstream text;
    text.precision(17);
    for (const auto& [x, y] : points)
        text << "10=" << x << " 20=" << y << ' ';
    return text.str();
}

std::string Lw(const std::string& groups, const Points& points) {
    return Entity("LWPOLYLINE", groups + " " + PointsText(points));
}

std::string Old(const std::string& groups, const Points& points) {
    std::string text = Entity("POLYLINE", "66=1 " + groups);
    for (const auto& [x, y] : points)
        text += Entity("VERTEX", At(x, y, 99) + "70=0");
    return text + Entity("SEQEND", "");
}

const Points kSquare = {{1, 2}, {5, 2}, {5, 5}, {1, 5}};                     // 12
const Points kL = {{0, 0}, {40, 0}, {40, 14}, {14, 14}, {14, 35}, {0, 35}};  // 40 * 14 + 14 * 21 = 854

Points Reversed(Points points) {
    return {points.rbegin(), points.rend()};
}

}  // namespace

TEST(PolylineFaces, AreAWallForEachSegment) {
    const Scene scene = SceneOf(Lw("39=3 38=10", {{0, 0}, {4, 0}, {4, 2}}));
    ASSERT_EQ(scene.faces.size(), 2U);
    ExpectCorners(scene.faces[0], {{0, 0, 10}, {4, 0, 10}, {4, 0, 13}, {0, 0, 13}});
    ExpectCorners(scene.faces[1], {{4, 0, 10}, {4, 2, 10}, {4, 2, 13}, {4, 0, 13}});
    EXPECT_EQ(FlagsOf(scene.faces[0]), "----");
}

TEST(PolylineFaces, OfAnOpenPathFaceToItsRightWhicheverWayTheyGo) {
    for (const char* thickness : {"39=3", "39=-3"}) {
        const Scene scene = SceneOf(Lw(thickness, {{0, 0}, {4, 0}}));
        ASSERT_EQ(scene.faces.size(), 1U);
        EXPECT_DOUBLE_EQ(AreaVectorOf(scene.faces[0])[1], -12.0) << thickness;
    }
}

TEST(PolylineFaces, MakeAClosedOutlineABodyWithBottomAndTop) {
    const Scene scene = SceneOf(Lw("39=10 38=2 70=1", kSquare));
    ASSERT_EQ(scene.faces.size(), 6U) << "a convex quadrilateral's bottom and top are one face each";
    ExpectBody(scene.faces, 120.0);
    EXPECT_DOUBLE_EQ(LevelArea(scene.faces, 1), 12.0);
    EXPECT_DOUBLE_EQ(LevelArea(scene.faces, -1), 12.0);
    EXPECT_EQ(scene.least, QcGePoint(1, 2, 2));
    EXPECT_EQ(scene.most, QcGePoint(5, 5, 12));
}

TEST(PolylineFaces, TakeAnOutlineThatComesBackToItsBeginningForClosed) {
    Points points = kSquare;
    points.push_back(kSquare[0]);
    for (const char* flags : {"39=10 70=0", "39=10 70=1", "39=10"}) {
        const Scene scene = SceneOf(Lw(flags, points));
        EXPECT_EQ(scene.faces.size(), 6U) << flags;
        ExpectBody(scene.faces, 120.0);
    }
}

TEST(PolylineFaces, AreOutwardForBothSensesAndBothSignsOfTheThickness) {
    for (const Points& points : {kL, Reversed(kL)})
        for (const char* thickness : {"39=30 70=1", "39=-30 70=1"})
            for (const char* extrusion : {"", " 210=0 220=0 230=-1", " 210=1 220=0 230=0", " 210=0.3 220=-0.4 230=2"}) {
                const Scene scene = SceneOf(Lw(std::string(thickness) + extrusion, points));
                EXPECT_EQ(scene.faces.size(), 6U + 2U * 4U);
                ExpectBody(scene.faces, 854.0 * 30.0);
            }
}

TEST(PolylineFaces, GoDownWithANegativeThickness) {
    const Scene scene = SceneOf(Lw("39=-10 38=2 70=1", kSquare));
    EXPECT_EQ(scene.least.z, -8.0);
    EXPECT_EQ(scene.most.z, 2.0);
    EXPECT_DOUBLE_EQ(LevelArea(scene.faces, 1), 12.0);
}

TEST(PolylineFaces, AreMirroredByAnExtrusionThatPointsDown) {
    // Its x axis is the world's turned round; height 2 to 12 along it is -2 to -12.
    const Scene scene = SceneOf(Lw("39=10 38=2 70=1 210=0 220=0 230=-1", kSquare));
    EXPECT_EQ(scene.least, QcGePoint(-5, 2, -12));
    EXPECT_EQ(scene.most, QcGePoint(-1, 5, -2));
}

TEST(PolylineFaces, CoverAConcaveOutlineOnce) {
    for (const Points& points : {kL, Reversed(kL)}) {
        const Scene scene = SceneOf(Lw("39=30 70=1", points));
        EXPECT_NEAR(LevelArea(scene.faces, 1), 854.0, 1e-9);
        EXPECT_NEAR(LevelArea(scene.faces, -1), 854.0, 1e-9);
        EXPECT_EQ(scene.faultyCount, 0U);
    }
}

TEST(PolylineFaces, HideTheDiagonalsOfBottomAndTop) {
    const Scene scene = SceneOf(Lw("39=30 70=1", kL));
    int shown = 0;
    int hidden = 0;
    for (std::size_t i = 6; i < scene.faces.size(); ++i)
        for (int k = 0; k < 3; ++k) {
            const QcGePoint a = scene.faces[i][k];
            const QcGePoint b = scene.faces[i][(k + 1) % 3];
            const bool isShown = scene.faces[i].m_flag[k] == 0;
            ++(isShown ? shown : hidden);
            if (isShown)
                EXPECT_TRUE(a.x == b.x || a.y == b.y) << "the outline's own edges are along the axes";
        }
    EXPECT_EQ(shown, 2 * 6);
    EXPECT_EQ(hidden, 2 * 6) << "three diagonals from both sides, in both";
}

TEST(PolylineFaces, DropPointsThatRepeatTheOneBefore) {
    const Scene scene =
        SceneOf(Lw("39=10 70=1", {{1, 2}, {1, 2}, {5, 2}, {5, 5}, {5, 5}, {5, 5}, {1, 5}, {1, 2}, {1, 2}}));
    EXPECT_EQ(scene.faces.size(), 6U);
    ExpectBody(scene.faces, 120.0);
}

TEST(PolylineFaces, KeepPointsInOneLineInTheWalls) {
    const Scene scene = SceneOf(Lw("39=10 70=1", {{1, 2}, {3, 2}, {5, 2}, {5, 5}, {1, 5}}));
    ExpectBody(scene.faces, 120.0);
    EXPECT_DOUBLE_EQ(LevelArea(scene.faces, 1), 12.0);
}

TEST(PolylineFaces, GiveAnOutlineThatCrossesItselfItsWallsOnly) {
    const Scene eight = SceneOf(Lw("39=10 70=1", {{0, 0}, {10, 10}, {10, 0}, {0, 7}}));
    EXPECT_EQ(eight.faces.size(), 4U);
    EXPECT_EQ(LevelArea(eight.faces, 1), 0.0);
    EXPECT_EQ(eight.faultyCount, 0U);
    const Scene star = SceneOf(Lw("39=10 70=1", {{0, 10}, {6, -8}, {-9.5, 3}, {9.5, 3}, {-6, -8}}));
    EXPECT_EQ(star.faces.size(), 5U) << "it winds twice around its middle";
}

TEST(PolylineFaces, DivideAnOutlineWithACourtyardOnASlit) {
    // 100 x 100 around 20 x 20, joined by a slit that is walked there and back: 9600.
    const Points points = {{0, 0},   {100, 0}, {100, 100}, {0, 100}, {0, 0}, {40, 40},
                           {40, 60}, {60, 60}, {60, 40},   {40, 40}, {0, 0}};
    for (const Points& each : {points, Reversed(points)}) {
        const Scene scene = SceneOf(Lw("39=10 70=1", each));
        EXPECT_NEAR(LevelArea(scene.faces, 1), 9600.0, 1e-6);
        ExpectBody(scene.faces, 96000.0);
    }
}

TEST(PolylineFaces, AreWallsOnlyForTwoPointsThereAndBack) {
    const Scene scene = SceneOf(Lw("39=10 70=1", {{0, 0}, {4, 0}}));
    EXPECT_EQ(scene.faces.size(), 2U);
    EXPECT_EQ(LevelArea(scene.faces, 1), 0.0);
}

TEST(PolylineFaces, MakeACircleOfTwoBulges) {
    // Radius 1000 mm, height 100. The chords' ends are on the circle: n of them enclose n / 2 * r^2 * sin(2 pi / n).
    const Scene scene = SceneOf(Entity("LWPOLYLINE", "39=100 70=1 10=-1000 20=0 42=1 10=1000 20=0 42=1"));
    // A chord over the angle a is 1000 * (1 - cos(a / 2)) away from the arc, which may be 50.
    const double widest = 2.0 * std::acos(1.0 - 50.0 / 1000.0);
    const int chords = 2 * static_cast<int>(std::ceil(std::numbers::pi / widest));
    const double area = chords / 2.0 * 1e6 * std::sin(2.0 * std::numbers::pi / chords);
    ExpectBody(scene.faces, area * 100.0);
    EXPECT_NEAR(LevelArea(scene.faces, 1), area, 1e-3);
    for (const QcGeFace3dEX& face : scene.faces)
        for (int i = 0; i < face.GetPointNum(); ++i)
            EXPECT_NEAR(std::hypot(face[i].x, face[i].y), 1000.0, 1e-9);
}

TEST(PolylineFaces, HideTheEdgesBetweenTheChordsOfAnArc) {
    const Scene scene = SceneOf(Entity("LWPOLYLINE", "39=1 10=0 20=0 42=1 10=1 20=0 10=2 20=0"));
    ASSERT_EQ(scene.faces.size(), 5U) << "four chords and a straight wall";
    EXPECT_EQ(FlagsOf(scene.faces[0]), "-h--");
    EXPECT_EQ(FlagsOf(scene.faces[1]), "-h-h");
    EXPECT_EQ(FlagsOf(scene.faces[3]), "---h");
    EXPECT_EQ(FlagsOf(scene.faces[4]), "----");
}

TEST(PolylineFaces, BulgeToTheRightWhenPositive) {
    // Counter-clockwise from (0, 0) to (2, 0): a half circle below the x axis.
    const Scene below = SceneOf(Entity("LWPOLYLINE", "39=1 10=0 20=0 42=1 10=2 20=0"));
    EXPECT_NEAR(below.least.y, -1.0, 1e-12);
    EXPECT_NEAR(below.most.y, 0.0, 1e-12);
    const Scene above = SceneOf(Entity("LWPOLYLINE", "39=1 10=0 20=0 42=-1 10=2 20=0"));
    EXPECT_NEAR(above.most.y, 1.0, 1e-12);
}

TEST(PolylineFaces, MeasureTheSagittaInTheDrawingsUnit) {
    // A half circle of radius 20 m; 50 mm allow chords of 2 * acos(1 - 0.05 / 20) = 0.1415 radians: 23 of them.
    EXPECT_EQ(SceneOf(Entity("LWPOLYLINE", "39=1 10=0 20=0 42=1 10=40 20=0"), "", 6).faces.size(), 23U);
    EXPECT_EQ(SceneOf(Entity("LWPOLYLINE", "39=1 10=0 20=0 42=1 10=40000 20=0"), "", 4).faces.size(), 23U);
    EXPECT_EQ(SceneOf(Entity("LWPOLYLINE", "39=1 10=0 20=0 42=1 10=40000 20=0"), "", 0).faces.size(), 23U);
    EXPECT_EQ(SceneOf(Entity("LWPOLYLINE", "39=1 10=0 20=0 42=1 10=4000 20=0"), "", 5).faces.size(), 23U);
    EXPECT_EQ(SceneOf(Entity("LWPOLYLINE", "39=1 10=0 20=0 42=1 10=131.2336 20=0"), "", 2).faces.size(), 23U);
    EXPECT_EQ(SceneOf(Entity("LWPOLYLINE", "39=1 10=0 20=0 42=1 10=40000 20=0"), "", 19).faces.size(), 23U)
        << "nobody builds in light years";
}

TEST(PolylineFaces, OfOldPolylinesAreTheSame) {
    // The height is the POLYLINE's own z; that of its vertices does not count.
    const Scene scene = SceneOf(Old("39=30 70=1 10=0 20=0 30=7", kL));
    ExpectBody(scene.faces, 854.0 * 30.0);
    EXPECT_EQ(scene.least.z, 7.0);
    EXPECT_EQ(scene.most.z, 37.0);
    EXPECT_EQ(scene.entities.size(), 1U);
    EXPECT_EQ(OtherCount(scene), 0U);
    EXPECT_EQ(SceneOf(Entity("POLYLINE", "39=1 70=0") + Entity("VERTEX", "10=0 20=0 42=1") +
                      Entity("VERTEX", "10=1 20=0") + Entity("SEQEND", ""))
                  .faces.size(),
              4U)
        << "an arc";
}

TEST(PolylineFaces, PassOverTheFramePointsOfASpline) {
    const Scene scene = SceneOf(Entity("POLYLINE", "39=1 70=4") + Entity("VERTEX", "10=0 20=0 70=16") +
                                Entity("VERTEX", "10=0 20=0 70=8") + Entity("VERTEX", "10=5 20=9 70=16") +
                                Entity("VERTEX", "10=5 20=4 70=8") + Entity("VERTEX", "10=9 20=0 70=8") +
                                Entity("VERTEX", "10=10 20=9 70=16") + Entity("SEQEND", ""));
    ASSERT_EQ(scene.faces.size(), 2U);
    ExpectCorners(scene.faces[0], {{0, 0, 0}, {5, 4, 0}, {5, 4, 1}, {0, 0, 1}});
}

TEST(PolylineFaces, NeedAThickness) {
    for (const char* thickness : {"", "39=0", "39=0.0", "39=1e-9"}) {
        const Scene scene =
            SceneOf(Lw(std::string(thickness) + " 70=1", kSquare) + Old(std::string(thickness) + " 70=1", kSquare));
        EXPECT_TRUE(scene.faces.empty());
        EXPECT_EQ(OtherCount(scene), 2U);
        EXPECT_EQ(scene.faultyCount, 0U);
    }
}

TEST(PolylineFaces, AreNoneOfAThreeDimensionalPolyline) {
    const Scene scene = SceneOf(Old("39=10 70=8", kSquare));
    EXPECT_TRUE(scene.faces.empty());
    EXPECT_EQ(OtherCount(scene), 1U);
}

TEST(PolylineFaces, AreFaultyWithoutTwoPoints) {
    ExpectFaulty(Lw("39=10 70=1", {}), "no point");
    ExpectFaulty(Lw("39=10 70=1", {{1, 1}}), "one point");
    ExpectFaulty(Lw("39=10 70=1", {{1, 1}, {1, 1}, {1, 1}}), "one place");
    ExpectFaulty(Old("39=10 70=1", {}), "no vertex");
}

TEST(PolylineFaces, AreFaultyWithBrokenNumbers) {
    ASSERT_EQ(SceneOf(Lw("90=4 39=10 70=1 43=0", kSquare)).faces.size(), 6U) << "what is varied below";
    for (const char* groups : {"39=x", "39=nan", "39=10 38=inf", "39=10 70=x", "39=10 210=x", "39=10 230=0",
                               "39=10 90=5", "39=10 90=2000000000", "39=10 90=x", "39=10 38=1e30"})
        ExpectFaulty(Lw(groups, kSquare), groups);
    for (const char* points :
         {"10=0 20=0 10=x 20=1", "10=0 20=0 10=1", "10=0 10=1 20=1", "20=1 10=0 20=0 10=1 20=1",
          "42=1 10=0 20=0 10=1 20=1", "10=0 20=0 42=nan 10=1 20=1", "10=0 20=0 42=1e40 10=1e30 20=1"})
        ExpectFaulty(Entity("LWPOLYLINE", "39=10 " + std::string(points)), points);
    ExpectFaulty(Entity("POLYLINE", "39=10 70=x"), "flags");
    ExpectFaulty(Entity("POLYLINE", "39=10") + Entity("VERTEX", "10=0 20=0") + Entity("VERTEX", "10=0"),
                 "half a point");
    ExpectFaulty(Entity("POLYLINE", "39=10") + Entity("VERTEX", "10=0 20=0") + Entity("VERTEX", "10=0 20=1 42=x"),
                 "bulge");
}
