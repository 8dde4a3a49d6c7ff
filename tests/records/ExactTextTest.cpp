// Finding and selecting entries by their exact text, in the list and combo boxes of a real dialog.
#include "records/ExactText.h"

#include <gtest/gtest.h>

#include <functional>
#include <string_view>
#include <vector>

#include "platform/host/ResourceText.h"
#include "platform/window/ModalDriver.h"
#include "platform/window/QcUiDialog.h"

namespace {

enum { kList = 11, kDropList = 12, kDropEdit = 13 };

constexpr std::string_view kScript =
    "100 DIALOGEX 0, 0, 200, 100\n"
    "STYLE WS_POPUP | WS_CAPTION | WS_SYSMENU\n"
    "CAPTION \"Test\"\n"
    "FONT 9, \"MS Shell Dlg\"\n"
    "BEGIN\n"
    "    LISTBOX 11, 5, 5, 60, 60\n"
    "    COMBOBOX 12, 70, 5, 60, 60, CBS_DROPDOWNLIST\n"
    "    COMBOBOX 13, 135, 5, 60, 60, CBS_DROPDOWN\n"
    "END\n";

// Hands its controls to a test as soon as they are there, and closes.
class Controls : public QcUiDialog {
public:
    Controls() : QcUiDialog(100) {}

    // False when there was no dialog at all.
    static bool With(const std::function<void(Controls&)>& check) {
        AfxSetResourceText(nullptr, kScript);
        Controls dialog;
        bool isChecked = false;
        dialog.m_check = [&] {
            check(dialog);
            isChecked = true;
        };
        {
            const ModalDriver driver([](const ModalWindow&) { return IDCANCEL; });
            dialog.DoModal();
        }
        AfxSetResourceText(nullptr, {});
        return isChecked;
    }

    BOOL OnInitDialog() override {
        QcUiDialog::OnInitDialog();
        EXPECT_TRUE(m_list.SubclassDlgItem(kList, this));
        EXPECT_TRUE(m_dropList.SubclassDlgItem(kDropList, this));
        EXPECT_TRUE(m_dropEdit.SubclassDlgItem(kDropEdit, this));
        m_check();
        return TRUE;
    }

    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
        ++m_commands;
        return QcUiDialog::OnCommand(wParam, lParam);
    }

    CListBox m_list;
    CComboBox m_dropList;
    CComboBox m_dropEdit;
    int m_commands = 0;

private:
    std::function<void()> m_check;
};

using Find = std::function<int(const wchar_t*)>;
using Select = std::function<bool(const wchar_t*)>;
using Selected = std::function<int()>;

// Does the same with every kind of control, each filled with the entries.
void WithEach(const std::vector<const wchar_t*>& entries,
              const std::function<void(const Find&, const Select&, const Selected&)>& check) {
    const bool isChecked = Controls::With([&](Controls& controls) {
        const auto with = [&](auto& control) {
            for (const wchar_t* entry : entries)
                control.AddString(entry);
            check([&control](const wchar_t* text) { return FindString(control, text); },
                  [&control](const wchar_t* text) { return SelectString(control, text); },
                  [&control] { return control.GetCurSel(); });
        };
        with(controls.m_list);
        with(controls.m_dropList);
        with(controls.m_dropEdit);
    });
    EXPECT_TRUE(isChecked);
}

}  // namespace

TEST(ExactText, FindsTheEntryOfExactlyThisText) {
    WithEach({L"North", L"South", L"南", L"South-east"}, [](const Find& find, const Select&, const Selected&) {
        EXPECT_EQ(find(L"North"), 0);
        EXPECT_EQ(find(L"South"), 1);
        EXPECT_EQ(find(L"南"), 2);
        EXPECT_EQ(find(L"South-east"), 3);
    });
}

TEST(ExactText, MindsTheCaseOfLetters) {
    WithEach({L"North"}, [](const Find& find, const Select&, const Selected&) {
        EXPECT_EQ(find(L"north"), -1);
        EXPECT_EQ(find(L"NORTH"), -1);
    });
}

TEST(ExactText, TakesNoPartsAndNoBlanks) {
    WithEach({L"South-east", L" West"}, [](const Find& find, const Select&, const Selected&) {
        EXPECT_EQ(find(L"South"), -1);
        EXPECT_EQ(find(L"east"), -1);
        EXPECT_EQ(find(L"South-east "), -1);
        EXPECT_EQ(find(L"West"), -1);
        EXPECT_EQ(find(L" West"), 1);
    });
}

TEST(ExactText, PassesOverAnEntryOfAnotherCase) {
    WithEach({L"SOUTH", L"South", L"south"}, [](const Find& find, const Select&, const Selected&) {
        EXPECT_EQ(find(L"South"), 1);
        EXPECT_EQ(find(L"south"), 2);
    });
}

TEST(ExactText, FindsTheFirstOfEqualEntries) {
    WithEach({L"a", L"b", L"b", L"a"}, [](const Find& find, const Select&, const Selected&) {
        EXPECT_EQ(find(L"b"), 1);
        EXPECT_EQ(find(L"a"), 0);
    });
}

TEST(ExactText, FindsAnEmptyEntryOnlyWhereThereIsOne) {
    WithEach({L"a", L""}, [](const Find& find, const Select&, const Selected&) { EXPECT_EQ(find(L""), 1); });
    WithEach({L"a", L"b"}, [](const Find& find, const Select&, const Selected&) { EXPECT_EQ(find(L""), -1); });
    WithEach({}, [](const Find& find, const Select&, const Selected&) { EXPECT_EQ(find(L""), -1); });
}

TEST(ExactText, SelectsTheEntry) {
    WithEach({L"a", L"B", L"b"}, [](const Find&, const Select& select, const Selected& selected) {
        EXPECT_TRUE(select(L"b"));
        EXPECT_EQ(selected(), 2);
        EXPECT_TRUE(select(L"a"));
        EXPECT_EQ(selected(), 0);
    });
}

TEST(ExactText, KeepsTheSelectionWhenThereIsNoSuchEntry) {
    WithEach({L"a", L"b"}, [](const Find&, const Select& select, const Selected& selected) {
        EXPECT_FALSE(select(L"c"));
        EXPECT_EQ(selected(), -1);
        EXPECT_TRUE(select(L"b"));
        EXPECT_FALSE(select(L"A"));
        EXPECT_FALSE(select(L""));
        EXPECT_EQ(selected(), 1);
    });
}

TEST(ExactText, TellsTheParentNothing) {
    EXPECT_TRUE(Controls::With([](Controls& controls) {
        controls.m_list.AddString(L"a");
        controls.m_dropList.AddString(L"a");
        const int before = controls.m_commands;
        EXPECT_TRUE(SelectString(controls.m_list, L"a"));
        EXPECT_TRUE(SelectString(controls.m_dropList, L"a"));
        EXPECT_EQ(controls.m_commands, before);
    }));
}

TEST(ExactText, FindsNothingInAControlWithoutAWindow) {
    CListBox list;
    CComboBox combo;
    EXPECT_EQ(FindString(list, L""), -1);
    EXPECT_EQ(FindString(combo, L"a"), -1);
    EXPECT_FALSE(SelectString(list, L""));
    EXPECT_FALSE(SelectString(combo, L"a"));
}
