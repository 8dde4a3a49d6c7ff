// The menu of analyses: the same as the panel's buttons, and both say why nothing can be had.
#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "workbench/WindowStage.h"

namespace {

class WindowAnalysisMenu : public WindowStage {
protected:
    QMenu* Menu() const {
        for (const QAction* each : m_window->menuBar()->actions())
            if (each->text().remove('&') == "日照分析(Y)")
                return each->menu();
        return nullptr;
    }
    static constexpr const char* kButtons[] = {"RunAnalysis", "RunIsolines", "MakeReport", "MakeFilm"};
    QPushButton* Button(int i) const { return Find<QPushButton>(kButtons[i]); }
};

}  // namespace

TEST_F(WindowAnalysisMenu, IsWhatTheButtonsAre) {
    ASSERT_NE(Menu(), nullptr);
    const QList<QAction*> entries = Menu()->actions();
    ASSERT_EQ(entries.size(), 4);
    EXPECT_TRUE(Menu()->toolTipsVisible());
    for (const bool isOpen : {false, true}) {
        if (isOpen)
            ASSERT_TRUE(m_window->OpenFile(FromUtf8(WriteDrawing("house.dxf").string())));
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(entries[i]->isEnabled(), isOpen) << kButtons[i];
            EXPECT_EQ(Button(i)->isEnabled(), isOpen) << kButtons[i];
            EXPECT_EQ(Button(i)->toolTip().toStdString(), entries[i]->toolTip().toStdString());
            EXPECT_NE(entries[i]->toolTip(), QString());
            EXPECT_EQ(entries[i]->toolTip().contains(QString::fromUtf8("没有打开的图形")), !isOpen) << kButtons[i];
        }
    }
}

TEST_F(WindowAnalysisMenu, StandsInNoOtherMenu) {
    const QList<QAction*> entries = Menu()->actions();
    for (const QMenu* menu : m_window->menuBar()->findChildren<QMenu*>())
        for (QAction* entry : entries)
            EXPECT_EQ(menu->actions().contains(entry), menu == Menu()) << menu->title().toStdString();
}

TEST_F(WindowAnalysisMenu, SaysItInTheLanguageOfTheWindow) {
    for (QAction* action : m_window->findChildren<QAction*>())
        if (action->text() == "&English")
            action->trigger();
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(Button(i)->toolTip().contains("No drawing is open")) << Button(i)->toolTip().toStdString();
}

TEST_F(WindowAnalysisMenu, DoesWhatTheButtonsDo) {
    ASSERT_TRUE(m_window->OpenFile(FromUtf8(WriteDrawing("house.dxf").string())));
    Menu()->actions()[0]->trigger();
    const std::string once = Log();
    EXPECT_TRUE(HasLogged("--windows") || HasLogged("没有")) << Log();
    Button(0)->click();
    EXPECT_NE(Log(), once) << "once more";
}
