// What the panel of analyses says in words: of the sun at a time, of what counts, and of what it refuses.
#include <QCheckBox>
#include <QRegularExpression>
#include <QTimeEdit>

#include "workbench/AnalysisPanelStage.h"
#include "workbench/MoveFirstCorner.h"
#include "workbench/Texts.h"
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

TEST_F(PanelWordsTest, TakesAHeightBackWhoseSceneWasCancelled) {
    WhenRunning([this] { PressEscape(); });
    SetHeight("LAWN", "0.5");
    ASSERT_TRUE(m_hasActed);
    EXPECT_EQ(Height("LAWN"), "");
    EXPECT_FALSE(HasLogged("有了高度")) << Log();
    SetHeight("LAWN", "0.5");
    EXPECT_EQ(Height("LAWN"), "0.5");
    EXPECT_TRUE(HasLogged("图层 LAWN：1 个闭合轮廓有了高度")) << Log();
}

// Whoever cancelled the faces of a change has those of before: a height that raises nothing does not make them the
// drawing's.
TEST_F(PanelWordsTest, MakesTheFacesOfAChangeThatWereCancelledWithTheNextOnes) {
    Run();
    MoveFirstCorner();
    WhenRunning([this] { PressEscape(); });
    Type("terms --year 2025");
    ASSERT_TRUE(m_hasActed);
    ASSERT_FALSE(IsOutOfDate("图形改动了"));
    SetHeight("HOUSE", "33");
    EXPECT_TRUE(IsOutOfDate("图形改动了"));
}

TEST_F(PanelWordsTest, ForgetsAHeightWhoseOutlineIsGoneFromTheFile) {
    SetHeight("LAWN", "0.5");
    m_folder.Write("yard.dxf", Drawing(BodyOf("C1", "LAWN", 0, -6, 20, 4, 2)));
    QTest::keyClick(m_window.get(), Qt::Key_F5);
    EXPECT_EQ(Height("LAWN"), "");
    EXPECT_TRUE(HasLogged("图层“LAWN”没有得到高度")) << Log();
}

TEST_F(PanelWordsTest, SaysWhatADrawingWithoutWindowsIsGoodFor) {
    Set("WindowLayers", "NOWHERE");
    Run();
    EXPECT_TRUE(Says("没有窗可以分析")) << Text("AnalysisSummary");
    EXPECT_TRUE(Says("“区域图层”") && Says("“画等时线”") && Says("指南")) << Text("AnalysisSummary");
    EXPECT_FALSE(Says("达标")) << "there is no verdict: " << Text("AnalysisSummary");
    Press("MakeReport");  // asks for no folder: nobody answers a dialog here
    EXPECT_TRUE(HasLogged("没有分析任何窗，没有写出报告")) << Log();
    Set("WindowLayers", "NOWHERE EITHER");
    CFileDialog::SetNextFileForTest(m_folder.File("report").GetString());
    Press("MakeReport");
    EXPECT_TRUE(HasLogged("NOWHERE EITHER")) << "it is analysed first";
    EXPECT_FALSE(std::filesystem::exists(ToUtf8(m_folder.File("report").View())));
    Set("WindowLayers", "");
    CFileDialog::SetNextFileForTest(m_folder.File("report").GetString());
    Press("MakeReport");
    EXPECT_TRUE(std::filesystem::exists(ToUtf8(m_folder.File("report").View()))) << Log();
}

TEST_F(PanelWordsTest, TellsTheDayOfTheChosenWindowByTheNewAnswer) {
    Run();
    ClickRow(1);
    ASSERT_NE(Text("WindowTitle").find("朝南"), std::string::npos) << Text("WindowTitle");
    Set("North", "90");
    Run();
    EXPECT_EQ(View()->GetChosen(), 1U);
    EXPECT_NE(Text("WindowTitle").find("朝西"), std::string::npos) << Text("WindowTitle");
    Set("WindowLayers", "NOWHERE");
    Run();
    EXPECT_EQ(Text("WindowTitle").find("B2"), std::string::npos) << Text("WindowTitle");
}

