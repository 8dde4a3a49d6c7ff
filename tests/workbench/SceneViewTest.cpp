// The 3-D view as a person uses it: what keys, mouse and wheel change in the picture.
#include "workbench/view/SceneView.h"

#include <gtest/gtest.h>

#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>
#include <cmath>
#include <cstdio>

#include "platform/window/HostFrame.h"
#include "platform/window/ModalDriver.h"
#include "settings/AnalysisParameters.h"
#include "workbench/SceneForTests.h"

namespace {

// The toolkit is ready; a driver stands for the person who would need a display.
bool HasWindows() {
    CString reason;
    const ModalDriver nobody([](const ModalWindow&) { return 0; });
    return PrepareWindows(reason);
}

std::shared_ptr<const Scene> Town() {
    auto scene = std::make_shared<Scene>();
    AddBox(*scene, {0, 0, 0}, {40, 10, 20}, 1);
    AddBox(*scene, {10, 30, 0}, {20, 60, 50}, 3);
    return scene;
}

bool IsReddish(QRgb pixel) {
    return qRed(pixel) > 60 && qRed(pixel) > 3 * qGreen(pixel) && qRed(pixel) > 3 * qBlue(pixel);
}

int CountReddish(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += IsReddish(image.pixel(x, y)) ? 1 : 0;
    return count;
}

int CountPixelsThatDiffer(const QImage& image, const GlPicture& picture) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const Pixel pixel = PixelAt(picture, x, y);
            count += image.pixel(x, y) != qRgb(pixel.r, pixel.g, pixel.b) ? 1 : 0;
        }
    }
    return count;
}

// The widget once its picture is drawn.
QImage Shown(SceneView& view) {
    view.GetPicture();
    return view.grab().toImage();
}

// Sees to it that the limit of faces is as it was.
class FaceLimit {
public:
    explicit FaceLimit(int limit) : m_before(g_RenderMaxFaceNum) { g_RenderMaxFaceNum = limit; }
    ~FaceLimit() { g_RenderMaxFaceNum = m_before; }
    FaceLimit(const FaceLimit&) = delete;
    FaceLimit& operator=(const FaceLimit&) = delete;

private:
    int m_before;
};

class SceneViewTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(HasWindows());
        CString reason;
        if (!ScenePainter::Open(reason)) {
            std::fprintf(stderr, "\n*** NOT TESTED: nothing can be drawn here. %ls\n\n", reason.GetString());
            GTEST_SKIP() << "no EGL: what is drawn was not looked at";
        }
        m_view = std::make_unique<SceneView>();
        m_view->resize(320, 240);
        m_view->SetScene(Town());
    }

    ViewPixel Where(const QcGePoint& point) const {
        const auto pixel = m_view->GetCamera().Project(point);
        EXPECT_TRUE(pixel);
        return pixel.value_or(ViewPixel());
    }
    void Mouse(QEvent::Type type, Qt::MouseButton button, const QPointF& at, Qt::KeyboardModifiers keys = {}) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
        QMouseEvent event(type, at, m_view->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : button, held,
                          keys);
        QApplication::sendEvent(m_view.get(), &event);
    }
    void Drag(Qt::MouseButton button, const QPointF& from, const QPointF& to, Qt::KeyboardModifiers keys = {}) {
        Mouse(QEvent::MouseButtonPress, button, from, keys);
        Mouse(QEvent::MouseMove, button, (from + to) / 2, keys);
        Mouse(QEvent::MouseMove, button, to, keys);
        Mouse(QEvent::MouseButtonRelease, button, to, keys);
    }
    void Wheel(int turned, const QPointF& at) {
        QWheelEvent event(at, m_view->mapToGlobal(at), QPoint(), QPoint(0, turned), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_view.get(), &event);
    }
    void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(m_view.get(), static_cast<Qt::Key>(key), modifiers);
    }
    void ExpectAngles(double azimuth, double altitude) {
        EXPECT_NEAR(m_view->GetCamera().GetAzimuth(), azimuth, 1e-9);
        EXPECT_NEAR(m_view->GetCamera().GetAltitude(), altitude, 1e-9);
    }

    std::unique_ptr<SceneView> m_view;
};

}  // namespace

