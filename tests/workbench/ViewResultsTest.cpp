// Results over the drawing: windows in their colours, chosen by a click or from outside, and lines.
#include <gtest/gtest.h>

#include <QTest>

#include "workbench/SceneForTests.h"
#include "workbench/ViewStage.h"
#include "workbench/view/SceneView.h"

namespace {

constexpr int kBlue = 0x0000FF;

bool IsBlue(QRgb p) {
    return qBlue(p) > 200 && qRed(p) < 60 && qGreen(p) < 60;
}
bool IsGreen(QRgb p) {
    return qGreen(p) > 200 && qRed(p) < 60 && qBlue(p) < 60;
}

// A window four metres wide and high in a wall that looks south, with its corners as seen from there.
ResultQuad SouthWindow(double x, double y, std::size_t window) {
    return {{QcGePoint(x, y, 3), QcGePoint(x + 4, y, 3), QcGePoint(x + 4, y, 7), QcGePoint(x, y, 7)}, window, kBlue};
}

// Two grey houses, one north of the other.
std::shared_ptr<Scene> Street(double heightOfTheSouthern = 10) {
    auto scene = std::make_shared<Scene>();
    scene->layers = {"HOUSES"};
    AddBox(*scene, {0, 0, 0}, {10, 10, heightOfTheSouthern}, 8);
    AddBox(*scene, {0, 60, 0}, {10, 70, 10}, 8);
    scene->entities[0].id = AcDbObjectId::FromOldId(11);
    scene->entities[1].id = AcDbObjectId::FromOldId(12);
    return scene;
}

class ViewResultsTest : public ViewStage {
protected:
    void SetUp() override {
        OpenView(Street(), StandardView::South);
        if (!m_view)
            return;
        m_view->m_onChoose = [this] { ++m_told; };
    }
    void Show(std::vector<ResultQuad> quads) const {
        auto results = std::make_shared<ViewResults>();
        results->quads = std::move(quads);
        m_view->SetResults(results);
    }

    int m_told = 0;
};

}  // namespace

TEST_F(ViewResultsTest, ShowsWindowsInTheirColourWhereNothingStandsBefore) {
    Show({SouthWindow(3, 0, 7)});
    EXPECT_GT(Count(m_view->GetPicture(), IsBlue), 300);
    m_view->Look(StandardView::North);
    EXPECT_EQ(Count(m_view->GetPicture(), IsBlue), 0) << "the house stands before it";
    m_view->Look(StandardView::South);
    m_view->SetResults(nullptr);
    EXPECT_EQ(Count(m_view->GetPicture(), IsBlue), 0);
}

TEST_F(ViewResultsTest, ShowsLines) {
    auto results = std::make_shared<ViewResults>();
    results->lines.push_back({{{-5, 30, 1}, {25, 30, 1}}, 0x00FF00});
    m_view->SetResults(results);
    m_view->Look(StandardView::Top);
    EXPECT_GT(Count(m_view->GetPicture(), IsGreen), 50);
}

TEST_F(ViewResultsTest, ChoosesTheWindowThatIsClicked) {
    Show({SouthWindow(0.5, 0, 7), SouthWindow(5.5, 0, 8)});
    Click({2, 0, 5});
    EXPECT_EQ(m_view->GetChosen(), 7U);
    EXPECT_EQ(m_told, 1);
    EXPECT_EQ(m_view->GetPicked(), AcDbObjectId::FromOldId(11)) << "the wall is picked, too";
    Click({7, 0, 5});
    EXPECT_EQ(m_view->GetChosen(), 8U);
    EXPECT_EQ(m_told, 2);
    Click({5, 0, 1});
    EXPECT_EQ(m_view->GetChosen(), std::nullopt) << "the wall beside them";
    EXPECT_EQ(m_told, 3);
}

TEST_F(ViewResultsTest, TakesNoWindowBehindAWall) {
    Show({SouthWindow(3, 2, 7)});
    Click({5, 0, 5});
    EXPECT_EQ(m_view->GetChosen(), std::nullopt);
    m_view->SetHiddenLayers({true});
    Click({5, 2, 5});
    EXPECT_EQ(m_view->GetChosen(), 7U) << "of a wall that is not shown";
}

TEST_F(ViewResultsTest, TurnsToAWindowOutOfSightAndToNoOther) {
    Show({SouthWindow(3, 0, 7), SouthWindow(3, 60, 8)});
    const QcGePoint eye = m_view->GetCamera().GetEye();
    m_view->Choose(7, true);
    EXPECT_EQ(m_view->GetCamera().GetEye(), eye) << "it is seen already";
    m_view->Choose(8, false);
    EXPECT_EQ(m_view->GetCamera().GetEye(), eye) << "nobody asked to see it";
    m_view->Choose(8, true);
    const ViewCamera& camera = m_view->GetCamera();
    EXPECT_NEAR(camera.GetAzimuth(), 180.0, 1e-9) << "from the south, which it looks to";
    EXPECT_LT(camera.GetEye().y, 0.0) << "over the southern house, from where all of this one is seen";
    EXPECT_GT(Count(m_view->GetPicture(), IsBlue), 100);
    EXPECT_TRUE(IsInSight(SouthWindow(3, 60, 8), *Street(), {}, camera));
    m_view->Look(StandardView::North);
    m_view->Choose(8, true);
    EXPECT_NEAR(m_view->GetCamera().GetAzimuth(), 180.0, 1e-9) << "it was seen from behind";
    EXPECT_EQ(m_told, 0) << "nobody clicked";
}

TEST_F(ViewResultsTest, ComesNearerWhereSomethingStandsBetween) {
    constexpr double kTower = 60;
    m_view->SetScene(Street(kTower));
    Show({SouthWindow(3, 60, 8)});
    m_view->Choose(8, true);
    EXPECT_GT(m_view->GetCamera().GetEye().y, 10.0) << "from between the houses";
    EXPECT_TRUE(IsInSight(SouthWindow(3, 60, 8), *Street(kTower), {}, m_view->GetCamera()));
}

TEST_F(ViewResultsTest, BeginsAnotherDrawingWithoutAny) {
    Show({SouthWindow(3, 0, 7)});
    m_view->Choose(7, false);
    m_view->UpdateScene(Street());
    EXPECT_GT(Count(m_view->GetPicture(), IsBlue), 300) << "a later state of the same drawing";
    m_view->SetScene(Street());
    EXPECT_EQ(Count(m_view->GetPicture(), IsBlue), 0);
    EXPECT_EQ(m_view->GetChosen(), std::nullopt);
}

TEST_F(ViewResultsTest, DrawsNothingOfWindowsThatAreNoPlace) {
    ResultQuad bad = SouthWindow(3, 0, 1);
    bad.corners[2].x = NAN;
    Show({bad, SouthWindow(3, 0, 7)});
    EXPECT_GT(Count(m_view->GetPicture(), IsBlue), 300);
    m_view->Choose(1, true);
    EXPECT_FALSE(m_view->GetPicture().isNull());
    EXPECT_TRUE(std::isfinite(m_view->GetCamera().GetEye().x));
}
