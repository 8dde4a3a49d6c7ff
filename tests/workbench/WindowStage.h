// The host with its window: the module loaded with one place, a home of the test's own, and the window closed at the
// end.
#pragma once

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

#include "frame/ConfigSandbox.h"
#include "platform/base/Language.h"
#include "platform/host/DynamicLinker.h"
#include "platform/host/HostMessages.h"
#include "platform/host/RxRegistry.h"
#include "platform/host/Subcommands.h"
#include "platform/window/CFileDialog.h"
#include "platform/window/HostFrame.h"
#include "platform/window/ModalDriver.h"
#include "support/Folders.h"
#include "workbench/entry/OwnSubcommands.h"
#include "workbench/view/SceneView.h"
#include "workbench/window/CommandEdit.h"
#include "workbench/window/CommandLog.h"
#include "workbench/window/LongWork.h"
#include "workbench/window/MainWindow.h"

class WindowStage : public ConfigSandbox {
protected:
    void SetUp() override {
        ConfigSandbox::SetUp();
        m_folder.Write("zone.xml",
                       "<ORVO_ZONEDATA><北京市 type=\"PROVINCE\"><北京 type=\"CITY\" longitude=\"116.4\" "
                       "latitude=\"39.9\"/><通州 type=\"CITY\" longitude=\"116.7\" latitude=\"39.9\"/></北京市>"
                       "</ORVO_ZONEDATA>");
        m_folder.Write("SunSet.xml", FileBytes(SourceFolder() + "/data/SunSet.xml"));
        std::filesystem::create_directories(ToUtf8(UserFolder().View()));
        m_folder.Write("languages/en.xml", FileBytes(SourceFolder() + "/data/languages/en.xml"));
        g_pTeskLangSwitch = &Language();
        Language().SetLanguage(L"zh");
        acrxEntryPoint(AcRx::kInitAppMsg, &g_SunDataSet);
        CString reason;
        ASSERT_TRUE(AddOwnSubcommands(&g_SunDataSet, reason)) << ToUtf8(reason.View());
        // Windows are seen by nobody here, and a driver is somebody.
        m_seen = std::make_unique<ModalDriver>([](const ModalWindow& window) {
            ADD_FAILURE() << "not expected: " << ToUtf8(window.caption.View()) << ToUtf8(window.text.View());
            return int{IDCANCEL};
        });
        ASSERT_TRUE(PrepareWindows(reason)) << ToUtf8(reason.View());
        m_window = std::make_unique<MainWindow>();
        m_window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }
    void TearDown() override {
        LongWork::HoldForTest(nullptr);
        m_window.reset();
        m_seen.reset();
        acrxEntryPoint(AcRx::kUnloadAppMsg, &g_SunDataSet);
        HostSubcommands().Forget(&g_SunDataSet);
        dynamic_cast<AcRxDynamicLinker*>(acrxSysRegistry()->at(L"DynamicLinker"))->forget(&g_SunDataSet);
        g_pTeskLangSwitch = nullptr;
        g_pCurModuleLang = nullptr;
        g_strCurLanguage = L"Chs";
        CFileDialog::ShowDialogsAgainForTest();
        ConfigSandbox::TearDown();
    }

    template <class Widget>
    Widget* Find(const char* name) const {
        return m_window->findChild<Widget*>(name);
    }
    CommandEdit* Edit() const { return Find<CommandEdit>("CommandEdit"); }
    std::string Log() const { return Find<CommandLog>("CommandLog")->toPlainText().toStdString(); }
    bool HasLogged(const char* text) const { return Log().find(text) != std::string::npos; }
    std::string Note() const { return Find<QLabel>("Note")->text().toStdString(); }
    // Types a line and Enter.
    void Type(const char* line) const {
        Edit()->setFocus();
        Edit()->insert(QString::fromUtf8(line));  // key clicks know no Chinese letters
        QTest::keyClick(Edit(), Qt::Key_Return);
    }
    // Calls this once the bar of the next work is there; the work begins after that.
    void WhenRunning(const std::function<void()>& act) {
        m_hasActed = false;
        LongWork::HoldForTest([this] {
            constexpr std::chrono::seconds kTooLong(60);  // then the test fails instead of standing still
            const auto begin = std::chrono::steady_clock::now();
            while (!m_hasActed && std::chrono::steady_clock::now() - begin < kTooLong)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
        });
        m_timer.setInterval(5);
        m_timer.callOnTimeout(m_window.get(), [this, act] {
            if (m_hasActed || !Find<QProgressBar>("Progress")->isVisible())
                return;
            m_timer.stop();
            act();
            m_hasActed = true;
        });
        m_timer.start();
    }
    // Cancels what runs, by the key, and waits until it has been told.
    void PressEscape() const {
        const auto* button = Find<QPushButton>("CancelWork");
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !button->isEnabled(); }));
    }
    // One entity with a face, one without.
    std::filesystem::path WriteDrawing(const char* name) const {
        return m_folder.Write(
            name,
            "0\nSECTION\n2\nENTITIES\n0\n3DFACE\n5\n1A\n8\n0\n10\n0\n20\n0\n30\n0\n11\n4\n21\n0\n31\n0\n"
            "12\n4\n22\n3\n32\n0\n13\n0\n23\n3\n33\n0\n0\nLINE\n5\n1B\n8\n0\n10\n0\n20\n0\n11\n1\n21\n1\n"
            "0\nENDSEC\n0\nEOF\n");
    }

    // One for the whole process: the module keeps its dictionary.
    static TeskLanguageSwitch& Language() {
        static TeskLanguageSwitch language;
        return language;
    }

    std::unique_ptr<ModalDriver> m_seen;
    std::unique_ptr<MainWindow> m_window;
    QTimer m_timer;
    std::atomic<bool> m_hasActed = false;
};
