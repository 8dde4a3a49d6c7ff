// Pictures in the sun, place by place beside rays.
#include <gtest/gtest.h>

#include <cstdio>
#include <random>

#include "facts/Angles.h"
#include "workbench/RayCaster.h"
#include "workbench/SceneForTests.h"
#include "workbench/view/ScenePainter.h"

namespace {

constexpr int kWhite = 0xFFFFFF;
constexpr double kGroundColor = 0.83;
// What SunShader.h promises: at most 42 % of its colour in the shadow, at least 60 % in the sun.
constexpr double kMostInShadow = 0.44;
constexpr double kLeastInSun = 0.58;

QcGeVector3d SunAt(double azimuth, double altitude) {
    const double a = azimuth * kRadiansPerDegree;
    const double h = altitude * kRadiansPerDegree;
    return {std::sin(a) * std::cos(h), std::cos(a) * std::cos(h), std::sin(h)};
}

class Random {
public:
    explicit Random(unsigned seed) : m_engine(seed) {}
    double Between(double least, double most) {
        return least + (most - least) * (static_cast<double>(m_engine()) / 4294967296.0);
    }

private:
    std::mt19937 m_engine;
};

// Houses of all sizes in all directions, some on top of others, and loose faces: walls, roofs on nothing, canopies.
Scene RandomTown(Random& random, const QcGePoint& at) {
    Scene scene;
    for (int i = 0; i < 14; ++i) {
        const QcGePoint middle(at.x + random.Between(-60, 60), at.y + random.Between(-60, 60), at.z);
        const double turn = random.Between(0.0, 3.0);
        const double length = random.Between(4, 14);
        const double depth = random.Between(4, 9);
        const double bottom = i % 5 == 4 ? 12.0 : 0.0;
        const double top = bottom + random.Between(4, 40);
        QcGePoint c[8];
        for (int k = 0; k < 8; ++k) {
            const double x = (k % 4 == 0 || k % 4 == 3) ? -length : length;
            const double y = k % 4 < 2 ? -depth : depth;
            c[k] = {middle.x + x * std::cos(turn) - y * std::sin(turn),
                    middle.y + x * std::sin(turn) + y * std::cos(turn), at.z + (k < 4 ? bottom : top)};
        }
        std::vector<QcGeFace3dEX> faces = {Quad(c[4], c[5], c[6], c[7])};
        if (i % 4 != 3)
            faces.push_back(Quad(c[0], c[3], c[2], c[1]));
        for (int k = 0; k < 4; ++k)
            if (i % 4 != 3 || k == i % 3)
                faces.push_back(k % 2 == 0 ? Quad(c[k], c[(k + 1) % 4], c[(k + 1) % 4 + 4], c[k + 4])
                                           : Quad(c[k], c[k + 4], c[(k + 1) % 4 + 4], c[(k + 1) % 4]));
        AddFaces(scene, faces, 7, kWhite);
    }
    return scene;
}

class SunPictureTest : public testing::Test {
protected:
    void SetUp() override {
        CString reason;
        m_painter = ScenePainter::Open(reason);
        if (m_painter)
            return;
        std::fprintf(stderr, "\n*** NOT TESTED: nothing can be drawn here. %ls\n\n", reason.GetString());
        GTEST_SKIP() << "no EGL: what is drawn was not looked at";
    }

