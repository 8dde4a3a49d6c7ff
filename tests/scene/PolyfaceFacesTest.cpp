// The faces of polyface and polygon meshes.
#include "SceneForTests.h"

namespace {

std::string Location(double x, double y, double z) {
    return Entity("VERTEX", At(x, y, z) + "70=192");
}
std::string Record(const std::string& corners) {
    return Entity("VERTEX", "10=0 20=0 30=0 70=128 " + corners);
}
std::string Polyface(const std::string& vertices) {
    return Entity("POLYLINE", "66=1 70=64 71=99 72=99") + vertices + Entity("SEQEND", "8=0");
}
const std::string kFour = Location(0, 0, 0) + Location(1, 0, 0) + Location(1, 1, 0) + Location(0, 1, 0);

// A mesh whose vertex (m, n) is at (m, n, m * n), with flags for the vertices.
std::string GridVertices(int rows, int columns, const std::string& flags, double z = 0.0) {
    std::string text;
    for (int m = 0; m < rows; ++m)
        for (int n = 0; n < columns; ++n)
            text += Entity("VERTEX", At(m, n, z) + "70=" + flags);
    return text;
}
std::string MeshOf(int flags, const std::string& counts, const std::string& vertices) {
    return Entity("POLYLINE", "66=1 70=" + std::to_string(flags) + " " + counts) + vertices + Entity("SEQEND", "");
}

// A tube along z: rings of four corners on a square of side 2, at the heights 0 to rings - 1.
std::string Tube(int rings) {
    std::string text;
    for (int m = 0; m < rings; ++m)
        for (const auto& [x, y] : {std::pair(0, 0), {2, 0}, {2, 2}, {0, 2}})
            text += Entity("VERTEX", At(x, y, m) + "70=64");
    return text;
}

}  // namespace

TEST(PolyfaceFaces, AreThoseThatTheRecordsName) {
    const Scene scene = SceneOf(Polyface(kFour + Record("71=1 72=2 73=3 74=4") + Record("71=3 72=2 73=1")));
    ASSERT_EQ(scene.faces.size(), 2U);
    ExpectCorners(scene.faces[0], {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}});
    ExpectCorners(scene.faces[1], {{1, 1, 0}, {1, 0, 0}, {0, 0, 0}});
    EXPECT_EQ(scene.faultyCount + OtherCount(scene), 0U) << "vertices and SEQEND are not counted";
    ASSERT_EQ(scene.entities.size(), 1U);
    EXPECT_EQ(scene.entities[0].faceCount, 2U);
}

TEST(PolyfaceFaces, HideTheEdgesOfNegativeCorners) {
    const Scene scene = SceneOf(Polyface(kFour + Record("71=1 72=-2 73=3 74=-4")));
    ASSERT_EQ(scene.faces.size(), 1U);
    EXPECT_EQ(FlagsOf(scene.faces[0]), "-h-h");
}

