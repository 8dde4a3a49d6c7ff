// The bar of the sun, with keys and buttons as a person uses it, in the window.
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QPushButton>

#include "facts/DayTerms.h"
#include "facts/Settings.h"
#include "workbench/WindowStage.h"
#include "workbench/window/HourSlider.h"
#include "workbench/window/SunBar.h"

namespace {

class WindowSun : public WindowStage {
protected:
    SunBar* Bar() const { return Find<SunBar>("SunBar"); }
    HourSlider* Slider() const { return Find<HourSlider>("SunSlider"); }
    QCheckBox* Switch() const { return Find<QCheckBox>("SunSwitch"); }
    QPushButton* Play() const { return Find<QPushButton>("SunPlay"); }
    QComboBox* Base() const { return Find<QComboBox>("SunBase"); }
    QDateEdit* Date() const { return Find<QDateEdit>("SunDate"); }
    SceneView* View() const { return Find<SceneView>("SceneView"); }
    std::string Time() const { return Find<QLabel>("SunTime")->text().toStdString(); }
    std::string About() const { return Find<QLabel>("SunAbout")->text().toStdString(); }
    bool Says(const char* text) const { return About().find(text) != std::string::npos; }
    std::string Place() const { return Find<QLabel>("SunPlace")->text().toStdString(); }
    // Columns of the slider that have the mark's green, up to the right edge; none are (-1, -1).
    std::pair<int, int> Marked() const {
        const QImage image = Slider()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        std::pair<int, int> found(-1, -1);
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixelColor(x, y) == QColor(46, 158, 82))
                    found = {found.first < 0 ? x : found.first, x + 1};
        return found;
    }
    // Where the handle's middle is at an hour.
    double XOf(double hour) const {
        const int handle = Slider()->style()->pixelMetric(QStyle::PM_SliderLength, nullptr, Slider());
        return handle / 2.0 + hour * 60 / (24 * 60 - 1) * (Slider()->width() - handle);
    }
    void Key(Qt::Key key) const { QTest::keyClick(Slider(), key); }
    // Peking of the stage, whatever the sun's day.
    SunDay DayHere() const {
        const QDate date = Date()->date();
        return ComputeSunDay(TermsFor({date.year(), date.month(), date.day()}), *CurrentSettings().place);
    }
};

}  // namespace

TEST_F(WindowSun, IsOffUntilItIsWanted) {
    EXPECT_FALSE(Switch()->isChecked());
    EXPECT_FALSE(View()->GetSun());
    EXPECT_FALSE(Date()->isVisible());
    EXPECT_EQ(Time(), "12:00:00");
    QTest::keySequence(m_window.get(), QKeySequence("F6"));
    EXPECT_TRUE(Switch()->isChecked());
    ASSERT_TRUE(View()->GetSun());
    EXPECT_EQ(View()->GetSun()->trueSolarTime, 12.0);
    EXPECT_TRUE(Date()->isVisible());
    QTest::keySequence(m_window.get(), QKeySequence("F6"));
    EXPECT_FALSE(Switch()->isChecked());
    EXPECT_FALSE(View()->GetSun());
    Switch()->setFocus();
    QTest::keyClick(Switch(), Qt::Key_Space);
    EXPECT_TRUE(View()->GetSun());
}

TEST_F(WindowSun, MovesWithTheKeysOfTheSlider) {
    Key(Qt::Key_Right);
    EXPECT_TRUE(Switch()->isChecked()) << "whoever moves it wants to see it";
    ASSERT_TRUE(View()->GetSun());
    EXPECT_NEAR(View()->GetSun()->trueSolarTime, 12.0 + 1.0 / 60.0, 1e-12);
    EXPECT_EQ(Time(), "12:01:00");
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Time(), "12:31:00");
    EXPECT_EQ(Slider()->accessibleDescription(), "12:31:00");
    Key(Qt::Key_PageDown);
    Key(Qt::Key_Left);
    EXPECT_EQ(Time(), "12:00:00");
    Key(Qt::Key_End);
    EXPECT_EQ(Time(), "23:59:00");
    EXPECT_TRUE(Says("夜间")) << About();
    Key(Qt::Key_Home);
    EXPECT_EQ(Time(), "00:00:00");
    EXPECT_EQ(View()->GetSun()->trueSolarTime, 0.0);
}