    static ViewCamera CameraOf(const Scene& scene, double azimuth, double altitude, int width, int height) {
        ViewCamera camera;
        camera.SetViewport(width, height);
        camera.SetBox({scene.least, scene.most});
        camera.Look(azimuth, altitude);
        camera.Fit();
        return camera;
    }
    GlPicture Paint(const Scene& scene, const ViewCamera& camera, const QcGeVector3d& sun,
                    const PaintEffort& effort = {false, true}, const Scene& marks = {}) {
        GlPicture picture;
        EXPECT_TRUE(m_painter->SetScene(scene, marks));
        EXPECT_TRUE(m_painter->PaintInSun(camera, {sun}, effort, picture));
        return picture;
    }
    // How bright a place is, of its colour.
    static double BrightnessAt(const GlPicture& picture, double x, double y, double color) {
        return PixelAt(picture, x, y).GetSum() / (3.0 * 255.0) / color;
    }
    static double BrightnessOf(const GlPicture& picture, const ViewCamera& camera, const QcGePoint& point,
                               double color = 1.0) {
        const auto at = camera.Project(point);
        EXPECT_TRUE(at);
        return at ? BrightnessAt(picture, at->x, at->y, color) : 0.0;
    }
    // Compares so many places with rays, all of them at least a pixel and a half from the edges of shadows and faces.
    void ComparePlaces(const Scene& scene, const ViewCamera& camera, const QcGeVector3d& sun, Random& random,
                       int count);

    std::unique_ptr<ScenePainter> m_painter;
    int m_onGround = 0;
    int m_onRoofs = 0;
    int m_onWalls = 0;
    int m_lit = 0;
    int m_dark = 0;
};

struct Seen {
    int face = -2;
    bool isLit = false;
    bool operator==(const Seen& other) const = default;
};

void SunPictureTest::ComparePlaces(const Scene& scene, const ViewCamera& camera, const QcGeVector3d& sun,
                                   Random& random, int count) {
    const GlPicture picture = Paint(scene, camera, sun);
    const RayCaster rays(scene);
    std::optional<RayCaster::Hit> hit;
    const auto look = [&](double x, double y) {
        const ViewRay ray = camera.GetRayAt(x, y);
        hit = rays.Cast(ray.start, ray.direction);
        return hit ? Seen{hit->face, rays.IsLit(*hit, sun)} : Seen{};
    };
    for (int done = 0, tries = 0; done < count && tries < 100 * count; ++tries) {
        const double x = std::floor(random.Between(2, camera.GetWidth() - 2)) + 0.5;
        const double y = std::floor(random.Between(2, camera.GetHeight() - 2)) + 0.5;
        const Seen seen = look(x, y);
        // Where the ground has begun to fade nothing is shown.
        if (!hit || std::hypot(hit->point.x - scene.least.x, hit->point.y - scene.least.y) > 250.0)
            continue;
        const RayCaster::Hit here = *hit;
        bool isClear = true;
        for (const auto& [dx, dy] : {std::pair(1.5, 1.5), std::pair(1.5, -1.5), std::pair(-1.5, 1.5),
                                     std::pair(-1.5, -1.5), std::pair(1.5, 0.0), std::pair(0.0, 1.5)})
            isClear = isClear && look(x + dx, y + dy) == seen;
        if (!isClear)
            continue;
        ++done;
        (here.face < 0 ? m_onGround : std::fabs(here.normal.z) > 0.5 ? m_onRoofs : m_onWalls) += 1;
        (seen.isLit ? m_lit : m_dark) += 1;
        const double brightness = BrightnessAt(picture, x, y, here.face < 0 ? kGroundColor : 1.0);
        EXPECT_TRUE(seen.isLit ? brightness > kLeastInSun : brightness < kMostInShadow)
            << x << ", " << y << " face " << here.face << (seen.isLit ? " lit " : " dark ") << brightness << " at "
            << here.point.x << ", " << here.point.y << ", " << here.point.z;
    }
}

}  // namespace

TEST_F(SunPictureTest, LightsThePlacesThatRaysReach) {
    Random random(11);
    for (const double altitude : {2.0, 4.0, 9.0, 20.0, 35.0, 60.0, 89.9, 90.0}) {
        const Scene scene = RandomTown(random, {0, 0, 0});
        const ViewCamera camera =
            CameraOf(scene, random.Between(0, 360), random.Between(10, 80), 640, altitude > 30 ? 360 : 480);
        SCOPED_TRACE(altitude);
        ComparePlaces(scene, camera, SunAt(random.Between(0, 360), altitude), random, 60);
    }
    for (const int count : {m_onGround, m_onRoofs, m_onWalls, m_lit, m_dark})
        EXPECT_GT(count, 15);
    EXPECT_EQ(m_lit + m_dark, 480);
}

