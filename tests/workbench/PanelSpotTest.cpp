// The spot that was clicked in the view, in the panel of analyses: when it can be asked for, and what stays of it.
#include <QAction>
#include <QCheckBox>

#include "workbench/AnalysisPanelStage.h"

namespace {

class PanelSpot : public AnalysisPanelTest {
protected:
    void SetUp() override {
        AnalysisPanelTest::SetUp();
        View()->Look(StandardView::Top);
    }
    QPushButton* Button() const { return Find<QPushButton>("RunSpot"); }
};

}  // namespace

TEST_F(PanelSpot, IsAskedForOnlyOnceOneWasClicked) {
    EXPECT_FALSE(Button()->isEnabled());
    EXPECT_NE(Button()->toolTip().toStdString().find("先在视图里点击一个面"), std::string::npos);
    Run();
    EXPECT_FALSE(Button()->isEnabled()) << "an analysis is no click";
    ClickIn({18, 0.5, 9});
    EXPECT_TRUE(Button()->isEnabled());
    EXPECT_EQ(Button()->toolTip().toStdString().find("先在视图里点击一个面"), std::string::npos);
    Run();
    EXPECT_TRUE(Button()->isEnabled());
    QTest::keyClick(m_window.get(), Qt::Key_F5);
    EXPECT_FALSE(Button()->isEnabled()) << "what was there may be elsewhere";
    EXPECT_NE(Button()->toolTip().toStdString().find("先在视图里点击一个面"), std::string::npos);
}

// The panel looks up what is picked in the drawing, and the one before is gone.
TEST_F(PanelSpot, OutlivesAReloadWithSomethingPicked) {
    Run();
    ClickIn({18, 0.5, 9});
    ASSERT_EQ(View()->GetPicked(), acdbCurDwg()->FindHandle(0xA1));
    QTest::keyClick(m_window.get(), Qt::Key_F5);
    EXPECT_EQ(View()->GetPicked(), acdbCurDwg()->FindHandle(0xA1));
    EXPECT_TRUE(IsOutOfDate("图形改动了"));
}

TEST_F(PanelSpot, WaitsForTheEndOfWhatRuns) {
    WhenRunning([this] {
        ClickIn({18, 0.5, 9});
        EXPECT_FALSE(Button()->isEnabled());
    });
    Run();
    ASSERT_TRUE(m_hasActed);
    EXPECT_FALSE(HasLogged("上一条命令还没有结束")) << "a click is no command: " << Log();
    EXPECT_TRUE(Button()->isEnabled());
    Press("RunSpot");
    EXPECT_NE(Text("WindowTitle").find("A1"), std::string::npos);
}

// A dialog would be unexpected.
TEST_F(PanelSpot, AndNothingElseBeginsWhileSomethingRuns) {
    WhenRunning([this] {
        for (const int key : {Qt::Key_R, Qt::Key_M})
            QTest::keyClick(m_window.get(), static_cast<Qt::Key>(key), Qt::ControlModifier);
        QTest::keyClick(m_window.get(), Qt::Key_F9);
        ClickIn({18, 0.5, 9});
        EXPECT_FALSE(Button()->isEnabled());
    });
    Run();
    ASSERT_TRUE(m_hasActed);
    EXPECT_TRUE(HasLogged("上一条命令还没有结束")) << Log();
    EXPECT_TRUE(Button()->isEnabled());
    EXPECT_EQ(Table()->model()->rowCount(), 2);
}

TEST_F(PanelSpot, KeepsItsDayInAnotherLanguage) {
    ClickIn({18, 0.5, 9});
    ASSERT_NE(Text("WindowTitle").find("A1（LWPOLYLINE，图层 HOUSE） 上点击的一点"), std::string::npos);
    const std::size_t count = Day()->GetStretches().size();
    ASSERT_GT(count, 0U);
    m_window->findChild<QAction*>("LanguageEn")->trigger();
    EXPECT_NE(Text("WindowTitle").find("Clicked spot on A1"), std::string::npos) << Text("WindowTitle");
    EXPECT_EQ(Day()->GetStretches().size(), count);
    EXPECT_NE(Text("MomentText").find("TOWER"), std::string::npos) << Text("MomentText");
    m_window->findChild<QAction*>("LanguageZh")->trigger();
    Run();
    ClickRow(0);
    m_window->findChild<QAction*>("LanguageEn")->trigger();
    EXPECT_NE(Text("WindowTitle").find("B1"), std::string::npos)
        << "a window was chosen since: " << Text("WindowTitle");
    m_window->findChild<QAction*>("LanguageZh")->trigger();
    ASSERT_TRUE(m_window->OpenFile(FromUtf8(m_path.string())));
    m_window->findChild<QAction*>("LanguageEn")->trigger();
    EXPECT_EQ(Text("WindowTitle").find("A1"), std::string::npos) << "it was another drawing's";
}

// What the row's colours say is said in a chosen row, too, on light and on dark paper.
TEST_F(PanelSpot, LeavesTheColoursOfAChosenRowTrue) {
    Run();
    m_window->activateWindow();
    for (const bool isDark : {false, true}) {
        QPalette palette = QApplication::palette();
        if (isDark) {
            palette.setColor(QPalette::Base, QColor(30, 30, 30));
            palette.setColor(QPalette::AlternateBase, QColor(40, 40, 40));
            palette.setColor(QPalette::Text, Qt::white);
        }
        Table()->setPalette(palette);
        ClickRow(1);
        Table()->setFocus();
        const QModelIndex verdict = Table()->model()->index(1, WindowModel::Verdict);
        const QModelIndex hours = Table()->model()->index(1, WindowModel::Hours);
        ASSERT_TRUE(Table()->selectionModel()->isSelected(verdict));
        const QImage seen = Table()->viewport()->grab().toImage();
        const auto share = [&](const QModelIndex& cell, const QColor& color) {
            const QRect rect = Table()->visualRect(cell);
            int count = 0;
            for (int y = rect.top(); y <= rect.bottom(); ++y)
                for (int x = rect.left(); x <= rect.right(); ++x)
                    count += seen.pixelColor(x, y) == color ? 1 : 0;
            return static_cast<double>(count) / (rect.width() * rect.height());
        };
        EXPECT_GT(share(verdict, verdict.data(Qt::BackgroundRole).value<QBrush>().color()), 0.5);
        EXPECT_GT(share(verdict, Qt::white), 0.01) << "its words";
        EXPECT_GT(share(hours, hours.data(Qt::DecorationRole).value<QColor>()), 0.1);
        const auto paper = [&](int row) {
            const QRect rect = Table()->visualRect(Table()->model()->index(row, WindowModel::Name));
            return seen.pixelColor(rect.right() - 3, rect.center().y());
        };
        EXPECT_NE(paper(1), paper(0)) << "that it is chosen";
    }
}
