// Windows and their handles: attaching, messages, maps, parents, destruction.
#include "platform/window/CWnd.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/window/CButton.h"
#include "platform/window/CEdit.h"
#include "support/ClassFont.h"
#include "window/DialogForTests.h"

namespace {

constexpr const char* kTwoEdits =
    "EDITTEXT 10, 7, 7, 60, 14\n"
    "EDITTEXT 11, 7, 30, 60, 14\n"
    "PUSHBUTTON \"Go\", 12, 100, 7, 50, 14\n";

// Counts what its map catches, and passes some of it on.
class Listener : public CEdit {
public:
    std::vector<std::string> m_heard;
    bool m_passesOn = true;
    LRESULT m_answer = 0;

    afx_msg void OnChar(UINT character, UINT repeatCount, UINT flags) {
        m_heard.push_back("char " + std::to_string(character) + " x" + std::to_string(repeatCount));
        if (m_passesOn)
            CEdit::OnChar(character, repeatCount, flags);
    }
    afx_msg void OnDestroy() {
        m_heard.emplace_back(m_hWnd ? "destroy" : "destroy without a window");
        CEdit::OnDestroy();
    }
    LRESULT OnOwn(WPARAM wParam, LPARAM lParam) {
        m_heard.push_back("own " + std::to_string(wParam) + " " + std::to_string(lParam));
        return m_answer;
    }
    void PostNcDestroy() override { m_heard.emplace_back(m_hWnd ? "gone too early" : "gone"); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Listener, CEdit)
    ON_WM_CHAR()
    ON_WM_DESTROY()
    ON_MESSAGE(WM_APP + 1, &Listener::OnOwn)
END_MESSAGE_MAP()

// Takes one message more than its base, and one differently.
class Derived : public Listener {
public:
    LRESULT OnOther(WPARAM, LPARAM) { return 7; }
    LRESULT OnOwnDifferently(WPARAM, LPARAM) { return 8; }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Derived, Listener)
    ON_MESSAGE(WM_APP + 2, &Derived::OnOther)
    ON_MESSAGE(WM_APP + 1, &Derived::OnOwnDifferently)
END_MESSAGE_MAP()

TEST(CWnd, WithoutAWindowEverythingIsHarmless) {
    CWnd none;
    CString text = L"old";
    RECT rect = {1, 2, 3, 4};
    none.GetWindowText(text);
    none.GetClientRect(&rect);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(rect.right, 0);
    EXPECT_EQ(none.SendMessage(WM_GETTEXTLENGTH), 0);
    EXPECT_FALSE(none.EnableWindow());
    EXPECT_FALSE(none.IsWindowEnabled());
    EXPECT_FALSE(none.ShowWindow(SW_SHOW));
    EXPECT_FALSE(none.IsWindowVisible());
    EXPECT_EQ(none.GetParent(), nullptr);
    EXPECT_EQ(none.GetDlgItem(1), nullptr);
    EXPECT_EQ(none.GetDlgCtrlID(), 0);
    EXPECT_EQ(none.GetStyle(), 0U);
    EXPECT_EQ(none.GetFont(), nullptr);
    EXPECT_FALSE(none.UpdateData());
    EXPECT_FALSE(none.DestroyWindow());
    EXPECT_FALSE(none.IsChild(&none));
    none.SetWindowText(L"text");
    none.MoveWindow(&rect);
    none.SetFont(nullptr);
    none.SetFocus();
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    EXPECT_EQ(CWnd::FromHandle(reinterpret_cast<HWND>(&none)), nullptr);  // not a window
}

TEST(CWnd, AttachesToOneWindowAndAWindowToOneObject) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow&) {
        CWnd first;
        CWnd second;
        ASSERT_TRUE(first.SubclassDlgItem(10, &dialog));
        EXPECT_FALSE(first.SubclassDlgItem(11, &dialog)) << "has one already";
        EXPECT_FALSE(second.SubclassDlgItem(10, &dialog)) << "is taken";
        EXPECT_FALSE(second.SubclassDlgItem(99, &dialog)) << "is unknown";
        EXPECT_FALSE(second.SubclassDlgItem(10, nullptr));
        EXPECT_EQ(dialog.GetDlgItem(10), &first);
        EXPECT_EQ(CWnd::FromHandlePermanent(first.m_hWnd), &first);
        const HWND window = first.UnsubclassWindow();
        EXPECT_EQ(first.m_hWnd, nullptr);
        EXPECT_TRUE(second.Attach(window));
        EXPECT_EQ(second.Detach(), window);
        EXPECT_EQ(CWnd::FromHandlePermanent(window), nullptr);
        EXPECT_NE(CWnd::FromHandle(window), nullptr) << "one of the window's own";
        EXPECT_EQ(CWnd::FromHandle(window), CWnd::FromHandle(window));
    });
}

