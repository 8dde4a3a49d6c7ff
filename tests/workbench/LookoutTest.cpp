// Turning to an entity that is out of sight: only then, and with the window in question.
#include "workbench/view/Lookout.h"

#include <gtest/gtest.h>

#include "workbench/AnalysisPanelStage.h"
#include "workbench/SceneForTests.h"
#include "workbench/ViewStage.h"

namespace {

const AcDbObjectId kHouse = AcDbObjectId::FromOldId(11);
const AcDbObjectId kTower = AcDbObjectId::FromOldId(12);
const QcGePoint kTowerLeast(-50, -400, 0);
const QcGePoint kTowerMost(60, -390, 200);

// A house with a window that looks south, and a broad tower far before it, which covers it from there.
std::shared_ptr<Scene> Site() {
    auto scene = std::make_shared<Scene>();
    scene->layers = {"HOUSES", "TOWERS"};
    AddBox(*scene, {0, 0, 0}, {10, 10, 10}, 8);
    AddBox(*scene, kTowerLeast, kTowerMost, 8);
    scene->entities[0].id = kHouse;
    scene->entities[1].id = kTower;
    scene->entities[1].layer = 1;
    return scene;
}

ResultQuad Window() {
    return {{QcGePoint(4, 0, 3), QcGePoint(6, 0, 3), QcGePoint(6, 0, 5), QcGePoint(4, 0, 5)}, 7, 0x0000FF};
}

class LookoutTest : public ViewStage {
protected:
    void SetUp() override {
        OpenView(Site(), StandardView::South);
        if (!m_view)
            return;
        auto results = std::make_shared<ViewResults>();
        results->quads = {Window()};
        m_view->SetResults(results);
    }
    bool IsSeen(const QcGePoint& point) const {
        const auto at = Camera().Project(point);
        return at && at->x >= 0 && at->x <= Camera().GetWidth() && at->y >= 0 && at->y <= Camera().GetHeight();
    }
    bool IsTowerSeen() const {
        bool isSeen = true;
        for (const double x : {kTowerLeast.x, kTowerMost.x})
            for (const double y : {kTowerLeast.y, kTowerMost.y})
                for (const double z : {kTowerLeast.z, kTowerMost.z})
                    isSeen = isSeen && IsSeen({x, y, z});
        return isSeen;
    }
    const ViewCamera& Camera() const { return m_view->GetCamera(); }
    // From close before the window, with the tower behind.
    void ComeClose() const {
        m_view->Look(StandardView::North);
        m_view->Choose(7, true);
        ASSERT_TRUE(IsInSight(Window(), *Site(), {}, Camera()));
        ASSERT_FALSE(IsSeen(kTowerLeast) || IsSeen(kTowerMost));
    }
};

}  // namespace

TEST_F(LookoutTest, StaysWhereTheEntityIsInThePicture) {
    const QcGePoint eye = Camera().GetEye();
    m_view->Show(kTower);
    m_view->Show(kHouse);
    m_view->Show(AcDbObjectId());
    EXPECT_EQ(Camera().GetEye(), eye);
}

TEST_F(LookoutTest, TurnsToAnEntityAndTheChosenWindow) {
    ComeClose();
    m_view->Show(kTower);
    EXPECT_TRUE(IsTowerSeen());
    EXPECT_TRUE(IsInSight(Window(), *Site(), {}, Camera()));
    const QcGePoint eye = Camera().GetEye();
    m_view->Show(kTower);
    EXPECT_EQ(Camera().GetEye(), eye) << "it is seen now";
}

TEST_F(LookoutTest, HasBothInThePictureHoweverSmall) {
    const Scene none;
    ViewCamera camera = Camera();
    const QcGePoint far(300, -100, 1);
    EXPECT_TRUE(LookAtBoth(camera, {far, {301, -99, 2}}, Window(), none, {}));
    EXPECT_TRUE(IsInSight(Window(), none, {}, camera));
    const auto at = camera.Project(far);
    ASSERT_TRUE(at);
    EXPECT_TRUE(at->x >= 0 && at->x <= camera.GetWidth() && at->y >= 0 && at->y <= camera.GetHeight());
    // Behind the window's wall there is no place from which it is seen with this.
    const QcGePoint eye = camera.GetEye();
    EXPECT_FALSE(LookAtBoth(camera, {{5, 4000, 1}, {6, 4001, 2}}, Window(), *Site(), {}));
    EXPECT_EQ(camera.GetEye(), eye);
}

