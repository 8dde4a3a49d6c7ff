// Combo boxes: entries, their data, the selection, the text that can be typed, and what the parent hears of.
#include "platform/window/CComboBox.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QWheelEvent>
#include <climits>
#include <string>

#include "window/Notifications.h"

namespace {

constexpr const char* kItems =
    "EDITTEXT 9, 7, 80, 60, 14\n"
    "COMBOBOX 10, 7, 7, 60, 60, CBS_DROPDOWNLIST | WS_TABSTOP\n"
    "COMBOBOX 11, 70, 7, 60, 60, CBS_DROPDOWN | WS_TABSTOP\n";

struct ComboBoxes : testing::Test {
    DialogForTests dialog{kItems};
    Notifications heard{dialog};
    CComboBox list;   // cannot be typed in
    CComboBox typed;  // can
    QComboBox* listWidget = nullptr;
    QComboBox* typedWidget = nullptr;

    // Works in the two with the entries a, b, c each.
    void Run(const std::function<void()>& work) {
        dialog.m_onInit = [this] {
            list.SubclassDlgItem(10, &dialog);
            typed.SubclassDlgItem(11, &dialog);
        };
        dialog.Run([&](const ModalWindow& window) {
            listWidget = Control<QComboBox>(window, 10);
            typedWidget = Control<QComboBox>(window, 11);
            for (const wchar_t* text : {L"a", L"b", L"c"}) {
                list.AddString(text);
                typed.AddString(text);
            }
            work();
        });
    }
    static std::string TextOf(const CComboBox& combo) {
        CString text;
        combo.GetWindowText(text);
        return ToUtf8(text.View());
    }
    static std::string All(const CComboBox& box) {
        std::string all;
        CString text;
        for (int i = 0; i < box.GetCount(); ++i) {
            box.GetLBText(i, text);
            all += ToUtf8(text.View()) + ",";
        }
        return all;
    }
    static void Turn(QWidget* widget, int steps) {
        QWheelEvent turn(QPointF(5, 5), widget->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120 * steps),
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &turn);
    }
};

TEST_F(ComboBoxes, KeepTheOrderInWhichEntriesArePutInAndSelectNone) {
    Run([&] {
        for (CComboBox* combo : {&list, &typed}) {
            EXPECT_EQ(combo->GetCurSel(), CB_ERR);
            EXPECT_EQ(combo->AddString(L"aa"), 3);
            EXPECT_EQ(combo->InsertString(0, L"first"), 0);
            EXPECT_EQ(combo->InsertString(-1, L"last"), 5);
            EXPECT_EQ(combo->InsertString(6, L"behind"), 6);
            EXPECT_EQ(combo->GetCount(), 7);
            EXPECT_EQ(All(*combo), "first,a,b,c,aa,last,behind,");
            EXPECT_EQ(combo->GetCurSel(), CB_ERR);
            EXPECT_EQ(TextOf(*combo), "");
        }
    });
}

TEST_F(ComboBoxes, IndexesOutOfRangeAreErrors) {
    Run([&] {
        list.SetCurSel(1);
        for (const int index : {-1, 3, INT_MAX, INT_MIN}) {
            CString text = L"before";
            EXPECT_EQ(list.GetLBText(index, text), CB_ERR) << index;
            EXPECT_TRUE(text.IsEmpty());
            EXPECT_EQ(list.GetLBTextLen(index), CB_ERR) << index;
            EXPECT_EQ(list.DeleteString(index), CB_ERR) << index;
            EXPECT_EQ(list.SetItemData(index, 1), CB_ERR) << index;
            EXPECT_EQ(static_cast<int>(list.GetItemData(index)), CB_ERR) << index;
        }
        for (const int index : {-2, 4, INT_MAX, INT_MIN})
            EXPECT_EQ(list.InsertString(index, L"x"), CB_ERR) << index;
        EXPECT_EQ(All(list), "a,b,c,");
        EXPECT_EQ(list.GetCurSel(), 1);
        EXPECT_EQ(list.SetCurSel(3), CB_ERR);
        EXPECT_EQ(list.GetCurSel(), CB_ERR) << "nothing is selected then";
    });
}

TEST_F(ComboBoxes, SelectAnEntryAndShowItsText) {
    Run([&] {
        for (CComboBox* combo : {&list, &typed}) {
            EXPECT_EQ(combo->SetCurSel(2), 2);
            EXPECT_EQ(combo->GetCurSel(), 2);
            EXPECT_EQ(TextOf(*combo), "c");
            EXPECT_EQ(combo->SetCurSel(-1), CB_ERR);
            EXPECT_EQ(combo->GetCurSel(), CB_ERR);
            EXPECT_EQ(TextOf(*combo), "");
        }
    });
}

