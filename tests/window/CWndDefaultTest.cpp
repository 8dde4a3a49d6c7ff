// What Default() passes on: the message that is being handled, whatever happens meanwhile.
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "platform/window/CEdit.h"
#include "window/DialogForTests.h"

namespace {

constexpr const char* kTwoEdits =
    "EDITTEXT 10, 7, 7, 60, 14\n"
    "EDITTEXT 11, 7, 30, 60, 14\n";

// Does something first with each character and the key Home, and passes it on then.
class PassingEdit : public CEdit {
public:
    std::function<void()> m_first;

    afx_msg void OnChar(UINT /*character*/, UINT /*repeatCount*/, UINT /*flags*/) {
        m_first();
        Default();
    }
    afx_msg void OnKeyDown(UINT key, UINT /*repeatCount*/, UINT /*flags*/) {
        if (key == VK_HOME)
            m_first();
        Default();
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(PassingEdit, CEdit)
    ON_WM_CHAR()
    ON_WM_KEYDOWN()
END_MESSAGE_MAP()

// Handles no message to its end.
class ThrowingEdit : public CEdit {
public:
    LRESULT WindowProc(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) override {
        throw std::runtime_error("refused");
    }
};

CString TextOf(const CWnd& window) {
    CString text;
    window.GetWindowText(text);
    return text;
}

TEST(CWndDefault, PassesOnTheOuterMessageAfterAnotherWasHandled) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow&) {
        PassingEdit outer;
        PassingEdit inner;
        ASSERT_TRUE(outer.SubclassDlgItem(10, &dialog));
        ASSERT_TRUE(inner.SubclassDlgItem(11, &dialog));
        outer.m_first = [&inner] { inner.SendMessage(WM_CHAR, 'b', 1); };
        inner.m_first = [] {};
        outer.SendMessage(WM_CHAR, 'a', 1);
        EXPECT_EQ(TextOf(outer), L"a");
        EXPECT_EQ(TextOf(inner), L"b");
    });
}

TEST(CWndDefault, PassesOnTheOuterMessageAfterAHandlerThrew) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow&) {
        PassingEdit outer;
        ThrowingEdit inner;
        ASSERT_TRUE(outer.SubclassDlgItem(10, &dialog));
        ASSERT_TRUE(inner.SubclassDlgItem(11, &dialog));
        outer.m_first = [&inner] { EXPECT_THROW(inner.SendMessage(WM_CHAR, 'b', 1), std::runtime_error); };
        outer.SendMessage(WM_CHAR, 'a', 1);
        EXPECT_EQ(TextOf(outer), L"a");
        inner.Detach();
    });
}

// Only the key itself is known to be pressed with Shift, so that it selects.
TEST(CWndDefault, PassesOnTheOuterKeyAfterAnotherWasPressed) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow& window) {
        PassingEdit edit;
        ASSERT_TRUE(edit.SubclassDlgItem(10, &dialog));
        edit.SetWindowText(L"abc");
        edit.SetSel(3, 3);
        edit.m_first = [&window] { QTest::keyClick(Control(window, 11), Qt::Key_End); };
        QTest::keyClick(Control(window, 10), Qt::Key_Home, Qt::ShiftModifier);
        int start = -1;
        int end = -1;
        edit.GetSel(start, end);
        EXPECT_EQ(start, 0);
        EXPECT_EQ(end, 3);
    });
}

TEST(CWndDefault, DoesNothingOnceTheHandlerHasLetGoOfTheWindow) {
    DialogForTests dialog(kTwoEdits);
    dialog.Run([&](const ModalWindow&) {
        PassingEdit edit;
        ASSERT_TRUE(edit.SubclassDlgItem(10, &dialog));
        const HWND window = edit.m_hWnd;
        edit.m_first = [&edit] { edit.Detach(); };
        ::SendMessage(window, WM_CHAR, 'a', 1);
        EXPECT_EQ(edit.m_hWnd, nullptr);
        EXPECT_EQ(CWnd::FromHandlePermanent(window), nullptr);
        EXPECT_EQ(TextOf(*CWnd::FromHandle(window)), L"");
        ::SendMessage(window, WM_CHAR, 'b', 1);
        EXPECT_EQ(TextOf(*CWnd::FromHandle(window)), L"b") << "the window goes on without it";
    });
}

}  // namespace
