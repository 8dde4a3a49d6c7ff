// Where an INSERT puts the faces of its block.
#include "BlocksForTests.h"

namespace {

void ExpectNear(const QcGeFace3dEX& face, const std::vector<QcGePoint>& corners, const std::string& why) {
    ASSERT_EQ(face.GetPointNum(), static_cast<int>(corners.size())) << why;
    for (int i = 0; i < face.GetPointNum(); ++i) {
        const QcGePoint& expected = corners[static_cast<std::size_t>(i)];
        EXPECT_NEAR(face[i].x, expected.x, 1e-9) << why << ", corner " << i;
        EXPECT_NEAR(face[i].y, expected.y, 1e-9) << why << ", corner " << i;
        EXPECT_NEAR(face[i].z, expected.z, 1e-9) << why << ", corner " << i;
    }
}

// Where the block's triangle comes to stand.
void ExpectTriangle(const std::string& insert, const std::vector<QcGePoint>& corners, const std::string& base = {}) {
    const Scene scene = BlockScene(BlockText("A", Scalene(), base), Insert("2=A " + insert));
    EXPECT_EQ(scene.faultyCount, 0U) << insert;
    ASSERT_EQ(scene.faces.size(), 1U) << insert;
    ExpectNear(scene.faces[0], corners, insert);
}

const std::string kBox = Entity("LWPOLYLINE", "39=3 70=1 10=0 20=0 10=2 20=0 10=2 20=1 10=0 20=1");

}  // namespace

TEST(Insert, MovesItsBlock) {
    ExpectTriangle("10=10 20=20 30=30", {{10, 20, 30}, {14, 20, 30}, {10, 22, 31}});
    ExpectTriangle("10=10 20=20", {{10, 20, 0}, {14, 20, 0}, {10, 22, 1}});
    ExpectTriangle("10=10 20=20 30=30", {{9, 18, 27}, {13, 18, 27}, {9, 20, 28}}, "10=1 20=2 30=3");
}

TEST(Insert, ScalesAndTurnsItsBlockAboutTheBasePoint) {
    ExpectTriangle("10=10 20=0 41=2 42=3 43=5", {{10, 0, 0}, {18, 0, 0}, {10, 6, 5}});
    ExpectTriangle("10=10 20=0 50=90", {{10, 0, 0}, {10, 4, 0}, {8, 0, 1}});
    ExpectTriangle("10=10 20=0 50=450", {{10, 0, 0}, {10, 4, 0}, {8, 0, 1}});
    // Scaled first, then turned: a point (x, y) of the block is at (-3 * (y - 1), 2 * (x - 1)) from the insertion
    // point.
    ExpectTriangle("10=10 20=0 41=2 42=3 50=90", {{13, -2, 0}, {13, 6, 0}, {7, -2, 1}}, "10=1 20=1");
}

TEST(Insert, TurnsTheCornersRoundWhereItMirrors) {
    ExpectTriangle("41=-1", {{0, 2, 1}, {-4, 0, 0}, {0, 0, 0}});
    ExpectTriangle("42=-1", {{0, -2, 1}, {4, 0, 0}, {0, 0, 0}});
    ExpectTriangle("43=-1", {{0, 2, -1}, {4, 0, 0}, {0, 0, 0}});
    ExpectTriangle("41=-1 42=-1", {{0, 0, 0}, {-4, 0, 0}, {0, -2, 1}});
}

TEST(Insert, KeepsTheHiddenEdgesOfMirroredFaces) {
    // The edge from (4, 0, 0) to (0, 2, 1) is hidden; mirrored it leads from (0, 2, 1) to (-4, 0, 0).
    const Scene scene = BlockScene(BlockText("A", Scalene("70=2")), Insert("2=A") + Insert("2=A 41=-1"));
    ASSERT_EQ(scene.faces.size(), 2U);
    EXPECT_EQ(FlagsOf(scene.faces[0]), "-h--");
    EXPECT_EQ(FlagsOf(scene.faces[1]), "h---");
}

TEST(Insert, KeepsBodiesFacingOutwards) {
    for (const char* scale :
         {"", "41=-2", "42=-2 50=30", "41=-1 42=-1 43=-2", "43=2 210=0 220=0 230=-1", "41=-2 210=0.3 220=-0.4 230=2"}) {
        const Scene scene = BlockScene(BlockText("A", kBox), Insert("2=A 10=100 20=50 30=7 " + std::string(scale)));
        EXPECT_EQ(scene.faces.size(), 6U) << scale;
        ExpectBody(scene.faces, *scale ? 12.0 : 6.0);
    }
}

TEST(Insert, StandsInObjectCoordinates) {
    // With the extrusion (0, 0, -1) the x axis is the world's turned round, and so are z and the sense of the angle.
    ExpectTriangle("10=10 20=20 30=30 210=0 220=0 230=-1", {{-10, 20, -30}, {-14, 20, -30}, {-10, 22, -31}});
    // With (1, 0, 0) the axes are the world's y, z and x.
    ExpectTriangle("10=10 20=20 30=30 50=90 210=1 220=0 230=0", {{30, 10, 20}, {30, 10, 24}, {31, 8, 20}});
}

