// The sun of the view: its direction in the drawing, its path and hours, and the pictures that the view shows in it.
#include <gtest/gtest.h>

#include <QTest>
#include <QThread>
#include <cmath>
#include <cstdio>

#include "facts/Angles.h"
#include "facts/SunPosition.h"
#include "workbench/PreparedWindows.h"
#include "workbench/RayCaster.h"
#include "workbench/SceneForTests.h"
#include "workbench/view/SceneView.h"
#include "workbench/view/SunPath.h"

namespace {

constexpr int kWhite = 0xFFFFFF;
// The winter solstice over 40 degrees north.
constexpr double kWinter = -23.44;
constexpr double kLatitude = 40.0;

ViewSun SunAt(double time, double north = 0.0) {
    return {ComputeSunDay(kWinter, 0.0, 120.0, kLatitude), north, time, 0.0};
}

std::shared_ptr<Scene> House() {
    auto scene = std::make_shared<Scene>();
    AddBox(*scene, {-30, -30, -1}, {30, 30, 0}, 7, kWhite);
    AddBox(*scene, {-5, -5, 0}, {5, 5, 10}, 7, kWhite);
    return scene;
}

class SunInTheView : public PreparedWindows {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(PreparedWindows::SetUp());
        CString reason;
        if (!ScenePainter::Open(reason)) {
            std::fprintf(stderr, "\n*** NOT TESTED: nothing can be drawn here. %ls\n\n", reason.GetString());
            GTEST_SKIP() << "no EGL: what is drawn was not looked at";
        }
        m_view = std::make_unique<SceneView>();
        m_view->resize(500, 400);
        m_view->SetScene(House());
        m_view->Look(StandardView::Top);
    }
    // From 0 to 1.
    double BrightnessAt(const QcGePoint& point) {
        const QImage picture = m_view->GetPicture();
        const auto at = m_view->GetCamera().Project(point);
        EXPECT_TRUE(at);
        const QColor color = picture.pixelColor(static_cast<int>(at->x), static_cast<int>(at->y));
        return (color.redF() + color.greenF() + color.blueF()) / 3.0;
    }

    std::unique_ptr<SceneView> m_view;
};

}  // namespace

TEST(ViewSun, StandsAsNorthIsTurned) {
    const SceneSun noon = SunInDrawing(SunAt(12.0).day, 0.0, 12.0);
    // At noon it is as far below the zenith as the latitude is above the declination.
    EXPECT_NEAR(noon.direction.z, std::cos((kLatitude - kWinter) * kRadiansPerDegree), 1e-12);
    EXPECT_NEAR(noon.direction.x, 0.0, 1e-12);
    EXPECT_LT(noon.direction.y, 0.0);
    const SceneSun turned = SunInDrawing(SunAt(12.0).day, 90.0, 12.0);
    EXPECT_NEAR(turned.direction.x, -noon.direction.y, 1e-12) << "north is at -x, and the sun at +x";
    EXPECT_NEAR(turned.direction.y, 0.0, 1e-12);
}

TEST(ViewSun, HasHoursWhereItIsUp) {
    const auto names = [](const ViewSun& sun) {
        std::string text;
        for (const PathHour& hour : HoursOfPath(sun))
            text += std::to_string(hour.hour) + " ";
        return text;
    };
    ViewSun sun = SunAt(12.0);
    // cos H = -tan p tan d: 68.7 degrees, which are 4.58 hours.
    EXPECT_EQ(names(sun), "8 9 10 11 12 13 14 15 16 ");
    sun.shownLater = 0.5;
    EXPECT_EQ(names(sun), "8 9 10 11 12 13 14 15 16 17 ");
    EXPECT_DOUBLE_EQ(HoursOfPath(sun)[0].trueSolarTime, 7.5);
    sun.shownLater = 10.0;
    EXPECT_EQ(names(sun), "18 19 20 21 22 23 0 1 2 ");
    sun.shownLater = -3.0;
    EXPECT_EQ(names(sun), "5 6 7 8 9 10 11 12 13 ");
    sun.day = ComputeSunDay(kWinter, 0.0, 120.0, 80.0);
    EXPECT_EQ(names(sun), "") << "polar night";
    sun.day = ComputeSunDay(kWinter, 0.0, 120.0, -80.0);
    EXPECT_EQ(HoursOfPath(sun).size(), 24U) << "polar day";
}

TEST(ViewSun, StandsOnItsPath) {
    ViewCamera camera;
    camera.SetViewport(600, 400);
    const ViewBox box{{-10, -20, 5}, {30, 20, 25}};
    camera.SetBox(box);
    camera.Look(160.0, 25.0);
    camera.Fit();
    const double radius = std::sqrt(40.0 * 40.0 + 40.0 * 40.0 + 20.0 * 20.0) / 2.0;
    for (const double time : {8.0, 12.0, 15.5}) {
        const SunDirection to = DirectionOfSun(SunAt(time).day, time);
        const auto expected = camera.Project({10 + radius * to.east, radius * to.north, 5 + radius * to.up});
        const auto found = SunPath(camera, box).PlaceOf(SunAt(time), time);
        ASSERT_TRUE(expected && found);
        EXPECT_NEAR(found->x, expected->x, 1e-6);
        EXPECT_NEAR(found->y, expected->y, 1e-6);
    }
}

