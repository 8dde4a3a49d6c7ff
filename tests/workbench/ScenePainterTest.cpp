// Pictures of small scenes, judged by what is where in them.
#include "workbench/view/ScenePainter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "workbench/SceneForTests.h"

namespace {

constexpr PaintEffort kFacesOnly{false, false};
constexpr PaintEffort kStairs{true, false};

class ScenePainterTest : public testing::Test {
protected:
    void SetUp() override {
        CString reason;
        m_painter = ScenePainter::Open(reason);
        if (m_painter)
            return;
        std::fprintf(stderr, "\n*** NOT TESTED: nothing can be drawn here. %ls\n\n", reason.GetString());
        GTEST_SKIP() << "no EGL: what is drawn was not looked at";
    }

    static ViewCamera CameraOf(const Scene& scene, double azimuth, double altitude, int width = 200, int height = 150) {
        ViewCamera camera;
        camera.SetViewport(width, height);
        camera.SetBox({scene.least, scene.most});
        camera.Look(azimuth, altitude);
        camera.Fit();
        return camera;
    }
    GlPicture Paint(const Scene& scene, const ViewCamera& camera, const PaintEffort& effort = PaintEffort()) {
        GlPicture picture;
        EXPECT_TRUE(m_painter->SetScene(scene));
        EXPECT_TRUE(m_painter->Paint(camera, effort, picture));
        EXPECT_EQ(picture.width, camera.GetWidth());
        EXPECT_EQ(picture.height, camera.GetHeight());
        return picture;
    }
    static Pixel PixelOf(const GlPicture& picture, const ViewCamera& camera, const QcGePoint& point) {
        const auto pixel = camera.Project(point);
        EXPECT_TRUE(pixel);
        return pixel ? PixelAt(picture, pixel->x, pixel->y) : Pixel();
    }
    static int CountBytesThatDiffer(const GlPicture& a, const GlPicture& b, int tolerance) {
        EXPECT_EQ(a.rgba.size(), b.rgba.size());
        int count = 0;
        for (std::size_t i = 0; i < std::min(a.rgba.size(), b.rgba.size()); ++i)
            count += std::abs(a.rgba[i] - b.rgba[i]) > tolerance ? 1 : 0;
        return count;
    }

    std::unique_ptr<ScenePainter> m_painter;
};

Scene RedCube(double east = 0.0, double north = 0.0) {
    Scene scene;
    AddBox(scene, {east, north, 0}, {east + 10, north + 10, 10}, 1);
    return scene;
}

}  // namespace

TEST_F(ScenePainterTest, ShowsARedCubeBeforeThePaleBackground) {
    const Scene scene = RedCube();
    const ViewCamera camera = CameraOf(scene, 180.0, 20.0);
    const GlPicture picture = Paint(scene, camera);
    EXPECT_TRUE(PixelOf(picture, camera, {5, 0, 5}).IsReddish());
    EXPECT_TRUE(PixelOf(picture, camera, {5, 5, 10}).IsReddish());
    for (const auto& [x, y] : {std::pair(2, 2), std::pair(197, 2), std::pair(2, 147), std::pair(197, 147)})
        EXPECT_TRUE(PixelAt(picture, x, y).IsBackground());
}

TEST_F(ScenePainterTest, DrawsBothHalvesOfEachFaceUpToItsEdges) {
    const Scene scene = RedCube();
    const ViewCamera camera = CameraOf(scene, 180.0, 0.0);
    const GlPicture picture = Paint(scene, camera, kFacesOnly);
    for (const double east : {0.3, 9.7})
        for (const double up : {0.3, 9.7})
            EXPECT_TRUE(PixelOf(picture, camera, {east, 0, up}).IsReddish()) << east << " " << up;
    EXPECT_TRUE(PixelOf(picture, camera, {-0.4, 0, 5}).IsBackground());
    EXPECT_TRUE(PixelOf(picture, camera, {10.4, 0, 5}).IsBackground());
}

TEST_F(ScenePainterTest, HidesWhatIsBehind) {
    Scene scene = RedCube();
    AddBox(scene, {2, 20, 2}, {8, 30, 8}, 3);
    const ViewCamera fromSouth = CameraOf(scene, 180.0, 0.0);
    EXPECT_TRUE(PixelOf(Paint(scene, fromSouth), fromSouth, {5, 0, 5}).IsReddish());
    const ViewCamera fromNorth = CameraOf(scene, 0.0, 0.0);
    EXPECT_TRUE(PixelOf(Paint(scene, fromNorth), fromNorth, {5, 30, 5}).IsGreenish());
}

