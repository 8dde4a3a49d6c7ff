// The faces of MESH.
#include "SceneForTests.h"

namespace {

using Polygons = std::vector<std::vector<int>>;

std::string Head(const std::string& vertexCount) {
    return "8=0 92=77 100=AcDbEntity 100=AcDbSubDMesh 71=2 72=0 91=3 92=" + vertexCount + " ";
}

std::string Vertices(const std::vector<QcGePoint>& points) {
    std::string text;
    for (const QcGePoint& point : points)
        text += At(point.x, point.y, point.z);
    return text;
}

std::string FaceItems(const Polygons& polygons) {
    std::string items;
    std::size_t count = 0;
    for (const std::vector<int>& polygon : polygons) {
        items += "90=" + std::to_string(polygon.size()) + " ";
        for (const int index : polygon)
            items += "90=" + std::to_string(index) + " ";
        count += 1 + polygon.size();
    }
    return "93=" + std::to_string(count) + " " + items;
}

// What follows the faces has the same codes with other meanings.
constexpr const char* kTail = "94=2 90=0 90=1 90=1 90=2 95=1 140=0.5 90=1 91=0 92=1 90=0 92=0";

std::string MeshOf(const std::vector<QcGePoint>& points, const Polygons& polygons) {
    return Entity("MESH", Head(std::to_string(points.size())) + Vertices(points) + FaceItems(polygons) + kTail);
}

const std::vector<QcGePoint> kCube = {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0},
                                      {0, 0, 2}, {2, 0, 2}, {2, 2, 2}, {0, 2, 2}};
const Polygons kCubeFaces = {{3, 2, 1, 0}, {4, 5, 6, 7}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};

}  // namespace

TEST(MeshFaces, MakeTheBaseCageWhateverTheSubdivisionLevel) {
    const Scene scene = SceneOf(MeshOf(kCube, kCubeFaces));
    ASSERT_EQ(scene.faces.size(), 6U);
    ExpectCorners(scene.faces[1], {{0, 0, 2}, {2, 0, 2}, {2, 2, 2}, {0, 2, 2}});
    ExpectBody(scene.faces, 8.0);
    EXPECT_EQ(scene.faultyCount, 0U);
}

TEST(MeshFaces, TakeTrianglesAndQuadrilateralsAsTheyAre) {
    const Scene scene =
        SceneOf(MeshOf({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 9}}, {{0, 1, 4}, {0, 1, 2, 3}}));
    ASSERT_EQ(scene.faces.size(), 2U);
    ExpectCorners(scene.faces[0], {{0, 0, 0}, {1, 0, 0}, {0, 0, 9}});
    ExpectCorners(scene.faces[1], {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}});
    EXPECT_EQ(FlagsOf(scene.faces[0]), "----");
}

TEST(MeshFaces, DivideAConcavePolygonInAnyPlane) {
    // An L of three unit squares, upright, slanted and level, in both senses.
    const double shape[][2] = {{0, 0}, {2, 0}, {2, 1}, {1, 1}, {1, 2}, {0, 2}};
    for (const bool isTurned : {false, true})
        for (int plane = 0; plane < 4; ++plane) {
            std::vector<QcGePoint> points;
            for (const auto& [u, v] : shape)
                points.push_back(plane == 0   ? QcGePoint(u, v, 5)
                                 : plane == 1 ? QcGePoint(5, u, v)
                                 : plane == 2 ? QcGePoint(v, 5, u)
                                              : QcGePoint(u, v, u + v));
            const Scene scene =
                SceneOf(MeshOf(points, {isTurned ? std::vector{5, 4, 3, 2, 1, 0} : std::vector{0, 1, 2, 3, 4, 5}}));
            ASSERT_EQ(scene.faces.size(), 4U);
            const Vector whole = TotalAreaVector(scene.faces);
            const double sense = isTurned ? -3.0 : 3.0;
            const Vector expected = plane == 0   ? Vector{0, 0, sense}
                                    : plane == 1 ? Vector{sense, 0, 0}
                                    : plane == 2 ? Vector{0, sense, 0}
                                                 : Vector{-sense, -sense, sense};
            double area = 0.0;
            for (const QcGeFace3dEX& face : scene.faces)
                area += AreaOf(face);
            for (std::size_t k = 0; k < 3; ++k)
                EXPECT_NEAR(whole[k], expected[k], 1e-12) << "plane " << plane;
            EXPECT_NEAR(area, plane == 3 ? 3.0 * std::sqrt(3.0) : 3.0, 1e-12) << "nothing overlaps";
        }
}

