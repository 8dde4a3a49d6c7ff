// What a person's keys and mouse become, and who may keep them.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <set>
#include <vector>

#include "platform/window/CEdit.h"
#include "window/DialogForTests.h"

namespace {

constexpr const char* kItems =
    "EDITTEXT 10, 7, 7, 60, 14\n"
    "EDITTEXT 11, 7, 30, 60, 14\n"
    "LTEXT \"&Third\", 13, 80, 30, 30, 8\n"
    "EDITTEXT 12, 120, 30, 60, 14\n"
    "DEFPUSHBUTTON \"OK\", 1, 100, 70, 40, 14\n"
    "PUSHBUTTON \"Cancel\", 2, 150, 70, 40, 14\n";

// Writes down the messages that matter here, and keeps those to itself that it is told to.
class Recorder : public CEdit {
public:
    std::vector<std::string> m_heard;
    std::set<UINT> m_kept;
    LRESULT m_dialogCode = 0;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case WM_KEYDOWN:
                Note("down", wParam);
                break;
            case WM_CHAR:
                Note("char", wParam);
                break;
            case WM_SYSKEYDOWN:
                Note("sys", wParam);
                break;
            case WM_IME_COMPOSITION:
                Note("compose", 0);
                break;
            case WM_PASTE:
                Note("paste", 0);
                break;
            case WM_CONTEXTMENU:
                Note("menu", 0);
                break;
            case WM_SETCURSOR:
                Note("cursor", static_cast<WPARAM>(HIWORD(static_cast<std::uintptr_t>(lParam))));
                break;
            case WM_SETFOCUS:
            case WM_KILLFOCUS:
                m_heard.emplace_back(message == WM_SETFOCUS ? "focus from " : "focus to ");
                m_heard.back() += std::to_string(FromHandle(reinterpret_cast<HWND>(wParam))
                                                     ? FromHandle(reinterpret_cast<HWND>(wParam))->GetDlgCtrlID()
                                                     : 0);
                break;
            case WM_GETDLGCODE:
                return m_dialogCode;
            default:
                break;
        }
        return m_kept.count(message) != 0 ? 0 : CEdit::WindowProc(message, wParam, lParam);
    }

    std::vector<std::string> Take() { return std::exchange(m_heard, {}); }
    CString Text() const {
        CString text;
        GetWindowText(text);
        return text;
    }

private:
    void Note(const char* what, WPARAM value) { m_heard.push_back(what + (" " + std::to_string(value))); }
};

using Heard = std::vector<std::string>;

struct KeyMessages : testing::Test {
    DialogForTests dialog{kItems};
    Recorder edit;

    void Run(const std::function<void(QLineEdit* widget, const ModalWindow& window)>& work) {
        dialog.m_onInit = [this] { edit.SubclassDlgItem(10, &dialog); };
        dialog.Run([&](const ModalWindow& window) {
            edit.Take();
            work(Control<QLineEdit>(window, 10), window);
        });
    }
};

TEST_F(KeyMessages, ALetterIsAKeyAndACharacter) {
    Run([&](QLineEdit* widget, const ModalWindow&) {
        QTest::keyClick(widget, Qt::Key_A, Qt::NoModifier);
        QTest::keyClicks(widget, "7B");
        EXPECT_EQ(edit.Take(), (Heard{"down 65", "char 97", "down 55", "char 55", "down 66", "char 66"}));
        EXPECT_EQ(edit.Text(), L"a7B");
    });
}

TEST_F(KeyMessages, ACharacterThatIsKeptIsNotTyped) {
    edit.m_kept = {WM_CHAR};
    Run([&](QLineEdit* widget, const ModalWindow&) {
        QTest::keyClicks(widget, "ab");
        EXPECT_EQ(edit.Text(), L"");
    });
}

TEST_F(KeyMessages, KeepingTheKeyDoesNotKeepItsCharacter) {
    edit.m_kept = {WM_KEYDOWN};
    Run([&](QLineEdit* widget, const ModalWindow&) {
        QTest::keyClicks(widget, "ab");
        EXPECT_EQ(edit.Text(), L"ab");
        QTest::keyClick(widget, Qt::Key_Left);
        QTest::keyClick(widget, Qt::Key_Delete);
        EXPECT_EQ(edit.Text(), L"ab") << "keys without a character are kept whole";
        EXPECT_EQ(widget->cursorPosition(), 2);
    });
}