TEST_F(ScenePainterTest, LightsTheSidesDifferently) {
    const Scene scene = RedCube();
    const ViewCamera sunny = CameraOf(scene, 135.0, 35.0);
    const GlPicture southEast = Paint(scene, sunny, kFacesOnly);
    const int south = PixelOf(southEast, sunny, {5, 0, 5}).r;
    const int east = PixelOf(southEast, sunny, {10, 5, 5}).r;
    const int top = PixelOf(southEast, sunny, {5, 5, 10}).r;
    EXPECT_GT(south, east + 10);
    EXPECT_GT(top, south + 10);
    const ViewCamera shady = CameraOf(scene, 315.0, 35.0);
    const GlPicture northWest = Paint(scene, shady, kFacesOnly);
    const int north = PixelOf(northWest, shady, {5, 10, 5}).r;
    const int west = PixelOf(northWest, shady, {0, 5, 5}).r;
    EXPECT_GT(std::abs(north - west), 10);
    EXPECT_GT(south, std::max(north, west) + 10);
    EXPECT_GT(std::min(north, west), 80);
}

TEST_F(ScenePainterTest, KeepsTheLightInTheWorldWhenTheEyeMoves) {
    const Scene scene = RedCube();
    const ViewCamera first = CameraOf(scene, 135.0, 35.0);
    const ViewCamera second = CameraOf(scene, 190.0, 10.0);
    const int before = PixelOf(Paint(scene, first, kFacesOnly), first, {5, 0, 5}).r;
    const int after = PixelOf(Paint(scene, second, kFacesOnly), second, {5, 0, 5}).r;
    EXPECT_NEAR(before, after, 3);
}

TEST_F(ScenePainterTest, LightsAFaceFromBehindToo) {
    for (const double azimuth : {180.0, 0.0}) {
        Scene scene;
        AddFaces(scene, {Quad({0, 0, 0}, {10, 0, 0}, {10, 0, 10}, {0, 0, 10})}, 1);
        AddFaces(scene, {Quad({20, 0, 0}, {20, 0, 10}, {30, 0, 10}, {30, 0, 0})}, 1);
        const ViewCamera camera = CameraOf(scene, azimuth, 10.0);
        const GlPicture picture = Paint(scene, camera, kFacesOnly);
        const Pixel front = PixelOf(picture, camera, {5, 0, 5});
        const Pixel back = PixelOf(picture, camera, {25, 0, 5});
        EXPECT_TRUE(front.IsReddish());
        EXPECT_NEAR(front.r, back.r, 3) << azimuth;
    }
}

TEST_F(ScenePainterTest, ShowsTheSameFarFromTheOrigin) {
    Scene near;
    Scene far;
    for (int i = 0; i < 5; ++i) {
        AddBox(near, {i * 4.0, i * 3.0, 0}, {i * 4.0 + 3, i * 3.0 + 2, 5.0 + i}, 30 + 40 * i);
        AddBox(far, {5e8 + i * 4.0, -5e8 + i * 3.0, 0}, {5e8 + i * 4.0 + 3, -5e8 + i * 3.0 + 2, 5.0 + i}, 30 + 40 * i);
    }
    const GlPicture here = Paint(near, CameraOf(near, 150.0, 30.0));
    const GlPicture there = Paint(far, CameraOf(far, 150.0, 30.0));
    EXPECT_LT(CountBytesThatDiffer(here, there, 12), static_cast<int>(here.rgba.size() / 500));
}

TEST_F(ScenePainterTest, DoesNotSpoilATownForOneStrayFaceFarAway) {
    Scene town;
    for (int i = 0; i < 5; ++i)
        AddBox(town, {i * 4.0, i * 3.0, 0}, {i * 4.0 + 3, i * 3.0 + 2, 5.0 + i}, 30 + 40 * i);
    Scene both = town;
    AddFaces(both, {QcGeFace3dEX({4e9, 4e9, 0}, {4e9 + 1e6, 4e9, 0}, {4e9, 4e9 + 1e6, 0}, true)}, 1);
    const ViewCamera camera = CameraOf(town, 150.0, 30.0);
    const GlPicture alone = Paint(town, camera, kFacesOnly);
    const GlPicture withStray = Paint(both, camera, kFacesOnly);
    EXPECT_LT(CountBytesThatDiffer(alone, withStray, 12), static_cast<int>(alone.rgba.size() / 500));
}

