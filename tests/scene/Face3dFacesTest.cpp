// The faces of 3DFACE.
#include "SceneForTests.h"

namespace {

std::string Corners(const std::vector<QcGePoint>& corners) {
    std::string text;
    for (std::size_t i = 0; i < corners.size(); ++i)
        text += At(corners[i].x, corners[i].y, corners[i].z, 10 + static_cast<int>(i));
    return text;
}

Scene FaceOf(const std::vector<QcGePoint>& corners, const std::string& more = {}) {
    return SceneOf(Entity("3DFACE", Corners(corners) + more));
}

}  // namespace

TEST(Face3dFaces, MakeAFlatConvexQuadrilateralOneFaceWithTheSameCorners) {
    const std::vector<QcGePoint> corners = {{0.1, 0, 1}, {4.3, 0, 1}, {4.3, 2.7, 1}, {0.1, 2.7, 1}};
    const Scene scene = FaceOf(corners);
    ASSERT_EQ(scene.faces.size(), 1U);
    ExpectCorners(scene.faces[0], corners);
    EXPECT_EQ(FlagsOf(scene.faces[0]), "----");
    EXPECT_EQ(scene.faultyCount + OtherCount(scene), 0U);
}

TEST(Face3dFaces, KeepEveryBitOfTheCoordinates) {
    const Scene scene = SceneOf(Entity("3DFACE",
                                       "10=0.1 20=500123.45678901234 30=-1e-3 11=+1.7976931348623157e2 21=0 31=2.5E+1 "
                                       "12=3 22=.5 32=7."));
    ASSERT_EQ(scene.faces.size(), 1U);
    ExpectCorners(scene.faces[0],
                  {{0.1, 500123.45678901234, -0.001}, {179.76931348623157, 0.0, 25.0}, {3.0, 0.5, 7.0}});
}

TEST(Face3dFaces, AreTrianglesWhenTheFourthCornerRepeatsTheThirdOrIsMissing) {
    const std::vector<QcGePoint> corners = {{0, 0, 0}, {1, 0, 0}, {0, 1, 5}};
    const Scene repeated = FaceOf({corners[0], corners[1], corners[2], corners[2]});
    const Scene missing = FaceOf(corners);
    ASSERT_EQ(repeated.faces.size(), 1U);
    ASSERT_EQ(missing.faces.size(), 1U);
    ExpectCorners(repeated.faces[0], corners);
    ExpectCorners(missing.faces[0], corners);
}

TEST(Face3dFaces, DropCornersThatRepeatTheOneBefore) {
    const QcGePoint a(0, 0, 0), b(1, 0, 0), c(0, 1, 0);
    for (const auto& corners : {std::vector{a, a, b, c}, {a, b, b, c}, {a, b, c, a}}) {
        const Scene scene = FaceOf(corners);
        ASSERT_EQ(scene.faces.size(), 1U);
        ASSERT_EQ(scene.faces[0].GetPointNum(), 3);
        EXPECT_DOUBLE_EQ(AreaVectorOf(scene.faces[0])[2], 0.5);
    }
}