TEST(Insert, RepeatsItsBlockInColumnsAndRowsThatAreTurnedButNotScaled) {
    const Scene scene =
        BlockScene(BlockText("A", Scalene()), Insert("2=A 10=1 20=0 41=2 50=90 70=3 71=2 44=10 45=100"));
    ASSERT_EQ(scene.faces.size(), 6U);
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 3; ++column) {
            const double x = 1.0 - 100.0 * row;
            const double y = 10.0 * column;
            ExpectNear(scene.faces[static_cast<std::size_t>(3 * row + column)],
                       {{x, y, 0}, {x, y + 8, 0}, {x - 2, y, 1}}, "row " + std::to_string(row));
        }
    ASSERT_EQ(scene.entities.size(), 1U);
    EXPECT_EQ(scene.entities[0].faceCount, 6U);
}

TEST(Insert, TakesNoColumnsForOne) {
    ExpectTriangle("70=0 71=0 44=5 45=5", {{0, 0, 0}, {4, 0, 0}, {0, 2, 1}});
}

TEST(Insert, ShowsBlocksWithinBlocks) {
    // The innermost triangle is doubled, moved by (10, 0), then turned by 90 degrees and moved by (0, 0, 5).
    const std::string blocks = BlockText("Inner", Scalene()) + BlockText("Outer", Insert("2=inner 10=10 20=0 41=2"));
    const Scene scene = BlockScene(blocks, Insert("5=A1 2=OUTER 10=0 20=0 30=5 50=90"));
    ASSERT_EQ(scene.faces.size(), 1U);
    ExpectNear(scene.faces[0], {{0, 10, 5}, {0, 18, 5}, {-2, 10, 6}}, "");
}

TEST(Insert, MirroredTwiceIsNotMirrored) {
    const Scene scene =
        BlockScene(BlockText("A", Scalene()) + BlockText("B", Insert("2=A 41=-1")), Insert("2=B 42=-1"));
    ASSERT_EQ(scene.faces.size(), 1U);
    ExpectNear(scene.faces[0], {{0, 0, 0}, {-4, 0, 0}, {0, -2, 1}}, "");
}

TEST(Insert, OwnsTheFacesOfAllItsBlocks) {
    const OpenDrawing drawing(BlockDrawing(
        BlockText("A", Scalene("5=B1") + Scalene("5=B2 62=1")) + BlockText("B", Scalene() + Insert("2=A 5=B3")),
        Insert("2=B 5=A1") + Scalene("5=A2") + Insert("2=A 5=A3")));
    const Scene scene = BuildScene(drawing.database);
    std::string owners;
    std::size_t next = 0;
    for (const SceneEntity& entity : scene.entities) {
        EXPECT_EQ(entity.firstFace, next);
        next += entity.faceCount;
        owners += std::to_string(drawing.database.GetHandle(entity.id) - 0xA0) + ":" + std::to_string(entity.faceCount);
        owners += " ";
    }
    EXPECT_EQ(next, scene.faces.size());
    EXPECT_EQ(owners, "1:2 1:1 2:1 3:1 3:1 ") << "one for each run of a colour";
}

TEST(Insert, ReadsThePolylinesOfABlock) {
    const std::string polyline = Entity("POLYLINE", "39=3 70=1") + Entity("VERTEX", "10=0 20=0") +
                                 Entity("VERTEX", "10=2 20=0") + Entity("VERTEX", "10=2 20=1") +
                                 Entity("VERTEX", "10=0 20=1") + Entity("SEQEND", "");
    const Scene scene = BlockScene(BlockText("A", polyline + polyline), Insert("2=A 43=2"));
    ASSERT_EQ(scene.faces.size(), 12U);
    EXPECT_NEAR(VolumeOf(scene.faces), 24.0, 1e-9);
}

TEST(Insert, DividesTheArcsOfAnEnlargedBlockByTheirRealSize) {
    // A half circle of the radius 1, enlarged to 10 m: chords of 50 mm at most need pi / (2 acos(1 - 0.05 / 10)) / 2
    // of them: an angle of 2 acos(0.995) = 0.200 is cut off by one, 16 by a half circle.
    const std::string arc = BlockText("A", Entity("LWPOLYLINE", "39=1 10=0 20=0 42=1 10=2 20=0"));
    EXPECT_EQ(BlockScene(arc, Insert("2=A")).faces.size(), 4U);
    EXPECT_EQ(BlockScene(arc, Insert("2=A 41=10000 42=10000 43=3000")).faces.size(), 16U);
    const std::string nested = arc + BlockText("B", Insert("2=A 41=100 42=100"));
    EXPECT_EQ(BlockScene(nested, Insert("2=B 41=100 42=100")).faces.size(), 16U);
}
