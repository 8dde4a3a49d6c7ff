// What the window keeps from one start to the next, and the entries of its menus that go with that.
#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>

#include "settings/OrvoDataSet.h"
#include "workbench/WindowStage.h"
#include "workbench/window/WindowMemory.h"

namespace {

class WindowKeeps : public WindowStage {
protected:
    void Restart() {
        m_window->close();
        m_window.reset();
        m_window = std::make_unique<MainWindow>();
        m_window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }
    QAction* Entry(const char* text) const {
        for (QAction* action : m_window->findChildren<QAction*>())
            if (action->text().startsWith(QString::fromUtf8(text)))
                return action;
        ADD_FAILURE() << "no entry " << text;
        return nullptr;
    }
    std::vector<std::string> Recent() const {
        std::vector<std::string> names;
        for (const QAction* action : Entry("最近打开")->menu()->actions())
            if (!action->isSeparator() && action->text().endsWith(".dxf"))
                names.push_back(action->text().section('/', -1).toStdString());
        return names;
    }
    bool Open(const char* name) const { return m_window->OpenFile(FromUtf8(WriteDrawing(name).string())); }
    std::filesystem::path File() const { return ToUtf8(UserFolder().View()) + "/window.xml"; }
};

}  // namespace

TEST_F(WindowKeeps, ItsSizeAndPanels) {
    m_window->resize(700, 500);
    // To the front, and away.
    QTest::keySequence(m_window.get(), QKeySequence("Ctrl+2"));
    EXPECT_TRUE(Find<QWidget>("PropertyDock")->isVisible());
    QTest::keySequence(m_window.get(), QKeySequence("Ctrl+2"));
    EXPECT_FALSE(Find<QWidget>("PropertyDock")->isVisible());
    Restart();
    EXPECT_EQ(m_window->size(), QSize(700, 500));
    EXPECT_FALSE(Find<QWidget>("PropertyDock")->isVisible());
    EXPECT_TRUE(Find<QWidget>("LayerDock")->isVisible());
}

TEST_F(WindowKeeps, ItsLanguageUnlessAnotherIsAskedFor) {
    Entry("&English")->trigger();
    Language().SetLanguage(L"zh");
    Restart();
    EXPECT_EQ(g_strCurLanguage, L"Enu");
    Language().SetLanguage(L"zh");
    g_isLanguageAsked = true;
    Restart();
    EXPECT_EQ(g_strCurLanguage, L"Chs");
    g_isLanguageAsked = false;
}

TEST_F(WindowKeeps, TheParallelView) {
    QTest::keyClick(Find<SceneView>("SceneView"), Qt::Key_P);
    EXPECT_TRUE(Entry("平行投影")->isChecked());
    Restart();
    EXPECT_TRUE(Find<SceneView>("SceneView")->IsParallel());
    EXPECT_TRUE(Entry("平行投影")->isChecked());
    Entry("平行投影")->trigger();
    EXPECT_FALSE(Find<SceneView>("SceneView")->IsParallel());
}

TEST_F(WindowKeeps, TheFieldsOfTheAnalysis) {
    const auto text = [this](const char* name) { return Find<QLineEdit>(name)->text().toStdString(); };
    EXPECT_EQ(text("Need"), "2") << "at first";
    Find<QLineEdit>("Need")->setText("");
    Find<QLineEdit>("WindowLayers")->setText(QString::fromUtf8("窗 & <1>"));
    Restart();
    EXPECT_EQ(text("Need"), "") << "no verdict is a choice, too";
    EXPECT_EQ(text("WindowLayers"), "窗 & <1>");
    EXPECT_FALSE(Find<QLineEdit>("Storeys")->isVisible());
    Find<QLineEdit>("Storeys")->setText("6=2.9");
    Find<QLineEdit>("North")->setText("15");
    Restart();
    EXPECT_EQ(text("Storeys"), "6=2.9");
    EXPECT_TRUE(Find<QLineEdit>("Storeys")->isVisible()) << "what counts is seen";
    Find<QCheckBox>("SunSwitch")->setChecked(true);
    EXPECT_EQ(Find<SceneView>("SceneView")->GetSun()->north, 15.0);
    Find<QLineEdit>("Storeys")->setText("");
    Find<QCheckBox>("Scope")->setChecked(true);
    Restart();
    EXPECT_TRUE(Find<QCheckBox>("Scope")->isVisible());
    EXPECT_TRUE(Find<QCheckBox>("Scope")->isChecked());
}

