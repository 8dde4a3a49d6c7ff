// What the panel of analyses says in words: of the sun at a time, of what counts, and of what it refuses.
#include <QTimeEdit>

#include "workbench/AnalysisPanelStage.h"
#include "workbench/window/LayerPanel.h"

class PanelWordsTest : public AnalysisPanelTest {
protected:
    LayerPanel* Layers() const { return Find<LayerPanel>("LayerPanel"); }
    QTreeWidgetItem* Layer(const char* name) const {
        return Layers()->findItems(name, Qt::MatchExactly, LayerPanel::Name).value(0);
    }
    std::string Height(const char* layer) const { return Layer(layer)->text(LayerPanel::Height).toStdString(); }
    void SetHeight(const char* layer, const char* metres) const {
        Layer(layer)->setText(LayerPanel::Height, metres);
        QApplication::processEvents();
    }
    bool Says(const char* words) const { return Text("AnalysisSummary").find(words) != std::string::npos; }
};

// With true north where the drawing has west, what looks down the drawing looks west: the sun comes there in the
// afternoon.
TEST_F(PanelWordsTest, TellsWhereTheSunIsThatIsInNoList) {
    const auto isBehindAt = [this](int hour) {
        Find<QTimeEdit>("Moment")->setTime(QTime(hour, 30));
        return Text("MomentText").find("太阳在背后") != std::string::npos;
    };
    Set("North", "90");
    Run();
    ClickRow(0);
    EXPECT_TRUE(isBehindAt(9)) << Text("MomentText");
    EXPECT_FALSE(isBehindAt(14)) << Text("MomentText");
    View()->Choose({}, false);
    View()->Look(StandardView::South);
    ClickIn({8, 0, 5});
    ASSERT_NE(Text("WindowTitle").find("A1"), std::string::npos) << Text("WindowTitle");
    EXPECT_TRUE(isBehindAt(9)) << Text("MomentText");
    EXPECT_FALSE(isBehindAt(14)) << Text("MomentText");
}

TEST_F(PanelWordsTest, SaysThatHiddenLayersCountBesideTheAnswer) {
    Layer("TOWER")->setCheckState(LayerPanel::Name, Qt::Unchecked);
    EXPECT_FALSE(Says("也计入")) << "of no answer";
    Run();
    EXPECT_EQ(Cell(1, WindowModel::Verdict), "不达标") << "the tower counts";
    EXPECT_TRUE(Says("视图里隐藏的图层也计入：1 个")) << Text("AnalysisSummary");
    Layer("HOUSE")->setCheckState(LayerPanel::Name, Qt::Unchecked);
    Layer("LAWN")->setCheckState(LayerPanel::Name, Qt::Unchecked);
    EXPECT_TRUE(Says("视图里隐藏的图层也计入：2 个")) << "nothing on the lawn casts shadows";
    Type("set --place 通州");
    EXPECT_TRUE(Says("2 个"));
    QTest::keyClick(Layers(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_FALSE(Says("也计入"));
}

TEST_F(PanelWordsTest, RefusesAHeightThatRaisesNothing) {
    Run();
    SetHeight("HOUSE", "33");
    EXPECT_EQ(Height("HOUSE"), "");
    EXPECT_TRUE(HasLogged("图层“HOUSE”没有得到高度：上面没有可见、闭合而没有厚度的轮廓")) << Log();
    EXPECT_FALSE(Find<QLabel>("OutOfDate")->isVisible()) << "it changes nothing";
    SetHeight("LAWN", "0.5");
    EXPECT_EQ(Height("LAWN"), "0.5");
    EXPECT_TRUE(IsOutOfDate("图形改动了"));
    Run();
    SetHeight("HOUSE", "33");
    EXPECT_EQ(Height("HOUSE"), "");
    EXPECT_EQ(Height("LAWN"), "0.5") << "the other one stays";
    EXPECT_FALSE(Find<QLabel>("OutOfDate")->isVisible());
    SetHeight("LAWN", "");
    EXPECT_TRUE(IsOutOfDate("图形改动了"));
}

TEST_F(PanelWordsTest, ForgetsAHeightWhoseOutlineIsGoneFromTheFile) {
    SetHeight("LAWN", "0.5");
    m_folder.Write("yard.dxf", Drawing(BodyOf("C1", "LAWN", 0, -6, 20, 4, 2)));
    QTest::keyClick(m_window.get(), Qt::Key_F5);
    EXPECT_EQ(Height("LAWN"), "");
    EXPECT_TRUE(HasLogged("图层“LAWN”没有得到高度")) << Log();
}