TEST_F(SceneViewTest, BeginsWithEverythingFromTheSouthSouthEast) {
    ExpectAngles(150.0, 30.0);
    const QImage picture = m_view->GetPicture();
    EXPECT_EQ(picture.size(), QSize(320, 240));
    const ViewPixel front = Where({20, 0, 10});
    EXPECT_TRUE(IsReddish(picture.pixel(static_cast<int>(front.x), static_cast<int>(front.y))));
    EXPECT_FALSE(IsReddish(picture.pixel(2, 2)));
}

TEST_F(SceneViewTest, PaintsThePictureOntoTheWidget) {
    const QImage shown = Shown(*m_view);
    const ViewPixel front = Where({20, 0, 10});
    EXPECT_TRUE(IsReddish(shown.pixel(static_cast<int>(front.x), static_cast<int>(front.y))));
}

TEST_F(SceneViewTest, PointsTheCompassNeedleNorth) {
    // In a plan the needle points up from the compass's middle, which is 58 units from the left and lower edges.
    m_view->Look(StandardView::Top);
    QImage shown = Shown(*m_view);
    EXPECT_TRUE(IsReddish(shown.pixel(58 - 2, 240 - 58 - 12)));
    EXPECT_FALSE(IsReddish(shown.pixel(58 - 2, 240 - 58 + 12)));
    // Seen from the east, north is on the right: the needle lies there.
    m_view->Look(StandardView::East);
    Key(Qt::Key_PageUp);
    Key(Qt::Key_PageUp);
    Key(Qt::Key_PageUp);
    shown = Shown(*m_view);
    EXPECT_TRUE(IsReddish(shown.pixel(58 + 12, 240 - 58)));
    EXPECT_FALSE(IsReddish(shown.pixel(58 - 12, 240 - 58)));
    // Level with the ground the ring is still seen a little from above: north, away from the eye, is up.
    m_view->Look(StandardView::South);
    shown = Shown(*m_view);
    EXPECT_TRUE(IsReddish(shown.pixel(58 + 2, 240 - 58 - 3)));
    EXPECT_FALSE(IsReddish(shown.pixel(58 + 2, 240 - 58 + 3)));
}

TEST_F(SceneViewTest, TurnsWithTheLeftButton) {
    const QImage before = m_view->GetPicture();
    Drag(Qt::LeftButton, {100, 100}, {140, 80});
    ExpectAngles(150.0 + 40 * 0.35, 30.0 - 20 * 0.35);
    EXPECT_NE(m_view->GetPicture(), before);
    Mouse(QEvent::MouseMove, Qt::NoButton, {10, 10});
    ExpectAngles(150.0 + 40 * 0.35, 30.0 - 20 * 0.35);
}

TEST_F(SceneViewTest, MovesTheFaceUnderThePointerAlong) {
    const QcGePoint front(20, 0, 10);
    for (const bool shift : {false, true}) {
        m_view->Fit();
        const ViewPixel from = Where(front);
        Drag(shift ? Qt::LeftButton : Qt::MiddleButton, {from.x, from.y}, {from.x + 50, from.y - 30},
             shift ? Qt::ShiftModifier : Qt::NoModifier);
        const ViewPixel to = Where(front);
        EXPECT_NEAR(to.x, from.x + 50, 1e-6);
        EXPECT_NEAR(to.y, from.y - 30, 1e-6);
        ExpectAngles(150.0, 30.0);
    }
}

TEST_F(SceneViewTest, ZoomsAtThePointerOntoTheFaceThere) {
    const QcGePoint front(30, 0, 10);
    const ViewPixel at = Where(front);
    const int before = CountReddish(m_view->GetPicture());
    Wheel(240, {at.x, at.y});
    EXPECT_NEAR(Where(front).x, at.x, 1e-6);
    EXPECT_NEAR(Where(front).y, at.y, 1e-6);
    EXPECT_GT(CountReddish(m_view->GetPicture()), before * 3 / 2);
    Wheel(-240, {at.x, at.y});
    EXPECT_NEAR(CountReddish(m_view->GetPicture()), before, before / 20);
}

TEST_F(SceneViewTest, GoesOnZoomingOntoAFaceWithoutGoingThroughIt) {
    m_view->Look(StandardView::South);
    const ViewPixel at = Where({20, 0, 10});
    for (int i = 0; i < 60; ++i)
        Wheel(120, {at.x, at.y});
    const QImage picture = m_view->GetPicture();
    EXPECT_TRUE(IsReddish(picture.pixel(5, 5)));
    EXPECT_TRUE(IsReddish(picture.pixel(315, 235)));
    EXPECT_LT(m_view->GetCamera().GetEye().y, 0.0);
}

