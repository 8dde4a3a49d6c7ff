// List boxes: entries, their data, the selection, and what the parent hears of.
#include "platform/window/CListBox.h"

#include <gtest/gtest.h>

#include <QListWidget>
#include <climits>
#include <string>

#include "window/Notifications.h"

namespace {

constexpr const char* kItems =
    "LISTBOX 10, 7, 7, 60, 60, LBS_NOTIFY | WS_TABSTOP\n"
    "LISTBOX 11, 70, 7, 60, 60, LBS_NOTIFY | LBS_SORT | WS_TABSTOP\n"
    "LISTBOX 12, 133, 7, 60, 60, NOT LBS_NOTIFY | WS_TABSTOP\n";

struct ListBoxes : testing::Test {
    DialogForTests dialog{kItems};
    Notifications heard{dialog};
    CListBox list;
    QListWidget* widget = nullptr;

    // Works in list box 10 with the entries a, b, c.
    void Run(const std::function<void()>& work) {
        dialog.m_onInit = [this] { list.SubclassDlgItem(10, &dialog); };
        dialog.Run([&](const ModalWindow& window) {
            widget = Control<QListWidget>(window, 10);
            for (const wchar_t* text : {L"a", L"b", L"c"})
                list.AddString(text);
            work();
        });
    }
    std::string Text(int index) const {
        CString text = L"before";
        list.GetText(index, text);
        return ToUtf8(text.View());
    }
    std::string All(const CListBox& box) const {
        std::string all;
        CString text;
        for (int i = 0; i < box.GetCount(); ++i) {
            box.GetText(i, text);
            all += ToUtf8(text.View()) + ",";
        }
        return all;
    }
    QPoint Place(int row) const { return widget->visualItemRect(widget->item(row)).center(); }
    void Click(int row) const { QTest::mouseClick(widget->viewport(), Qt::LeftButton, Qt::NoModifier, Place(row)); }
};

TEST_F(ListBoxes, KeepTheOrderInWhichEntriesArePutIn) {
    Run([&] {
        EXPECT_EQ(list.AddString(L"aa"), 3);
        EXPECT_EQ(list.InsertString(1, L"first"), 1);
        EXPECT_EQ(list.InsertString(-1, L"last"), 5);
        EXPECT_EQ(list.InsertString(6, L"behind"), 6);
        EXPECT_EQ(list.GetCount(), 7);
        EXPECT_EQ(All(list), "a,first,b,c,aa,last,behind,");
    });
}

TEST_F(ListBoxes, SortByCharacterWhenAsked) {
    Run([&] {
        CListBox sorted;
        ASSERT_TRUE(sorted.SubclassDlgItem(11, &dialog));
        EXPECT_EQ(sorted.AddString(L"b"), 0);
        EXPECT_EQ(sorted.AddString(L"a"), 0);
        EXPECT_EQ(sorted.AddString(L"é"), 2);
        EXPECT_EQ(sorted.AddString(L"B"), 0) << "capitals come first";
        EXPECT_EQ(All(sorted), "B,a,b,é,");
        EXPECT_EQ(sorted.SetItemData(1, 7), 0);
        sorted.AddString(L"A");
        EXPECT_EQ(sorted.GetItemData(2), 7U) << "data go with their entry";
    });
}

TEST_F(ListBoxes, IndexesOutOfRangeAreErrors) {
    Run([&] {
        list.SetCurSel(1);
        for (const int index : {-1, 3, INT_MAX, INT_MIN}) {
            CString text = L"before";
            EXPECT_EQ(list.GetText(index, text), LB_ERR) << index;
            EXPECT_TRUE(text.IsEmpty());
            EXPECT_EQ(list.GetTextLen(index), LB_ERR) << index;
            EXPECT_EQ(list.DeleteString(index), LB_ERR) << index;
            EXPECT_EQ(list.SetItemData(index, 1), LB_ERR) << index;
            EXPECT_EQ(static_cast<int>(list.GetItemData(index)), LB_ERR) << index;
        }
        for (const int index : {-2, 4, INT_MAX, INT_MIN})
            EXPECT_EQ(list.InsertString(index, L"x"), LB_ERR) << index;
        EXPECT_EQ(All(list), "a,b,c,");
        EXPECT_EQ(list.GetCurSel(), 1);
        EXPECT_EQ(list.SetCurSel(3), LB_ERR);
        EXPECT_EQ(list.GetCurSel(), LB_ERR) << "nothing is selected then";
    });
}

TEST_F(ListBoxes, SelectOneEntryOrNone) {
    Run([&] {
        EXPECT_EQ(list.GetCurSel(), LB_ERR) << "at first";
        EXPECT_EQ(list.SetCurSel(2), 2);
        EXPECT_EQ(list.SetCurSel(0), 0);
        EXPECT_EQ(list.GetCurSel(), 0);
        EXPECT_EQ(widget->selectedItems().size(), 1);
        EXPECT_EQ(list.SetCurSel(-1), LB_ERR);
        EXPECT_EQ(list.GetCurSel(), LB_ERR);
    });
}

TEST_F(ListBoxes, TheSelectionStaysWithItsEntry) {
    Run([&] {
        list.SetCurSel(1);
        list.InsertString(0, L"new");
        EXPECT_EQ(list.GetCurSel(), 2);
        EXPECT_EQ(list.DeleteString(0), 3);
        EXPECT_EQ(list.GetCurSel(), 1);
        EXPECT_EQ(list.DeleteString(1), 2);
        EXPECT_EQ(list.GetCurSel(), LB_ERR) << "the selected entry is gone";
        list.SetCurSel(0);
        list.ResetContent();
        EXPECT_EQ(list.GetCount(), 0);
        EXPECT_EQ(list.GetCurSel(), LB_ERR);
    });
}

TEST_F(ListBoxes, KeepAnyData) {
    Run([&] {
        EXPECT_EQ(list.GetItemData(0), 0U) << "at first";
        for (const DWORD_PTR data :
             {DWORD_PTR{1}, ~DWORD_PTR{0}, DWORD_PTR{1} << 63U, reinterpret_cast<DWORD_PTR>(this)}) {
            EXPECT_EQ(list.SetItemData(1, data), 0);
            EXPECT_EQ(list.GetItemData(1), data);
        }
        EXPECT_EQ(list.GetItemData(0), 0U);
        EXPECT_EQ(list.GetItemData(2), 0U);
    });
}

TEST_F(ListBoxes, KeepAnyText) {
    Run([&] {
        const std::wstring longText(10000, L'长');
        for (const std::wstring& text : {std::wstring(L""), std::wstring(L" a\tb "), std::wstring(L"<b>&x</b>"),
                                         longText, std::wstring(L"\U0001F31E")}) {
            const int index = list.AddString(text.c_str());
            CString back;
            EXPECT_EQ(list.GetText(index, back), static_cast<int>(text.size()));
            EXPECT_EQ(list.GetTextLen(index), static_cast<int>(text.size()));
            EXPECT_TRUE(back == text.c_str());
        }
        EXPECT_EQ(list.GetText(list.AddString(nullptr), *std::make_unique<CString>()), 0);
    });
}

TEST_F(ListBoxes, TheMessagesDoTheSame) {
    Run([&] {
        CWnd* other = dialog.GetDlgItem(12);  // no CWnd of the program's is attached to this one
        const auto text = reinterpret_cast<LPARAM>(L"text");
        EXPECT_EQ(other->SendMessage(LB_ADDSTRING, 0, text), 0);
        EXPECT_EQ(other->SendMessage(LB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(L"new")), 0);
        EXPECT_EQ(other->SendMessage(LB_GETCOUNT), 2);
        EXPECT_EQ(other->SendMessage(LB_GETTEXTLEN, 1), 4);
        wchar_t buffer[5] = {};
        EXPECT_EQ(other->SendMessage(LB_GETTEXT, 1, reinterpret_cast<LPARAM>(buffer)), 4);
        EXPECT_STREQ(buffer, L"text");
        EXPECT_EQ(other->SendMessage(LB_SETCURSEL, 1), 1);
        EXPECT_EQ(other->SendMessage(LB_GETCURSEL), 1);
        EXPECT_EQ(other->SendMessage(LB_SETITEMDATA, 1, 99), 0);
        EXPECT_EQ(other->SendMessage(LB_GETITEMDATA, 1), 99);
        EXPECT_EQ(other->SendMessage(LB_DELETESTRING, 0), 1);
        EXPECT_EQ(other->SendMessage(LB_GETCURSEL), 0);
        other->SendMessage(LB_RESETCONTENT);
        EXPECT_EQ(other->SendMessage(LB_GETCOUNT), 0);
    });
}

TEST_F(ListBoxes, WhatTheProgramDoesIsNotTold) {
    Run([&] {
        list.SetCurSel(1);
        list.SetCurSel(2);
        list.DeleteString(2);
        list.SetCurSel(-1);
        list.SetCurSel(0);
        list.ResetContent();
        EXPECT_TRUE(heard.TakeCodes(10).empty());
    });
}

TEST_F(ListBoxes, ClicksAndKeysAreTold) {
    Run([&] {
        Click(1);
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{LBN_SELCHANGE});
        EXPECT_EQ(list.GetCurSel(), 1);
        Click(1);
        EXPECT_TRUE(heard.TakeCodes(10).empty()) << "the same entry again";
        QTest::keyClick(widget, Qt::Key_Down);
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{LBN_SELCHANGE});
        EXPECT_EQ(list.GetCurSel(), 2);
        QTest::keyClick(widget, Qt::Key_Home);
        EXPECT_EQ(list.GetCurSel(), 0);
        heard.Take();
        QTest::keyClick(widget, Qt::Key_C);
        EXPECT_EQ(list.GetCurSel(), 2) << "a letter goes to the entry that begins with it";
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{LBN_SELCHANGE});
        list.SendMessage(WM_KEYDOWN, VK_UP);
        EXPECT_EQ(list.GetCurSel(), 1);
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{LBN_SELCHANGE}) << "a key that was sent";
    });
}