TEST(PolyfaceFaces, PassOverCornersThatAreAbsent) {
    for (const char* corners : {"71=1 72=2 73=3 74=0", "71=1 72=0 73=2 74=3", "71=1 72=2 73=3"}) {
        const Scene scene = SceneOf(Polyface(kFour + Record(corners)));
        ASSERT_EQ(scene.faces.size(), 1U) << corners;
        ExpectCorners(scene.faces[0], {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
    }
}

TEST(PolyfaceFaces, LeaveOutRecordsOfPointsAndLines) {
    EXPECT_EQ(SceneOf(Polyface(kFour + Record("71=1") + Record("71=1 72=2") + Record("71=1 72=2 73=3"))).faces.size(),
              1U);
    ExpectFaulty(Polyface(kFour + Record("71=1 72=2")), "no face at all");
}

TEST(PolyfaceFaces, MayNameLocationsThatFollow) {
    EXPECT_EQ(SceneOf(Polyface(Record("71=1 72=2 73=3") + kFour)).faces.size(), 1U);
}

TEST(PolyfaceFaces, AreFaultyWithAnIndexOutOfRange) {
    const std::string good = Record("71=1 72=2 73=3");
    for (const char* index : {"5", "-5", "2147483647", "-2147483648", "9999999999", "x"})
        ExpectFaulty(Polyface(kFour + good + Record("71=1 72=2 73=" + std::string(index))), index);
}

TEST(PolyfaceFaces, AreFaultyWithoutLocationsOrRecords) {
    ExpectFaulty(Polyface(""), "nothing");
    ExpectFaulty(Polyface(kFour), "no face");
    ExpectFaulty(Polyface(Record("71=1 72=2 73=3")), "no location");
    ExpectFaulty(Polyface(kFour + Entity("VERTEX", "10=0 70=192") + Record("71=1 72=2 73=3")), "half a location");
}

TEST(PolyfaceFaces, EndWithTheFirstEntityThatIsNoVertex) {
    const Scene scene = SceneOf(Entity("POLYLINE", "70=64") + kFour + Record("71=1 72=2 73=3") + Triangle("") +
                                Record("71=9 72=9 73=9"));
    EXPECT_EQ(scene.faces.size(), 2U);
    EXPECT_EQ(scene.faultyCount, 0U);
}

TEST(PolygonMeshFaces, RunAlongTheRows) {
    const Scene scene = SceneOf(MeshOf(16, "71=2 72=3", GridVertices(2, 3, "64")));
    ASSERT_EQ(scene.faces.size(), 2U);
    ExpectCorners(scene.faces[0], {{0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}});
    ExpectCorners(scene.faces[1], {{0, 1, 0}, {0, 2, 0}, {1, 2, 0}, {1, 1, 0}});
}

TEST(PolygonMeshFaces, CloseInEitherDirection) {
    // 3 rings of 4: 2 * 4 faces around the tube, and 3 * 4 when its end joins its beginning.
    EXPECT_EQ(SceneOf(MeshOf(16, "71=3 72=4", Tube(3))).faces.size(), 2U * 3U);
    EXPECT_EQ(SceneOf(MeshOf(16 + 1, "71=3 72=4", Tube(3))).faces.size(), 3U * 3U);
    EXPECT_EQ(SceneOf(MeshOf(16 + 32 + 1, "71=3 72=4", Tube(3))).faces.size(), 3U * 4U);
    const Scene around = SceneOf(MeshOf(16 + 32, "71=3 72=4", Tube(3)));
    ASSERT_EQ(around.faces.size(), 2U * 4U);
    for (const double part : TotalAreaVector(around.faces))
        EXPECT_DOUBLE_EQ(part, 0.0);
    ExpectCorners(around.faces[3], {{0, 2, 0}, {0, 0, 0}, {0, 0, 1}, {0, 2, 1}});
}

TEST(PolygonMeshFaces, UseTheSmoothedVerticesOfASmoothedMesh) {
    const std::string control = GridVertices(2, 2, "80", 7.0);
    const Scene scene = SceneOf(MeshOf(16 + 4, "71=2 72=2 73=3 74=4", control + GridVertices(3, 4, "72")));
    ASSERT_EQ(scene.faces.size(), 2U * 3U);
    EXPECT_EQ(scene.most.z, 0.0) << "no control point";
    EXPECT_EQ(scene.most.y, 3.0);
}

TEST(PolygonMeshFaces, PassOverSmoothedVerticesOfAMeshThatIsNotSmoothed) {
    const Scene scene =
        SceneOf(MeshOf(16, "71=2 72=2 73=3 74=4", GridVertices(2, 2, "64", 7.0) + GridVertices(3, 4, "72")));
    ASSERT_EQ(scene.faces.size(), 1U);
    EXPECT_EQ(scene.least.z, 7.0);
}

TEST(PolygonMeshFaces, AreFaultyWithAnotherNumberOfVertices) {
    const std::string six = GridVertices(2, 3, "64");
    for (const char* counts : {"71=2 72=2", "71=3 72=3", "71=1 72=6", "71=6 72=1", "71=0 72=0", "71=-2 72=-3", "",
                               "71=2147483647 72=2147483647", "71=65536 72=65536", "71=2 72=x", "72=3"})
        ExpectFaulty(MeshOf(16, counts, six), counts);
    ExpectFaulty(MeshOf(16, "71=2 72=3", six + Entity("VERTEX", "70=64")), "a vertex without a point");
}

TEST(PolygonMeshFaces, LeaveOutFacesWithoutAnAreaAsAtAPole) {
    // The first row is one point: its faces are triangles.
    const std::string pole = Entity("VERTEX", At(0, 0, 5) + "70=64") + Entity("VERTEX", At(0, 0, 5) + "70=64") +
                             Entity("VERTEX", At(0, 0, 5) + "70=64");
    const std::string rim = Entity("VERTEX", At(1, 0, 0) + "70=64") + Entity("VERTEX", At(0, 1, 0) + "70=64") +
                            Entity("VERTEX", At(0, 1, 0) + "70=64");
    const Scene scene = SceneOf(MeshOf(16, "71=2 72=3", pole + rim));
    ASSERT_EQ(scene.faces.size(), 1U);
    EXPECT_EQ(scene.faces[0].GetPointNum(), 3);
}