TEST_F(ComboBoxes, TheSelectionStaysWithItsEntry) {
    Run([&] {
        for (CComboBox* combo : {&list, &typed}) {
            combo->SetCurSel(1);
            combo->InsertString(0, L"new");
            EXPECT_EQ(combo->GetCurSel(), 2);
            EXPECT_EQ(combo->DeleteString(0), 3);
            EXPECT_EQ(combo->GetCurSel(), 1);
            EXPECT_EQ(combo->DeleteString(1), 2);
            EXPECT_EQ(combo->GetCurSel(), CB_ERR) << "the selected entry is gone";
            combo->SetCurSel(1);
            combo->ResetContent();
            EXPECT_EQ(combo->GetCount(), 0);
            EXPECT_EQ(combo->GetCurSel(), CB_ERR);
            EXPECT_EQ(TextOf(*combo), "");
        }
    });
}

TEST_F(ComboBoxes, KeepAnyDataAndText) {
    Run([&] {
        EXPECT_EQ(list.GetItemData(0), 0U) << "at first";
        for (const DWORD_PTR data : {DWORD_PTR{1}, ~DWORD_PTR{0}, DWORD_PTR{1} << 63U}) {
            EXPECT_EQ(list.SetItemData(1, data), 0);
            EXPECT_EQ(list.GetItemData(1), data);
        }
        EXPECT_EQ(list.GetItemData(2), 0U);
        list.InsertString(0, L"new");
        EXPECT_EQ(list.GetItemData(2), DWORD_PTR{1} << 63U) << "data go with their entry";
        for (const std::wstring& text : {std::wstring(L""), std::wstring(L" a\tb "), std::wstring(L"<b>&x</b>"),
                                         std::wstring(10000, L'长'), std::wstring(L"\U0001F31E")}) {
            const int index = list.AddString(text.c_str());
            CString back;
            EXPECT_EQ(list.GetLBText(index, back), static_cast<int>(text.size()));
            EXPECT_TRUE(back == text.c_str());
        }
        EXPECT_EQ(list.GetLBTextLen(list.AddString(nullptr)), 0);
    });
}

TEST_F(ComboBoxes, WithoutAnEditTheTextCannotBeSet) {
    Run([&] {
        list.SetCurSel(1);
        list.SetWindowText(L"other");
        EXPECT_EQ(TextOf(list), "b");
        EXPECT_EQ(list.GetCurSel(), 1);
        typed.SetWindowText(L"other");
        EXPECT_EQ(TextOf(typed), "other");
        EXPECT_EQ(typed.GetWindowTextLength(), 5);
    });
}

TEST_F(ComboBoxes, WhatIsTypedStaysAsTyped) {
    Run([&] {
        typed.AddString(L"north");
        typed.SetCurSel(0);
        typedWidget->setFocus();
        typed.SendMessage(WM_KEYDOWN, VK_END);
        heard.Take();
        QTest::keyClick(typedWidget, Qt::Key_Backspace);
        QTest::keyClicks(typedWidget, "no");
        EXPECT_EQ(heard.TakeCodes(11), (std::vector<UINT>{CBN_EDITCHANGE, CBN_EDITCHANGE, CBN_EDITCHANGE}));
        EXPECT_EQ(TextOf(typed), "no") << "not completed to another entry";
        EXPECT_EQ(typed.GetCurSel(), CB_ERR) << "the text is none of the entries";
        Control(ModalWindow{{}, {}, nullptr, typedWidget->window()}, 9)->setFocus();
        EXPECT_EQ(TextOf(typed), "no") << "the focus is elsewhere";
        typed.AddString(L"more");
        typed.DeleteString(0);
        EXPECT_EQ(TextOf(typed), "no") << "entries come and go";
        EXPECT_EQ(typed.GetCurSel(), CB_ERR);
    });
}

TEST_F(ComboBoxes, TypingAnEntryChoosesIt) {
    Run([&] {
        typedWidget->setFocus();
        QTest::keyClicks(typedWidget, "b");
        heard.Take();
        Control(ModalWindow{{}, {}, nullptr, typedWidget->window()}, 9)->setFocus();
        EXPECT_EQ(typed.GetCurSel(), 1);
        EXPECT_EQ(heard.TakeCodes(11), std::vector<UINT>{CBN_SELCHANGE});
    });
}