// 116.4 degrees east: the sun is 14.4 minutes behind the clock of 120 degrees, but for the equation of time.
TEST_F(WindowSun, ShowsTheClockThatIsChosen) {
    Switch()->click();
    const DayTerms terms = TermsFor(CurrentSettings().Day());
    const double later = (120.0 - 116.4) / 15.0 - terms.equationOfTime;
    Base()->setFocus();
    QTest::keyClick(Base(), Qt::Key_Down);
    EXPECT_EQ(Base()->currentText().toStdString(), "北京时间");
    ASSERT_TRUE(View()->GetSun());
    EXPECT_EQ(View()->GetSun()->trueSolarTime, 12.0) << "the moment stays";
    EXPECT_NEAR(View()->GetSun()->shownLater, later, 1e-12);
    const int minutes = static_cast<int>(std::lround((12.0 + later) * 60.0));
    EXPECT_EQ(Slider()->value(), minutes);
    Key(Qt::Key_Right);
    EXPECT_NEAR(View()->GetSun()->trueSolarTime, (minutes + 1) / 60.0 - later, 1e-12) << "whole minutes of that clock";
    EXPECT_EQ(Time().substr(5), ":00");
    Key(Qt::Key_Home);
    EXPECT_EQ(Time(), "00:00:00");
    EXPECT_NEAR(View()->GetSun()->trueSolarTime, 24.0 - later, 1e-12);
}

TEST_F(WindowSun, PlaysAndPausesBySpace) {
    const double rise = 12.0 - DayHere().dayLength / 2.0;
    Key(Qt::Key_Space);
    EXPECT_TRUE(Play()->isChecked());
    EXPECT_EQ(Play()->text().toStdString(), "暂停");
    QTRY_VERIFY(View()->GetSun() && View()->GetSun()->trueSolarTime > 12.1);
    Key(Qt::Key_Space);
    EXPECT_FALSE(Play()->isChecked());
    const double paused = View()->GetSun()->trueSolarTime;
    QTest::qWait(200);
    EXPECT_EQ(View()->GetSun()->trueSolarTime, paused);
    Key(Qt::Key_End);
    Play()->click();
    QTRY_VERIFY(View()->GetSun()->trueSolarTime < 12.0);
    EXPECT_NEAR(View()->GetSun()->trueSolarTime, rise, 1.0) << "on with the next morning";
    Switch()->click();
    EXPECT_FALSE(Play()->isChecked());
    EXPECT_FALSE(View()->GetSun());
}

TEST_F(WindowSun, HasADayOfItsOwnThatChangesNoSettings) {
    Switch()->click();
    const CalendarDay before = CurrentSettings().Day();
    EXPECT_EQ(Date()->date(), QDate(before.year, before.month, before.day));
    Date()->setFocus();
    Date()->setDate(QDate(2025, 6, 21));
    ASSERT_TRUE(View()->GetSun());
    EXPECT_NEAR(View()->GetSun()->day.declination, 23.4, 1.0) << "the longest day";
    EXPECT_EQ(CurrentSettings().Day(), before);
    Type("help");
    EXPECT_EQ(Date()->date(), QDate(2025, 6, 21)) << "as long as that of the settings stays";
    Type("set --date 2025-3-20");
    EXPECT_EQ(Date()->date(), QDate(2025, 3, 20)) << Log();
    EXPECT_NEAR(View()->GetSun()->day.declination, 0.0, 1.0) << "an equinox";
}

TEST_F(WindowSun, IsThatOfThePlaceInForce) {
    Switch()->click();
    Type("set --place 北京");
    EXPECT_EQ(Place(), "北京市/北京");
    Type("set --place 通州");
    EXPECT_EQ(Place(), "北京市/通州") << Log();
    ASSERT_TRUE(View()->GetSun());
    EXPECT_EQ(View()->GetSun()->day.longitude, 116.7);
    g_SunDataSet.CurCity() = L"无此地";
    Type("help");
    EXPECT_FALSE(View()->GetSun());
    EXPECT_TRUE(Says("无此地")) << About();
    EXPECT_FALSE(Slider()->isEnabled());
}

