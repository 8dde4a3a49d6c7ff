// The panel of analyses in the window: run, looked at in table, time line and view, out of date, cancelled.
#include <QCheckBox>
#include <QDockWidget>
#include <QHeaderView>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QTimeEdit>
#include <QTimer>

#include "workbench/WindowStage.h"
#include "workbench/panel/AnalysisPanel.h"
#include "workbench/panel/DayLine.h"

namespace {

std::string Box(const char* handle, const char* layer, double x, double y, double width, double depth, double height) {
    const auto number = [](double value) { return std::to_string(value); };
    std::string text =
        std::string("0\nLWPOLYLINE\n5\n") + handle + "\n8\n" + layer + "\n39\n" + number(height) + "\n90\n4\n70\n1\n";
    for (const auto& [dx, dy] : {std::pair(0.0, 0.0), {width, 0.0}, {width, depth}, {0.0, depth}})
        text += "10\n" + number(x + dx) + "\n20\n" + number(y + dy) + "\n";
    return text;
}

// A window of 1.5 metres in the wall at y = 0, which looks south.
std::string SouthWindow(const std::string& handle, double x) {
    std::string text = "0\n3DFACE\n5\n" + handle + "\n8\nWINDOW\n";
    int corner = 0;
    for (const auto& [dx, z] : {std::pair(0.0, 1.0), {1.5, 1.0}, {1.5, 2.5}, {0.0, 2.5}}) {
        const std::string which = std::to_string(corner++);
        text += "1" + which + "\n" + std::to_string(x + dx) + "\n2" + which + "\n0\n3" + which + "\n" +
                std::to_string(z) + "\n";
    }
    return text;
}

std::string Drawing(const std::string& entities) {
    return "0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n6\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" + entities +
           "0\nENDSEC\n0\nEOF\n";
}

// A house with two windows, and a tower that stands 8 m south of the eastern one. From there it reaches from 31 degrees
// west of south to 42 degrees east of it, where the sun of the winter solstice is from 9 until about 14; from the
// western window it is seen between 37 and 69 degrees east of south, where the sun is not from half past nine on.
std::string Yard() {
    return Drawing(Box("A1", "HOUSE", 0, 0, 20, 10, 9) + Box("A2", "TOWER", 12, -12, 12, 4, 60) + SouthWindow("B1", 2) +
                   SouthWindow("B2", 16) + Box("C1", "LAWN", 0, -6, 20, 4, 0));
}

class AnalysisPanelTest : public WindowStage {
protected:
    void SetUp() override {
        WindowStage::SetUp();
        m_window->resize(1200, 900);
        m_path = m_folder.Write("yard.dxf", Yard());
        ASSERT_TRUE(m_window->OpenFile(FromUtf8(m_path.string())));
    }
    SceneView* View() const { return Find<SceneView>("SceneView"); }
    QTableView* Table() const { return Find<QTableView>("WindowTable"); }
    DayLine* Day() const { return Find<DayLine>("DayLine"); }
    std::string Text(const char* name) const { return Find<QLabel>(name)->text().toStdString(); }
    std::string Cell(int row, int column) const {
        return Table()->model()->index(row, column).data().toString().toStdString();
    }
    void Set(const char* field, const char* text) const {
        auto* edit = Find<QLineEdit>(field);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        edit->insert(QString::fromUtf8(text));
    }
    void Run() const { QTest::keyClick(m_window.get(), Qt::Key_F9); }
    void Press(const char* button) const { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    void ClickRow(int row) const {
        const QRect cell = Table()->visualRect(Table()->model()->index(row, 0));
        QTest::mouseClick(Table()->viewport(), Qt::LeftButton, {}, cell.center());
    }
    void ClickIn(const QcGePoint& point) const {
        const ViewCamera& camera = View()->GetCamera();
        const auto pixel = camera.Project(point);
        ASSERT_TRUE(pixel);
        const double scale = static_cast<double>(camera.GetWidth()) / View()->width();
        QTest::mouseClick(View(), Qt::LeftButton, {}, QPointF(pixel->x / scale, pixel->y / scale).toPoint());
    }
    bool IsOutOfDate(const char* why) const {
        return Find<QLabel>("OutOfDate")->isVisible() && Text("OutOfDate").find(why) != std::string::npos;
    }

    std::filesystem::path m_path;
};

}  // namespace

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
    EXPECT_NE(Text("MomentText").find("太阳不在前面"), std::string::npos);
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
    } kBad[] = {{"Need", "two", "“two”不是需要的时数"},
                {"Need", "0", "“0”不是需要的时数"},
                {"Need", "24.5", "“24.5”不是需要的时数"},
                {"North", "north", "“north”不是角度"},
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

TEST_F(AnalysisPanelTest, SaysWhyThereIsNoAnswer) {
    Set("WindowLayers", "NOWHERE");
    Run();
    EXPECT_TRUE(HasLogged("NOWHERE")) << Log();
    EXPECT_EQ(Table()->model()->rowCount(), 0);
    EXPECT_EQ(Text("AnalysisSummary"), "窗 0 个：达标 0 个，不达标 0 个");
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

TEST_F(AnalysisPanelTest, HasNamesForScreenReadersInBothLanguages) {
    Run();
    for (const char* language : {"zh", "en"}) {
        if (std::string(language) == "en")
            for (QAction* action : m_window->findChildren<QAction*>())
                if (action->text() == "&English")
                    action->trigger();
        for (const char* name : {"WindowLayers", "Need", "North", "Proposed", "Areas", "Spacing", "WindowFilter",
                                 "WindowTable", "Moment", "DayLine"})
            EXPECT_FALSE(Find<QWidget>(name)->accessibleName().isEmpty()) << name;
        for (const char* name : {"RunAnalysis", "RunIsolines", "WindowTable", "DayLine", "Moment", "Need"})
            EXPECT_NE(Find<QWidget>(name)->focusPolicy() & Qt::TabFocus, 0) << name;
    }
    EXPECT_EQ(Cell(1, WindowModel::Verdict), "fail");
    EXPECT_EQ(Text("AnalysisSummary"), "Windows: 2; passing: 1, failing: 1");
}

namespace {

// So many windows that an analysis takes longer than a moment.
class AnalysisPanelAtWork : public AnalysisPanelTest {
protected:
    void SetUp() override {
        AnalysisPanelTest::SetUp();
        std::string text = Box("A1", "HOUSE", 0, 0, 205, 10, 9);
        for (int i = 0; i < 2500; ++i)
            text += Box("0", "POLE", i % 50 * 4.0, -10.0 - i / 50 * 3.0, 0.5, 0.5, 60);
        for (int i = 0; i < 1500; ++i)
            text += SouthWindow("0", 0.13 * i + 0.3);
        ASSERT_TRUE(m_window->OpenFile(FromUtf8(m_folder.Write("street.dxf", Drawing(text)).string())));
    }
    // Calls this once the bar of the progress is there.
    void WhenRunning(const std::function<void()>& act) {
        m_timer.setInterval(5);
        m_timer.callOnTimeout([this, act] {
            if (!Find<QProgressBar>("Progress")->isVisible())
                return;
            m_timer.stop();
            m_hasActed = true;
            act();
        });
        m_timer.start();
    }

    QTimer m_timer;
    bool m_hasActed = false;
};

}  // namespace

TEST_F(AnalysisPanelAtWork, LivesAndRefusesWhatWouldChangeTheDrawing) {
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
    EXPECT_EQ(Table()->model()->rowCount(), 1500);
    EXPECT_TRUE(Find<QPushButton>("RunAnalysis")->isEnabled());
    EXPECT_FALSE(Find<QProgressBar>("Progress")->isVisible());
}

TEST_F(AnalysisPanelAtWork, LeavesOffWhenItIsTold) {
    WhenRunning([this] { QTest::keyClick(m_window.get(), Qt::Key_Escape); });
    Run();
    EXPECT_TRUE(m_hasActed);
    EXPECT_TRUE(HasLogged("已取消")) << Log();
    EXPECT_EQ(Table()->model()->rowCount(), 0);
}

TEST_F(AnalysisPanelAtWork, LeavesOffWhenTheWindowIsClosed) {
    WhenRunning([this] { m_window->close(); });
    Run();
    EXPECT_TRUE(m_hasActed);
    QApplication::processEvents();
    EXPECT_FALSE(m_window->isVisible());
}