TEST_F(KeyMessages, KeysWithoutCharactersHaveTheirNumbers) {
    struct Case {
        Qt::Key key;
        UINT virtualKey;
    };
    const std::vector<Case> cases = {
        {Qt::Key_Left, VK_LEFT},     {Qt::Key_Right, VK_RIGHT},   {Qt::Key_Up, VK_UP},
        {Qt::Key_Down, VK_DOWN},     {Qt::Key_Home, VK_HOME},     {Qt::Key_End, VK_END},
        {Qt::Key_PageUp, VK_PRIOR},  {Qt::Key_PageDown, VK_NEXT}, {Qt::Key_Insert, VK_INSERT},
        {Qt::Key_Delete, VK_DELETE}, {Qt::Key_F2, VK_F2}};
    Run([&](QLineEdit* widget, const ModalWindow&) {
        for (const Case& each : cases) {
            QTest::keyClick(widget, each.key);
            EXPECT_EQ(edit.Take(), Heard{"down " + std::to_string(each.virtualKey)});
        }
    });
}

TEST_F(KeyMessages, BackspaceAndControlLettersAreControlCharacters) {
    Run([&](QLineEdit* widget, const ModalWindow&) {
        edit.SetWindowText(L"abc");
        edit.SetSel(3, 3);
        QTest::keyClick(widget, Qt::Key_Backspace);
        EXPECT_EQ(edit.Take(), (Heard{"down 8", "char 8"}));
        EXPECT_EQ(edit.Text(), L"ab");
        QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(edit.Take(), (Heard{"down 17", "down 65", "char 1"}));
        EXPECT_EQ(widget->selectedText(), "ab");
        QTest::keyClick(widget, Qt::Key_1, Qt::ControlModifier);
        EXPECT_EQ(edit.Take(), (Heard{"down 17", "down 49"}));
        EXPECT_EQ(edit.Text(), L"ab");
    });
}

TEST_F(KeyMessages, PastingByKeyIsKeptWithItsCharacter) {
    QString before;
    Run([&](QLineEdit* widget, const ModalWindow&) {
        QApplication::clipboard()->setText("pasted");
        QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(edit.Text(), L"pasted");
        edit.m_kept = {WM_CHAR};
        QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(widget, Qt::Key_X, Qt::ControlModifier);
        QTest::keyClick(widget, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(edit.Text(), L"pasted");
    });
}

TEST_F(KeyMessages, SeveralCharactersOfOneKeyComeOneByOne) {
    Run([&](QLineEdit* widget, const ModalWindow&) {
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, "xy");
        QApplication::sendEvent(widget, &key);
        EXPECT_EQ(edit.Take(), (Heard{"down 0", "char 120", "char 121"}));
        EXPECT_EQ(edit.Text(), L"xy");
    });
}

TEST_F(KeyMessages, ACharacterOutsideTheBasicPlaneIsNotTornApart) {
    Run([&](QLineEdit* widget, const ModalWindow&) {
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(U"\U0001F31E", 1));
        QApplication::sendEvent(widget, &key);
        EXPECT_EQ(edit.Text(), CString(L"\U0001F31E"));
    });
}

TEST_F(KeyMessages, AltTypesNothing) {
    Run([&](QLineEdit* widget, const ModalWindow& window) {
        QTest::keyClick(widget, Qt::Key_5, Qt::AltModifier);
        EXPECT_EQ(edit.Take(), (Heard{"sys 18", "sys 53"}));
        EXPECT_EQ(edit.Text(), L"");
        QTest::keyClick(widget, Qt::Key_T, Qt::AltModifier);
        EXPECT_TRUE(Control(window, 12)->hasFocus()) << "the mnemonic of the label before it";
    });
}