TEST_F(SunInTheView, ShadesWhatRaysFindShaded) {
    const RayCaster rays(*House());
    int lit = 0;
    int dark = 0;
    for (const double time : {9.0, 12.0, 14.5}) {
        m_view->SetSun(SunAt(time));
        const QcGeVector3d toSun = SunInDrawing(SunAt(time).day, 0.0, time).direction;
        for (double x = -28.5; x < 29.0; x += 4.0)
            for (double y = -28.5; y < 29.0; y += 4.0) {
                const double z = std::fabs(x) < 5.0 && std::fabs(y) < 5.0 ? 10.0 : 0.0;
                const auto isLitAt = [&](double dx, double dy) {
                    return rays.IsLit({1.0, -1, {x + dx, y + dy, z}, {0.0, 0.0, 1.0}}, toSun);
                };
                const bool isLit = isLitAt(0.0, 0.0);
                bool isSure = true;  // no edge of a shadow is close
                for (const double dx : {-0.6, 0.6})
                    for (const double dy : {-0.6, 0.6})
                        isSure = isSure && isLitAt(dx, dy) == isLit;
                if (!isSure)
                    continue;
                ++(isLit ? lit : dark);
                const double brightness = BrightnessAt({x, y, z});
                EXPECT_TRUE(isLit ? brightness > 0.58 : brightness < 0.44)
                    << brightness << " at " << x << " " << y << " at " << time;
            }
    }
    EXPECT_GT(lit, 200);
    EXPECT_GT(dark, 20);
}

TEST_F(SunInTheView, IsGoneAtNightAndWhenItIsTakenAway) {
    const QImage plain = m_view->GetPicture();
    m_view->SetSun(SunAt(0.0));
    EXPECT_LT(BrightnessAt({20, 20, 0}), 0.44);
    EXPECT_LT(BrightnessAt({0, 0, 10}), 0.44);
    m_view->SetSun(std::nullopt);
    EXPECT_EQ(m_view->GetPicture(), plain);
}

TEST_F(SunInTheView, CastsNoShadowsOfWhatIsHidden) {
    auto scene = House();
    scene->entities[1].layer = 1;
    m_view->SetScene(scene);
    m_view->Look(StandardView::Top);
    m_view->SetSun(SunAt(12.0));
    const QcGePoint behind(0, 10, 0);
    EXPECT_LT(BrightnessAt(behind), 0.44);
    m_view->SetHiddenLayers({false, true});
    EXPECT_GT(BrightnessAt(behind), 0.58);
}

TEST_F(SunInTheView, IsDrawnInFullOnceItRests) {
    m_view->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_view.get()));
    m_view->SetSun(SunAt(10.0));
    m_view->SetSun(SunAt(12.0));
    const QImage quick = m_view->GetPicture();
    QTRY_VERIFY(m_view->GetPicture() != quick);  // the timer of the rest
    const QImage full = m_view->GetPicture();
    m_view->SetSun(SunAt(12.0));
    EXPECT_EQ(m_view->GetPicture(), quick);
    QTRY_VERIFY(m_view->GetPicture() == full);
}

TEST_F(SunInTheView, TellsWhoeverAsks) {
    int told = 0;
    m_view->m_onSun = [&] { ++told; };
    m_view->SetSun(SunAt(9.25));
    EXPECT_EQ(told, 1);
    ASSERT_TRUE(m_view->GetSun());
    EXPECT_EQ(m_view->GetSun()->trueSolarTime, 9.25);
    m_view->SetSun(std::nullopt);
    EXPECT_EQ(told, 2);
    EXPECT_FALSE(m_view->GetSun());
}

// A quick picture is drawn to its end, so that the day can be played faster than it can be drawn.
TEST_F(SunInTheView, IsSeenWhileItMoves) {
    auto scene = House();
    constexpr int kRow = 200;
    for (int i = 0; i < kRow * kRow; ++i) {
        const double x = -29.0 + 0.29 * (i % kRow);
        const double y = -29.0 + 0.29 * (i / kRow);
        AddBox(*scene, {x, y, 0.0}, {x + 0.2, y + 0.2, 0.5}, 7, kWhite);
    }
    m_view->SetScene(scene);
    m_view->Look(StandardView::Top);
    m_view->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_view.get()));
    m_view->SetSun(SunAt(0.0));
    EXPECT_LT(BrightnessAt({0, 0, 10}), 0.44);
    const auto roof = m_view->GetCamera().Project({0, 0, 10});
    ASSERT_TRUE(roof);
    const auto isLit = [&] {
        const QPoint at(static_cast<int>(roof->x), static_cast<int>(roof->y));
        return m_view->grab().toImage().pixelColor(at * m_view->devicePixelRatioF()).value() > 0.58 * 255;
    };
    m_view->SetSun(SunAt(12.0));
    bool isSeen = isLit();
    m_view->SetSun(SunAt(0.0));  // before it can be there
    // Without events: nobody else takes the picture.
    for (int i = 0; i < 1000 && !isSeen; ++i) {
        isSeen = isLit();
        QThread::msleep(10);
    }
    EXPECT_TRUE(isSeen);
}