TEST_F(SceneViewTest, ShowsEverythingAgainAfterADoubleClickOrHome) {
    const QImage before = m_view->GetPicture();
    for (const bool byKey : {false, true}) {
        Wheel(600, {10, 10});
        EXPECT_NE(m_view->GetPicture(), before);
        if (byKey)
            Key(Qt::Key_Home);
        else
            QTest::mouseDClick(m_view.get(), Qt::LeftButton, {}, QPoint(30, 30));
        EXPECT_EQ(m_view->GetPicture(), before);
    }
}

TEST_F(SceneViewTest, TurnsWithTheArrowsAndPageKeys) {
    Key(Qt::Key_Right);
    ExpectAngles(155.0, 30.0);
    Key(Qt::Key_Left);
    Key(Qt::Key_Left);
    ExpectAngles(145.0, 30.0);
    Key(Qt::Key_Down);
    ExpectAngles(145.0, 35.0);
    Key(Qt::Key_Up);
    Key(Qt::Key_Up);
    ExpectAngles(145.0, 25.0);
    Key(Qt::Key_PageUp);
    ExpectAngles(145.0, 40.0);
    Key(Qt::Key_PageDown);
    Key(Qt::Key_PageDown);
    ExpectAngles(145.0, 10.0);
}

TEST_F(SceneViewTest, MovesWithShiftAndArrows) {
    const QcGePoint target = m_view->GetCamera().GetTarget();
    Key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_NEAR(Where(target).x, 160 + 12, 1e-6);
    Key(Qt::Key_Left, Qt::ShiftModifier);
    Key(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_NEAR(Where(target).x, 160, 1e-6);
    EXPECT_NEAR(Where(target).y, 120 - 12, 1e-6);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_NEAR(Where(target).y, 120, 1e-6);
}

TEST_F(SceneViewTest, ZoomsWithPlusAndMinus) {
    const int before = CountReddish(m_view->GetPicture());
    Key(Qt::Key_Plus, Qt::ShiftModifier);
    const int larger = CountReddish(m_view->GetPicture());
    EXPECT_GT(larger, before * 5 / 4);
    Key(Qt::Key_Minus);
    EXPECT_NEAR(CountReddish(m_view->GetPicture()), before, before / 20);
    Key(Qt::Key_Minus, Qt::KeypadModifier);
    EXPECT_LT(CountReddish(m_view->GetPicture()), before * 4 / 5);
    Key(Qt::Key_Equal);
    EXPECT_NEAR(CountReddish(m_view->GetPicture()), before, before / 20);
}

TEST_F(SceneViewTest, LooksFromTheStandardDirectionsByDigitOrLetter) {
    struct Row {
        int digit, letter;
        double azimuth, altitude;
    };
    const double cube = std::atan(std::sqrt(0.5)) * 180.0 / std::acos(-1.0);
    const Row rows[] = {{Qt::Key_1, Qt::Key_T, 180, 90},  {Qt::Key_2, Qt::Key_S, 180, 0},
                        {Qt::Key_3, Qt::Key_E, 90, 0},    {Qt::Key_4, Qt::Key_N, 0, 0},
                        {Qt::Key_5, Qt::Key_W, 270, 0},   {Qt::Key_6, Qt::Key_I, 135, cube},
                        {Qt::Key_7, Qt::Key_7, 225, cube}};
    for (const Row& row : rows) {
        for (const int key : {row.digit, row.letter}) {
            Key(Qt::Key_Right);
            Key(key);
            ExpectAngles(row.azimuth, row.altitude);
            EXPECT_EQ(m_view->GetCamera().IsParallel(), row.altitude == 90.0);
        }
    }
}

TEST_F(SceneViewTest, LeavesOtherKeysAndShortcutsToTheWindow) {
    const QImage before = m_view->GetPicture();
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_S, Qt::KeyboardModifiers(Qt::ControlModifier)),
          std::pair(Qt::Key_A, Qt::KeyboardModifiers()), std::pair(Qt::Key_Escape, Qt::KeyboardModifiers()),
          std::pair(Qt::Key_Right, Qt::KeyboardModifiers(Qt::AltModifier))}) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(m_view.get(), &event);
        EXPECT_FALSE(event.isAccepted()) << key;
    }
    EXPECT_EQ(m_view->GetPicture(), before);
}