TEST_F(LookoutTest, TurnsToAnEntityAloneWhereNoWindowIsChosen) {
    ComeClose();
    m_view->Choose({}, false);
    const double azimuth = Camera().GetAzimuth();
    const double altitude = Camera().GetAltitude();
    m_view->Show(kTower);
    EXPECT_TRUE(IsTowerSeen());
    EXPECT_EQ(Camera().GetAzimuth(), azimuth);
    EXPECT_EQ(Camera().GetAltitude(), altitude);
    EXPECT_LT((Camera().GetEye() - kTowerMost).Length(), 1000.0) << "and not from the end of the world";
}

TEST_F(LookoutTest, TurnsToTheEntityWhereTheWindowCannotBeSeen) {
    auto scene = Site();
    AddBox(*scene, {3, -1, 0}, {7, -0.5, 9}, 8);  // a board before it
    AddBox(*scene, {3, -1, 9}, {7, 0, 9.5}, 8);
    AddBox(*scene, {2.5, -1, 0}, {3, 0, 9.5}, 8);
    AddBox(*scene, {7, -1, 0}, {7.5, 0, 9.5}, 8);
    m_view->UpdateScene(scene);
    m_view->Look(StandardView::North);
    m_view->Choose(7, true);
    m_view->Show(kTower);
    EXPECT_TRUE(IsTowerSeen());
    EXPECT_FALSE(IsInSight(Window(), *scene, {}, Camera()));
}

TEST_F(LookoutTest, StaysWhereTheEntityIsNotShown) {
    ComeClose();
    m_view->SetHiddenLayers({false, true});
    const QcGePoint eye = Camera().GetEye();
    m_view->Show(kTower);
    EXPECT_EQ(Camera().GetEye(), eye);
}

TEST_F(LookoutTest, SeesALineWhoseEndsAreBesideThePicture) {
    Scene scene;
    scene.layers = {"0"};
    scene.lines.segments = {{{-1000, 0, 5}, {1000, 0, 5}}};
    SceneLineRun run;
    run.id = kTower;
    run.first = 0;
    run.count = 1;
    scene.lines.runs = {run};
    ViewCamera camera = Camera();
    camera.Aim({0, 0, 5});
    EXPECT_TRUE(IsInPicture(scene, {}, kTower, camera));
    EXPECT_FALSE(IsInPicture(scene, {true}, kTower, camera));
    EXPECT_FALSE(IsInPicture(scene, {}, kHouse, camera));
    camera.Aim({0, 0, 500});
    EXPECT_FALSE(IsInPicture(scene, {}, kTower, camera));
    const auto box = BoxOfEntity(scene, {}, kTower);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->most, QcGePoint(1000, 0, 5));
    EXPECT_FALSE(BoxOfEntity(scene, {}, kHouse));
}

// The tower of this yard stands eight metres before the eastern window, which one looks at from between the two.
TEST_F(AnalysisPanelTest, ShowsWhoHidesTheSunWhenItsLinkIsFollowed) {
    Run();
    View()->Look(StandardView::North);
    ClickRow(1);
    ASSERT_EQ(View()->GetChosen(), 1U);
    QTest::keyClick(View(), Qt::Key_Plus);
    auto* text = Find<QLabel>("MomentText");
    ASSERT_NE(text->text().indexOf("href=\"a2\""), -1) << text->text().toStdString();
    emit text->linkActivated("a2");
    const AcDbDatabase& database = *acdbCurDwg();
    const Scene scene = BuildScene(database);
    EXPECT_EQ(View()->GetPicked(), database.FindHandle(0xA2));
    const auto box = BoxOfEntity(scene, {}, View()->GetPicked());
    ASSERT_TRUE(box);
    for (const QcGePoint& corner : {box->least, box->most}) {
        const auto at = View()->GetCamera().Project(corner);
        ASSERT_TRUE(at);
        EXPECT_TRUE(at->x >= 0 && at->x <= View()->GetCamera().GetWidth()) << at->x;
        EXPECT_TRUE(at->y >= 0 && at->y <= View()->GetCamera().GetHeight()) << at->y;
    }
}
