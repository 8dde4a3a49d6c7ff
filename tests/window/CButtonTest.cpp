// Buttons, check boxes and radio buttons.
#include "platform/window/CButton.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <memory>
#include <string>

#include "window/Notifications.h"

namespace {

constexpr const char* kItems =
    "PUSHBUTTON \"&Push\", 10, 7, 7, 40, 14\n"
    "AUTOCHECKBOX \"&Check\", 11, 7, 25, 60, 10\n"
    "AUTORADIOBUTTON \"one\", 20, 7, 40, 40, 10, WS_GROUP | WS_TABSTOP\n"
    "AUTORADIOBUTTON \"two\", 21, 50, 40, 40, 10\n"
    "AUTORADIOBUTTON \"three\", 22, 100, 40, 40, 10\n"
    "AUTORADIOBUTTON \"other group\", 30, 7, 55, 60, 10, WS_GROUP | WS_TABSTOP\n"
    "CONTROL \"grey\", 40, \"BUTTON\", BS_AUTOCHECKBOX | WS_DISABLED, 7, 70, 60, 10\n";

struct Buttons : testing::Test {
    DialogForTests dialog{kItems};
    Notifications heard{dialog};

    void Run(const std::function<void(const ModalWindow&)>& work) { dialog.Run(work); }
    int Check(int id) const { return static_cast<int>(dialog.IsDlgButtonChecked(id)); }
    std::string Radios() const {
        std::string checks;
        for (const int id : {20, 21, 22, 30})
            checks += std::to_string(Check(id));
        return checks;
    }
};

TEST_F(Buttons, ClicksKeysAndMessagesAreTold) {
    Run([&](const ModalWindow& window) {
        auto* push = Control<QAbstractButton>(window, 10);
        QTest::mouseClick(push, Qt::LeftButton);
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{BN_CLICKED});
        QTest::keyClick(push, Qt::Key_Space);
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{BN_CLICKED});
        dialog.GetDlgItem(10)->SendMessage(BM_CLICK);
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{BN_CLICKED});
        QTest::mouseClick(push, Qt::RightButton);
        EXPECT_TRUE(heard.TakeCodes(10).empty());
        push->setFocus();
        QTest::keyClick(push, Qt::Key_Return);
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{BN_CLICKED}) << "Enter presses the button with the focus";
    });
}

TEST_F(Buttons, TheNotificationCarriesTheWindow) {
    HWND sender = nullptr;
    dialog.m_onMessage = [&](UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_COMMAND && LOWORD(wParam) == 10)
            sender = reinterpret_cast<HWND>(lParam);
    };
    Run([&](const ModalWindow& window) {
        Control<QAbstractButton>(window, 10)->click();
        EXPECT_EQ(sender, dialog.GetDlgItem(10)->m_hWnd);
    });
    EXPECT_NE(sender, nullptr);
}

TEST_F(Buttons, CheckBoxesSwitchThemselves) {
    Run([&](const ModalWindow& window) {
        auto* box = Control<QAbstractButton>(window, 11);
        EXPECT_EQ(Check(11), BST_UNCHECKED);
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(6, box->height() / 2));
        EXPECT_EQ(Check(11), BST_CHECKED);
        EXPECT_EQ(heard.TakeCodes(11), std::vector<UINT>{BN_CLICKED});
        QTest::keyClick(box, Qt::Key_Space);
        EXPECT_EQ(Check(11), BST_UNCHECKED);
        EXPECT_EQ(heard.TakeCodes(11), std::vector<UINT>{BN_CLICKED});
    });
}

TEST_F(Buttons, SetCheckIsNotTold) {
    Run([&](const ModalWindow&) {
        CButton box;
        EXPECT_TRUE(box.SubclassDlgItem(11, &dialog));
        box.SetCheck(BST_CHECKED);
        EXPECT_EQ(box.GetCheck(), BST_CHECKED);
        box.SetCheck(BST_UNCHECKED);
        EXPECT_EQ(box.GetCheck(), BST_UNCHECKED);
        dialog.CheckDlgButton(21, BST_CHECKED);
        EXPECT_TRUE(heard.Take().empty());
        CButton push;
        EXPECT_TRUE(push.SubclassDlgItem(10, &dialog));
        push.SetCheck(BST_CHECKED);
        EXPECT_EQ(push.GetCheck(), BST_UNCHECKED) << "a push button has no mark";
    });
}

