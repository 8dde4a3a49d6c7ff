// The panel of analyses in the window: run, looked at in table, time line and view, out of date, cancelled.
#include <QCheckBox>
#include <QDateEdit>
#include <QDockWidget>
#include <QHeaderView>
#include <QSlider>
#include <QTimeEdit>
#include <QToolButton>

#include "workbench/AnalysisPanelStage.h"

TEST_F(AnalysisPanelTest, LeavesTheFocusWhereItWas) {
    Edit()->setFocus();
    QTest::keyClick(Edit(), Qt::Key_F9);
    EXPECT_EQ(Table()->model()->rowCount(), 2);
    EXPECT_EQ(QApplication::focusWidget(), Edit());
    View()->setFocus();
    QTest::keyClick(View(), Qt::Key_F9);
    EXPECT_EQ(QApplication::focusWidget(), View());
}

TEST_F(AnalysisPanelTest, RunsByItsKeyAndTellsWhichWindowsFail) {
    Run();
    ASSERT_EQ(Table()->model()->rowCount(), 2);
    EXPECT_EQ(Cell(0, WindowModel::Name), "B1");
    EXPECT_EQ(Cell(0, WindowModel::Verdict), "达标");
    EXPECT_EQ(Cell(1, WindowModel::Name), "B2");
    EXPECT_EQ(Cell(1, WindowModel::Verdict), "不达标");
    EXPECT_EQ(Text("AnalysisSummary"), "窗 2 个：达标 1 个，不达标 1 个");
    EXPECT_TRUE(HasLogged("达标 1 个，不达标 1 个"));
    EXPECT_FALSE(Find<QLabel>("OutOfDate")->isVisible());
    Set("Need", "");
    Press("RunAnalysis");
    EXPECT_EQ(Cell(1, WindowModel::Verdict), "-") << "without a need there is none";
    EXPECT_EQ(Text("AnalysisSummary"), "窗 2 个");
    Set("Need", "0.5");
    Press("RunAnalysis");
    EXPECT_EQ(Cell(1, WindowModel::Verdict), "达标") << "it has about an hour in the afternoon";
}

TEST_F(AnalysisPanelTest, ShowsTheWindowOfARowAndTheRowOfAWindow) {
    Run();
    View()->Look(StandardView::North);
    ClickRow(1);
    EXPECT_EQ(View()->GetChosen(), 1U);
    EXPECT_EQ(View()->GetPicked(), acdbCurDwg()->FindHandle(0xB2));
    EXPECT_NEAR(View()->GetCamera().GetAzimuth(), 180.0, 1e-6) << "it was out of sight";
    EXPECT_NE(Text("WindowTitle").find("B2"), std::string::npos);
    View()->Look(StandardView::SouthWest);
    ClickIn({2.75, -0.2, 1.75});
    EXPECT_EQ(View()->GetChosen(), 0U);
    EXPECT_EQ(Table()->currentIndex().row(), 0);
    EXPECT_NE(Text("WindowTitle").find("B1"), std::string::npos);
    ClickIn({1, 5, 9});
    EXPECT_FALSE(Table()->currentIndex().isValid()) << "the roof is no window";
    EXPECT_EQ(Text("WindowTitle").find("B1"), std::string::npos);
    View()->setFocus();
    while (View()->GetPicked() != acdbCurDwg()->FindHandle(0xB2))
        QTest::keyClick(View(), Qt::Key_Period);
    EXPECT_EQ(Table()->currentIndex().row(), 1) << "picked by a key";
}

TEST_F(AnalysisPanelTest, GoesThroughTheTableByKeys) {
    Run();
    Table()->setFocus();
    QTest::keyClick(Table(), Qt::Key_Down);
    EXPECT_EQ(View()->GetChosen(), 0U);
    QTest::keyClick(Table(), Qt::Key_Down);
    EXPECT_EQ(View()->GetChosen(), 1U);
}