TEST_F(WindowSun, TellsTheMomentToWhoeverAsks) {
    std::vector<double> moments;
    View()->m_onSun = [&] {
        if (View()->GetSun())
            moments.push_back(View()->GetSun()->trueSolarTime);
    };
    Key(Qt::Key_PageUp);
    Type("help");
    EXPECT_EQ(moments, (std::vector<double>{12.5})) << "once, and no more while nothing changes";
}

TEST_F(WindowSun, IsKept) {
    Switch()->click();
    Base()->setCurrentIndex(1);
    m_window->close();
    m_window = std::make_unique<MainWindow>();
    m_window->show();
    EXPECT_TRUE(Switch()->isChecked());
    EXPECT_EQ(Base()->currentIndex(), 1);
    EXPECT_TRUE(View()->GetSun());
}

TEST_F(WindowSun, SpeaksEnglishAndHasNames) {
    EXPECT_EQ(Play()->text().toStdString(), "播放");
    for (QAction* action : m_window->findChildren<QAction*>())
        if (action->text() == "&English")
            action->trigger();
    for (const QWidget* widget : std::initializer_list<QWidget*>{Slider(), Play(), Base(), Date()})
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    EXPECT_EQ(Play()->text(), "Play");
    EXPECT_EQ(Switch()->text(), "Sun and shadows");
    EXPECT_EQ(Base()->itemText(1), "Beijing time");
}

// What is told is never shortened; the place's name, which may be long, gives way.
TEST_F(WindowSun, IsToldInFullAtEverySizeAndInLargeLetters) {
    Switch()->click();
    QFont large = Bar()->font();
    large.setPointSizeF(1.6 * large.pointSizeF());
    Bar()->setFont(large);
    for (const char* language : {"LanguageZh", "LanguageEn"}) {
        m_window->findChild<QAction*>(language)->trigger();
        for (const QSize& size : {QSize(800, 600), QSize(1100, 760), QSize(1280, 800)}) {
            m_window->resize(size);
            QCoreApplication::processEvents();
            const auto* about = Find<QLabel>("SunAbout");
            for (const int minute : {0, 11 * 60 + 40}) {
                Slider()->setValue(minute);
                const auto isWhole = [about] {
                    return about->fontMetrics().horizontalAdvance(about->text()) <= about->contentsRect().width();
                };
                EXPECT_TRUE(QTest::qWaitFor(isWhole, 1000)) << About() << " at " << size.width();
            }
            EXPECT_TRUE(Bar()->rect().contains(about->geometry()));
        }
    }
}

TEST_F(WindowSun, LeavesTheSliderInItsPlaceWhenItComesAndGoes) {
    for (const char* language : {"LanguageZh", "LanguageEn"}) {
        m_window->findChild<QAction*>(language)->trigger();
        m_window->resize(1100, 760);
        QCoreApplication::processEvents();
        const QRect place = Slider()->geometry();
        Switch()->click();
        QCoreApplication::processEvents();
        EXPECT_EQ(Slider()->geometry(), place) << language;
        Switch()->click();
    }
}

// The shipped standard of the day of great cold counts from 8 to 16, true solar time.
TEST_F(WindowSun, MarksTheSpanThatCounts) {
    Type("set --standard 国标大寒日");
    m_window->resize(1280, 800);
    QCoreApplication::processEvents();
    EXPECT_NEAR(Marked().first, XOf(8.0), 1.0) << Log();
    EXPECT_NEAR(Marked().second, XOf(16.0), 1.0);
    Switch()->click();
    Base()->setCurrentIndex(1);
    const double later = View()->GetSun()->shownLater;
    EXPECT_GT(XOf(later) - XOf(0.0), 2.0) << "else nothing is told";
    EXPECT_NEAR(Marked().first, XOf(8.0 + later), 1.0);
    EXPECT_NEAR(Marked().second, XOf(16.0 + later), 1.0);
}