TEST_F(ScenePainterTest, DrawsEachEdgeUnlessItsFlagHidesIt) {
    const QcGePoint middles[] = {{5, 0, 0}, {10, 5, 0}, {5, 10, 0}, {0, 5, 0}};
    for (int hidden = -1; hidden < 4; ++hidden) {
        QcGeFace3dEX face = Quad({0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0});
        if (hidden >= 0)
            face.m_flag[hidden] = kHiddenEdge;
        Scene scene;
        AddFaces(scene, {face}, 9);
        ViewCamera camera = CameraOf(scene, 180.0, 30.0);
        camera.Look(StandardView::Top);
        camera.Fit();
        const GlPicture picture = Paint(scene, camera, kStairs);
        for (int edge = 0; edge < 4; ++edge) {
            const auto at = camera.Project(middles[edge]);
            ASSERT_TRUE(at);
            int darkest = 765;
            for (int dx = -2; dx <= 2; ++dx)
                for (int dy = -2; dy <= 2; ++dy)
                    darkest = std::min(darkest, PixelAt(picture, at->x + dx, at->y + dy).GetSum());
            if (edge == hidden)
                EXPECT_GT(darkest, 350) << edge;
            else
                EXPECT_LT(darkest, 300) << edge << ", hidden " << hidden;
        }
    }
}

TEST_F(ScenePainterTest, ClosesATrianglesOutline) {
    Scene scene;
    AddFaces(scene, {QcGeFace3dEX({0, 0, 0}, {10, 0, 0}, {0, 10, 0}, true)}, 9);
    ViewCamera camera = CameraOf(scene, 180.0, 30.0);
    camera.Look(StandardView::Top);
    camera.Fit();
    const GlPicture picture = Paint(scene, camera, kStairs);
    const auto at = camera.Project({0, 5, 0});
    ASSERT_TRUE(at);
    int darkest = 765;
    for (int dx = -2; dx <= 2; ++dx)
        darkest = std::min(darkest, PixelAt(picture, at->x + dx, at->y).GetSum());
    EXPECT_LT(darkest, 300);
    EXPECT_TRUE(PixelOf(picture, camera, {7, 7, 0}).IsBackground());
}

TEST_F(ScenePainterTest, LeavesEdgesOutWhenAskedTo) {
    const Scene scene = RedCube();
    const ViewCamera camera = CameraOf(scene, 150.0, 30.0);
    const auto countDark = [](const GlPicture& picture) {
        int count = 0;
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x)
                count += PixelAt(picture, x, y).GetSum() < 120 ? 1 : 0;
        return count;
    };
    EXPECT_EQ(countDark(Paint(scene, camera, kFacesOnly)), 0);
    EXPECT_GT(countDark(Paint(scene, camera, kStairs)), 100);
}

TEST_F(ScenePainterTest, SmoothsTheEdgesWhenAskedTo) {
    const Scene scene = RedCube();
    const ViewCamera camera = CameraOf(scene, 150.0, 30.0);
    // Pixels in which the face's red and the background are mixed.
    const auto countMixed = [](const GlPicture& picture) {
        int count = 0;
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x) {
                const Pixel pixel = PixelAt(picture, x, y);
                count += !pixel.IsReddish() && !pixel.IsBackground() ? 1 : 0;
            }
        return count;
    };
    EXPECT_EQ(countMixed(Paint(scene, camera, kFacesOnly)), 0);
    EXPECT_GT(countMixed(Paint(scene, camera, {false, true})), 50);
}

TEST_F(ScenePainterTest, ShowsNothingButSkyHazeAndGroundForAnEmptyScene) {
    const Scene scene;
    const GlPicture picture = Paint(scene, CameraOf(scene, 150.0, 30.0));
    const Pixel sky = PixelAt(picture, 100, 1);
    const Pixel haze = PixelAt(picture, 100, 75);
    const Pixel ground = PixelAt(picture, 100, 148);
    EXPECT_GT(sky.b, sky.r + 30);
    EXPECT_GT(haze.GetSum(), sky.GetSum() + 60);
    EXPECT_LT(std::abs(ground.r - ground.b), 12);
    for (int x = 0; x < 200; ++x)
        EXPECT_NEAR(PixelAt(picture, x, 40).GetSum(), PixelAt(picture, 0, 40).GetSum(), 3);
}