TEST_F(AnalysisPanelTest, SortsByAClickAndFilters) {
    Run();
    ClickRow(0);
    const QHeaderView* header = Table()->horizontalHeader();
    const int x = header->sectionViewportPosition(WindowModel::Hours) + 10;
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    EXPECT_EQ(Cell(0, WindowModel::Name), "B2") << "the one with less sun";
    EXPECT_EQ(Table()->currentIndex().row(), 1) << "B1 is still chosen";
    QTest::mouseClick(Find<QCheckBox>("OnlyFailing"), Qt::LeftButton, {}, QPoint(8, 8));
    ASSERT_EQ(Table()->model()->rowCount(), 1);
    EXPECT_EQ(Cell(0, WindowModel::Name), "B2");
    EXPECT_EQ(View()->GetChosen(), 0U) << "what is filtered out is not unchosen";
    Find<QCheckBox>("OnlyFailing")->setChecked(false);
    Set("WindowFilter", "b1");
    ASSERT_EQ(Table()->model()->rowCount(), 1);
    EXPECT_EQ(Cell(0, WindowModel::Name), "B1");
    Set("WindowFilter", "no such window");
    EXPECT_EQ(Table()->model()->rowCount(), 0);
}

TEST_F(AnalysisPanelTest, TellsTheDayOfAWindow) {
    Run();
    ClickRow(1);
    const std::vector<DayStretch>& stretches = Day()->GetStretches();
    const auto hidden = std::find_if(stretches.begin(), stretches.end(),
                                     [](const DayStretch& each) { return each.kind == DayStretch::Kind::Hidden; });
    ASSERT_NE(hidden, stretches.end());
    EXPECT_NE(ToUtf8(hidden->text.View()).find("A2（LWPOLYLINE，图层 TOWER）"), std::string::npos);
    EXPECT_NE(Day()->accessibleDescription().toStdString().find("A2（LWPOLYLINE"), std::string::npos);
    Day()->setFocus();
    QTest::keyClick(Day(), Qt::Key_End);
    EXPECT_EQ(Text("StretchText"), ToUtf8(stretches.back().text.View()));
    EXPECT_EQ(Day()->accessibleDescription().toStdString(), Text("StretchText"));
    QTest::keyClick(Day(), Qt::Key_Right);
    EXPECT_EQ(Day()->GetCurrent(), static_cast<int>(stretches.size()) - 1) << "the last one";
    QTest::keyClick(Day(), Qt::Key_Home);
    QTest::keyClick(Day(), Qt::Key_Right);
    EXPECT_EQ(Day()->GetCurrent(), 1);
    QTest::keyClick(Day(), Qt::Key_Left);
    EXPECT_EQ(Day()->GetCurrent(), 0);
    const auto at = static_cast<std::size_t>(hidden - stretches.begin());
    QTest::mouseClick(Day(), Qt::LeftButton, {}, Day()->RectOf(at).center());
    EXPECT_EQ(Text("StretchText"), ToUtf8(hidden->text.View()));
}

TEST_F(AnalysisPanelTest, TellsWhoHidesTheSunAtATime) {
    Run();
    ClickRow(1);
    EXPECT_NE(Text("MomentText").find("TOWER"), std::string::npos) << "at noon: " << Text("MomentText");
    auto* time = Find<QTimeEdit>("Moment");
    time->setFocus();
    time->setCurrentSection(QDateTimeEdit::HourSection);
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(time, Qt::Key_Up);
    time->setCurrentSection(QDateTimeEdit::MinuteSection);
    for (int i = 0; i < 45; ++i)
        QTest::keyClick(time, Qt::Key_Up);
    EXPECT_NE(Text("MomentText").find("太阳照到这里"), std::string::npos) << "at 14:45: " << Text("MomentText");
    time->setTime(QTime(20, 0));
    EXPECT_NE(Text("MomentText").find("这时不在分析的时段里"), std::string::npos) << Text("MomentText");
    time->setTime(QTime(12, 0));
    emit Find<QLabel>("MomentText")->linkActivated("a2");
    EXPECT_EQ(View()->GetPicked(), acdbCurDwg()->FindHandle(0xA2));
}

// At noon the tower's shadow lies on the roof north of it, and its north-western corner in the sun.
TEST_F(AnalysisPanelTest, TellsTheDayOfAFaceThatIsClicked) {
    View()->Look(StandardView::Top);
    EXPECT_FALSE(Find<QPushButton>("RunSpot")->isEnabled());
    ClickIn({18, 0.5, 9});
    EXPECT_NE(Text("WindowTitle").find("A1（LWPOLYLINE，图层 HOUSE） 上点击的一点"), std::string::npos)
        << Text("WindowTitle");
    EXPECT_NE(Text("MomentText").find("TOWER"), std::string::npos)
        << "the roof behind the tower: " << Text("MomentText");
    EXPECT_FALSE(Day()->GetStretches().empty());
    ClickIn({1, 9, 9});
    EXPECT_NE(Text("MomentText").find("太阳照到这里"), std::string::npos) << Text("MomentText");
    EXPECT_TRUE(Find<QPushButton>("RunSpot")->isEnabled());
    Run();
    ClickRow(0);
    EXPECT_NE(Text("WindowTitle").find("B1"), std::string::npos);
    Press("RunSpot");
    EXPECT_NE(Text("WindowTitle").find("A1"), std::string::npos) << "the spot that was clicked last";
    EXPECT_FALSE(Table()->currentIndex().isValid());
}