TEST_F(SceneViewTest, DrawsNothingAnewWhileNothingChanges) {
    const QImage first = m_view->GetPicture();
    const qint64 drawing = first.cacheKey();
    m_view->grab();
    m_view->SetHint("hint");
    EXPECT_EQ(m_view->GetPicture().cacheKey(), drawing);
    Key(Qt::Key_Right);
    EXPECT_NE(m_view->GetPicture().cacheKey(), drawing);
}

TEST_F(SceneViewTest, ShowsEverythingAfterAChangeOfSizeToo) {
    m_view->GetPicture();
    m_view->resize(200, 400);
    const QImage picture = Shown(*m_view);
    EXPECT_EQ(picture.size(), QSize(200, 400));
    EXPECT_EQ(m_view->GetPicture().size(), QSize(200, 400));
    for (const QcGePoint& point : {QcGePoint(0, 0, 0), QcGePoint(40, 0, 20), QcGePoint(20, 60, 50)}) {
        EXPECT_GT(Where(point).x, 0.0);
        EXPECT_LT(Where(point).x, 200.0);
    }
}

TEST_F(SceneViewTest, KeepsTheDistanceOfAViewThatWasChosenWhenTheSizeChanges) {
    Wheel(240, {100, 100});
    const double distance = m_view->GetCamera().GetDistance();
    m_view->resize(200, 400);
    m_view->GetPicture();
    EXPECT_EQ(m_view->GetCamera().GetDistance(), distance);
}

TEST_F(SceneViewTest, FitsAnotherSceneButStaysWhereItIsForAnUpdatedOne) {
    Wheel(240, {100, 100});
    const double distance = m_view->GetCamera().GetDistance();
    auto changed = std::make_shared<Scene>(*Town());
    changed->entities[0].colorIndex = 5;
    m_view->UpdateScene(changed);
    EXPECT_EQ(m_view->GetCamera().GetDistance(), distance);
    EXPECT_EQ(CountReddish(m_view->GetPicture()), 0);
    m_view->SetScene(Town());
    EXPECT_NE(m_view->GetCamera().GetDistance(), distance);
    EXPECT_GT(CountReddish(m_view->GetPicture()), 100);
}

TEST_F(SceneViewTest, ShowsTheHintWhileThereIsNothingToSee) {
    m_view->Clear();
    EXPECT_TRUE(m_view->GetPicture().isNull());
    EXPECT_TRUE(m_view->GetProblem().isEmpty());
    const QImage without = Shown(*m_view);
    m_view->SetHint("MMMMMMMM");
    const QImage with = Shown(*m_view);
    const QRect middle(60, 80, 200, 80);
    EXPECT_NE(with.copy(middle), without.copy(middle));
    m_view->SetScene(std::make_shared<Scene>());
    EXPECT_EQ(Shown(*m_view), with);
    m_view->SetScene(Town());
    EXPECT_GT(CountReddish(Shown(*m_view)), 100);
}

TEST_F(SceneViewTest, SurvivesEveryEventWithoutAScene) {
    m_view->Clear();
    Drag(Qt::LeftButton, {100, 100}, {140, 80});
    Drag(Qt::MiddleButton, {100, 100}, {140, 80});
    Wheel(120, {5, 5});
    Wheel(0, {5, 5});
    Key(Qt::Key_1);
    Key(Qt::Key_Home);
    m_view->resize(0, 0);
    m_view->grab();
    EXPECT_TRUE(m_view->GetPicture().isNull());
}

TEST_F(SceneViewTest, LeavesEdgesOutOfALargeSceneWhileItMoves) {
    m_view->Look(StandardView::South);
    const QImage still = m_view->GetPicture();
    Key(Qt::Key_Right);
    Key(Qt::Key_Left);
    EXPECT_EQ(m_view->GetPicture(), still) << "a scene of no more faces than the limit has its edges always";
    const FaceLimit limit(11);
    Key(Qt::Key_Right);
    Key(Qt::Key_Left);
    const QImage moving = m_view->GetPicture();
    EXPECT_NE(moving, still);
    CString reason;
    GlPicture bare;
    const std::unique_ptr<ScenePainter> painter = ScenePainter::Open(reason);
    ASSERT_TRUE(painter->SetScene(*Town()) && painter->Paint(m_view->GetCamera(), {false, false}, bare));
    EXPECT_EQ(CountPixelsThatDiffer(moving, bare), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_view->GetPicture() == still; }, 5000));
}

