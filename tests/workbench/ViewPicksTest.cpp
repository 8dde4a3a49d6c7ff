// Picking in the view, what is not shown, lines, and parallel views.
#include <gtest/gtest.h>

#include <QTest>
#include <set>

#include "workbench/SceneForTests.h"
#include "workbench/ViewStage.h"
#include "workbench/view/IndexColors.h"
#include "workbench/view/SceneView.h"

namespace {

constexpr std::uint64_t kRedBox = 11;
constexpr std::uint64_t kGreenBox = 12;
constexpr std::uint64_t kLine = 13;

AcDbObjectId Id(std::uint64_t number) {
    return AcDbObjectId::FromOldId(number);
}

void AddLine(Scene& scene, std::uint64_t id, std::uint32_t layer, const QcGePoint& from, const QcGePoint& to) {
    scene.lines.runs.push_back({Id(id), layer, 5, -1, scene.lines.segments.size(), 1});
    if (scene.lines.segments.empty())
        scene.lines.least = scene.lines.most = from;
    scene.lines.segments.push_back({from, to});
    for (const QcGePoint& point : {from, to})
        for (double QcGePoint::*const axis : {&QcGePoint::x, &QcGePoint::y, &QcGePoint::z}) {
            scene.lines.least.*axis = std::min(scene.lines.least.*axis, point.*axis);
            scene.lines.most.*axis = std::max(scene.lines.most.*axis, point.*axis);
        }
}

// A red box in the west, a green one in the east, and a blue line between them, each on a layer of its own.
std::shared_ptr<Scene> Yard() {
    auto scene = std::make_shared<Scene>();
    scene->layers = {"RED", "GREEN", "BLUE"};
    AddBox(*scene, {0, 0, 0}, {10, 10, 10}, 1);
    AddBox(*scene, {30, 0, 0}, {40, 10, 10}, 3);
    scene->entities[0].id = Id(kRedBox);
    scene->entities[1].id = Id(kGreenBox);
    scene->entities[1].layer = 1;
    AddLine(*scene, kLine, 2, {20, 0, 0}, {20, 10, 0});
    return scene;
}

bool IsRed(QRgb p) {
    return qRed(p) > 60 && qRed(p) > 3 * qGreen(p) && qRed(p) > 3 * qBlue(p);
}
bool IsGreen(QRgb p) {
    return qGreen(p) > 60 && qGreen(p) > 3 * qRed(p) && qGreen(p) > 3 * qBlue(p);
}
bool IsBlue(QRgb p) {
    return qBlue(p) > 100 && qBlue(p) > 2 * qRed(p) && qBlue(p) > 2 * qGreen(p);
}
bool IsOrange(QRgb p) {
    return qRed(p) > 150 && qGreen(p) > 50 && qGreen(p) < 200 && qBlue(p) < 60;
}

class ViewPicks : public ViewStage {
protected:
    void SetUp() override {
        OpenView(Yard(), StandardView::Top);
        if (!m_view)
            return;
        m_view->m_onPick = [this] { ++m_told; };
    }

    int m_told = 0;
};

}  // namespace

TEST_F(ViewPicks, ShowsLinesInTheirColour) {
    EXPECT_GT(Count(m_view->GetPicture(), IsBlue), 50);
    auto scene = Yard();
    scene->lines = SceneLines();
    m_view->UpdateScene(scene);
    EXPECT_EQ(Count(m_view->GetPicture(), IsBlue), 0);
}

TEST_F(ViewPicks, ShowsADrawingOfLinesAlone) {
    auto scene = std::make_shared<Scene>();
    AddLine(*scene, kLine, 0, {500'000'000, 0, 0}, {500'000'010, 0, 0});
    AddLine(*scene, kLine, 0, {500'000'000, 0, 0}, {500'000'000, 10, 0});
    m_view->SetScene(scene);
    EXPECT_GT(Count(m_view->GetPicture(), IsBlue), 200);
}