TEST_F(AnalysisPanelTest, SaysWhenAResultIsOutOfDate) {
    Run();
    Set("Need", "3");
    EXPECT_TRUE(IsOutOfDate("上面的要求改动了"));
    Set("Need", "2");
    EXPECT_FALSE(Find<QLabel>("OutOfDate")->isVisible()) << "what it was made with";
    Type("set --place 通州");
    EXPECT_TRUE(IsOutOfDate("设置改动了")) << Log();
    Press("RunAnalysis");
    EXPECT_FALSE(Find<QLabel>("OutOfDate")->isVisible());
    QTest::keyClick(m_window.get(), Qt::Key_F5);
    EXPECT_TRUE(IsOutOfDate("图形改动了"));
    EXPECT_EQ(Table()->model()->rowCount(), 2) << "it is still to be seen";
    ASSERT_TRUE(m_window->OpenFile(FromUtf8(WriteDrawing("house.dxf").string())));
    EXPECT_EQ(Table()->model()->rowCount(), 0) << "another drawing";
    EXPECT_FALSE(Find<QLabel>("OutOfDate")->isVisible());
    EXPECT_TRUE(Day()->GetStretches().empty());
}

TEST_F(AnalysisPanelTest, RefusesWhatNoFieldCanHold) {
    const struct {
        const char* field;
        const char* text;
        const char* complaint;
    } kBad[] = {{"Need", "two", "“需要（小时）” 的值“two”不对"},
                {"Need", "0", "“需要（小时）” 的值“0”不对"},
                {"Need", "24.5", "“需要（小时）” 的值“24.5”不对"},
                {"North", "north", "“正北（度）” 的值“north”不对"},
                {"WindowLayers", "WINDOW, orvo_result_windows", "图层“orvo_result_windows”上是画出的结果"},
                {"Proposed", "ORVO_RESULT_HOURS", "图层“ORVO_RESULT_HOURS”上是画出的结果"}};
    for (const auto& bad : kBad) {
        const QString before = Find<QLineEdit>(bad.field)->text();
        Set(bad.field, bad.text);
        Run();
        EXPECT_TRUE(HasLogged(bad.complaint)) << Log();
        EXPECT_EQ(QApplication::focusWidget(), Find<QLineEdit>(bad.field));
        EXPECT_EQ(Table()->model()->rowCount(), 0) << bad.text;
        Set(bad.field, before.toUtf8().constData());
    }
    Press("RunIsolines");
    EXPECT_TRUE(HasLogged("没有写区域图层"));
    Set("Areas", "LAWN");
    Set("Spacing", "-1");
    Press("RunIsolines");
    EXPECT_TRUE(HasLogged("“-1”不是点距")) << Log();
}

TEST_F(AnalysisPanelTest, RefusesWhatThePlansFieldsCannotHold) {
    const struct {
        const char* field;
        const char* text;
        const char* complaint;
    } kBad[] = {{"Sill", "high", "“窗台标高（米）” 的值“high”不对"},
                {"WindowHeight", "0", "“窗高（米）” 的值“0”不对"},
                {"Storeys", "6", "“层数=层高” 的值“6”不对"},
                {"Facing", "south", "“窗朝向（度）” 的值“south”不对"},
                {"LeastAltitude", "90", "“最低高度角” 的值“90”不对"}};
    Find<QToolButton>("MoreFields")->click();
    for (const auto& bad : kBad) {
        Set(bad.field, bad.text);
        Run();
        EXPECT_TRUE(HasLogged(bad.complaint)) << Log();
        EXPECT_EQ(QApplication::focusWidget(), Find<QLineEdit>(bad.field));
        EXPECT_EQ(Table()->model()->rowCount(), 0) << bad.text;
        Set(bad.field, "");
    }
}