TEST_F(KeyMessages, TheDialogsKeysAreTheDialogs) {
    Run([&](QLineEdit* widget, const ModalWindow& window) {
        QTest::keyClick(widget, Qt::Key_Tab);
        EXPECT_EQ(edit.Take(), Heard{"focus to 11"});
        QTest::keyClick(Control(window, 11), Qt::Key_Backtab);
        EXPECT_EQ(edit.Take(), Heard{"focus from 11"});
    });
}

TEST_F(KeyMessages, EnterPressesTheDefaultButtonAndEscapeCancels) {
    for (const auto& [key, result] :
         {std::pair(Qt::Key_Return, IDOK), std::pair(Qt::Key_Enter, IDOK), std::pair(Qt::Key_Escape, IDCANCEL)}) {
        Recorder fresh;
        DialogForTests again(kItems);
        again.m_onInit = [&] { fresh.SubclassDlgItem(10, &again); };
        EXPECT_EQ(again.Run([&, pressed = key](const ModalWindow& window) {
            fresh.Take();
            QTest::keyClick(Control(window, 10), pressed);
            for (const std::string& heard : fresh.m_heard)
                EXPECT_EQ(heard.rfind("focus", 0), 0U) << heard;
        }),
                  result);
    }
}

TEST_F(KeyMessages, AWindowMayAskForTheDialogsKeys) {
    edit.m_dialogCode = DLGC_WANTALLKEYS;
    Run([&](QLineEdit* widget, const ModalWindow&) {
        edit.m_kept = {WM_CHAR, WM_KEYDOWN};
        QTest::keyClick(widget, Qt::Key_Return);
        QTest::keyClick(widget, Qt::Key_Escape);
        QTest::keyClick(widget, Qt::Key_Tab);
        EXPECT_EQ(edit.Take(), (Heard{"down 13", "char 13", "down 27", "char 27", "down 9", "char 9"}));
        EXPECT_TRUE(widget->isVisible());
        EXPECT_TRUE(widget->hasFocus());
    });
}

TEST_F(KeyMessages, ASentKeyDoesWhatAPressedOneDoes) {
    Run([&](QLineEdit* widget, const ModalWindow&) {
        edit.SetWindowText(L"abc");
        edit.SendMessage(WM_KEYDOWN, VK_RIGHT, 1);
        edit.SendMessage(WM_CHAR, L'é', 1);
        EXPECT_EQ(edit.Text(), L"aébc");
        edit.SendMessage(WM_CHAR, VK_BACK, 1);
        edit.SendMessage(WM_KEYDOWN, VK_DELETE, 1);
        EXPECT_EQ(edit.Text(), L"ac");
        edit.SendMessage(WM_CHAR, 1, 1);
        EXPECT_EQ(widget->selectedText(), "ac") << "Ctrl+A";
    });
}

TEST_F(KeyMessages, AHandlerMayPassOnAnotherCharacter) {
    class Capital : public CEdit {
    public:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            return CEdit::WindowProc(message, message == WM_CHAR ? wParam - 32 : wParam, lParam);
        }
    };
    Capital capital;
    dialog.m_onInit = [&] { capital.SubclassDlgItem(10, &dialog); };
    dialog.Run([&](const ModalWindow& window) {
        QTest::keyClicks(Control(window, 10), "abc");
        CString text;
        capital.GetWindowText(text);
        EXPECT_EQ(text, L"ABC");
    });
}

TEST_F(KeyMessages, TheFocusIsToldWithTheOtherWindow) {
    Run([&](QLineEdit*, const ModalWindow&) {
        dialog.GetDlgItem(12)->SetFocus();
        dialog.GetDlgItem(10)->SetFocus();
        EXPECT_EQ(edit.Take(), (Heard{"focus to 12", "focus from 12"}));
    });
}

TEST_F(KeyMessages, TheCursorIsAskedForAroundTheMouse) {
    Run([&](QLineEdit* widget, const ModalWindow&) {
        edit.SetWindowText(L"abcdefgh");
        QTest::mouseMove(widget, QPoint(3, 5));
        edit.Take();
        QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, QPoint(20, 8));
        EXPECT_EQ(edit.Take(), Heard{"cursor 513"}) << "before the press";
        QTest::mouseRelease(widget, Qt::LeftButton, Qt::NoModifier, QPoint(20, 8));
        EXPECT_EQ(edit.Take(), Heard{"cursor 512"}) << "when the mouse is free again";
        EXPECT_GT(widget->cursorPosition(), 0) << "the click itself still places the caret";
    });
}