TEST_F(WindowKeeps, TheFilesThatWereOpenedLast) {
    EXPECT_TRUE(Recent().empty());
    for (const char* name : {"a.dxf", "b.dxf", "c.dxf", "a.dxf"})
        ASSERT_TRUE(Open(name));
    EXPECT_FALSE(m_window->OpenFile(L"nowhere.dxf"));
    const std::vector<std::string> expected{"a.dxf", "c.dxf", "b.dxf"};
    EXPECT_EQ(Recent(), expected) << "what could not be opened is none of them";
    Restart();
    EXPECT_EQ(Recent(), expected);
    Entry("&3 ")->trigger();
    EXPECT_EQ(m_window->windowTitle().toStdString(), "b.dxf[*] - orvo");
    for (int i = 0; i < 12; ++i)
        ASSERT_TRUE(Open(("n" + std::to_string(i) + ".dxf").c_str()));
    EXPECT_EQ(Recent().size(), kMostRecentFiles);
    EXPECT_EQ(Recent().front(), "n11.dxf");
    Entry("清空列表")->trigger();
    EXPECT_TRUE(Recent().empty());
}

TEST_F(WindowKeeps, WhatAnotherWindowKeptMeanwhile) {
    ASSERT_TRUE(Open("mine.dxf"));
    WindowMemory other;
    other.Load();
    other.KeepRecent(L"/theirs.dxf");
    ASSERT_TRUE(Open("again.dxf"));
    EXPECT_EQ(Recent(), (std::vector<std::string>{"again.dxf", "theirs.dxf", "mine.dxf"}));
}

TEST_F(WindowKeeps, NothingOfADamagedFileAndSaysSoOnce) {
    for (const char* text : {"<ORVO_WINDOW><place>", "<OTHER><place>AAAA</place></OTHER>", ""}) {
        m_window->close();
        m_window.reset();
        m_folder.Write("damaged", text);
        std::filesystem::copy_file(m_folder / "damaged", File(), std::filesystem::copy_options::overwrite_existing);
        m_window = std::make_unique<MainWindow>();
        m_window->show();
        EXPECT_TRUE(HasLogged("window.xml 不可用")) << text << Log();
        Restart();
        EXPECT_FALSE(HasLogged("window.xml")) << text << Log();
    }
    EXPECT_TRUE(std::filesystem::exists(File().string() + ".refused-1"));
}

TEST_F(WindowKeeps, NothingThatMakesNoSense) {
    m_window->close();
    m_window.reset();
    m_folder.Write("odd",
                   "<ORVO_WINDOW><place>!!!</place><panels>AAAA</panels><language>xx</language><recent><file/>"
                   "<other><file>x</file></other></recent><analysis><Need><x>1</x></Need><Nothing>1</Nothing>"
                   "<Sill>0.9</Sill></analysis></ORVO_WINDOW>");
    std::filesystem::copy_file(m_folder / "odd", File(), std::filesystem::copy_options::overwrite_existing);
    m_window = std::make_unique<MainWindow>();
    m_window->show();
    EXPECT_EQ(g_strCurLanguage, L"Chs");
    EXPECT_TRUE(Recent().empty());
    EXPECT_EQ(Find<QLineEdit>("Need")->text().toStdString(), "2");
    EXPECT_EQ(Find<QLineEdit>("Sill")->text().toStdString(), "0.9") << "and what does";
    EXPECT_EQ(Log(), "");
}

TEST_F(WindowKeeps, UpWithTheFileThatACommandWrote) {
    ASSERT_TRUE(Open("house.dxf"));
    const std::string path = (m_folder / "house.dxf").string();
    Type(("entity " + path + " --set 1A 11 8,0,0").c_str());
    EXPECT_TRUE(HasLogged("已重新读入 house.dxf")) << Log();
    std::vector<DxfGroup> groups;
    ASSERT_TRUE(acdbCurDwg()->GetGroups(acdbCurDwg()->FindHandle(0x1A), groups));
    EXPECT_TRUE(std::any_of(groups.begin(), groups.end(),
                            [](const DxfGroup& group) { return group.code == 11 && std::stod(group.value) == 8.0; }));
    EXPECT_TRUE(m_window->isVisible());
    m_window->close();
    EXPECT_FALSE(m_window->isVisible()) << "no question about changes";
}

TEST_F(WindowKeeps, APictureOfTheView) {
    ASSERT_TRUE(Open("house.dxf"));
    if (Find<SceneView>("SceneView")->GetPicture().isNull())
        GTEST_SKIP() << "no EGL";
    const auto path = m_folder / "view.png";
    CFileDialog::SetNextFileForTest(FromUtf8(path.string()).GetString());
    QTest::keySequence(m_window.get(), QKeySequence("Ctrl+Shift+P"));
    const QImage saved(QString::fromStdString(path.string()));
    EXPECT_EQ(saved.size(), Find<SceneView>("SceneView")->GetPicture().size()) << Log();
    EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32), Find<SceneView>("SceneView")->GetShownPicture());
    CFileDialog::SetNextFileForTest(FromUtf8((m_folder / "no/such/view.png").string()).GetString());
    QTest::keySequence(m_window.get(), QKeySequence("Ctrl+Shift+P"));
    EXPECT_TRUE(HasLogged("无法保存")) << Log();
}