// A wall along y = 0 with the line of one window before it, which has neither sill nor height.
TEST_F(AnalysisPanelTest, AnalysesTheWindowsOfAPlan) {
    const std::string plan =
        Drawing(BodyOf("A1", "HOUSE", 0, 0, 20, 10, 30) + "0\nLINE\n5\nB1\n8\nWINDOW\n10\n2\n20\n0\n11\n3.5\n21\n0\n");
    ASSERT_TRUE(m_window->OpenFile(FromUtf8(m_folder.Write("plan.dxf", plan).string())));
    Find<QToolButton>("MoreFields")->click();
    Set("Sill", "0.9");
    Set("WindowHeight", "1.5");
    Set("Storeys", "6=2.9");
    Run();
    EXPECT_EQ(Table()->model()->rowCount(), 6) << Log();
    Set("Storeys", "2=2.9");
    EXPECT_TRUE(IsOutOfDate("上面的要求改动了"));
    Set("LeastAltitude", "89");
    Run();
    EXPECT_EQ(Table()->model()->rowCount(), 2);
    EXPECT_EQ(Cell(0, WindowModel::Hours), "0:00:00") << "the sun never stands that high in winter";
}

TEST_F(AnalysisPanelTest, FoldsAwayWhatFewAskFor) {
    auto* more = Find<QToolButton>("MoreFields");
    EXPECT_FALSE(Find<QLineEdit>("Sill")->isVisible());
    EXPECT_EQ(more->text().toStdString(), "更多");
    more->setFocus();
    QTest::keyClick(more, Qt::Key_Space);
    EXPECT_TRUE(Find<QLineEdit>("Sill")->isVisible());
    Set("Sill", "0.9");
    Find<QCheckBox>("Scope")->setChecked(true);
    QTest::keyClick(more, Qt::Key_Space);
    EXPECT_FALSE(Find<QLineEdit>("Sill")->isVisible());
    EXPECT_EQ(more->text().toStdString(), "更多（已填 2 项）") << "it still counts";
}

TEST_F(AnalysisPanelTest, SaysWhyThereIsNoAnswer) {
    Set("WindowLayers", "NOWHERE");
    Run();
    EXPECT_TRUE(HasLogged("NOWHERE")) << Log();
    EXPECT_EQ(Table()->model()->rowCount(), 0);
    EXPECT_NE(Text("AnalysisSummary").find("没有窗可以分析。"), std::string::npos) << Text("AnalysisSummary");
}

TEST_F(AnalysisPanelTest, DrawsIsolines) {
    Set("Areas", "lawn");
    Press("RunIsolines");
    EXPECT_TRUE(HasLogged("等时线：")) << Log();
    EXPECT_FALSE(HasLogged("等时线：0 条")) << "the tower's shadow has an edge there";
    EXPECT_NE(Text("AnalysisLegend").find("等时线"), std::string::npos);
    Set("Spacing", "2");
    EXPECT_TRUE(IsOutOfDate("等时线已经过时"));
    EXPECT_EQ(Text("OutOfDate").find("窗的结果"), std::string::npos);
}

TEST_F(AnalysisPanelTest, TakesTheProjectAwayAndBringsItBack) {
    auto* project = Find<QCheckBox>("ShowProject");
    EXPECT_FALSE(project->isVisible());
    Set("Proposed", "Tower");
    Run();
    ASSERT_TRUE(project->isVisible());
    EXPECT_FALSE(Table()->isColumnHidden(WindowModel::Before));
    ClickRow(1);
    EXPECT_NE(Text("WindowTitle").find("不达标"), std::string::npos);
    View()->Look(StandardView::South);
    ClickIn({18, -12, 30});
    EXPECT_EQ(View()->GetPicked(), acdbCurDwg()->FindHandle(0xA2));
    ClickRow(1);
    View()->Look(StandardView::South);
    QTest::mouseClick(project, Qt::LeftButton, {}, QPoint(8, project->height() / 2));
    EXPECT_EQ(Text("WindowTitle").find("不达标"), std::string::npos) << "without the tower: " << Text("WindowTitle");
    EXPECT_TRUE(std::none_of(Day()->GetStretches().begin(), Day()->GetStretches().end(), [](const DayStretch& each) {
        return each.kind == DayStretch::Kind::Hidden || each.kind == DayStretch::Kind::Lost;
    })) << "nothing else stands there";
    ClickIn({18, -12, 30});
    EXPECT_TRUE(View()->GetPicked().isNull()) << "the tower is not shown";
    project->setChecked(true);
    ClickIn({18, -12, 30});
    EXPECT_EQ(View()->GetPicked(), acdbCurDwg()->FindHandle(0xA2));
}