TEST_F(SceneViewTest, TakesExactlyTheLimitAsSmall) {
    m_view->Look(StandardView::South);
    const QImage still = m_view->GetPicture();
    const FaceLimit limit(12);
    Key(Qt::Key_Right);
    Key(Qt::Key_Left);
    EXPECT_EQ(m_view->GetPicture(), still);
}

TEST_F(SceneViewTest, CutsAWidgetThatIsLargerThanTheGraphicsAndScalesThePicture) {
    CString reason;
    const int most = ScenePainter::Open(reason)->GetMaxSize();
    m_view->resize(most * 2, 100);
    m_view->GetPicture();
    EXPECT_EQ(m_view->GetPicture().width(), most);
    EXPECT_EQ(m_view->GetPicture().height(), 50);
    EXPECT_TRUE(m_view->GetProblem().isEmpty());
}

namespace {

// A widget on a screen with two pixels in one unit of length.
class FineView : public SceneView {
protected:
    int metric(PaintDeviceMetric metric) const override {
        if (metric == PdmDevicePixelRatio)
            return 2;
        if (metric == PdmDevicePixelRatioScaled)
            return static_cast<int>(2 * devicePixelRatioFScale());
        return SceneView::metric(metric);
    }
};

}  // namespace

TEST_F(SceneViewTest, DrawsAllPixelsOfAFineScreen) {
    FineView fine;
    fine.resize(160, 120);
    fine.SetScene(Town());
    EXPECT_EQ(fine.GetPicture().size(), QSize(320, 240));
    EXPECT_EQ(fine.GetPicture(), m_view->GetPicture());
    // The pointer's place is in units, the camera's in pixels.
    const auto before = fine.GetCamera().Project({30, 0, 10});
    ASSERT_TRUE(before);
    const QPointF at(before->x / 2, before->y / 2);
    QWheelEvent event(at, fine.mapToGlobal(at), QPoint(), QPoint(0, 240), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&fine, &event);
    const auto after = fine.GetCamera().Project({30, 0, 10});
    ASSERT_TRUE(after);
    EXPECT_NEAR(after->x, before->x, 1e-6);
    EXPECT_NEAR(after->y, before->y, 1e-6);
}

TEST(SceneView, SaysWhyThereIsNoPicture) {
    ASSERT_TRUE(HasWindows());
    int asked = 0;
    SceneView view(nullptr, [&asked](CString& reason) {
        ++asked;
        reason = L"no graphics here";
        return std::unique_ptr<ScenePainter>();
    });
    view.resize(320, 240);
    const QImage empty = Shown(view);
    EXPECT_EQ(asked, 0);
    view.SetScene(Town());
    const QImage refused = Shown(view);
    view.grab();
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(view.GetPicture().isNull());
    EXPECT_TRUE(view.GetProblem().contains("no graphics here"));
    EXPECT_GT(view.GetProblem().size(), 20);
    EXPECT_NE(refused, empty);
}

TEST(SceneView, CanBeReachedByKeyboardAndScreenReader) {
    ASSERT_TRUE(HasWindows());
    const SceneView view;
    EXPECT_EQ(view.focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(view.accessibleName(), QString::fromUtf8("三维视图"));
    EXPECT_FALSE(view.accessibleDescription().isEmpty());
}

TEST(SceneView, ReadsTheModulesAnglesAsThoseOfTheLineOfSight) {
    ASSERT_TRUE(HasWindows());
    const double before[] = {g_nViewXYAngle, g_nViewZAAngle};
    g_nViewXYAngle = 90.0;  // towards +Y
    g_nViewZAAngle = 100.0;
    const SceneView view;
    g_nViewXYAngle = before[0];
    g_nViewZAAngle = before[1];
    EXPECT_NEAR(view.GetCamera().GetForward().x, 0.0, 1e-9);
    EXPECT_GT(view.GetCamera().GetForward().y, 0.9);
    EXPECT_NEAR(view.GetCamera().GetAltitude(), 10.0, 1e-9);
}
