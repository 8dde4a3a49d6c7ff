// The host's window: commands, dialogs, messages, settings, languages.
#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>

#include "platform/base/Message.h"
#include "support/Folders.h"
#include "window/DialogForTests.h"
#include "workbench/WindowStage.h"
#include "workbench/commands/CommandRunner.h"
#include "workbench/commands/ConfigRecovery.h"

namespace {

class HostWindow : public WindowStage {
protected:
    QAction* Entry(const char* text) const {
        for (QAction* action : m_window->findChildren<QAction*>())
            if (action->text() == QString::fromUtf8(text))
                return action;
        ADD_FAILURE() << "no entry " << text;
        return nullptr;
    }
    std::vector<std::string> MenuTitles() const {
        std::vector<std::string> titles;
        for (const QAction* action : m_window->menuBar()->actions())
            titles.push_back(action->text().toStdString());
        return titles;
    }
};

}  // namespace

TEST_F(HostWindow, IsTheHostsFrame) {
    ASSERT_NE(acedGetAcadFrame(), nullptr);
    EXPECT_EQ(acedGetAcadFrame()->m_hWnd, reinterpret_cast<HWND>(static_cast<QWidget*>(m_window.get())));
    m_window.reset();
    EXPECT_EQ(acedGetAcadFrame(), nullptr);
}

TEST_F(HostWindow, AnswersSubcommandsInItsLog) {
    Type("places 通州");
    EXPECT_TRUE(HasLogged("116.7")) << Log();
}

TEST_F(HostWindow, ComplainsInItsLog) {
    Type("plces");
    EXPECT_TRUE(HasLogged("places")) << "the nearest name: " << Log();
    Type("info --place 上海滩");
    EXPECT_TRUE(HasLogged("没有名为“上海滩”的地区")) << Log();
}

TEST_F(HostWindow, ShowsWhatTheHostIsTold) {
    acutPrintf(L"\n第一行\n第%d行", 2);
    ReportMessage(L"第三行");
    acutPrintf(L"\n第四行\n");
    EXPECT_EQ(Log(), "第一行\n第2行\n第三行\n第四行");
}

