// What of the panel of analyses is seen together, and that it stands still while one works with it.
#include <QAction>
#include <QCheckBox>
#include <QSlider>
#include <QToolButton>
#include <set>

#include "platform/base/Support.h"
#include "workbench/AnalysisPanelStage.h"
#include "workbench/panel/AnalysisPanel.h"

namespace {

class PanelRoom : public AnalysisPanelTest {
protected:
    static bool IsWhole(const QWidget* widget) { return widget->visibleRegion().boundingRect() == widget->rect(); }
    // Whether all these are seen without scrolling, and some rows of the table.
    void ExpectSeen(const std::vector<const char*>& names) const {
        for (const char* name : names)
            EXPECT_TRUE(IsWhole(Find<QWidget>(name))) << name;
        const QRect fourth = Table()->visualRect(Table()->model()->index(3, 0));
        EXPECT_TRUE(Table()->viewport()->visibleRegion().contains(fourth.center())) << "four rows";
    }
    // Where everything of the panel is, on the screen.
    std::vector<QRect> Places() const {
        QCoreApplication::processEvents();
        std::vector<QRect> places;
        for (const QWidget* widget : Find<AnalysisPanel>("AnalysisPanel")->findChildren<QWidget*>())
            if (widget->isVisible() && !widget->objectName().isEmpty() && widget->objectName() != "StretchText" &&
                widget->objectName() != "MomentText")
                places.emplace_back(widget->mapToGlobal(QPoint(0, 0)), widget->size());
        return places;
    }
};

}  // namespace

TEST_F(PanelRoom, ShowsFieldsAnswerAndWhoHidesTheSunTogether) {
    ASSERT_TRUE(m_window->OpenFile(FromUtf8(SourceFolder() + "/data/samples/courtyard.dxf")));
    Run();
    ASSERT_GT(Table()->model()->rowCount(), 4) << Log();
    Table()->setCurrentIndex(Table()->model()->index(0, 0));
    for (const char* language : {"LanguageZh", "LanguageEn"})
        for (const QSize size : {QSize(1100, 760), QSize(1280, 800)}) {
            m_window->findChild<QAction*>(language)->trigger();
            m_window->resize(size);
            SCOPED_TRACE(std::string(language) + " " + std::to_string(size.width()));
            // At 13:00 the tower stands before the sun.
            Find<QSlider>("SunSlider")->setValue(13 * 60);
            QCoreApplication::processEvents();
            ASSERT_NE(Text("MomentText").find("href"), std::string::npos) << Text("MomentText");
            const std::vector<const char*> always = {"WindowLayers", "RunAnalysis",     "RunIsolines", "MakeReport",
                                                     "MakeFilm",     "AnalysisSummary", "WindowTitle", "DayLine",
                                                     "Moment",       "MomentText",      "RunSpot"};
            ExpectSeen(always);
            ExpectSeen({"Need", "North", "Proposed", "Areas", "Spacing", "MoreFields"});
            Find<QToolButton>("MoreFields")->setChecked(true);
            QCoreApplication::processEvents();
            ExpectSeen(always);
            Find<QToolButton>("MoreFields")->setChecked(false);
        }
}

TEST_F(PanelRoom, BringsTheFieldWithTheFocusIntoSight) {
    m_window->resize(1100, 700);
    Find<QToolButton>("MoreFields")->setChecked(true);
    QCoreApplication::processEvents();
    auto* size = Find<QLineEdit>("FilmSize");
    auto* first = Find<QLineEdit>("WindowLayers");
    ASSERT_FALSE(IsWhole(size)) << "there is not the room for all of them";
    size->setFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(IsWhole(size));
    EXPECT_FALSE(IsWhole(first));
    first->setFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(IsWhole(first));
}

TEST_F(PanelRoom, IsReachedByKeys) {
    Run();
    Edit()->setFocus();
    QTest::keyClick(Edit(), Qt::Key_T, Qt::ControlModifier);
    ASSERT_EQ(QApplication::focusWidget(), Table());
    QTest::keyClick(Table(), Qt::Key_Down);
    EXPECT_EQ(View()->GetChosen(), 0U);
    QTest::keyClick(Table(), Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), Find<QLineEdit>("WindowLayers"));
    QTest::keySequence(m_window.get(), QKeySequence("Ctrl+3"));
    ASSERT_FALSE(Table()->isVisible());
    QTest::keyClick(m_window.get(), Qt::Key_T, Qt::ControlModifier);
    EXPECT_TRUE(Table()->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), Table());
}

TEST_F(PanelRoom, StandsStillWhileTheSunMoves) {
    m_window->resize(1100, 760);
    Run();
    ClickRow(1);
    auto* slider = Find<QSlider>("SunSlider");
    slider->setValue(12 * 60);
    const std::vector<QRect> before = Places();
    std::set<int> heights;
    for (int minute = 8 * 60; minute < 17 * 60; minute += 20) {
        slider->setValue(minute);
        heights.insert(Find<QLabel>("MomentText")->height());
        EXPECT_EQ(Places(), before) << minute << ": " << Text("MomentText");
    }
    EXPECT_EQ(heights.size(), 1U);
}

TEST_F(PanelRoom, StandsStillWhileOneGoesThroughTheStretches) {
    Run();
    ClickRow(1);
    Day()->setFocus();
    QTest::keyClick(Day(), Qt::Key_Home);
    const std::vector<QRect> before = Places();
    ASSERT_GT(Day()->GetStretches().size(), 2U);
    for (std::size_t i = 1; i < Day()->GetStretches().size(); ++i) {
        QTest::keyClick(Day(), Qt::Key_Right);
        EXPECT_EQ(Places(), before) << Text("StretchText");
    }
}

TEST_F(PanelRoom, LeavesTheSliderWhereItIsWhenTheSunIsSwitchedOn) {
    auto* slider = Find<QSlider>("SunSlider");
    QCoreApplication::processEvents();
    const QPoint off = slider->mapToGlobal(QPoint(0, 0));
    const QSize view = View()->size();
    for (const bool isOn : {true, false}) {
        Find<QCheckBox>("SunSwitch")->setChecked(isOn);
        QTest::qWait(10);
        EXPECT_EQ(slider->mapToGlobal(QPoint(0, 0)), off);
        EXPECT_EQ(View()->size(), view);
    }
}