TEST_F(SunPictureTest, LightsThemFarFromTheOriginAndFromAbove) {
    Random random(12);
    const Scene scene = RandomTown(random, {5e5, -4e6, 70.0});
    ViewCamera camera = CameraOf(scene, 180.0, 30.0, 500, 500);
    ComparePlaces(scene, camera, SunAt(200.0, 15.0), random, 60);
    camera.Look(StandardView::Top);
    camera.Fit();
    ComparePlaces(scene, camera, SunAt(130.0, 25.0), random, 60);
    EXPECT_EQ(m_lit + m_dark, 120);
}

TEST_F(SunPictureTest, LightsThemAmidstTheHousesAndWithTheEyeInAShadow) {
    Random random(13);
    const Scene scene = RandomTown(random, {0, 0, 0});
    ViewCamera camera = CameraOf(scene, 140.0, 8.0, 500, 400);
    for (int step = 0; step < 3; ++step) {
        camera.Zoom(3.0, 250.0, 230.0);
        SCOPED_TRACE(step);
        ComparePlaces(scene, camera, SunAt(230.0, 12.0), random, 60);
    }
    EXPECT_EQ(m_lit + m_dark, 180);
}

TEST_F(SunPictureTest, ShowsWhatIsRightBeforeAnEyeAmidstTheScene) {
    Scene scene;
    AddBox(scene, {-300, 200, 0}, {300, 210, 60}, 7, kWhite);
    AddFaces(scene, {Quad({-1, 0, 24}, {1, 0, 24}, {1, 0, 26}, {-1, 0, 26})}, 1);
    ViewCamera camera;
    camera.SetViewport(300, 200);
    camera.SetBox({{-1, 0, 24}, {1, 0, 26}});
    camera.Look(180.0, 0.0);
    camera.Fit();
    camera.SetBox({{-300, -50, 0}, {300, 210, 60}});
    AddFaces(scene, {Quad({-300, -50, 0}, {300, -50, 0}, {300, 200, 0}, {-300, 200, 0})}, 3);
    const GlPicture picture = Paint(scene, camera, SunAt(190.0, 30.0));
    EXPECT_TRUE(PixelAt(picture, 150, 100).IsReddish());
    EXPECT_GT(BrightnessOf(picture, camera, {90, 200, 26}), kLeastInSun);
}

TEST_F(SunPictureTest, ShowsTheOneShadowThatABoxThrows) {
    Scene scene;
    AddBox(scene, {0, 0, 0}, {10, 10, 10}, 7, kWhite);
    ViewCamera camera = CameraOf(scene, 180.0, 60.0, 400, 400);
    camera.Zoom(0.3, 200, 200);
    // In the south at 45 degrees: the shadow is as long as the box is high, and goes to the north.
    const GlPicture picture = Paint(scene, camera, SunAt(180.0, 45.0));
    EXPECT_LT(BrightnessOf(picture, camera, {5, 18, 0}, kGroundColor), kMostInShadow);
    EXPECT_GT(BrightnessOf(picture, camera, {5, 22, 0}, kGroundColor), kLeastInSun);
    EXPECT_GT(BrightnessOf(picture, camera, {12, 15, 0}, kGroundColor), kLeastInSun);
    EXPECT_GT(BrightnessOf(picture, camera, {5, -5, 0}, kGroundColor), kLeastInSun);
    EXPECT_GT(BrightnessOf(picture, camera, {5, 5, 10}), kLeastInSun);
    EXPECT_GT(BrightnessOf(picture, camera, {5, 0, 5}), kLeastInSun);
}

