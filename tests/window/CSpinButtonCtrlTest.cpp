// Spin buttons and the number beside them.
#include "platform/window/CSpinButtonCtrl.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QToolButton>
#include <climits>
#include <string>

#include "platform/window/CEdit.h"
#include "window/Notifications.h"

namespace {

constexpr const char* kItems =
    "EDITTEXT 9, 7, 7, 40, 14\n"
    "CONTROL \"\", 10, \"msctls_updown32\", UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_AUTOBUDDY | UDS_ARROWKEYS, 47, 7, "
    "10, 14\n"
    "EDITTEXT 19, 7, 30, 40, 14\n"
    "CONTROL \"\", 20, \"msctls_updown32\", UDS_SETBUDDYINT | UDS_AUTOBUDDY | UDS_WRAP, 47, 30, 10, 14\n"
    "EDITTEXT 29, 7, 50, 40, 14\n"
    "CONTROL \"\", 30, \"msctls_updown32\", UDS_AUTOBUDDY, 47, 50, 10, 14\n";

struct SpinButtons : testing::Test {
    DialogForTests dialog{kItems};
    CSpinButtonCtrl spin;
    QLineEdit* edit = nullptr;

    void Run(UINT id, const std::function<void()>& work) {
        dialog.m_onInit = [this, id] { spin.SubclassDlgItem(id, &dialog); };
        dialog.Run([&](const ModalWindow& window) {
            edit = Control<QLineEdit>(window, static_cast<int>(id) - 1);
            work();
        });
    }
    void Click(const char* arrow) const {
        QTest::mouseClick(WidgetFor(spin.m_hWnd)->findChild<QToolButton*>(arrow), Qt::LeftButton);
    }
    std::string After(const char* arrow) const {
        Click(arrow);
        return edit->text().toStdString();
    }
};

TEST_F(SpinButtons, BelongToTheControlBeforeThem) {
    Run(10, [&] {
        ASSERT_NE(spin.GetBuddy(), nullptr);
        EXPECT_EQ(spin.GetBuddy()->GetDlgCtrlID(), 9);
        EXPECT_EQ(spin.SetBuddy(dialog.GetDlgItem(19))->GetDlgCtrlID(), 9) << "the one before";
        EXPECT_EQ(spin.GetBuddy()->GetDlgCtrlID(), 19);
        spin.SetPos(7);
        EXPECT_EQ(edit->text(), "");
        QTest::keyClick(edit, Qt::Key_Up);
        EXPECT_EQ(edit->text(), "") << "its keys are its own again";
        QTest::keyClick(WidgetFor(dialog.GetDlgItem(19)->m_hWnd), Qt::Key_Up);
        EXPECT_EQ(spin.GetPos(), 8);
        EXPECT_EQ(spin.SetBuddy(nullptr)->GetDlgCtrlID(), 19);
        EXPECT_EQ(spin.GetBuddy(), nullptr);
        EXPECT_EQ(spin.SetPos(3), 8);
        EXPECT_EQ(spin.GetPos(), 3);
    });
}

TEST_F(SpinButtons, StepTheNumberWithinTheRange) {
    Run(10, [&] {
        int lower = -1;
        int upper = -1;
        spin.GetRange(lower, upper);
        EXPECT_EQ(lower, 0);
        EXPECT_EQ(upper, 100);
        edit->setText("99");
        EXPECT_EQ(After("Up"), "100");
        EXPECT_EQ(After("Up"), "100");
        EXPECT_EQ(After("Down"), "99");
        edit->setText("1");
        EXPECT_EQ(After("Down"), "0");
        EXPECT_EQ(After("Down"), "0");
        spin.SetRange(-5, 5);
        EXPECT_EQ(After("Down"), "-1");
        edit->setText("77");
        EXPECT_EQ(spin.GetPos(), 5) << "clamped";
        EXPECT_EQ(After("Down"), "4");
    });
}

TEST_F(SpinButtons, AReversedRangeCountsTheOtherWay) {
    Run(10, [&] {
        spin.SetRange(10, 0);
        int lower = -1;
        int upper = -1;
        spin.GetRange(lower, upper);
        EXPECT_EQ(lower, 10);
        EXPECT_EQ(upper, 0);
        spin.SetPos(9);
        EXPECT_EQ(After("Up"), "8");
        EXPECT_EQ(After("Down"), "9");
        EXPECT_EQ(After("Down"), "10");
        EXPECT_EQ(After("Down"), "10");
        spin.SetPos(0);
        EXPECT_EQ(After("Up"), "0");
        spin.SetPos(11);
        EXPECT_EQ(spin.GetPos(), 10);
    });
}

TEST_F(SpinButtons, WrapWhenAsked) {
    Run(20, [&] {
        spin.SetRange(1, 12);
        spin.SetPos(12);
        EXPECT_EQ(After("Up"), "1");
        EXPECT_EQ(After("Down"), "12");
        spin.SetRange(12, 1);
        EXPECT_EQ(After("Down"), "1") << "down counts up here, past 12 it starts anew";
        EXPECT_EQ(After("Up"), "12");
    });
}

TEST_F(SpinButtons, TheArrowKeysInTheEditStepWhenAsked) {
    Run(10, [&] {
        edit->setText("5");
        QTest::keyClick(edit, Qt::Key_Up);
        EXPECT_EQ(edit->text(), "6");
        QTest::keyClick(edit, Qt::Key_Down);
        QTest::keyClick(edit, Qt::Key_Down);
        EXPECT_EQ(edit->text(), "4");
        QTest::keyClick(edit, Qt::Key_Left);
        EXPECT_EQ(edit->text(), "4");
    });
    spin.Detach();
    Run(20, [&] {
        edit->setText("5");
        QTest::keyClick(edit, Qt::Key_Up);
        EXPECT_EQ(edit->text(), "5") << "not asked for";
    });
}

TEST_F(SpinButtons, ATextThatIsNoNumberLeavesTheLastPosition) {
    Run(10, [&] {
        spin.SetPos(42);
        for (const char* text : {"", "abc", "4x", "4.5", "0x10", "99999999999", "-", "１２"}) {
            edit->setText(QString::fromUtf8(text));
            EXPECT_EQ(spin.GetPos(), 42) << text;
        }
        EXPECT_EQ(After("Up"), "43");
        edit->setText(" 17 ");
        EXPECT_EQ(spin.GetPos(), 17);
        EXPECT_EQ(spin.SetPos(20), 17);
    });
}

TEST_F(SpinButtons, WithoutTheNumberTheEditIsLeftAlone) {
    Run(30, [&] {
        edit->setText("50");
        EXPECT_EQ(spin.GetPos(), 0);
        EXPECT_EQ(After("Up"), "50");
        EXPECT_EQ(spin.GetPos(), 1);
    });
}

TEST_F(SpinButtons, TheEndsOfTheIntegers) {
    Run(10, [&] {
        spin.SetRange(INT_MIN, INT_MAX);
        spin.SetPos(INT_MAX);
        EXPECT_EQ(After("Up"), std::to_string(INT_MAX));
        EXPECT_EQ(After("Down"), std::to_string(INT_MAX - 1));
        spin.SetPos(INT_MIN);
        EXPECT_EQ(After("Down"), std::to_string(INT_MIN));
        spin.SetRange(INT_MAX, INT_MIN);
        EXPECT_EQ(After("Up"), std::to_string(INT_MIN));
        EXPECT_EQ(After("Down"), std::to_string(INT_MIN + 1));
        spin.SetPos(INT_MAX);
        EXPECT_EQ(After("Down"), std::to_string(INT_MAX));
    });
    spin.Detach();
    Run(20, [&] {
        spin.SetRange(INT_MIN, INT_MAX);
        spin.SetPos(INT_MAX);
        EXPECT_EQ(After("Up"), std::to_string(INT_MIN));
        EXPECT_EQ(After("Down"), std::to_string(INT_MAX));
    });
}

TEST_F(SpinButtons, AskTheParentBeforeEachStep) {
    bool veto = false;
    int asked = 0;
    NMUPDOWN step = {};
    class Parent : public DialogForTests {
    public:
        using DialogForTests::DialogForTests;
        std::function<LRESULT(NMUPDOWN*)> m_onStep;
        BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
            EXPECT_EQ(wParam, 10U);
            *result = m_onStep(reinterpret_cast<NMUPDOWN*>(lParam));
            return TRUE;
        }
    };
    Parent parent(kItems);
    parent.m_onStep = [&](NMUPDOWN* about) {
        ++asked;
        step = *about;
        return veto ? 1 : 0;
    };
    parent.m_onInit = [&] { spin.SubclassDlgItem(10, &parent); };
    parent.Run([&](const ModalWindow& window) {
        edit = Control<QLineEdit>(window, 9);
        spin.SetPos(5);
        EXPECT_EQ(asked, 0) << "what the program does is not asked";
        EXPECT_EQ(After("Up"), "6");
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(step.hdr.hwndFrom, spin.m_hWnd);
        EXPECT_EQ(step.hdr.idFrom, 10U);
        EXPECT_EQ(step.hdr.code, UDN_DELTAPOS);
        EXPECT_EQ(step.iPos, 5);
        EXPECT_EQ(step.iDelta, 1);
        veto = true;
        EXPECT_EQ(After("Down"), "6");
        EXPECT_EQ(step.iDelta, -1);
        QTest::keyClick(edit, Qt::Key_Up);
        EXPECT_EQ(edit->text(), "6");
        EXPECT_EQ(asked, 3);
        spin.SetRange(100, 0);
        Click("Up");
        EXPECT_EQ(step.iDelta, -1) << "the change of the position";
    });
}

