// What could break the mask is refused: the clipboard's ways in, undo, dropping, texts still being composed, the
// context menu.
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTest>

#include "controls/EditDialog.h"
#include "controls/OrvoTimeEdit.h"
#include "controls/Typist.h"

namespace {

// An edit that shows 12:34 with the 2 selected; whatever is done in `body` must leave it so.
void ExpectUntouched(const std::function<void(OrvoTimeEdit&, QLineEdit&)>& body) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog& dialog) {
        LineOf(edit)->setFocus();
        edit.SetSel(0, 1);
        edit.SendMessage(WM_CHAR, L'1', 1);
        edit.SetWindowText(L"12:34");
        edit.SetSel(1, 2);
        dialog.m_changes.RemoveAll();
        QApplication::clipboard()->setText(QStringLiteral("9876543210"));
        body(edit, *LineOf(edit));
        EXPECT_EQ(TextOf(edit), L"12:34");
        EXPECT_EQ(SelectionOf(edit), (Selection{1, 2}));
        EXPECT_FALSE(edit.GetModify());
        EXPECT_EQ(dialog.m_changes.GetSize(), 0);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    });
}

}  // namespace

TEST(Refusal, IsTheAnswerToEachMessage) {
    for (const UINT message : {WM_PASTE, WM_CUT, WM_CLEAR, WM_UNDO, EM_UNDO, WM_CONTEXTMENU, WM_IME_COMPOSITION}) {
        ExpectUntouched([&](OrvoTimeEdit& edit, QLineEdit&) { EXPECT_EQ(edit.SendMessage(message), 0) << message; });
        EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("9876543210")) << message;
    }
}

TEST(Refusal, IsTheAnswerToTheEditsOwnCalls) {
    ExpectUntouched([](OrvoTimeEdit& edit, QLineEdit&) {
        edit.Paste();
        edit.Cut();
        edit.Clear();
        EXPECT_FALSE(edit.Undo());
    });
}

TEST(Refusal, MeetsEachKeyThatEditsOtherwise) {
    const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {{Qt::Key_V, Qt::ControlModifier},
                                                              {Qt::Key_X, Qt::ControlModifier},
                                                              {Qt::Key_Z, Qt::ControlModifier},
                                                              {Qt::Key_Y, Qt::ControlModifier},
                                                              {Qt::Key_A, Qt::ControlModifier},
                                                              {Qt::Key_K, Qt::ControlModifier},
                                                              {Qt::Key_U, Qt::ControlModifier},
                                                              {Qt::Key_Insert, Qt::ShiftModifier},
                                                              {Qt::Key_Delete, Qt::ShiftModifier},
                                                              {Qt::Key_Delete, Qt::ControlModifier},
                                                              {Qt::Key_Backspace, Qt::AltModifier},
                                                              {Qt::Key_5, Qt::AltModifier},
                                                              {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier},
                                                              {Qt::Key_Delete, Qt::NoModifier}};
    for (const auto& [key, modifiers] : keys) {
        ExpectUntouched([&key = key, &modifiers = modifiers](OrvoTimeEdit&, QLineEdit& line) {
            QTest::keyClick(&line, key, modifiers);
        });
        EXPECT_FALSE(testing::Test::HasFailure()) << key << " with " << modifiers.toInt();
    }
}

// The button moves the caret, as every button but the right one does.
TEST(Refusal, MeetsTheMiddleButtonsPaste) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        QLineEdit* line = LineOf(edit);
        const QClipboard::Mode mode =
            QApplication::clipboard()->supportsSelection() ? QClipboard::Selection : QClipboard::Clipboard;
        QApplication::clipboard()->setText(QStringLiteral("98765"), mode);
        QTest::mouseClick(line, Qt::MiddleButton, Qt::NoModifier, QPoint(3, line->height() / 2));
        EXPECT_EQ(TextOf(edit), L"00:00");
        EXPECT_FALSE(edit.GetModify());
    });
}

TEST(Refusal, MeetsWhatIsDropped) {
    ExpectUntouched([](OrvoTimeEdit&, QLineEdit& line) {
        QMimeData data;
        data.setText(QStringLiteral("98765"));
        QDragEnterEvent enter(QPoint(3, 3), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&line, &enter);
        EXPECT_FALSE(line.acceptDrops());
    });
}

// No digits between the mask's that nobody has typed yet.
TEST(Refusal, MeetsWhatIsBeingComposed) {
    ExpectUntouched([](OrvoTimeEdit&, QLineEdit& line) {
        QInputMethodEvent composing(QStringLiteral("7"), {});
        EXPECT_TRUE(QApplication::sendEvent(&line, &composing));
        EXPECT_TRUE(composing.isAccepted());
        EXPECT_EQ(line.displayText(), QStringLiteral("12:34"));
        QInputMethodEvent givenUp;
        QApplication::sendEvent(&line, &givenUp);
    });
}

// They are judged like what is typed, and these are no digits of a time.
TEST(Refusal, MeetsCommittedCharactersThatCannotBeTyped) {
    ExpectUntouched([](OrvoTimeEdit&, QLineEdit& line) { Commit(&line, L"７月a ５"); });
}

TEST(Refusal, MeetsTheContextMenu) {
    ExpectUntouched([](OrvoTimeEdit&, QLineEdit& line) {
        QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(3, 3), line.mapToGlobal(QPoint(3, 3)));
        QApplication::sendEvent(&line, &menu);
    });
}

TEST(Refusal, LeavesCopyingAlone) {
    ExpectUntouched([](OrvoTimeEdit& edit, QLineEdit&) { edit.SendMessage(WM_COPY); });
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("2"));
}