TEST(CWnd, AnObjectThatGoesLeavesItsWindow) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow& window) {
        {
            CEdit edit;
            ASSERT_TRUE(edit.SubclassDlgItem(10, &dialog));
            edit.SetWindowText(L"stays");
        }
        CString text;
        EXPECT_EQ(dialog.GetDlgItemText(10, text), 5);
        EXPECT_EQ(text, L"stays");
        EXPECT_NE(Control(window, 10), nullptr);
    });
}

TEST(CWnd, MessagesGoThroughTheMapsOfTheClassAndItsBases) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow&) {
        Derived edit;
        ASSERT_TRUE(edit.SubclassDlgItem(10, &dialog));
        EXPECT_EQ(edit.SendMessage(WM_APP + 2), 7);
        EXPECT_EQ(edit.SendMessage(WM_APP + 1), 8) << "the class comes before its base";
        EXPECT_EQ(edit.SendMessage(WM_APP + 3), 0);
        edit.SendMessage(WM_CHAR, 'x', 1);
        EXPECT_EQ(edit.m_heard, std::vector<std::string>{"char 120 x1"});
        CString text;
        edit.GetWindowText(text);
        EXPECT_EQ(text, L"x") << "what a handler passes on reaches the edit";
        edit.m_passesOn = false;
        edit.SendMessage(WM_CHAR, 'y', 1);
        edit.GetWindowText(text);
        EXPECT_EQ(text, L"x");
    });
}

TEST(CWnd, AMessageCarriesItsWordsAndItsAnswer) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow&) {
        Listener edit;
        ASSERT_TRUE(edit.SubclassDlgItem(10, &dialog));
        edit.m_answer = -12;
        EXPECT_EQ(::SendMessage(edit.m_hWnd, WM_APP + 1, 3, -4), -12);
        EXPECT_EQ(edit.m_heard, std::vector<std::string>{"own 3 -4"});
        EXPECT_EQ(::SendMessage(nullptr, WM_APP + 1, 0, 0), 0);
    });
}

TEST(CWnd, DestroyingAWindowTellsEverythingInIt) {
    Listener edit;
    HWND window = nullptr;
    DialogForTests dialog(kTwoEdits);
    dialog.m_onInit = [&] {
        edit.SubclassDlgItem(10, &dialog);
        window = edit.m_hWnd;
    };
    dialog.Run([](const ModalWindow&) {});
    EXPECT_EQ(edit.m_heard, (std::vector<std::string>{"destroy", "gone"}));
    EXPECT_EQ(edit.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandle(window), nullptr);
}

TEST(CWnd, AWindowMayGoInItsOwnHandler) {
    class Suicidal : public CEdit {
    public:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_CHAR)
                DestroyWindow();
            return CEdit::WindowProc(message, wParam, lParam);
        }
    };
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow& window) {
        Suicidal edit;
        ASSERT_TRUE(edit.SubclassDlgItem(10, &dialog));
        QTest::keyClick(Control(window, 10), Qt::Key_A);
        EXPECT_EQ(edit.m_hWnd, nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    });
}

TEST(CWnd, CommandsReachTheParentsMapByCodeAndNumber) {
    class Parent : public DialogForTests {
    public:
        using DialogForTests::DialogForTests;
        std::vector<std::string> m_heard;
        void OnGo() { m_heard.emplace_back("go"); }
        void OnChange() { m_heard.emplace_back("change"); }
        const AFX_MSGMAP* GetMessageMap() const override {
            using ThisClass = Parent;
            static constexpr AFX_MSGMAP_ENTRY s_entries[] = {ON_BN_CLICKED(12, &Parent::OnGo)
                                                                 ON_EN_CHANGE(11, &Parent::OnChange){0, 0, 0, nullptr}};
            static constexpr AFX_MSGMAP s_map = {&QcUiDialog::GetThisMessageMap, s_entries};
            return &s_map;
        }
    };
    Parent dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow& window) {
        QTest::mouseClick(Control(window, 12), Qt::LeftButton);
        dialog.SetDlgItemText(10, L"not 11");
        EXPECT_EQ(dialog.m_heard, std::vector<std::string>{"go"});
        dialog.SetDlgItemText(11, L"text");
        EXPECT_EQ(dialog.m_heard, (std::vector<std::string>{"go", "change"}));
        dialog.SendMessage(WM_COMMAND, MAKEWPARAM(12, BN_CLICKED + 1), 0);
        EXPECT_EQ(dialog.m_heard.size(), 2U) << "another code is another notification";
    });
}