TEST_F(KeyMessages, AnInputMethodsTextCanBeKept) {
    Run([&](QLineEdit* widget, const ModalWindow&) {
        QInputMethodEvent commit;
        commit.setCommitString(QString(QChar(0x6708)));
        QApplication::sendEvent(widget, &commit);
        EXPECT_EQ(edit.Take(), Heard{"compose 0"});
        EXPECT_EQ(edit.Text(), L"月");
        edit.m_kept = {WM_IME_COMPOSITION, WM_CHAR};
        QInputMethodEvent again;
        again.setCommitString(QString(QChar(0x6708)));
        QApplication::sendEvent(widget, &again);
        EXPECT_EQ(edit.Text(), L"月");
    });
}

TEST_F(KeyMessages, AnInputMethodsTextIsTypedWhereComposingIsKept) {
    edit.m_kept = {WM_IME_COMPOSITION};
    Run([&](QLineEdit* widget, const ModalWindow&) {
        QInputMethodEvent composing(QStringLiteral("yue"), {});
        QApplication::sendEvent(widget, &composing);
        EXPECT_EQ(edit.Take(), Heard{"compose 0"}) << "nothing to type yet";
        EXPECT_EQ(widget->displayText(), "");

        // The next text may be begun together with the end of the one before.
        QInputMethodEvent commit(QStringLiteral("r"), {});
        commit.setCommitString(QStringLiteral("5月") + QString::fromUcs4(U"\U00020000"));
        QApplication::sendEvent(widget, &commit);
        EXPECT_TRUE(commit.isAccepted());
        EXPECT_EQ(edit.Take(), (Heard{"compose 0", "char 53", "char 26376", "char 131072"}));
        EXPECT_EQ(edit.Text(), L"5月\U00020000");
        EXPECT_EQ(widget->displayText(), widget->text());
    });
}

TEST_F(KeyMessages, AnInputMethodsTextEndsWithItsWindow) {
    class Ending : public Recorder {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            const LRESULT result = Recorder::WindowProc(message, wParam, lParam);
            if (message == WM_CHAR && wParam == L'b')
                DestroyWindow();
            return result;
        }
    } ending;
    ending.m_kept = {WM_IME_COMPOSITION};
    Run([&](QLineEdit*, const ModalWindow& window) {
        ASSERT_TRUE(ending.SubclassDlgItem(11, &dialog));
        QInputMethodEvent commit;
        commit.setCommitString(QStringLiteral("abc"));
        QApplication::sendEvent(Control(window, 11), &commit);
        EXPECT_EQ(ending.Take(), (Heard{"compose 0", "char 97", "char 98"}));
        EXPECT_EQ(ending.m_hWnd, nullptr);
    });
}

TEST_F(KeyMessages, TheContextMenuCanBeKept) {
    edit.m_kept = {WM_CONTEXTMENU};
    Run([&](QLineEdit* widget, const ModalWindow&) {
        QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(3, 3), widget->mapToGlobal(QPoint(3, 3)));
        QApplication::sendEvent(widget, &menu);
        EXPECT_EQ(edit.Take(), Heard{"menu 0"});
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    });
}

TEST_F(KeyMessages, TheMiddleButtonPastes) {
    edit.m_kept = {WM_PASTE};
    Run([&](QLineEdit* widget, const ModalWindow&) {
        QTest::mouseClick(widget, Qt::MiddleButton, Qt::NoModifier, QPoint(5, 5));
        Heard heard = edit.Take();
        std::erase_if(heard, [](const std::string& each) { return each.rfind("cursor", 0) == 0; });
        EXPECT_EQ(heard, Heard{"paste 0"});
    });
}

TEST_F(KeyMessages, NothingCanBeDroppedIntoAnEdit) {
    Run([](QLineEdit* widget, const ModalWindow&) { EXPECT_FALSE(widget->acceptDrops()); });
}

}  // namespace