TEST_F(SunPictureTest, ShowsShadowsOnBlackFacesToo) {
    Scene scene;
    AddFaces(scene, {Quad({-50, -50, 0}, {50, -50, 0}, {50, 50, 0}, {-50, 50, 0})}, 7, 0);
    AddBox(scene, {0, 0, 0}, {10, 10, 10}, 7, kWhite);
    const ViewCamera camera = CameraOf(scene, 180.0, 60.0, 400, 400);
    const GlPicture picture = Paint(scene, camera, SunAt(180.0, 45.0));
    const double lit = BrightnessOf(picture, camera, {5, 25, 0});
    EXPECT_GT(lit, 0.1);
    EXPECT_LT(BrightnessOf(picture, camera, {5, 18, 0}), lit * kMostInShadow / kLeastInSun);
}

TEST_F(SunPictureTest, TurnsDarkWithTheSunOnTheHorizonAndBelow) {
    Scene scene;
    AddBox(scene, {0, 0, 0}, {10, 10, 10}, 7, kWhite);
    const ViewCamera camera = CameraOf(scene, 180.0, 30.0, 200, 200);
    for (const double altitude : {0.0, -0.001, -30.0, -90.0}) {
        QcGeVector3d sun = SunAt(180.0, altitude);
        if (altitude == 0.0)
            sun.z = 0.0;
        const GlPicture picture = Paint(scene, camera, sun);
        EXPECT_LT(BrightnessOf(picture, camera, {5, 0, 5}), 0.3);
        EXPECT_LT(BrightnessOf(picture, camera, {5, 5, 10}), 0.3);
        EXPECT_LT(PixelAt(picture, 100, 0).GetSum(), 3 * 90);
    }
}

TEST_F(SunPictureTest, DrawsMarksBeforeTheWallTheyLieOnAndWithoutAShadow) {
    Scene scene;
    AddBox(scene, {0, 0, 0}, {10, 10, 10}, 7, kWhite);
    Scene marks;
    AddFaces(marks, {Quad({2, 0, 2}, {8, 0, 2}, {8, 0, 8}, {2, 0, 8})}, 1);
    AddFaces(marks, {Quad({20, 0, 0}, {30, 0, 0}, {30, 0, 10}, {20, 0, 10})}, 3);
    ViewCamera camera = CameraOf(scene, 180.0, 70.0, 300, 300);
    camera.Zoom(0.3, 150, 150);
    const GlPicture picture = Paint(scene, camera, SunAt(170.0, 45.0), {false, false}, marks);
    const auto at = camera.Project({5, 0, 5});
    ASSERT_TRUE(at);
    EXPECT_TRUE(PixelAt(picture, at->x, at->y).IsReddish());
    EXPECT_GT(PixelAt(picture, at->x, at->y).r, 255 * kLeastInSun);
    EXPECT_GT(BrightnessOf(picture, camera, {25, 6, 0}, kGroundColor), kLeastInSun);
}

TEST_F(SunPictureTest, ShowsMarksWhereNothingElseIs) {
    Scene marks;
    AddFaces(marks, {Quad({0, 0, 1}, {2, 0, 1}, {2, 0, 3}, {0, 0, 3})}, 1);
    ViewCamera camera;
    camera.SetViewport(400, 300);
    camera.SetBox({{0, 0, 1}, {2, 0, 3}});
    camera.Look(160.0, 20.0);
    camera.Fit();
    const GlPicture picture = Paint(Scene(), camera, SunAt(170.0, 45.0), {false, false}, marks);
    for (const QcGePoint& place : {QcGePoint(0.1, 0, 1.1), QcGePoint(1.9, 0, 2.9), QcGePoint(1, 0, 2)}) {
        const auto at = camera.Project(place);
        ASSERT_TRUE(at);
        EXPECT_TRUE(PixelAt(picture, at->x, at->y).IsReddish());
    }
    // The ground lies at their foot.
    EXPECT_NEAR(BrightnessOf(picture, camera, {-1, 0, 1}, kGroundColor), 0.9, 0.1);
}