TEST_F(HostWindow, GivesTheStreamsBack) {
    m_window.reset();
    EXPECT_EQ(CurrentOutputSink(), nullptr);
    testing::internal::CaptureStdout();
    acutPrintf(L"later\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "later\n");
}

TEST_F(HostWindow, RunsTheModulesCommandsOverItselfAndTwiceInARow) {
    for (const char* command : {"QcCityData", "QSetSunPrec", "QcCityData", "qsetsunprec", "QSetSunPrec"}) {
        const ModalDriver driver([this](const ModalWindow& window) {
            EXPECT_EQ(window.owner, acedGetAcadFrame()->m_hWnd);
            return int{IDCANCEL};
        });
        Type(command);
        EXPECT_EQ(driver.GetCount(), 1) << command;
    }
}

TEST_F(HostWindow, RunsThemFromItsMenuAsIfTyped) {
    for (const auto& [entry, caption, command] : {std::tuple{"地区数据库(&Z)...", L"地理位置", "orvo> QcCityData"},
                                                  std::tuple{"日照设置(&S)...", L"日照设置", "orvo> QSetSunPrec"}}) {
        for (int i = 0; i < 2; ++i) {
            const ModalDriver driver([caption = caption](const ModalWindow& window) {
                EXPECT_EQ(window.caption, caption);
                return int{IDCANCEL};
            });
            Entry(entry)->trigger();
            EXPECT_EQ(driver.GetCount(), 1) << entry;
        }
        EXPECT_TRUE(HasLogged(command)) << Log();
    }
}

TEST_F(HostWindow, RunsNoCommandWhileAnotherOneRuns) {
    const ModalDriver driver([this](const ModalWindow&) {
        m_window->RunLine(L"terms");
        m_window->close();
        return int{IDCANCEL};
    });
    Type("QSetSunPrec");
    EXPECT_EQ(driver.GetCount(), 1);
    EXPECT_TRUE(HasLogged("上一条命令还没有结束")) << Log();
    EXPECT_FALSE(HasLogged("orvo> terms")) << Log();
    EXPECT_TRUE(m_window->isVisible()) << "closing waits, too";
}

TEST_F(HostWindow, CancelsWhatIsOpenAndClosesWhenItIsAskedFromOutside) {
    const ModalDriver driver([this](const ModalWindow&) {
        m_window->CloseSoon();
        EXPECT_TRUE(m_window->isVisible()) << "the command has to end first";
        return 0;
    });
    Type("QSetSunPrec");
    EXPECT_EQ(driver.GetCount(), 1);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(HostWindow, ClosesWhenItIsAskedFromOutside) {
    m_window->CloseSoon();
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(HostWindow, ShowsTheSettingsNote) {
    EXPECT_EQ(Note(), ToUtf8(g_SunDataSet.GetNoteString().View()));
    EXPECT_EQ(Note().find("通州"), std::string::npos);
    Type("set --place 通州");
    EXPECT_NE(Note().find("通州"), std::string::npos) << Note() << Log();
    EXPECT_EQ(Note(), ToUtf8(g_SunDataSet.GetNoteString().View()));
}

TEST_F(HostWindow, ShowsTheNoteAfreshAfterADialog) {
    Type("set --place 通州");
    const ModalDriver driver([](const ModalWindow& window) {
        auto* places = Control<QComboBox>(window, 2005);
        places->setFocus();
        QTest::keyClick(places, Qt::Key_Home);
        return int{IDOK};
    });
    Type("QSetSunPrec");
    EXPECT_EQ(Note(), ToUtf8(g_SunDataSet.GetNoteString().View()));
}

TEST_F(HostWindow, SaysWhichFilesCouldNotBeUsedWhenItWasStarted) {
    m_window.reset();
    m_folder.Write("zone.xml", "<broken");
    g_dictSunZone.ReadFromXML(m_folder.File("zone.xml"));
    testing::internal::CaptureStderr();
    ReplaceUnusableFiles();
    EXPECT_NE(testing::internal::GetCapturedStderr().find("zone.xml 不可用"), std::string::npos);
    m_window = std::make_unique<MainWindow>();
    EXPECT_TRUE(HasLogged("zone.xml 不可用：第 1 行")) << Log();
    m_folder.Write("zone.xml", "<ORVO_ZONEDATA/>");
    g_dictSunZone.ReadFromXML(m_folder.File("zone.xml"));
    ReplaceUnusableFiles();
    EXPECT_EQ(MessagesOnUnusableFiles().size(), 1U) << "no places, and nothing of the time before";
    m_folder.Write("zone.xml", "<ORVO_ZONEDATA><省><城>x</城></省></ORVO_ZONEDATA>");
    g_dictSunZone.ReadFromXML(m_folder.File("zone.xml"));
    ReplaceUnusableFiles();
    EXPECT_TRUE(MessagesOnUnusableFiles().empty());
}

TEST_F(HostWindow, OpensOnlyOnce) {
    Type("window");
    EXPECT_TRUE(HasLogged("窗口已经打开了")) << Log();
}

TEST_F(HostWindow, ClosesOnQuit) {
    Type("quit");
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(HostWindow, DoesNotAskAtTheTerminalBeforeItReplacesARecording) {
    m_folder.Write("there.avi", "there");
    const std::string picture = SourceFolder() + "/tests/workbench/none.bmp";
    Type(("record " + picture + " -o " + (m_folder / "there.avi").string()).c_str());
    EXPECT_TRUE(HasLogged("--yes")) << Log();
    EXPECT_EQ(m_folder.Read("there.avi"), "there");
}

TEST_F(HostWindow, ChangesItsLanguageAtOnceAndThatOfTheNextDialog) {
    EXPECT_EQ(MenuTitles(),
              (std::vector<std::string>{"图形(&F)", "视图(&V)", "日照分析(&Y)", "命令(&C)", "语言(&L)", "帮助(&H)"}));
    Entry("&English")->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(MenuTitles(),
              (std::vector<std::string>{"&Drawing", "&View", "Anal&ysis", "&Commands", "&Language", "&Help"}));
    EXPECT_EQ(Note().find("Standard: "), 0U) << Note();
    EXPECT_TRUE(Entry("&English")->isChecked());
    {
        const ModalDriver driver([](const ModalWindow& window) {
            EXPECT_EQ(window.caption, L"Geographic Locations") << ToUtf8(window.caption.View());
            return int{IDCANCEL};
        });
        Type("QcCityData");
        EXPECT_EQ(driver.GetCount(), 1);
    }
    Entry("中文(&C)")->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(MenuTitles().front(), "图形(&F)");
    const ModalDriver driver([](const ModalWindow& window) {
        EXPECT_EQ(window.caption, L"地理位置");
        return int{IDCANCEL};
    });
    Type("QcCityData");
}

TEST_F(HostWindow, HasNoChineseLetterUnderEnglishButNames) {
    Entry("&English")->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto isChinese = [](const QString& text) {
        return std::any_of(text.begin(), text.end(), [](QChar letter) { return letter.unicode() > 0x2E80; });
    };
    for (const QAction* action : m_window->findChildren<QAction*>())
        EXPECT_TRUE(!isChinese(action->text()) || action->text() == QString::fromUtf8("中文(&C)"))
            << action->text().toStdString();
    for (const QWidget* widget : m_window->findChildren<QWidget*>())
        EXPECT_FALSE(isChinese(widget->accessibleName() + widget->accessibleDescription()))
            << widget->accessibleName().toStdString();
    EXPECT_FALSE(isChinese(Edit()->placeholderText()));
}

TEST_F(HostWindow, SaysWhatItIs) {
    CString text;
    const ModalDriver driver([&text](const ModalWindow& window) {
        text = window.text;
        return int{IDOK};
    });
    Entry("关于(&A)...")->trigger();
    EXPECT_EQ(driver.GetCount(), 1);
    EXPECT_NE(text.Find(L"orvo 0."), -1) << ToUtf8(text.View());
}

TEST_F(HostWindow, ListsTheCommandsAsHelp) {
    Entry("命令列表(&L)")->trigger();
    EXPECT_TRUE(HasLogged("standards")) << Log();
}
