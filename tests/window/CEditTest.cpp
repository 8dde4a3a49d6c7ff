// Edits: text, selection, the modify flag, limits, notifications.
#include "platform/window/CEdit.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <vector>

#include "window/DialogForTests.h"

namespace {

constexpr const char* kItems =
    "EDITTEXT 10, 7, 7, 60, 14, ES_AUTOHSCROLL\n"
    "EDITTEXT 11, 7, 30, 60, 14, ES_READONLY | ES_RIGHT\n"
    "EDITTEXT 12, 7, 50, 60, 14, ES_CENTER | ES_PASSWORD\n";

struct Edits : testing::Test {
    DialogForTests dialog{kItems};
    CEdit edit;
    QLineEdit* widget = nullptr;

    void Run(const std::function<void()>& work) {
        dialog.m_onInit = [this] { edit.SubclassDlgItem(10, &dialog); };
        dialog.Run([&](const ModalWindow& window) {
            widget = Control<QLineEdit>(window, 10);
            work();
        });
    }
    CString Text() const {
        CString text;
        edit.GetWindowText(text);
        return text;
    }
    std::pair<int, int> Selection() const {
        int start = -1;
        int end = -1;
        edit.GetSel(start, end);
        return {start, end};
    }
};

using Span = std::pair<int, int>;

TEST_F(Edits, SettingTheTextPutsTheCaretBeforeItAndClearsTheFlag) {
    Run([&] {
        edit.SetModify();
        edit.SetWindowText(L"12:34");
        EXPECT_EQ(Text(), L"12:34");
        EXPECT_EQ(Selection(), Span(0, 0));
        EXPECT_FALSE(edit.GetModify());
        EXPECT_EQ(edit.LineLength(), 5);
        EXPECT_EQ(edit.GetWindowTextLength(), 5);
    });
}

TEST_F(Edits, SelectionsAreClampedMirroredAndWhole) {
    Run([&] {
        edit.SetWindowText(L"abcdef");
        edit.SetSel(2, 4);
        EXPECT_EQ(Selection(), Span(2, 4));
        EXPECT_EQ(widget->selectedText(), "cd");
        EXPECT_EQ(widget->cursorPosition(), 4);
        edit.SetSel(0, -1);
        EXPECT_EQ(Selection(), Span(0, 6));
        edit.SetSel(5, 1);
        EXPECT_EQ(Selection(), Span(1, 5));
        edit.SetSel(3, 99);
        EXPECT_EQ(Selection(), Span(3, 6));
        edit.SetSel(99, 99);
        EXPECT_EQ(Selection(), Span(6, 6));
        edit.SetSel(1, 3);
        edit.SetSel(-1, 0);
        EXPECT_EQ(Selection(), Span(3, 3)) << "the caret stays where it is";
    });
}

TEST_F(Edits, PositionsCountCharacters) {
    Run([&] {
        edit.SetWindowText(L"a\U0001F31Eb月c");
        EXPECT_EQ(edit.LineLength(), CString(L"a\U0001F31Eb月c").GetLength());
        const int afterSun = CString(L"a\U0001F31E").GetLength();
        edit.SetSel(afterSun, afterSun + 2);
        EXPECT_EQ(widget->selectedText(), QString("b") + QChar(0x6708));
        EXPECT_EQ(Selection(), Span(afterSun, afterSun + 2));
        edit.ReplaceSel(L"X");
        EXPECT_EQ(Text(), L"a\U0001F31EXc");
        EXPECT_EQ(Selection(), Span(afterSun + 1, afterSun + 1));
    });
}

TEST_F(Edits, ReplacingMarksTheEditModified) {
    Run([&] {
        edit.SetWindowText(L"abc");
        edit.SetSel(1, 2);
        edit.ReplaceSel(L"B");
        EXPECT_EQ(Text(), L"aBc");
        EXPECT_TRUE(edit.GetModify());
        edit.SetModify(FALSE);
        EXPECT_FALSE(edit.GetModify());
        edit.SetSel(1, 2);
        edit.ReplaceSel(nullptr);
        EXPECT_EQ(Text(), L"ac");
        EXPECT_TRUE(edit.GetModify());
    });
}

TEST_F(Edits, TypingMarksTheEditModified) {
    Run([&] {
        edit.SetWindowText(L"abc");
        QTest::keyClicks(widget, "x");
        EXPECT_TRUE(edit.GetModify());
    });
}

TEST_F(Edits, AnyTextComesBackWhole) {
    Run([&] {
        for (const CString& text : {CString(L""), CString(L"  blanks  "), CString(L'x', 10000), CString(L'月', 40000),
                                    CString(L"tab\tand\x1F end")}) {
            edit.SetWindowText(text);
            EXPECT_EQ(Text(), text);
        }
        edit.SetWindowText(nullptr);
        EXPECT_EQ(Text(), L"");
    });
}

TEST_F(Edits, ReadOnlyKeepsThePersonOutAndNotTheProgram) {
    dialog.Run([this](const ModalWindow& window) {
        edit.SubclassDlgItem(11, &dialog);
        edit.SetWindowText(L"yes");
        QTest::keyClicks(Control<QLineEdit>(window, 11), "no");
        EXPECT_EQ(Text(), L"yes");
        edit.SetWindowText(L"other");
        EXPECT_EQ(Text(), L"other");
    });
}

TEST_F(Edits, ClipboardAndUndo) {
    Run([&] {
        edit.SetWindowText(L"abcd");
        edit.SetSel(1, 3);
        edit.Copy();
        EXPECT_EQ(QApplication::clipboard()->text(), "bc");
        edit.Cut();
        EXPECT_EQ(Text(), L"ad");
        edit.Paste();
        EXPECT_EQ(Text(), L"abcd");
        EXPECT_TRUE(edit.Undo());
        EXPECT_EQ(Text(), L"ad");
        edit.SetSel(0, -1);
        edit.Clear();
        EXPECT_EQ(Text(), L"");
    });
}

TEST_F(Edits, PutWhatIsPastedOnOneLine) {
    int changes = 0;
    dialog.m_onMessage = [&](UINT message, WPARAM wParam, LPARAM) {
        changes += message == WM_COMMAND && LOWORD(wParam) == 10 && HIWORD(wParam) == EN_CHANGE ? 1 : 0;
    };
    Run([&] {
        edit.SetWindowText(L"[]");
        edit.SetSel(1, 1);
        edit.SetModify(FALSE);
        changes = 0;
        QApplication::clipboard()->setText(
            QString::fromUtf8("1\n2\r\n3\r4\t5\v6\f7\xc2\x85"
                              "8\xe2\x80\xa8"
                              "9\xe2\x80\xa9"));
        edit.Paste();
        EXPECT_EQ(Text(), L"[1 2 3 4 5 6 7 8 9 ]");
        EXPECT_TRUE(edit.GetModify());
        EXPECT_EQ(changes, 1) << "told once";
        int start = 0;
        int end = 0;
        edit.GetSel(start, end);
        EXPECT_EQ(start, 19) << "behind what was pasted";
        EXPECT_EQ(end, 19);
    });
}

TEST_F(Edits, LeaveTheLinesOfATextThatTheProgramSets) {
    Run([&] {
        edit.SetWindowText(L"a\nb\tc");
        EXPECT_EQ(Text(), L"a\nb\tc");
    });
}

TEST_F(Edits, NotifyTheParent) {
    std::vector<std::string> heard;
    dialog.m_onMessage = [&](UINT message, WPARAM wParam, LPARAM) {
        if (message == WM_COMMAND && LOWORD(wParam) == 10)
            heard.push_back(std::to_string(HIWORD(wParam)));
    };
    Run([&] {
        heard.clear();
        edit.SetWindowText(L"new");
        edit.SetWindowText(L"newer");
        dialog.GetDlgItem(11)->SetFocus();
        edit.SetFocus();
        QTest::keyClicks(widget, "x");
        const std::string change = std::to_string(EN_CHANGE);
        EXPECT_EQ(heard, (std::vector<std::string>{change, change, std::to_string(EN_KILLFOCUS),
                                                   std::to_string(EN_SETFOCUS), change}));
    });
}

TEST_F(Edits, TheTabKeySelectsEverything) {
    Run([&] {
        edit.SetWindowText(L"abc");
        dialog.GetDlgItem(12)->SetFocus();
        QTest::keyClick(WidgetFor(dialog.GetDlgItem(12)->m_hWnd), Qt::Key_Tab);
        EXPECT_EQ(Selection(), Span(0, 3));
    });
}

TEST_F(Edits, StylesOfTheTemplate) {
    Run([&] {
        const auto* readOnly = reinterpret_cast<QLineEdit*>(WidgetFor(dialog.GetDlgItem(11)->m_hWnd));
        const auto* secret = reinterpret_cast<QLineEdit*>(WidgetFor(dialog.GetDlgItem(12)->m_hWnd));
        EXPECT_TRUE(readOnly->isReadOnly());
        EXPECT_TRUE(readOnly->alignment().testFlag(Qt::AlignRight));
        EXPECT_TRUE(secret->alignment().testFlag(Qt::AlignHCenter));
        EXPECT_EQ(secret->echoMode(), QLineEdit::Password);
        EXPECT_TRUE(widget->hasFrame());
    });
}

TEST_F(Edits, CanBeMadeInAWindow) {
    Run([&] {
        CEdit own;
        const RECT place = {10, 60, 90, 80};
        EXPECT_FALSE(own.Create(WS_CHILD, place, nullptr, 77));
        ASSERT_TRUE(own.Create(WS_CHILD | WS_VISIBLE | ES_CENTER, place, &dialog, 77));
        EXPECT_FALSE(own.Create(WS_CHILD, place, &dialog, 78)) << "it has a window";
        EXPECT_EQ(dialog.GetDlgItem(77), &own);
        EXPECT_EQ(own.GetParent(), &dialog);
        EXPECT_TRUE(own.IsWindowVisible());
        auto* line = reinterpret_cast<QLineEdit*>(WidgetFor(own.m_hWnd));
        EXPECT_EQ(line->geometry(), QRect(10, 60, 80, 20));
        EXPECT_FALSE(line->hasFrame());
        const RECT inner = {4, 3, 80, 20};
        own.SetRect(&inner);
        EXPECT_EQ(line->textMargins(), QMargins(4, 3, 0, 0));
        EXPECT_TRUE(own.DestroyWindow());
        EXPECT_EQ(dialog.GetDlgItem(77), nullptr);
        ASSERT_TRUE(own.Create(WS_CHILD | WS_DISABLED, place, &dialog, 77)) << "again";
        EXPECT_FALSE(own.IsWindowVisible());
        EXPECT_FALSE(own.IsWindowEnabled());
        own.DestroyWindow();
    });
}

}  // namespace