TEST_F(SpinButtons, TellOfTheNumberAsItsEditDoes) {
    Notifications heard(dialog);
    Run(10, [&] {
        spin.SetPos(5);
        heard.Take();
        CEdit number;
        number.SubclassDlgItem(9, &dialog);
        number.SetModify(FALSE);
        Click("Up");
        EXPECT_EQ(heard.TakeCodes(9), std::vector<UINT>{EN_CHANGE});
        EXPECT_TRUE(number.GetModify());
    });
}

TEST_F(SpinButtons, MayBeDestroyedByWhatTheyTell) {
    for (const UINT notification : {WM_NOTIFY, WM_COMMAND}) {
        for (const int victim : {10, 9, 100}) {
            bool armed = false;
            dialog.m_onMessage = [&, notification, victim](UINT message, WPARAM, LPARAM) {
                if (message != notification || !std::exchange(armed, false))
                    return;
                victim == 100 ? dialog.DestroyWindow() : dialog.GetDlgItem(victim)->DestroyWindow();
            };
            for (const bool mouse : {false, true}) {
                Run(10, [&] {
                    spin.SetPos(5);
                    armed = true;
                    mouse ? Click("Up") : QTest::keyClick(edit, Qt::Key_Up);
                });
                EXPECT_FALSE(armed) << victim;
            }
        }
    }
}

TEST_F(SpinButtons, AnEditThatIsGoneIsNoBuddy) {
    Run(10, [&] {
        spin.SetPos(5);
        dialog.GetDlgItem(9)->DestroyWindow();
        EXPECT_EQ(spin.GetBuddy(), nullptr);
        EXPECT_EQ(spin.GetPos(), 5);
        Click("Up");
        EXPECT_EQ(spin.GetPos(), 6);
    });
}

TEST(CSpinButtonCtrl, IsHarmlessWithoutAWindow) {
    CSpinButtonCtrl none;
    int lower = 7;
    int upper = 7;
    none.SetRange(1, 2);
    none.GetRange(lower, upper);
    EXPECT_EQ(lower, 0);
    EXPECT_EQ(upper, 0);
    EXPECT_EQ(none.SetPos(1), 0);
    EXPECT_EQ(none.GetPos(), 0);
    EXPECT_EQ(none.SetBuddy(nullptr), nullptr);
    EXPECT_EQ(none.GetBuddy(), nullptr);
}

}  // namespace