TEST_F(AnalysisPanelTest, LooksAtTheHourOfTheSlider) {
    Run();
    ClickRow(1);
    auto* slider = Find<QSlider>("SunSlider");
    slider->setFocus();
    EXPECT_FALSE(View()->GetSun());
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(slider, Qt::Key_PageUp);  // 12:00 + 5 * 0:30
    EXPECT_NE(Text("MomentText").find("太阳照到这里"), std::string::npos) << "at 14:30: " << Text("MomentText");
    EXPECT_EQ(Find<QTimeEdit>("Moment")->time(), QTime(14, 30));
    for (int i = 0; i < 9; ++i)
        QTest::keyClick(slider, Qt::Key_PageDown);
    EXPECT_NE(Text("MomentText").find("TOWER"), std::string::npos) << "at 10:00: " << Text("MomentText");
    ClickRow(0);
    EXPECT_NE(Text("MomentText").find("太阳照到这里"), std::string::npos) << "B1 at 10:00: " << Text("MomentText");
}

TEST_F(AnalysisPanelTest, ShowsWhoHidesTheSunWhereTheWindowIsSmall) {
    m_window->resize(1000, 450);
    QApplication::processEvents();
    Run();
    Table()->setCurrentIndex(Table()->model()->index(1, 0));
    const auto isSeen = [this] { return !Find<QLabel>("MomentText")->visibleRegion().isEmpty(); };
    EXPECT_FALSE(isSeen()) << "the panel has no room for it";
    QTest::keyClick(Find<QSlider>("SunSlider"), Qt::Key_Right);
    EXPECT_TRUE(isSeen());
}

TEST_F(AnalysisPanelTest, MovesTheSunToATimeThatIsChosen) {
    Run();
    ClickRow(1);
    const std::vector<DayStretch>& stretches = Day()->GetStretches();
    const auto lit = std::find_if(stretches.begin(), stretches.end(),
                                  [](const DayStretch& each) { return each.kind == DayStretch::Kind::Lit; });
    ASSERT_NE(lit, stretches.end());
    const auto at = static_cast<std::size_t>(lit - stretches.begin());
    QTest::mouseClick(Day(), Qt::LeftButton, {}, Day()->RectOf(at).center());
    ASSERT_TRUE(View()->GetSun()) << "it is switched on";
    const double time = View()->GetSun()->trueSolarTime;
    EXPECT_GE(time, lit->period.start);
    EXPECT_LE(time, lit->period.end);
    EXPECT_NEAR(time, (lit->period.start + lit->period.end) / 2.0, 0.05) << "its middle was clicked";
    EXPECT_NE(Text("MomentText").find("太阳照到这里"), std::string::npos) << Text("MomentText");
    Find<QTimeEdit>("Moment")->setTime(QTime(9, 15));
    EXPECT_NEAR(View()->GetSun()->trueSolarTime, 9.25, 1e-9);
    EXPECT_EQ(Text("SunTime"), "09:15:00");
    Day()->setFocus();
    QTest::keyClick(Day(), Qt::Key_Home);
    QTest::keyClick(Day(), Qt::Key_Return);
    EXPECT_NEAR(View()->GetSun()->trueSolarTime, (stretches[0].period.start + stretches[0].period.end) / 2.0, 1e-9);
    QTest::mouseClick(Day(), Qt::LeftButton, {}, QPoint(2, 10));
    EXPECT_NEAR(View()->GetSun()->trueSolarTime, (stretches[0].period.start + stretches[0].period.end) / 2.0, 1e-9)
        << "the names of the rows are no hours";
}

TEST_F(AnalysisPanelTest, TellsWhenTheViewShowsTheSunOfAnotherDay) {
    Run();
    auto* date = Find<QDateEdit>("SunDate");
    const QDate own = date->date();
    date->setDate(QDate(2026, 6, 21));
    const auto isTold = [this] { return Find<QLabel>("OtherDay")->isVisible(); };
    EXPECT_TRUE(isTold()) << "no window is chosen, and the table is of another day all the same";
    ClickRow(1);
    EXPECT_TRUE(isTold());
    EXPECT_EQ(Text("OtherDay"),
              "这里是 " + own.toString(Qt::ISODate).toStdString() + " 的结果，视图里的太阳是 2026-06-21 的");
    date->setDate(own);
    EXPECT_FALSE(isTold()) << Text("OtherDay");
    date->setDate(QDate(2026, 6, 21));
    Find<QCheckBox>("SunSwitch")->setChecked(false);
    EXPECT_FALSE(isTold()) << "it shows none";
    Find<QCheckBox>("SunSwitch")->setChecked(true);
    ASSERT_TRUE(isTold());
    ASSERT_TRUE(m_window->OpenFile(FromUtf8(WriteDrawing("house.dxf").string())));
    EXPECT_FALSE(isTold()) << "there is no answer that could be of another day";
}

