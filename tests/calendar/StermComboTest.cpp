// The names of the solar terms in a real combo box.
#include <gtest/gtest.h>

#include "calendar/OrvoDate.h"
#include "platform/host/ResourceText.h"
#include "platform/window/CComboBox.h"
#include "platform/window/CDialog.h"
#include "platform/window/ModalDriver.h"

namespace {

constexpr UINT kCombo = 100;

// A dialog with an empty combo box, open for the length of the body.
template <class Body>
void RunWithCombo(const Body& body) {
    AfxSetResourceText(nullptr,
                       "7 DIALOGEX 0, 0, 200, 60\n"
                       "STYLE DS_SETFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU\n"
                       "FONT 9, \"sans\"\n"
                       "BEGIN\n"
                       "    COMBOBOX 100, 10, 10, 120, 100, CBS_DROPDOWNLIST | WS_VSCROLL\n"
                       "    PUSHBUTTON \"Cancel\", 2, 10, 40, 50, 14\n"
                       "END\n");
    CDialog dialog(7);
    CComboBox combo;
    const ModalDriver driver([&](const ModalWindow&) {
        EXPECT_TRUE(combo.SubclassDlgItem(kCombo, &dialog));
        body(combo);
        return IDCANCEL;
    });
    dialog.DoModal();
    EXPECT_EQ(driver.GetCount(), 1);
    AfxSetResourceText(nullptr, {});
}

CString Entry(const CComboBox& combo, int index) {
    CString text;
    combo.GetLBText(index, text);
    return text;
}

}  // namespace

TEST(StermCombo, HoldsTheBuiltInTermsOfANewDate) {
    RunWithCombo([](CComboBox& combo) {
        const wchar_t* names[] = {L"冬至", L"小寒", L"大寒", L"立春", L"雨水", L"惊蛰", L"春分", L"清明",
                                  L"谷雨", L"立夏", L"小满", L"芒种", L"夏至", L"小暑", L"大暑", L"立秋",
                                  L"处暑", L"白露", L"秋分", L"寒露", L"霜降", L"立冬", L"小雪", L"大雪"};
        OrvoDate date(2012, 6, 21);
        date.InitStermCombo(combo);
        ASSERT_EQ(combo.GetCount(), 24);
        for (int index = 0; index < 24; ++index)
            EXPECT_EQ(Entry(combo, index), names[index]) << index;
        EXPECT_EQ(date.m_listTerm.GetLength(), 24);
        EXPECT_EQ(date.m_listLeapTerm.GetLength(), 24) << "both tables are filled";
    });
}

// In a leap year, too, and no matter what the other table holds.
TEST(StermCombo, HoldsTheTableOfCommonYearsAsItIs) {
    RunWithCombo([](CComboBox& combo) {
        OrvoDate date(2012, 6, 21);
        date.m_listTerm.Append(new OrvoSTerm(CString(L"一")));
        date.m_listTerm.Append(nullptr);
        date.m_listTerm.Append(new OrvoSTerm(CString(L"二")));
        date.m_listLeapTerm.Append(new OrvoSTerm(CString(L"三")));
        date.InitStermCombo(combo);
        ASSERT_EQ(combo.GetCount(), 3);
        EXPECT_EQ(Entry(combo, 0), L"一");
        EXPECT_EQ(Entry(combo, 1), L"") << "a missing row keeps its index";
        EXPECT_EQ(Entry(combo, 2), L"二");
        EXPECT_EQ(date.m_listTerm.GetLength(), 3);
    });
}

TEST(StermCombo, IsFilledWhenOnlyTheTableOfLeapYearsIsThere) {
    RunWithCombo([](CComboBox& combo) {
        OrvoDate date(2012, 6, 21);
        date.m_listLeapTerm.Append(new OrvoSTerm(CString(L"三")));
        date.InitStermCombo(combo);
        EXPECT_EQ(combo.GetCount(), 24);
        EXPECT_EQ(Entry(combo, 0), L"冬至");
    });
}

TEST(StermCombo, GrowsBehindWhatItHolds) {
    RunWithCombo([](CComboBox& combo) {
        OrvoDate date(2011, 6, 21);
        date.LoadTermData();
        date.LoadTermData();
        combo.AddString(L"first");
        date.InitStermCombo(combo);
        ASSERT_EQ(combo.GetCount(), 49) << "rows that piled up are listed, too";
        EXPECT_EQ(Entry(combo, 0), L"first");
        EXPECT_EQ(Entry(combo, 1), L"冬至");
        EXPECT_EQ(Entry(combo, 25), L"冬至");
        EXPECT_EQ(combo.GetCurSel(), -1) << "nothing is selected";
    });
}

TEST(StermCombo, WithoutAWindowDoesNoHarm) {
    CComboBox combo;
    OrvoDate date(2011, 6, 21);
    date.InitStermCombo(combo);
    EXPECT_EQ(combo.GetCount(), 0);
    EXPECT_EQ(date.m_listTerm.GetLength(), 24);
}