TEST_F(ViewPicks, FitsTheFacesAndShowsLinesAroundThemWhenZoomedOut) {
    auto scene = Yard();
    AddLine(*scene, kLine, 2, {-60, -60, 0}, {100, -60, 0});
    m_view->SetScene(scene);
    m_view->Look(StandardView::Top);
    const auto corner = m_view->GetCamera().Project({0, 0, 10});
    ASSERT_TRUE(corner);
    EXPECT_LT(corner->x, 30.0) << "the boxes fill the picture";
    const int before = Count(m_view->GetPicture(), IsBlue);
    for (int i = 0; i < 8; ++i)
        QTest::keyClick(m_view.get(), Qt::Key_Minus);
    EXPECT_GT(Count(m_view->GetPicture(), IsBlue), before);
}

TEST_F(ViewPicks, MarksWhatIsClickedAndNothingBesideIt) {
    Click({5, 5, 10});
    EXPECT_EQ(m_view->GetPicked(), Id(kRedBox));
    EXPECT_EQ(m_told, 1);
    const QImage marked = m_view->GetPicture();
    EXPECT_GT(Count(marked, IsOrange), 1000);
    EXPECT_EQ(Count(marked, IsRed), 0);
    EXPECT_GT(Count(marked, IsGreen), 1000) << "the other one is as it was";
    Click({25, 9, 0});
    EXPECT_TRUE(m_view->GetPicked().isNull());
    EXPECT_EQ(m_told, 2);
    EXPECT_EQ(Count(m_view->GetPicture(), IsOrange), 0);
    EXPECT_GT(Count(m_view->GetPicture(), IsRed), 1000);
}

TEST_F(ViewPicks, TakesALineThatTheClickIsCloseTo) {
    QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, Where({20, 5, 0}) + QPoint(3, 0));
    EXPECT_EQ(m_view->GetPicked(), Id(kLine));
    QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, Where({20, 5, 0}) + QPoint(8, 0));
    EXPECT_TRUE(m_view->GetPicked().isNull());
}

TEST_F(ViewPicks, TakesNoLineThatAFaceHides) {
    auto scene = Yard();
    AddLine(*scene, 20, 2, {5, 0, 5}, {5, 10, 5});
    AddLine(*scene, 21, 2, {35, 0, 10}, {35, 10, 10});
    m_view->UpdateScene(scene);
    for (const bool isParallel : {true, false}) {
        if (!isParallel)
            QTest::keyClick(m_view.get(), Qt::Key_Down);  // no plan any more
        Click({5, 5, 10});
        EXPECT_EQ(m_view->GetPicked(), Id(kRedBox));
        Click({35, 5, 10});
        EXPECT_EQ(m_view->GetPicked(), Id(21)) << "one that lies on a roof is seen";
    }
}

TEST_F(ViewPicks, TurnsWithoutPickingWhenTheMouseIsDragged) {
    const QPoint at = Where({5, 5, 10});
    QTest::mousePress(m_view.get(), Qt::LeftButton, {}, at);
    QTest::mouseMove(m_view.get(), at + QPoint(40, 0));
    QTest::mouseRelease(m_view.get(), Qt::LeftButton, {}, at + QPoint(40, 0));
    EXPECT_TRUE(m_view->GetPicked().isNull());
}

TEST_F(ViewPicks, CanDoItAllWithKeys) {
    std::set<AcDbObjectId> met;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(m_view.get(), Qt::Key_Period);
        met.insert(m_view->GetPicked());
    }
    EXPECT_EQ(met, (std::set<AcDbObjectId>{Id(kRedBox), Id(kGreenBox), Id(kLine)}));
    EXPECT_EQ(m_view->GetPicked(), Id(kLine));
    QTest::keyClick(m_view.get(), Qt::Key_Period);
    EXPECT_EQ(m_view->GetPicked(), Id(kRedBox)) << "round again";
    QTest::keyClick(m_view.get(), Qt::Key_Comma);
    EXPECT_EQ(m_view->GetPicked(), Id(kLine));
    QTest::keyClick(m_view.get(), Qt::Key_Escape);
    EXPECT_TRUE(m_view->GetPicked().isNull());
    QTest::keyClick(m_view.get(), Qt::Key_Space);
    EXPECT_EQ(m_view->GetPicked(), Id(kLine)) << "the middle of the picture";
}

