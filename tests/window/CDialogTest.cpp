// Dialogs: from DoModal to its result, and what can go wrong on the way.
#include "platform/window/CDialog.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QLineEdit>
#include <QPushButton>

#include "platform/base/Message.h"
#include "platform/window/CEdit.h"
#include "platform/window/DataExchange.h"
#include "support/Recorder.h"
#include "window/DialogForTests.h"

namespace {

constexpr const char* kItems =
    "LTEXT \"Name:\", -1, 7, 9, 30, 8\n"
    "EDITTEXT 10, 40, 7, 60, 14\n"
    "EDITTEXT 11, 40, 30, 60, 14, WS_DISABLED\n"
    "PUSHBUTTON \"Other\", 20, 7, 70, 40, 14\n"
    "DEFPUSHBUTTON \"OK\", 1, 100, 70, 40, 14\n"
    "PUSHBUTTON \"Cancel\", 2, 150, 70, 40, 14\n";

// The platform's messages while it lives.
struct Messages : Recorder {
    Messages() { SetMessageSink(&Recorder::Take, this); }
    ~Messages() { SetMessageSink(nullptr, nullptr); }
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;
};

TEST(CDialog, GivesTheButtonsCommand) {
    DialogForTests dialog(kItems);
    EXPECT_EQ(dialog.Run([](const ModalWindow& window) { Control<QPushButton>(window, 1)->click(); }), IDOK);
    EXPECT_EQ(dialog.Run([](const ModalWindow& window) { Control<QPushButton>(window, 2)->click(); }), IDCANCEL);
    EXPECT_EQ(dialog.Run([](const ModalWindow&) {}), IDCANCEL) << "left";
    EXPECT_EQ(dialog.m_hWnd, nullptr) << "the window is gone each time";
}

TEST(CDialog, IsAnsweredByADriversCommand) {
    DialogForTests dialog(kItems);
    const ModalDriver driver([](const ModalWindow&) { return IDOK; });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    for (const int leaving : {int{IDCANCEL}, ModalDriver::kCareful}) {
        const ModalDriver leaves([leaving](const ModalWindow&) { return leaving; });
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    }
}

TEST(CDialog, ACommandThatNoPersonCouldGiveIsADriversMistake) {
    DialogForTests dialog(kItems);
    const ModalDriver driver([](const ModalWindow&) { return 4711; });
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(dialog.DoModal(), IDCANCEL) << "left", "knows nothing of the command 4711");
    dialog.m_onInit = [&dialog] { dialog.GetDlgItem(IDOK)->EnableWindow(FALSE); };
    const ModalDriver accepts([](const ModalWindow&) { return IDOK; });
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(dialog.DoModal(), IDCANCEL) << "grey", "knows nothing of the command 1");
}

TEST(CDialog, TheFramesCloseButtonCancels) {
    DialogForTests dialog(kItems);
    bool heard = false;
    dialog.m_onMessage = [&](UINT message, WPARAM, LPARAM) { heard = heard || message == WM_CLOSE; };
    EXPECT_EQ(dialog.Run([](const ModalWindow& window) {
        QCloseEvent close;
        QApplication::sendEvent(static_cast<QWidget*>(window.widget), &close);
        EXPECT_FALSE(static_cast<QWidget*>(window.widget)->isVisible());
    }),
              IDCANCEL);
    EXPECT_TRUE(heard);
}

TEST(CDialog, EndsWithWhateverResult) {
    DialogForTests dialog(kItems);
    EXPECT_EQ(dialog.Run([&](const ModalWindow&) {
        dialog.EndDialog(42);
        dialog.EndDialog(43);
    }),
              42);
}

TEST(CDialog, MayEndBeforeItIsShown) {
    DialogForTests dialog(kItems);
    dialog.m_onInit = [&] { dialog.EndDialog(5); };
    bool shown = false;
    EXPECT_EQ(dialog.Run([&](const ModalWindow&) { shown = true; }), 5);
    EXPECT_FALSE(shown);
}

TEST(CDialog, AnEntryThatIsRefusedKeepsItOpen) {
    DialogForTests dialog(kItems);
    int number = 3;
    dialog.m_onExchange = [&](CDataExchange* exchange) { DDX_Text(exchange, 10, number); };
    EXPECT_EQ(dialog.Run([&](const ModalWindow& window) {
        auto* edit = Control<QLineEdit>(window, 10);
        EXPECT_EQ(edit->text(), "3") << "shown by OnInitDialog";
        edit->setText("three");
        const ModalDriver box([](const ModalWindow&) { return IDOK; });
        Control<QPushButton>(window, 1)->click();
        EXPECT_EQ(box.GetCount(), 1);
        EXPECT_TRUE(edit->isVisible());
        EXPECT_EQ(number, 3);
        edit->setText("4");
        Control<QPushButton>(window, 1)->click();
        EXPECT_FALSE(edit->isVisible());
    }),
              IDOK);
    EXPECT_EQ(number, 4);
}

TEST(CDialog, CancelReadsNothing) {
    DialogForTests dialog(kItems);
    CString name = L"before";
    dialog.m_onExchange = [&](CDataExchange* exchange) { DDX_Text(exchange, 10, name); };
    dialog.Run([&](const ModalWindow& window) { Control<QLineEdit>(window, 10)->setText("after"); });
    EXPECT_EQ(name, L"before");
}

