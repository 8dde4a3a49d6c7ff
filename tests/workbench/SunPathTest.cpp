// The sun's path in the view: all of it is in the picture that shows everything, and its numbers can be read.
#include "workbench/view/SunPath.h"

#include <gtest/gtest.h>

#include <QFont>
#include <cmath>
#include <set>

#include "facts/SunPosition.h"
#include "workbench/PreparedWindows.h"
#include "workbench/SceneForTests.h"
#include "workbench/ViewStage.h"

namespace {

// Over 40 degrees north.
ViewSun SunOf(double declination, double time, double north = 0.0) {
    return {ComputeSunDay(declination, 0.0, 120.0, 40.0), north, time, 0.0};
}

const ViewBox kBox{{0, 0, 0}, {80, 60, 30}};

ViewCamera CameraFor(StandardView view, const ViewSun& sun) {
    ViewCamera camera;
    camera.SetViewport(600, 400);
    camera.SetBox(kBox);
    camera.Look(view);
    camera.Fit(SunPath::ArcAround(kBox, sun));
    return camera;
}

constexpr StandardView kViews[] = {StandardView::Top,  StandardView::South,     StandardView::East,
                                   StandardView::West, StandardView::SouthEast, StandardView::North};

class SunPathTest : public ViewStage {
protected:
    void SetUp() override {
        auto scene = std::make_shared<Scene>();
        AddBox(*scene, kBox.least, kBox.most, 8);
        OpenView(scene, StandardView::SouthEast);
    }
    // Whether the sun of a whole day is in the picture.
    bool IsArcSeen(const ViewSun& sun) const {
        for (double time = 0.0; time < 24.0; time += 0.1) {
            if (DirectionOfSun(sun.day, time).up <= 0.0)
                continue;
            const auto at = SunPath(m_view->GetCamera(), kBox).PlaceOf(sun, time);
            if (!at || at->x < 0 || at->x > 400 || at->y < 0 || at->y > 300)
                return false;
        }
        return true;
    }
};

// Letters are measured.
class SunPathLabels : public PreparedWindows {};

}  // namespace

TEST_F(SunPathTest, IsSeenAsAWholeWhereEverythingIs) {
    for (const StandardView view : kViews)
        for (const double declination : {-23.44, 0.0, 23.44})
            for (const double north : {0.0, 90.0, 200.0}) {
                m_view->SetSun({});
                m_view->Look(view);
                const ViewSun sun = SunOf(declination, 12.0, north);
                m_view->SetSun(sun);
                EXPECT_TRUE(IsArcSeen(sun)) << static_cast<int>(view) << " " << declination << " " << north;
                m_view->Look(StandardView::SouthWest);
                EXPECT_TRUE(IsArcSeen(sun)) << "another view while it shines";
            }
}

TEST_F(SunPathTest, ComesAndGoesWithoutATrace) {
    const QcGePoint eye = m_view->GetCamera().GetEye();
    m_view->SetSun(SunOf(23.44, 12.0));
    EXPECT_NE(m_view->GetCamera().GetEye(), eye);
    const QcGePoint inTheSun = m_view->GetCamera().GetEye();
    m_view->SetSun(SunOf(23.44, 15.0));
    EXPECT_EQ(m_view->GetCamera().GetEye(), inTheSun) << "the view does not swing with the hour";
    m_view->SetSun({});
    EXPECT_EQ(m_view->GetCamera().GetEye(), eye);
}

TEST_F(SunPathTest, LeavesAViewThatSomebodyHasTurned) {
    QTest::keyClick(m_view.get(), Qt::Key_Plus);
    const QcGePoint eye = m_view->GetCamera().GetEye();
    m_view->SetSun(SunOf(23.44, 12.0));
    EXPECT_EQ(m_view->GetCamera().GetEye(), eye);
    QTest::keyClick(m_view.get(), Qt::Key_Home);
    EXPECT_TRUE(IsArcSeen(SunOf(23.44, 12.0)));
}