TEST_F(Buttons, RadioButtonsExcludeEachOtherInTheirGroup) {
    Run([&](const ModalWindow& window) {
        EXPECT_EQ(Radios(), "0000");
        Control<QAbstractButton>(window, 21)->click();
        EXPECT_EQ(Radios(), "0100");
        Control<QAbstractButton>(window, 30)->click();
        EXPECT_EQ(Radios(), "0101");
        Control<QAbstractButton>(window, 20)->click();
        EXPECT_EQ(Radios(), "1001");
        Control<QAbstractButton>(window, 20)->click();
        EXPECT_EQ(Radios(), "1001") << "a click takes no mark away";
        dialog.CheckDlgButton(20, BST_UNCHECKED);
        EXPECT_EQ(Radios(), "0001") << "the program does";
        Control<QAbstractButton>(window, 22)->click();
        Control<QAbstractButton>(window, 21)->click();
        EXPECT_EQ(Radios(), "0101") << "and the group excludes as before";
    });
}

TEST_F(Buttons, ArrowKeysMoveTheMarkInTheGroup) {
    Run([&](const ModalWindow& window) {
        auto* first = Control<QAbstractButton>(window, 20);
        first->click();
        first->setFocus();
        heard.Take();
        QTest::keyClick(first, Qt::Key_Right);
        EXPECT_EQ(Radios(), "0100");
        EXPECT_TRUE(Control(window, 21)->hasFocus());
        EXPECT_EQ(heard.TakeCodes(21), std::vector<UINT>{BN_CLICKED});
    });
}

TEST_F(Buttons, TabGoesToTheCheckedRadioButtonOfAGroup) {
    Run([&](const ModalWindow& window) {
        auto* before = Control(window, 11);
        const auto next = [&] {
            before->setFocus();
            QTest::keyClick(before, Qt::Key_Tab);
            return static_cast<QWidget*>(window.widget)->focusWidget()->objectName().toStdString();
        };
        EXPECT_EQ(next(), "IDC_20") << "the first, while none is checked";
        for (const int id : {22, 21, 20, 22}) {
            before->setFocus();
            for (const int each : {20, 21, 22})
                dialog.CheckDlgButton(each, each == id ? BST_CHECKED : BST_UNCHECKED);
            EXPECT_EQ(next(), "IDC_" + std::to_string(id));
            QTest::keyClick(Control(window, id), Qt::Key_Tab);
            EXPECT_TRUE(Control(window, 30)->hasFocus()) << "and on to the next group";
        }
        dialog.CheckDlgButton(22, BST_UNCHECKED);
        EXPECT_EQ(next(), "IDC_20");
        before->setFocus();
        dialog.GetDlgItem(21)->SendMessage(BM_CLICK);
        EXPECT_EQ(next(), "IDC_21");
    });
}

TEST_F(Buttons, GreyOnesDoNothing) {
    Run([&](const ModalWindow& window) {
        QTest::mouseClick(Control(window, 40), Qt::LeftButton, Qt::NoModifier, QPoint(6, 5));
        dialog.GetDlgItem(40)->SendMessage(BM_CLICK);
        EXPECT_EQ(Check(40), BST_UNCHECKED);
        EXPECT_TRUE(heard.TakeCodes(40).empty());
    });
}

TEST_F(Buttons, HaveATextWithItsMnemonic) {
    Run([&](const ModalWindow& window) {
        CString text;
        dialog.GetDlgItemText(10, text);
        EXPECT_TRUE(text == L"&Push");
        dialog.SetDlgItemText(10, L"&Other");
        EXPECT_EQ(Control<QAbstractButton>(window, 10)->text(), "&Other");
        EXPECT_EQ(dialog.GetDlgItem(10)->GetWindowTextLength(), 6);
    });
}

TEST_F(Buttons, MayBeDestroyedByWhatTheyTell) {
    for (const int id : {10, 11, 20}) {
        for (const bool whole : {false, true}) {
            for (const bool mouse : {false, true}) {
                int told = 0;
                dialog.m_onMessage = [&, id, whole](UINT message, WPARAM wParam, LPARAM) {
                    if (message != WM_COMMAND || static_cast<int>(LOWORD(wParam)) != id || told++ > 0)
                        return;
                    whole ? dialog.DestroyWindow() : dialog.GetDlgItem(id)->DestroyWindow();
                };
                Run([&](const ModalWindow& window) {
                    auto* button = Control<QAbstractButton>(window, id);
                    mouse ? QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(6, 5))
                          : QTest::keyClick(button, Qt::Key_Space);
                });
                EXPECT_EQ(told, 1) << id;
            }
        }
    }
}

TEST(CButton, IsHarmlessWithoutAWindow) {
    CButton none;
    none.SetCheck(BST_CHECKED);
    EXPECT_EQ(none.GetCheck(), BST_UNCHECKED);
}

}  // namespace