TEST(CDialog, TheFirstControlHasTheFocusUnlessTheProgramSaysOtherwise) {
    DialogForTests dialog(kItems);
    dialog.Run([](const ModalWindow& window) { EXPECT_TRUE(Control(window, 10)->hasFocus()); });

    class Other : public DialogForTests {
    public:
        using DialogForTests::DialogForTests;
        BOOL OnInitDialog() override {
            DialogForTests::OnInitDialog();
            GetDlgItem(20)->SetFocus();
            return FALSE;
        }
    };
    Other other(kItems);
    other.Run([](const ModalWindow& window) { EXPECT_TRUE(Control(window, 20)->hasFocus()); });
}

TEST(CDialog, AFreshWindowEachTime) {
    DialogForTests dialog(kItems);
    CEdit edit;
    dialog.m_onExchange = [&](CDataExchange* exchange) { DDX_Control(exchange, 10, edit); };
    for (int i = 0; i < 2; ++i) {
        dialog.Run([&](const ModalWindow& window) {
            EXPECT_EQ(edit.m_hWnd, dialog.GetDlgItem(10)->m_hWnd);
            EXPECT_EQ(Control<QLineEdit>(window, 10)->text(), "");
            Control<QLineEdit>(window, 10)->setText("left behind");
        });
        EXPECT_EQ(edit.m_hWnd, nullptr);
    }
}

TEST(CDialog, DoesNotRunWithinItself) {
    DialogForTests dialog(kItems);
    dialog.Run([&](const ModalWindow&) { EXPECT_EQ(dialog.DoModal(), -1); });
}

TEST(CDialog, MayRunAnother) {
    DialogForTests outer(kItems);
    EXPECT_EQ(outer.Run([&](const ModalWindow& window) {
        const ModalDriver driver([&](const ModalWindow& inner) {
            EXPECT_NE(inner.widget, window.widget);
            EXPECT_EQ(inner.owner, outer.m_hWnd);
            EXPECT_EQ(static_cast<QWidget*>(inner.widget)->parentWidget(), window.widget);
            return IDOK;
        });
        CDialog second(100, &outer);
        EXPECT_EQ(second.DoModal(), IDOK);
        EXPECT_TRUE(static_cast<QWidget*>(window.widget)->isVisible());
        Control<QPushButton>(window, 1)->click();
    }),
              IDOK);
}

TEST(CDialog, WithoutItsTemplateItSaysSo) {
    const Messages messages;
    const ModalDriver driver([](const ModalWindow&) { return IDOK; });
    {
        const ScriptForTests script(DialogScript(""));
        CDialog dialog(4711);
        EXPECT_EQ(dialog.DoModal(), -1);
        ASSERT_EQ(messages.texts.size(), 1U);
        EXPECT_EQ(messages.texts[0], "资源中没有编号为4711的对话框。");
    }
    CDialog dialog(100);
    EXPECT_EQ(dialog.DoModal(), -1) << "no resources at all";
    const ScriptForTests broken("100 DIALOGEX 0, 0\n");
    EXPECT_EQ(dialog.DoModal(), -1) << "a script that cannot be read";
    EXPECT_EQ(messages.texts.size(), 3U);
    EXPECT_EQ(driver.GetCount(), 0);
}

TEST(CDialog, WhereNobodyCanAnswerItIsNotShown) {
    if (qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        GTEST_SKIP() << "there is a display";
    const Messages messages;
    const ScriptForTests script(DialogScript(kItems));
    CDialog dialog(100);
    const int before = CDialog::GetUnseenCount();
    EXPECT_EQ(dialog.DoModal(), -1);
    ASSERT_EQ(messages.texts.size(), 1U);
    EXPECT_EQ(messages.texts[0], "没有显示器，无法显示对话框“Test”。");
    EXPECT_EQ(CDialog::GetUnseenCount(), before + 1);
    EXPECT_EQ(CDialog(4711).DoModal(), -1);
    ASSERT_EQ(messages.texts.size(), 2U);
    EXPECT_EQ(messages.texts[1], "资源中没有编号为4711的对话框。");
}

TEST(CDialog, ControlsHaveNamesForTestsAndForThoseWhoCannotSee) {
    DialogForTests dialog(kItems);
    dialog.Run([](const ModalWindow& window) {
        auto* widget = static_cast<QWidget*>(window.widget);
        EXPECT_EQ(widget->objectName(), "IDD_100");
        EXPECT_EQ(widget->accessibleName(), "Test");
        EXPECT_EQ(Control(window, 10)->accessibleName(), "Name");
        EXPECT_EQ(Control(window, 20)->accessibleName(), "Other");
        EXPECT_EQ(window.caption, L"Test");
    });
}

TEST(CDialog, ADisabledControlOfTheTemplateIsDisabled) {
    DialogForTests dialog(kItems);
    dialog.Run([](const ModalWindow& window) {
        EXPECT_FALSE(Control(window, 11)->isEnabled());
        EXPECT_TRUE(Control(window, 10)->isEnabled());
    });
}

}  // namespace