TEST_F(ViewPicks, GoThroughWhatHasFacesAndLinesOnce) {
    auto scene = Yard();
    AddLine(*scene, kRedBox, 2, {0, 0, 12}, {10, 0, 12});
    AddLine(*scene, 20, 2, {0, 0, 20}, {10, 0, 20});
    m_view->UpdateScene(scene);
    std::vector<AcDbObjectId> met;
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(m_view.get(), Qt::Key_Period);
        met.push_back(m_view->GetPicked());
    }
    EXPECT_EQ(met, (std::vector<AcDbObjectId>{Id(kRedBox), Id(kGreenBox), Id(kLine), Id(20), Id(kRedBox)}));
}

TEST_F(ViewPicks, NeitherShowsNorPicksHiddenLayers) {
    m_view->SetHiddenLayers({true, false, true});
    const QImage picture = m_view->GetPicture();
    EXPECT_EQ(Count(picture, IsRed), 0);
    EXPECT_EQ(Count(picture, IsBlue), 0);
    EXPECT_GT(Count(picture, IsGreen), 1000);
    Click({5, 5, 10});
    EXPECT_TRUE(m_view->GetPicked().isNull());
    Click({20, 5, 0});
    EXPECT_TRUE(m_view->GetPicked().isNull());
    QTest::keyClick(m_view.get(), Qt::Key_Period);
    EXPECT_EQ(m_view->GetPicked(), Id(kGreenBox));
    m_view->UpdateScene(Yard());
    EXPECT_EQ(Count(m_view->GetPicture(), IsRed), 0) << "a later state of the drawing";
    EXPECT_EQ(m_view->GetPicked(), Id(kGreenBox));
    m_view->SetScene(Yard());
    EXPECT_GT(Count(m_view->GetPicture(), IsRed), 100);
    EXPECT_TRUE(m_view->GetPicked().isNull());
}

// In a parallel view edges of one length are of one length, however far away they are.
TEST_F(ViewPicks, ShowsParallelLinesAsSuch) {
    const auto width = [&](double y) {
        const auto from = m_view->GetCamera().Project({0, y, 0});
        const auto to = m_view->GetCamera().Project({10, y, 0});
        return to->x - from->x;
    };
    m_view->Look(StandardView::South);
    EXPECT_GT(width(0), width(10) * 1.01);
    QTest::keyClick(m_view.get(), Qt::Key_P);
    EXPECT_TRUE(m_view->IsParallel());
    EXPECT_NEAR(width(0), width(10), 1e-9);
    m_view->Look(StandardView::West);
    m_view->Look(StandardView::South);
    EXPECT_NEAR(width(0), width(10), 1e-9) << "from every side";
    EXPECT_GT(Count(m_view->GetPicture(), IsRed), 500);
    QTest::keyClick(m_view.get(), Qt::Key_P);
    EXPECT_GT(width(0), width(10) * 1.01);
    m_view->Look(StandardView::Top);
    EXPECT_TRUE(m_view->GetCamera().IsParallel()) << "a plan always is";
}

TEST(LineColors, CanBeSeenOnThePaleBackground) {
    for (int index = 1; index <= 255; ++index) {
        const int rgb = RgbOfLine(index, -1);
        EXPECT_LE(0.299 * (rgb >> 16) + 0.587 * (rgb >> 8 & 255) + 0.114 * (rgb & 255), 141.0) << index;
    }
    EXPECT_EQ(RgbOfLine(1, -1), 0xFF0000) << "what is dark enough stays as it is";
    EXPECT_EQ(RgbOfLine(1, 0x123456), 0x123456);
    EXPECT_EQ(RgbOfLine(7, -1), 0x404040);
}