TEST_F(SunPathLabels, AreNowhereWrittenOverEachOther) {
    for (const StandardView view : kViews)
        for (const double declination : {-23.44, 23.44})
            for (const double time : {9.0, 12.0, 14.7}) {
                const ViewSun sun = SunOf(declination, time, 35.0);
                const ViewCamera camera = CameraFor(view, sun);
                const std::vector<QRectF> taken = {QRectF(0, 300, 150, 100)};
                const auto labels = SunPath(camera, kBox).LabelsOf(sun, 1.0, QFont(), taken);
                EXPECT_GE(labels.size(), 3U);
                std::set<int> hours;
                for (std::size_t i = 0; i < labels.size(); ++i) {
                    EXPECT_TRUE(QRectF(0, 0, 600, 400).contains(labels[i].room)) << labels[i].hour;
                    EXPECT_FALSE(labels[i].room.intersects(taken[0])) << labels[i].hour;
                    EXPECT_TRUE(hours.insert(labels[i].hour).second) << labels[i].hour << " is there twice";
                    for (std::size_t k = 0; k < i; ++k)
                        EXPECT_FALSE(labels[i].room.intersects(labels[k].room))
                            << labels[i].hour << " " << labels[k].hour;
                }
                EXPECT_TRUE(hours.contains(static_cast<int>(std::lround(time)))) << "that of the moment at " << time;
            }
}

TEST_F(SunPathLabels, LeaveTheEdgeAndWhatIsTaken) {
    const ViewSun sun = SunOf(-23.44, 14.0);
    ViewCamera camera = CameraFor(StandardView::Top, sun);
    const auto ten = SunPath(camera, kBox).PlaceOf(sun, 10.0);
    const auto four = SunPath(camera, kBox).PlaceOf(sun, 16.0);
    ASSERT_TRUE(ten && four);
    const QRectF rose(ten->x - 50, ten->y - 50, 100, 100);
    for (const PathLabel& label : SunPath(camera, kBox).LabelsOf(sun, 1.0, QFont(), {rose}))
        EXPECT_FALSE(label.room.intersects(rose)) << label.hour;
    camera.Pan(2 - four->x, 0);  // in the west, at the very edge
    const auto labels = SunPath(camera, kBox).LabelsOf(sun, 1.0, QFont(), {});
    EXPECT_GE(labels.size(), 3U);
    for (const PathLabel& label : labels)
        EXPECT_TRUE(QRectF(0, 0, 600, 400).contains(label.room)) << label.hour;
}

TEST_F(SunPathLabels, StandBesideTheirHours) {
    const ViewSun sun = SunOf(-23.44, 12.0);
    const ViewCamera camera = CameraFor(StandardView::South, sun);
    const SunPath path(camera, kBox);
    const auto labels = path.LabelsOf(sun, 2.0, QFont(), {});
    EXPECT_GE(labels.size(), 8U) << "there is room for nearly all of nine";
    for (const PathLabel& label : labels) {
        const auto at = path.PlaceOf(sun, label.hour);
        ASSERT_TRUE(at);
        const QPointF way = label.room.center() - QPointF(at->x / 2.0, at->y / 2.0);
        EXPECT_LT(std::hypot(way.x(), way.y()), 36.0) << label.hour;
        EXPECT_FALSE(label.room.contains(QPointF(at->x / 2.0, at->y / 2.0))) << label.hour;
    }
}

// Seen from where it goes the arc is a line, and hours of the morning lie on those of the afternoon.
TEST_F(SunPathLabels, KeepThatOfTheMomentWhereOthersCollide) {
    for (const double time : {9.0, 15.0}) {
        const ViewSun sun = SunOf(0.0, time);
        ViewCamera camera = CameraFor(StandardView::East, sun);
        camera.Zoom(0.05, 300, 200);  // all within a few pixels
        const auto labels = SunPath(camera, kBox).LabelsOf(sun, 1.0, QFont(), {});
        ASSERT_FALSE(labels.empty());
        EXPECT_LT(labels.size(), 11U);
        EXPECT_EQ(labels[0].hour, time);
    }
    // Even where nothing is free.
    const ViewSun sun = SunOf(0.0, 15.0);
    const ViewCamera camera = CameraFor(StandardView::South, sun);
    const auto labels = SunPath(camera, kBox).LabelsOf(sun, 1.0, QFont(), {QRectF(0, 0, 600, 400)});
    ASSERT_EQ(labels.size(), 1U);
    EXPECT_EQ(labels[0].hour, 15);
}