TEST_F(AnalysisPanelTest, TurnsTheSunWithTheNorth) {
    Find<QCheckBox>("SunSwitch")->setChecked(true);
    EXPECT_EQ(View()->GetSun()->north, 0.0);
    Set("North", "15");
    EXPECT_EQ(View()->GetSun()->north, 15.0);
    Find<QLineEdit>("North")->setText("north");
    EXPECT_EQ(View()->GetSun()->north, 15.0) << "until it is a number again";
    Set("North", "");
    EXPECT_EQ(View()->GetSun()->north, 0.0);
}

TEST_F(AnalysisPanelTest, KeepsAnswerAndChoiceInTheOtherLanguage) {
    Type("set --standard 国标大寒日");  // of the shipped ones, which tell where their values come from
    Run();
    ClickRow(1);
    const std::optional<std::size_t> chosen = View()->GetChosen();
    ASSERT_TRUE(chosen);
    m_window->findChild<QAction*>("LanguageEn")->trigger();
    EXPECT_FALSE(Find<QLabel>("OutOfDate")->isVisible()) << Text("OutOfDate");
    EXPECT_EQ(View()->GetChosen(), chosen);
    EXPECT_EQ(Table()->currentIndex().row(), 1);
    EXPECT_NE(Text("WindowTitle").find("facing"), std::string::npos) << Text("WindowTitle");
}

TEST_F(AnalysisPanelTest, HasNamesForScreenReadersInBothLanguages) {
    Run();
    for (const char* language : {"zh", "en"}) {
        if (std::string(language) == "en")
            for (QAction* action : m_window->findChildren<QAction*>())
                if (action->text() == "&English")
                    action->trigger();
        for (const char* name : {"WindowLayers", "Need", "North", "Proposed", "Areas", "Spacing", "WindowFilter",
                                 "WindowTable", "Moment", "DayLine", "Sill", "WindowHeight", "Storeys", "Facing",
                                 "LeastAltitude", "ReportProject", "ReportAuthor", "FilmEvery", "FilmSize"})
            EXPECT_FALSE(Find<QWidget>(name)->accessibleName().isEmpty()) << name;
        for (const char* name : {"RunAnalysis", "RunIsolines", "WindowTable", "DayLine", "Moment", "Need", "MakeReport",
                                 "MakeFilm", "OpenMade", "MoreFields", "Scope"})
            EXPECT_NE(Find<QWidget>(name)->focusPolicy() & Qt::TabFocus, 0) << name;
    }
    EXPECT_EQ(Cell(1, WindowModel::Verdict), "fail");
    EXPECT_EQ(Text("AnalysisSummary"), "Windows: 2; passing: 1, failing: 1");
}

TEST_F(AnalysisPanelTest, LivesAndRefusesWhatWouldChangeTheDrawing) {
    WhenRunning([this] {
        const double azimuth = View()->GetCamera().GetAzimuth();
        QTest::keyClick(View(), Qt::Key_Left);
        EXPECT_NE(View()->GetCamera().GetAzimuth(), azimuth);
        EXPECT_FALSE(Find<QPushButton>("RunAnalysis")->isEnabled());
        m_window->RunLine(L"set --step 7");
        EXPECT_TRUE(HasLogged("上一条命令还没有结束"));
        EXPECT_FALSE(m_window->OpenFile(FromUtf8(m_path.string())));
    });
    Run();
    EXPECT_TRUE(m_hasActed);
    EXPECT_EQ(Table()->model()->rowCount(), 2);
    EXPECT_TRUE(Find<QPushButton>("RunAnalysis")->isEnabled());
    EXPECT_FALSE(Find<QProgressBar>("Progress")->isVisible());
}

TEST_F(AnalysisPanelTest, LeavesOffWhenItIsTold) {
    WhenRunning([this] { PressEscape(); });
    Run();
    EXPECT_TRUE(m_hasActed);
    EXPECT_TRUE(HasLogged("已取消")) << Log();
    EXPECT_EQ(Table()->model()->rowCount(), 0);
}