TEST(MeshFaces, HideTheEdgesThatDivideAPolygon) {
    const Scene scene = SceneOf(MeshOf({{0, 0, 0}, {2, 0, 0}, {3, 1, 0}, {1, 3, 0}, {-1, 1, 0}}, {{0, 1, 2, 3, 4}}));
    ASSERT_EQ(scene.faces.size(), 3U);
    int shown = 0;
    int hidden = 0;
    for (const QcGeFace3dEX& face : scene.faces)
        for (int i = 0; i < 3; ++i)
            ++(face.m_flag[i] == kHiddenEdge ? hidden : shown);
    EXPECT_EQ(shown, 5);
    EXPECT_EQ(hidden, 4) << "two diagonals from both sides";
}

TEST(MeshFaces, LeaveOutWhatHasNoAreaAndKeepTheRest) {
    const Scene scene =
        SceneOf(MeshOf({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}}, {{0, 1, 2}, {}, {0}, {0, 1}, {0, 1, 3}}));
    EXPECT_EQ(scene.faces.size(), 1U);
    EXPECT_EQ(scene.faultyCount, 0U);
}

TEST(MeshFaces, LeaveOutAPolygonThatCrossesItself) {
    // A five-pointed star drawn in one line, and a triangle.
    const std::vector<QcGePoint> points = {{0, 10, 0}, {6, -8, 0}, {-9.5, 3, 0}, {9.5, 3, 0}, {-6, -8, 0}};
    EXPECT_EQ(SceneOf(MeshOf(points, {{0, 1, 2, 3, 4}, {0, 1, 2}})).faces.size(), 1U);
}

TEST(MeshFaces, AreFaultyWhenTheirCountsAreNotWhatFollows) {
    const std::string vertices = Vertices({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    const std::string faces = "93=4 90=3 90=0 90=1 90=2 ";
    ASSERT_EQ(SceneOf(Entity("MESH", Head("3") + vertices + faces)).faces.size(), 1U) << "what is varied below";
    for (const char* count : {"2", "4", "2000000000", "-1", "9999999999", "x"})
        ExpectFaulty(Entity("MESH", Head(count) + vertices + faces), count);
    for (const char* list :
         {"93=3 90=3 90=0 90=1 90=2", "93=5 90=3 90=0 90=1 90=2", "93=2000000000 90=3 90=0 90=1 90=2",
          "93=-4 90=3 90=0 90=1 90=2", "93=4 90=4 90=0 90=1 90=2", "93=4 90=-3 90=0 90=1 90=2",
          "93=4 90=2147483647 90=0 90=1 90=2", "93=4 90=3 90=0 90=1", "93=x", ""})
        ExpectFaulty(Entity("MESH", Head("3") + vertices + list), list);
}

TEST(MeshFaces, AreFaultyWithAnIndexOutOfRange) {
    const std::vector<QcGePoint> points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    for (const int index : {3, -1, 2147483647, -2147483647})
        ExpectFaulty(MeshOf(points, {{0, 1, 2}, {0, 1, index}}), "one bad face of two");
}

TEST(MeshFaces, AreFaultyWithBrokenVertices) {
    const std::string faces = "93=4 90=3 90=0 90=1 90=2 ";
    for (const char* vertices :
         {"10=0 20=0 30=0 10=1 20=0 30=0 10=0 20=1", "10=0 20=0 30=0 10=1 30=0 20=0 10=0 20=1 30=0",
          "10=0 20=0 30=0 20=1 30=0 10=1 20=0 30=0", "10=0 20=nan 30=0 10=1 20=0 30=0 10=0 20=1 30=0"})
        ExpectFaulty(Entity("MESH", Head("3") + vertices + " " + faces), vertices);
}

TEST(MeshFaces, AreFaultyWithoutTheMarkerOfTheirData) {
    ExpectFaulty(Entity("MESH", "8=0 92=3 10=0 20=0 30=0 10=1 20=0 30=0 10=0 20=1 30=0 93=4 90=3 90=0 90=1 90=2"), "");
}