TEST_F(ListBoxes, AUserCannotTakeTheSelectionAway) {
    Run([&] {
        Click(1);
        QTest::mouseClick(widget->viewport(), Qt::LeftButton, Qt::ControlModifier, Place(1));
        EXPECT_EQ(list.GetCurSel(), 1);
        QTest::mouseClick(widget->viewport(), Qt::LeftButton, Qt::NoModifier,
                          Place(2) + QPoint(0, widget->visualItemRect(widget->item(2)).height() + 2));
        EXPECT_EQ(list.GetCurSel(), 1) << "below the last entry";
        QTest::keyClick(widget, Qt::Key_Space, Qt::ControlModifier);
        EXPECT_EQ(list.GetCurSel(), 1);
    });
}

TEST_F(ListBoxes, DoubleClicksAreTold) {
    Run([&] {
        Click(2);
        heard.Take();
        QTest::mouseDClick(widget->viewport(), Qt::LeftButton, Qt::NoModifier, Place(2));
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{LBN_DBLCLK});
    });
}

TEST_F(ListBoxes, AreQuietWithoutNotify) {
    Run([&] {
        dialog.GetDlgItem(12)->SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"x"));
        auto* quiet = static_cast<QListWidget*>(WidgetFor(dialog.GetDlgItem(12)->m_hWnd));
        heard.Take();
        QTest::mouseClick(quiet->viewport(), Qt::LeftButton, Qt::NoModifier,
                          quiet->visualItemRect(quiet->item(0)).center());
        EXPECT_EQ(quiet->currentRow(), 0);
        EXPECT_TRUE(heard.TakeCodes(12).empty());
    });
}