TEST(CWnd, KnowsStateParentAndPlace) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow& window) {
        CWnd* edit = dialog.GetDlgItem(10);
        ASSERT_NE(edit, nullptr);
        EXPECT_EQ(edit->GetDlgCtrlID(), 10);
        EXPECT_EQ(edit->GetParent(), &dialog);
        EXPECT_TRUE(dialog.IsChild(edit));
        EXPECT_FALSE(edit->IsChild(&dialog));
        EXPECT_FALSE(edit->IsChild(edit));
        EXPECT_TRUE(edit->IsWindowVisible());
        EXPECT_TRUE(edit->ShowWindow(SW_HIDE));
        EXPECT_FALSE(edit->ShowWindow(SW_SHOW));
        EXPECT_FALSE(edit->EnableWindow(FALSE));
        EXPECT_FALSE(edit->IsWindowEnabled());
        EXPECT_NE(edit->GetStyle() & WS_DISABLED, 0U);
        EXPECT_TRUE(edit->EnableWindow());
        EXPECT_EQ(edit->GetStyle() & (WS_DISABLED | WS_VISIBLE), WS_VISIBLE);

        const RECT place = {20, 30, 120, 55};
        edit->MoveWindow(&place);
        EXPECT_EQ(Control(window, 10)->geometry(), QRect(20, 30, 100, 25));
        RECT client = {};
        edit->GetClientRect(&client);
        EXPECT_EQ(client.right, 100);
        EXPECT_EQ(client.bottom, 25);
        RECT screen = {};
        edit->GetWindowRect(&screen);
        dialog.ScreenToClient(&screen);
        EXPECT_EQ(screen.left, 20);
        EXPECT_EQ(screen.bottom, 55);
    });
}

TEST(CWnd, AFontGoesFromOneWindowToAnother) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow& window) {
        QFont big = Control(window, 10)->font();
        big.setPointSize(big.pointSize() + 7);
        Control(window, 10)->setFont(big);
        dialog.GetDlgItem(11)->SetFont(dialog.GetDlgItem(10)->GetFont());
        EXPECT_EQ(Control(window, 11)->font().pointSize(), big.pointSize());
    });
}

TEST(CWnd, AFontThatIsSetHoldsAgainstTheToolkitsFontForTheClass) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow& window) {
        const QFont font = static_cast<QWidget*>(window.widget)->font();
        const ClassFont large("QLineEdit", font.pointSize() + 9);
        ASSERT_EQ(Control(window, 10)->font().pointSize(), font.pointSize() + 9);
        dialog.GetDlgItem(10)->SetFont(dialog.GetFont());
        EXPECT_EQ(Control(window, 10)->font(), font);
        EXPECT_EQ(Control(window, 10)->font().pointSize(), font.pointSize());
        EXPECT_FALSE(Control(window, 10)->font().italic());
        EXPECT_NE(Control(window, 11)->font(), font);
        dialog.GetDlgItem(10)->SetFont(nullptr);
        EXPECT_EQ(Control(window, 10)->font(), Control(window, 11)->font()) << "back to the toolkit's";
    });
}

TEST(CWnd, TheFocusIsSetAndTold) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow& window) {
        EXPECT_EQ(CWnd::GetFocus(), dialog.GetDlgItem(10)) << "the first control";
        EXPECT_EQ(dialog.GetDlgItem(11)->SetFocus(), dialog.GetDlgItem(10));
        EXPECT_EQ(CWnd::GetFocus(), dialog.GetDlgItem(11));
        EXPECT_TRUE(Control(window, 11)->hasFocus());
    });
}

TEST(CWnd, AMessageBoxBearsTheTitleOfTheWindowAround) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow&) {
        CString caption;
        CString text;
        HWND owner = nullptr;
        const ModalDriver driver([&](const ModalWindow& box) {
            caption = box.caption;
            text = box.text;
            owner = box.owner;
            return IDNO;
        });
        EXPECT_EQ(dialog.GetDlgItem(10)->MessageBox(L"question", nullptr, MB_YESNO), IDNO);
        EXPECT_EQ(caption, L"Test");
        EXPECT_EQ(owner, dialog.GetDlgItem(10)->m_hWnd);
        EXPECT_EQ(text, L"question");
        dialog.MessageBox(L"question", L"own", MB_YESNO);
        EXPECT_EQ(caption, L"own");
    });
}

TEST(CWnd, TheHostsMainWindowIsWhatTheHostSays) {
    EXPECT_EQ(acedGetAcadFrame(), nullptr);
    CWnd frame;
    acedSetAcadFrame(&frame);
    EXPECT_EQ(acedGetAcadFrame(), &frame);
    acedSetAcadFrame(nullptr);
    EXPECT_EQ(acedGetAcadFrame(), nullptr);
}

}  // namespace