TEST_F(ComboBoxes, WhatTheProgramDoesIsNotTold) {
    Run([&] {
        heard.Take();
        for (CComboBox* combo : {&list, &typed}) {
            combo->SetCurSel(1);
            combo->SetWindowText(L"text");
            combo->InsertString(0, L"x");
            combo->DeleteString(1);
            combo->SetCurSel(-1);
            combo->ResetContent();
        }
        EXPECT_TRUE(heard.Take().empty());
    });
}

TEST_F(ComboBoxes, KeysAreTold) {
    Run([&] {
        listWidget->setFocus();
        QTest::keyClick(listWidget, Qt::Key_Down);
        EXPECT_EQ(list.GetCurSel(), 0);
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{CBN_SELCHANGE});
        QTest::keyClick(listWidget, Qt::Key_C);
        EXPECT_EQ(list.GetCurSel(), 2);
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{CBN_SELCHANGE});
        list.SendMessage(WM_KEYDOWN, VK_UP);
        EXPECT_EQ(list.GetCurSel(), 1);
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{CBN_SELCHANGE});
        QTest::keyClick(listWidget, Qt::Key_End);
        heard.Take();
        QTest::keyClick(listWidget, Qt::Key_Down);
        EXPECT_TRUE(heard.TakeCodes(10).empty()) << "nothing behind the last one";
    });
}

TEST_F(ComboBoxes, ChoosingFromTheListIsToldAlsoForTheSameEntry) {
    Run([&] {
        for (int i = 0; i < 2; ++i) {
            listWidget->showPopup();
            QAbstractItemView* view = listWidget->view();
            QTest::mouseMove(view->viewport());
            QTest::keyClick(view, Qt::Key_Home);
            QTest::keyClick(view, Qt::Key_Return);
            EXPECT_FALSE(view->isVisible());
            EXPECT_EQ(list.GetCurSel(), 0);
            EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{CBN_SELCHANGE}) << i;
        }
        listWidget->showPopup();
        QTest::keyClick(listWidget->view(), Qt::Key_Down);
        QTest::keyClick(listWidget->view(), Qt::Key_Escape);
        EXPECT_EQ(list.GetCurSel(), 0) << "left";
        EXPECT_TRUE(heard.TakeCodes(10).empty());
    });
}

TEST_F(ComboBoxes, TheWheelChangesOnlyTheOneWithTheFocus) {
    Run([&] {
        list.SetCurSel(1);
        typedWidget->setFocus();
        Turn(listWidget, 1);
        EXPECT_EQ(list.GetCurSel(), 1);
        EXPECT_TRUE(heard.TakeCodes(10).empty());
        listWidget->setFocus();
        Turn(listWidget, 1);
        EXPECT_EQ(list.GetCurSel(), 2);
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{CBN_SELCHANGE});
    });
}

TEST_F(ComboBoxes, MayBeDestroyedByWhatTheyTell) {
    for (const bool whole : {false, true}) {
        for (const int way : {0, 1, 2}) {
            int told = 0;
            dialog.m_onMessage = [&](UINT message, WPARAM wParam, LPARAM) {
                if (message != WM_COMMAND || LOWORD(wParam) != 10 || told++ > 0)
                    return;
                whole ? dialog.DestroyWindow() : list.DestroyWindow();
            };
            Run([&] {
                listWidget->setFocus();
                if (way == 0) {
                    QTest::keyClick(listWidget, Qt::Key_Down);
                } else if (way == 1) {
                    Turn(listWidget, 1);
                } else {
                    listWidget->showPopup();
                    QTest::keyClick(listWidget->view(), Qt::Key_Return);
                }
            });
            EXPECT_EQ(told, 1) << way;
            EXPECT_EQ(list.m_hWnd, nullptr);
        }
    }
}

TEST(CComboBox, IsHarmlessWithoutAWindow) {
    CComboBox none;
    CString text = L"before";
    EXPECT_EQ(none.GetCount(), 0);
    EXPECT_EQ(none.AddString(L"x"), 0);
    EXPECT_EQ(none.InsertString(0, L"x"), 0);
    EXPECT_EQ(none.DeleteString(0), 0);
    EXPECT_EQ(none.GetLBText(0, text), 0);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(none.GetLBTextLen(0), 0);
    EXPECT_EQ(none.GetCurSel(), CB_ERR);
    EXPECT_EQ(none.SetCurSel(0), 0);
    EXPECT_EQ(none.GetItemData(0), 0U);
    EXPECT_EQ(none.SetItemData(0, 1), 0);
    none.ResetContent();
}

}  // namespace