TEST_F(ListBoxes, MayBeDestroyedByWhatTheyTell) {
    for (const bool whole : {false, true}) {
        bool gone = false;
        dialog.m_onMessage = [&](UINT message, WPARAM wParam, LPARAM) {
            if (message != WM_COMMAND || LOWORD(wParam) != 10)
                return;
            whole ? dialog.DestroyWindow() : list.DestroyWindow();
            gone = list.m_hWnd == nullptr;
        };
        Run([&] { Click(1); });
        EXPECT_TRUE(gone);
        list.Detach();
    }
}

TEST(CListBox, IsHarmlessWithoutAWindow) {
    CListBox none;
    CString text = L"before";
    EXPECT_EQ(none.GetCount(), 0);
    EXPECT_EQ(none.AddString(L"x"), 0);
    EXPECT_EQ(none.InsertString(0, L"x"), 0);
    EXPECT_EQ(none.DeleteString(0), 0);
    EXPECT_EQ(none.GetText(0, text), 0);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(none.GetTextLen(0), 0);
    EXPECT_EQ(none.GetCurSel(), LB_ERR);
    EXPECT_EQ(none.SetCurSel(0), 0);
    EXPECT_EQ(none.GetItemData(0), 0U);
    EXPECT_EQ(none.SetItemData(0, 1), 0);
    none.ResetContent();
}

}  // namespace