TEST(Face3dFaces, TakeAMissingZForZero) {
    const Scene scene = SceneOf(Entity("3DFACE", "10=0 20=0 11=1 21=0 12=0 22=1"));
    ASSERT_EQ(scene.faces.size(), 1U);
    ExpectCorners(scene.faces[0], {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
}

TEST(Face3dFaces, FlagTheEdgesThatTheDrawingHides) {
    const std::vector<QcGePoint> square = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    const char* const expected[] = {"----", "h---", "-h--", "hh--", "--h-", "h-h-", "-hh-", "hhh-",
                                    "---h", "h--h", "-h-h", "hh-h", "--hh", "h-hh", "-hhh", "hhhh"};
    for (int bits = 0; bits < 16; ++bits) {
        const Scene scene = FaceOf(square, "70=" + std::to_string(bits));
        ASSERT_EQ(scene.faces.size(), 1U);
        EXPECT_EQ(FlagsOf(scene.faces[0]), expected[bits]);
    }
}

TEST(Face3dFaces, KeepTheFlagsOfATrianglesOwnEdges) {
    // Corners 2 and 3 are the same: bit 4 is the edge without a length, bit 8 the one back to the first corner.
    const std::vector<QcGePoint> triangle = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 1, 0}};
    EXPECT_EQ(FlagsOf(FaceOf(triangle, "70=8").faces[0]), "--h-");
    EXPECT_EQ(FlagsOf(FaceOf(triangle, "70=4").faces[0]), "----");
    EXPECT_EQ(FlagsOf(FaceOf(triangle, "70=2").faces[0]), "-h--");
    // Here the first two are: bit 1 goes.
    EXPECT_EQ(FlagsOf(FaceOf({{0, 0, 0}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, "70=3").faces[0]), "h---");
}

TEST(Face3dFaces, BecomeTwoTrianglesWithAHiddenDiagonalWhenNotFlat) {
    const Scene scene = FaceOf({{0, 0, 0}, {10, 0, 0}, {10, 10, 1}, {0, 10, 0}}, "70=2");
    ASSERT_EQ(scene.faces.size(), 2U);
    ExpectCorners(scene.faces[0], {{0, 0, 0}, {10, 0, 0}, {10, 10, 1}});
    ExpectCorners(scene.faces[1], {{0, 0, 0}, {10, 10, 1}, {0, 10, 0}});
    EXPECT_EQ(FlagsOf(scene.faces[0]), "-hh-");
    EXPECT_EQ(FlagsOf(scene.faces[1]), "h---");
    EXPECT_EQ(scene.entities[0].faceCount, 2U);
}

TEST(Face3dFaces, AreFlatByAMeasureOfTheirSize) {
    // Size 1000 * sqrt(2): a millionth of it is 0.0014.
    const auto facesWith = [](double z) {
        return FaceOf({{0, 0, 0}, {1000, 0, 0}, {1000, 1000, 0}, {0, 1000, z}}).faces.size();
    };
    EXPECT_EQ(facesWith(0.001), 1U);
    EXPECT_EQ(facesWith(0.002), 2U);
}

TEST(Face3dFaces, DivideAQuadrilateralWithAReflexCornerThroughThatCorner) {
    // An arrow's head: its area is that of the large triangle, 4 * 4 / 2, less the notch, 4 * 1 / 2.
    const std::vector<QcGePoint> arrow = {{0, 0, 3}, {2, 1, 3}, {4, 0, 3}, {2, 4, 3}};
    for (std::size_t start = 0; start < 4; ++start) {
        std::vector<QcGePoint> turned;
        for (std::size_t i = 0; i < 4; ++i)
            turned.push_back(arrow[(start + i) % 4]);
        const Scene scene = FaceOf(turned);
        ASSERT_EQ(scene.faces.size(), 2U);
        double area = 0.0;
        for (const QcGeFace3dEX& face : scene.faces) {
            EXPECT_GT(AreaVectorOf(face)[2], 0.0);
            area += AreaOf(face);
        }
        EXPECT_DOUBLE_EQ(area, 6.0);
    }
}

TEST(Face3dFaces, AreTwoTrianglesWhenTheirSidesCross) {
    const Scene scene = FaceOf({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}});
    ASSERT_EQ(scene.faces.size(), 2U);
    ExpectCorners(scene.faces[0], {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    ExpectCorners(scene.faces[1], {{0, 0, 0}, {0, 1, 0}, {1, 1, 0}});
}

TEST(Face3dFaces, LeaveOutACornerInOneLineWithItsNeighbours) {
    for (std::size_t start = 0; start < 4; ++start) {
        const std::vector<QcGePoint> corners = {{0, 0, 0}, {5, 0, 5}, {10, 0, 10}, {0, 10, 0}};
        std::vector<QcGePoint> turned;
        for (std::size_t i = 0; i < 4; ++i)
            turned.push_back(corners[(start + i) % 4]);
        const Scene scene = FaceOf(turned);
        ASSERT_EQ(scene.faces.size(), 1U);
        ASSERT_EQ(scene.faces[0].GetPointNum(), 3);
        EXPECT_NEAR(AreaOf(scene.faces[0]), 50.0 * std::sqrt(2.0), 1e-12);
        EXPECT_EQ(FlagsOf(scene.faces[0]), "----");
    }
}

TEST(Face3dFaces, AreFaultyWithoutAnArea) {
    ExpectFaulty(Entity("3DFACE", Corners({{0, 0, 0}, {1, 0, 0}, {1, 0, 0}, {0, 0, 0}})), "two corners");
    ExpectFaulty(Entity("3DFACE", Corners({{2, 3, 4}, {2, 3, 4}, {2, 3, 4}, {2, 3, 4}})), "one corner");
    ExpectFaulty(Entity("3DFACE", Corners({{0, 0, 0}, {1, 1, 1}, {3, 3, 3}})), "three in one line");
    ExpectFaulty(Entity("3DFACE", Corners({{0, 0, 0}, {1, 1, 1}, {3, 3, 3}, {2, 2, 2}})), "four in one line");
    ExpectFaulty(Entity("3DFACE", Corners({{0, 0, 0}, {1e-7, 0, 0}, {0, 1e-7, 0}})), "smaller than the tolerance");
}

TEST(Face3dFaces, AreFaultyWithoutTheirNumbers) {
    const std::string three = Corners({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    ExpectFaulty(Entity("3DFACE", ""), "nothing");
    ExpectFaulty(Entity("3DFACE", Corners({{0, 0, 0}, {1, 0, 0}})), "two corners");
    ExpectFaulty(Entity("3DFACE", three + "13=1"), "half of the fourth corner");
    ExpectFaulty(Entity("3DFACE", three + "23=1"), "the other half");
    ExpectFaulty(Entity("3DFACE", three + "70=x"), "flags");
    for (const char* number :
         {"nan", "inf", "-inf", "1e400", "1e51", "-1e51", "0x10", "1,5", "1.5m", "", "-", "+-1", "--1"})
        ExpectFaulty(Entity("3DFACE", three + "13=1 23=" + number), number);
}

TEST(Face3dFaces, TakeANumberTooSmallForADoubleForZero) {
    const Scene scene = SceneOf(Entity("3DFACE", "10=1e-400 20=-1e-999 30=0 11=1 21=0 31=0 12=0 22=1 32=0"));
    ASSERT_EQ(scene.faces.size(), 1U);
    EXPECT_EQ(scene.faces[0][0].x, 0.0);
    EXPECT_EQ(scene.faces[0][0].y, 0.0);
}

TEST(Face3dFaces, AreSoundAsFarOutAsCoordinatesMayBe) {
    const Scene scene = FaceOf({{0, 0, 0}, {1e50, 0, 0}, {1e50, 1e50, 1e50}, {0, 1e50, 0}});
    ASSERT_EQ(scene.faces.size(), 2U);
    for (QcGeFace3dEX face : scene.faces)
        EXPECT_NEAR(face.GetNormal().Length(), 1.0, 1e-9);
}