// With the eye above the ground and lower than the roofs.
TEST_F(SunPictureTest, TellsApartWhatStandsCloseTogetherFarFromALowEye) {
    Scene scene;
    AddBox(scene, {-200, 300, 0}, {200, 310, 60}, 7, kWhite);
    AddFaces(scene, {Quad({-100, 0.1, 5}, {100, 0.1, 5}, {100, 0.1, 50}, {-100, 0.1, 50})}, 1);
    AddFaces(scene, {Quad({-100, 0, 5}, {100, 0, 5}, {100, 0, 50}, {-100, 0, 50})}, 5);
    const ViewCamera camera = CameraOf(scene, 180.0, 0.0, 640, 360);
    const GlPicture picture = Paint(scene, camera, SunAt(170.0, 45.0));
    int blue = 0;
    for (double x = -95.0; x < 96.0; x += 5.0) {
        const auto at = camera.Project({x, 0.0, 27.0});
        ASSERT_TRUE(at);
        blue += PixelAt(picture, at->x, at->y).b > 100;
    }
    EXPECT_EQ(blue, 39);
}

TEST_F(SunPictureTest, LaysTheGroundBelowFacesThatLieOnIt) {
    Scene scene;
    AddFaces(scene, {Quad({0, 0, 0}, {40, 0, 0}, {40, 40, 0}, {0, 40, 0})}, 1);
    AddBox(scene, {10, 10, 0}, {14, 14, 20}, 3);
    for (const double altitude : {3.0, 12.0, 80.0}) {
        const ViewCamera camera = CameraOf(scene, 200.0, altitude, 400, 300);
        const GlPicture picture = Paint(scene, camera, SunAt(120.0, 30.0), {false, false});
        const auto at = camera.Project({30, 4, 0});
        ASSERT_TRUE(at);
        EXPECT_TRUE(PixelAt(picture, at->x, at->y).IsReddish()) << altitude;
    }
}

TEST_F(SunPictureTest, ShowsTheSceneFromBelowTheGround) {
    Scene scene;
    AddBox(scene, {0, 0, 0}, {10, 10, 10}, 1);
    const ViewCamera camera = CameraOf(scene, 180.0, -40.0, 200, 200);
    const auto at = camera.Project({5, 5, 0});
    ASSERT_TRUE(at);
    EXPECT_GT(PixelAt(Paint(scene, camera, SunAt(180.0, 30.0)), at->x, at->y).r, 40);
    EXPECT_TRUE(PixelAt(Paint(scene, camera, SunAt(180.0, 30.0)), at->x, at->y).IsReddish());
}

TEST_F(SunPictureTest, ShowsAnEmptySceneAndFacesThatAreNowhere) {
    GlPicture picture;
    ViewCamera camera;
    camera.SetViewport(64, 48);
    camera.Fit();
    ASSERT_TRUE(m_painter->SetScene(Scene()));
    EXPECT_TRUE(m_painter->PaintInSun(camera, {SunAt(180, 30)}, PaintEffort(), picture));
    Scene scene;
    AddFaces(scene, {Quad({NAN, 0, 0}, {1, INFINITY, 0}, {1, 1, 1}, {0, 1, 0})}, 1);
    ASSERT_TRUE(m_painter->SetScene(scene));
    EXPECT_TRUE(m_painter->PaintInSun(camera, {SunAt(180, 30)}, PaintEffort(), picture));
    for (const QcGeVector3d& sun : {QcGeVector3d(), QcGeVector3d(NAN, 0, 1)})
        EXPECT_TRUE(m_painter->PaintInSun(camera, {sun}, PaintEffort(), picture));
    EXPECT_EQ(picture.width, 64);
}

TEST_F(SunPictureTest, LeavesThePlainPictureAsItWas) {
    Scene scene;
    AddBox(scene, {0, 0, 0}, {10, 10, 10}, 1);
    const ViewCamera camera = CameraOf(scene, 150.0, 30.0, 200, 150);
    GlPicture before;
    GlPicture after;
    ASSERT_TRUE(m_painter->SetScene(scene));
    ASSERT_TRUE(m_painter->Paint(camera, PaintEffort(), before));
    Paint(scene, camera, SunAt(200, 20));
    ASSERT_TRUE(m_painter->Paint(camera, PaintEffort(), after));
    EXPECT_EQ(before.rgba, after.rgba);
}