TEST_F(ScenePainterTest, ForgetsTheSceneBefore) {
    const Scene cube = RedCube();
    const ViewCamera camera = CameraOf(cube, 180.0, 20.0);
    EXPECT_TRUE(PixelOf(Paint(cube, camera), camera, {5, 0, 5}).IsReddish());
    EXPECT_TRUE(PixelOf(Paint(Scene(), camera), camera, {5, 0, 5}).IsBackground());
}

TEST_F(ScenePainterTest, FollowsTheCamerasSize) {
    const Scene scene = RedCube();
    for (const auto& [width, height] :
         {std::pair(300, 100), std::pair(64, 200), std::pair(1, 1), std::pair(257, 129)}) {
        const ViewCamera camera = CameraOf(scene, 180.0, 20.0, width, height);
        const GlPicture picture = Paint(scene, camera);
        EXPECT_TRUE(PixelOf(picture, camera, {5, 0, 5}).IsReddish()) << width;
    }
}

TEST_F(ScenePainterTest, RefusesSizesThatTheGraphicsCannotDraw) {
    const Scene scene = RedCube();
    GlPicture picture;
    ASSERT_TRUE(m_painter->SetScene(scene));
    EXPECT_FALSE(m_painter->Paint(CameraOf(scene, 180, 20, m_painter->GetMaxSize() + 1, 10), PaintEffort(), picture));
    EXPECT_TRUE(picture.rgba.empty());
    const ViewCamera camera = CameraOf(scene, 180.0, 20.0);
    EXPECT_TRUE(PixelOf(Paint(scene, camera), camera, {5, 0, 5}).IsReddish());
}

TEST_F(ScenePainterTest, TakesATrueColourBeforeTheNumber) {
    Scene scene;
    AddBox(scene, {0, 0, 0}, {10, 10, 10}, 1, 0x00FF00);
    const ViewCamera camera = CameraOf(scene, 180.0, 20.0);
    EXPECT_TRUE(PixelOf(Paint(scene, camera), camera, {5, 0, 5}).IsGreenish());
}

TEST_F(ScenePainterTest, LeavesOutFacesThatAreNowhere) {
    Scene scene = RedCube();
    QcGeFace3dEX nowhere = Quad({NAN, 0, 0}, {1, INFINITY, 0}, {1, 1, 1}, {0, 1, 0});
    QcGeFace3dEX beyond = Quad({0, 0, 0}, {1e300, 0, 0}, {1e300, 1e300, 0}, {0, 1e300, 0});
    QcGeFace3dEX flat = Quad({0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0});
    for (QcGeFace3dEX* face : {&nowhere, &beyond, &flat})
        scene.faces.push_back(*face);
    scene.entities[0].faceCount += 3;
    const ViewCamera camera = CameraOf(scene, 180.0, 20.0);
    EXPECT_EQ(CountBytesThatDiffer(Paint(scene, camera, kFacesOnly), Paint(RedCube(), camera, kFacesOnly), 0), 0);
}

TEST_F(ScenePainterTest, DrawsNoFacesThatAnEntityClaimsAndTheSceneHasNot) {
    Scene scene = RedCube();
    scene.entities[0].faceCount = 1000000;
    SceneEntity other;
    other.firstFace = 50;
    other.faceCount = static_cast<std::size_t>(-1);
    scene.entities.push_back(other);
    const ViewCamera camera = CameraOf(scene, 180.0, 20.0);
    EXPECT_TRUE(PixelOf(Paint(scene, camera), camera, {5, 0, 5}).IsReddish());
}

TEST_F(ScenePainterTest, WorksNextToAnother) {
    CString reason;
    const std::unique_ptr<ScenePainter> other = ScenePainter::Open(reason);
    ASSERT_TRUE(other);
    Scene green;
    AddBox(green, {0, 0, 0}, {10, 10, 10}, 3);
    const Scene red = RedCube();
    const ViewCamera camera = CameraOf(red, 180.0, 20.0);
    ASSERT_TRUE(m_painter->SetScene(red));
    ASSERT_TRUE(other->SetScene(green));
    GlPicture picture;
    ASSERT_TRUE(m_painter->Paint(camera, PaintEffort(), picture));
    EXPECT_TRUE(PixelOf(picture, camera, {5, 0, 5}).IsReddish());
    ASSERT_TRUE(other->Paint(camera, PaintEffort(), picture));
    EXPECT_TRUE(PixelOf(picture, camera, {5, 0, 5}).IsGreenish());
}
