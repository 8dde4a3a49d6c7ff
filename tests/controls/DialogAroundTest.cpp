// A masked edit among the other controls of a dialog: the dialog's keys, the focus, the mouse, property pages.
#include <QApplication>
#include <QTest>

#include "controls/EditDialog.h"
#include "controls/OrvoTimeEdit.h"
#include "controls/Typist.h"

namespace {

class InDialog : public Typist {};
INSTANTIATE_TEST_SUITE_P(Both, InDialog, testing::Values(Way::kMessages, Way::kKeys), NameOfWay);

// A parent that is no page of anything but takes what pages send.
int RunPage(const std::function<void(EditPage&, OrvoTimeEdit&)>& body) {
    EditPage page;
    OrvoTimeEdit edit;
    return RunDialog(page, [&] {
        ASSERT_TRUE(edit.SubclassDlgItem(kFirstEdit, &page));
        edit.SetDefault();
        ASSERT_FALSE(page.IsModified());
        body(page, edit);
    });
}

}  // namespace

TEST(DialogAround, MovesOnWithTab) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog& dialog) {
        edit.SetFocus();
        ASSERT_TRUE(LineOf(edit)->hasFocus());
        QTest::keyClick(LineOf(edit), Qt::Key_Tab);
        EXPECT_EQ(CWnd::GetFocus()->GetSafeHwnd(), dialog.GetDlgItem(kSecondEdit)->GetSafeHwnd());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_TRUE(LineOf(edit)->hasFocus());
        EXPECT_EQ(TextOf(edit), L"00:00");
        EXPECT_FALSE(edit.GetModify());
    });
}

TEST(DialogAround, EndsWithEnter) {
    OrvoTimeEdit edit;
    EXPECT_EQ(RunWith(edit,
                      [&](EditDialog&) {
                          edit.SetFocus();
                          QTest::keyClick(LineOf(edit), Qt::Key_Return);
                      }),
              IDOK);
}

TEST(DialogAround, EndsWithEscape) {
    class Cancelled : public EditDialog {
    public:
        int m_count = 0;

    protected:
        void OnCancel() override {
            ++m_count;
            EditDialog::OnCancel();
        }
    };
    Cancelled dialog;
    OrvoTimeEdit edit;
    RunDialog(dialog, [&] {
        ASSERT_TRUE(edit.SubclassDlgItem(kFirstEdit, &dialog));
        edit.SetFocus();
        QTest::keyClick(LineOf(edit), Qt::Key_Escape);
        EXPECT_EQ(dialog.m_count, 1);
    });
}

TEST(DialogAround, GivesTheFocusAndThePlaceIsChosen) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog& dialog) {
        dialog.GetDlgItem(kSecondEdit)->SetFocus();
        edit.SetSel(2, 2);
        edit.SetFocus();
        EXPECT_EQ(SelectionOf(edit), (Selection{3, 4}));
        dialog.GetDlgItem(kSecondEdit)->SetFocus();
        edit.SetSel(0, 3);
        edit.SetFocus();
        EXPECT_EQ(SelectionOf(edit), (Selection{0, 3})) << "what is selected stays so";
    });
}

TEST(DialogAround, SendsTheFocusMessageWithTheSameEffect) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        edit.SetSel(1, 1);
        edit.SendMessage(WM_SETFOCUS);
        EXPECT_EQ(SelectionOf(edit), (Selection{1, 2}));
        edit.SetSel(0, 5);
        edit.SendMessage(WM_SETFOCUS);
        EXPECT_EQ(SelectionOf(edit), (Selection{0, 5}));
    });
}

TEST(DialogAround, AsksForTheCursorAndThePlaceIsChosen) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog& dialog) {
        const auto window = reinterpret_cast<WPARAM>(edit.GetSafeHwnd());
        CEdit plain;
        ASSERT_TRUE(plain.SubclassDlgItem(kSecondEdit, &dialog));
        const LRESULT usual = plain.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(plain.GetSafeHwnd()),
                                                MAKELONG(HTCLIENT, WM_MOUSEMOVE));
        edit.SetSel(4, 4);
        EXPECT_EQ(edit.SendMessage(WM_SETCURSOR, window, MAKELONG(HTCLIENT, WM_MOUSEMOVE)), usual);
        EXPECT_EQ(SelectionOf(edit), (Selection{4, 5}));
        edit.SetSel(1, 4);
        edit.SendMessage(WM_SETCURSOR, window, MAKELONG(HTCLIENT, WM_MOUSEMOVE));
        EXPECT_EQ(SelectionOf(edit), (Selection{1, 4})) << "what is selected stays so";
    });
}

TEST(DialogAround, ChoosesAPlaceAfterAClick) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        QLineEdit* line = LineOf(edit);
        QTest::mouseClick(line, Qt::LeftButton, Qt::NoModifier, QPoint(line->width() - 3, line->height() / 2));
        EXPECT_EQ(SelectionOf(edit), (Selection{0, 1})) << "behind the text: around to the first place";
    });
}

TEST(DialogAround, KeepsWhatTheMouseSelects) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        QLineEdit* line = LineOf(edit);
        const int y = line->height() / 2;
        QTest::mousePress(line, Qt::LeftButton, Qt::NoModifier, QPoint(line->width() - 3, y));
        QMouseEvent drag(QEvent::MouseMove, QPointF(1, y), line->mapToGlobal(QPointF(1, y)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(line, &drag);
        QTest::mouseRelease(line, Qt::LeftButton, Qt::NoModifier, QPoint(1, y));
        const Selection selection = SelectionOf(edit);
        EXPECT_EQ(selection.start, 0);
        EXPECT_GT(selection.end, 1);
    });
}

TEST_P(InDialog, MarksAPropertyPageForEachAcceptedCharacter) {
    RunPage([](EditPage& page, OrvoTimeEdit& edit) {
        Type(edit, L"x");
        Right(edit);
        Left(edit);
        Press(edit, VK_DELETE, Qt::Key_Delete);
        EXPECT_FALSE(page.IsModified());
        Backspace(edit);
        EXPECT_FALSE(page.IsModified()) << "a restored character is none that was accepted";
        Type(edit, L"0");
        EXPECT_TRUE(page.IsModified());
    });
}