// A message must not name what nobody finds in the window.
TEST_F(PanelWordsTest, CallsFieldsAsTheyAreLabelled) {
    const FieldWords words;
    const auto word = [](const wchar_t* option) { return QString::fromStdString(ToUtf8(OptionWord(option).View())); };
    for (const bool isEnglish : {false, true}) {
        if (isEnglish)
            for (QAction* action : m_window->findChildren<QAction*>())
                if (action->text() == "&English")
                    action->trigger();
        const QString quoted = QString::fromUtf8(isEnglish ? "\"%1\"" : "“%1”");
        const std::pair<const wchar_t*, const char*> fields[] = {{L"--windows", "WindowLayers"},
                                                                 {L"--need", "Need"},
                                                                 {L"--north", "North"},
                                                                 {L"--proposed", "Proposed"},
                                                                 {L"--areas", "Areas"},
                                                                 {L"--spacing", "Spacing"},
                                                                 {L"--sill", "Sill"},
                                                                 {L"--window-height", "WindowHeight"},
                                                                 {L"--storeys", "Storeys"},
                                                                 {L"--facing", "Facing"},
                                                                 {L"--every", "FilmEvery"},
                                                                 {L"--least-altitude", "LeastAltitude"},
                                                                 {L"--size", "FilmSize"}};
        for (const auto& [option, name] : fields)
            for (const QLabel* label : m_window->findChildren<QLabel*>())
                if (label->buddy() && label->buddy()->objectName() == name)
                    EXPECT_EQ(word(option), quoted.arg(label->text())) << name;
        EXPECT_EQ(word(L"--scope"), quoted.arg(Find<QCheckBox>("Scope")->text()));
        EXPECT_TRUE(word(L"--height").contains(quoted.arg(Layers()->headerItem()->text(LayerPanel::Height))));
        for (const auto& [option, name] : {std::pair(L"--report", "MakeReport"), {L"--film", "MakeFilm"}}) {
            QString text = Find<QPushButton>(name)->text().remove("...");
            text.remove(QRegularExpression("\\(&.\\)")).remove('&');
            EXPECT_EQ(word(option), quoted.arg(text));
        }
    }
}

TEST_F(PanelWordsTest, SaysWhatItTakesANorthBeyondATurnFor) {
    Set("North", "9999");
    Run();
    EXPECT_TRUE(HasLogged("“正北（度）” 的值“9999”超过一圈：按 279 度计")) << Log();
    EXPECT_EQ(Table()->model()->rowCount(), 2);
    EXPECT_EQ(Find<QLineEdit>("North")->text().toStdString(), "279");
    EXPECT_FALSE(Find<QLabel>("OutOfDate")->isVisible());
    Type(("analyse " + m_path.string() + " --north -370.5").c_str());
    EXPECT_TRUE(HasLogged("--north 的值“-370.5”超过一圈：按 -10.5 度计")) << Log();
    Set("North", "-359.5");
    Run();
    EXPECT_FALSE(HasLogged("“-359.5”")) << Log();
}

TEST_F(PanelWordsTest, NamesFieldsWhereTheSubcommandNamesOptions) {
    Set("WindowLayers", "NOWHERE");
    Run();
    EXPECT_TRUE(HasLogged("图形中没有图层“NOWHERE”（“窗的图层”）")) << Log();
    Set("WindowLayers", "");
    m_folder.Write("full/other.txt", "mine");
    CFileDialog::SetNextFileForTest(m_folder.File("full").GetString());
    Press("MakeReport");
    EXPECT_TRUE(HasLogged("请用 “报告” 给出一个空的或新的文件夹")) << Log();
    CFileDialog::SetNextFileForTest(m_folder.File("sun.avi").GetString());
    Set("FilmSize", "1x1");
    Press("MakeFilm");
    EXPECT_TRUE(HasLogged("“录像大小” 的值“1x1”不对")) << Log();
    EXPECT_FALSE(HasLogged("--")) << Log();
    Type(("analyse " + m_path.string() + " --windows NOWHERE").c_str());
    EXPECT_TRUE(HasLogged("图形中没有图层“NOWHERE”（--windows）")) << Log();
}

TEST_F(PanelWordsTest, TellsOfAPlaceThatNobodyKnowsInWordsForTheWindow) {
    g_SunDataSet.m_strCurCity = L"无名";
    Run();
    Press("RunIsolines");
    EXPECT_TRUE(HasLogged("没有地区“无名”的位置，不能分析；用 “日照设置” 给出另一个地区")) << Log();
    EXPECT_FALSE(HasLogged("orvo places")) << Log();
}
