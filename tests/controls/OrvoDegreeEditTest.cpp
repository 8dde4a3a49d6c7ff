// Angles in a masked edit without a grid, and its test of a digit at its place.
#include "controls/OrvoDegreeEdit.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/EditDialog.h"
#include "controls/PlaceTest.h"

namespace {

struct Limits {
    int minDegree;
    int maxDegree;
    int minMinute;
    int maxMinute;
    int minSecond;
    int maxSecond;
};

void SetLimits(OrvoDegreeEdit& edit, const Limits& limits) {
    edit.m_nMinDegree = static_cast<short>(limits.minDegree);
    edit.m_nMaxDegree = static_cast<short>(limits.maxDegree);
    edit.m_nMinMinute = static_cast<short>(limits.minMinute);
    edit.m_nMaxMinute = static_cast<short>(limits.maxMinute);
    edit.m_nMinSecond = static_cast<short>(limits.minSecond);
    edit.m_nMaxSecond = static_cast<short>(limits.maxSecond);
}

// A smaller unit below 60 against the greater one: at the least of that not below its own least, and not above its
// most where the greater one equals that number.
bool ExpectedBelowSixty(int value, int least, int most, int greater, int leastGreater) {
    const bool tooLow = greater == leastGreater && value < least;
    const bool tooHigh = greater == most && value > most;
    return value < 60 && !tooLow && !tooHigh;
}

bool Expected(const std::wstring& shown, int place, wchar_t digit, const Limits& limits) {
    const std::wstring text = With(shown, place, digit);
    const int degree = NumberIn(text, 0, 3);
    const int minute = NumberIn(text, 4, 2);
    if (place < 3) {
        const int minuteOfTimes = NumberIn(text, 3, 2);
        const bool tooLow = degree == limits.minDegree && minuteOfTimes < limits.minMinute;
        const bool tooHigh = degree == limits.maxDegree && minuteOfTimes > limits.maxMinute;
        return degree >= limits.minDegree && degree <= limits.maxDegree && !tooLow && !tooHigh;
    }
    if (place < 6)
        return ExpectedBelowSixty(minute, limits.minMinute, limits.maxMinute, degree, limits.minDegree);
    return ExpectedBelowSixty(NumberIn(text, 7, 2), limits.minSecond, limits.maxSecond, minute, limits.minMinute);
}

const std::vector<Limits> kLimits = {
    {0, 179, 0, 59, 0, 59}, {0, 90, 5, 30, 10, 20}, {30, 116, 28, 30, 15, 28}, {60, 60, 0, 0, 0, 0}};

void ExpectTheRules(const std::wstring& sign) {
    OrvoDegreeEdit edit(nullptr);
    edit.SetNoFault(true);
    RunWith(edit, [&](EditDialog&) {
        for (const wchar_t* degree : {L"   ", L"  5", L"000", L"030", L"060", L"090", L"116", L"179", L"180"}) {
            for (const wchar_t* minute : {L"  ", L"00", L"05", L"28", L"30", L"59", L"60"}) {
                for (const wchar_t* second : {L"00", L"15", L"28", L"59"}) {
                    const std::wstring text = degree + sign + minute + L"分" + second + L"秒";
                    edit.SetWindowText(text.c_str());
                    for (const Limits& limits : kLimits) {
                        SetLimits(edit, limits);
                        for (const int place : {0, 1, 2, 4, 5, 7, 8})
                            for (wchar_t digit = L'0'; digit <= L'9'; ++digit)
                                ASSERT_EQ(Asks(edit, place, digit), Expected(text, place, digit, limits))
                                    << text << " at " << place << ": " << static_cast<char>(digit) << ", from "
                                    << limits.minDegree << " to " << limits.maxDegree;
                    }
                }
            }
        }
    });
}

}  // namespace

TEST(OrvoDegreeEdit, IsMadeForHalfACircle) {
    OrvoDegreeEdit edit(nullptr);
    EXPECT_EQ(edit.m_strGrammar, L"___度__分__秒");
    EXPECT_EQ(edit.m_strDefault, L"   度  分00秒");
    EXPECT_EQ(edit.m_strValidChars, L"0123456789");
    EXPECT_FALSE(edit.m_bNoFault);
    const short limits[] = {edit.m_nMinDegree, edit.m_nMaxDegree, edit.m_nMinMinute,
                            edit.m_nMaxMinute, edit.m_nMinSecond, edit.m_nMaxSecond};
    const short expected[] = {0, 179, 0, 59, 0, 59};
    for (int index = 0; index < 6; ++index)
        EXPECT_EQ(limits[index], expected[index]) << index;
    EXPECT_EQ(edit.GetCell(), nullptr);
}

TEST(OrvoDegreeEdit, HasPlacesThatFollowTheRules) {
    ExpectTheRules(L"度");
}

// The minutes that the degrees are checked with stand where a time has them, and the first of these is fixed.
TEST(OrvoDegreeEdit, ReadsTheMinutesOfDegreesOnePlaceTooEarly) {
    ExpectTheRules(L"3");
    OrvoDegreeEdit edit(nullptr);
    edit.SetNoFault(true);
    SetLimits(edit, {0, 90, 5, 30, 0, 59});
    RunWith(edit, [&](EditDialog&) {
        edit.SetWindowText(L"000度59分00秒");
        EXPECT_TRUE(Asks(edit, 1, L'9')) << "90 degrees and 59 minutes lie behind the limits";
        edit.SetWindowText(L"000359分00秒");
        EXPECT_FALSE(Asks(edit, 1, L'9')) << "35 minutes are seen here";
    });
}

TEST(OrvoDegreeEdit, LetsFixedPlacesBe) {
    OrvoDegreeEdit edit(nullptr);
    edit.SetNoFault(true);
    edit.SetGrammarString(L"__________");
    RunWith(edit, [&](EditDialog&) {
        edit.SetWindowText(L"116度28分00秒");
        for (const int place : {3, 6, 9})
            EXPECT_TRUE(Asks(edit, place, L'9')) << place;
    });
}

TEST(OrvoDegreeEdit, AsksOnlyTheBaseWithoutTheFlag) {
    OrvoDegreeEdit edit(nullptr);
    RunWith(edit, [&](EditDialog&) {
        edit.SetWindowText(L"116度28分00秒");
        EXPECT_TRUE(Asks(edit, 0, L'9'));
        EXPECT_FALSE(Asks(edit, 0, L'x'));
        EXPECT_EQ(SelectionOf(edit), (Selection{0, 0})) << "and leaves the caret";
        edit.SetNoFault(true);
        EXPECT_FALSE(Asks(edit, 0, L'9'));
        EXPECT_FALSE(Asks(edit, 3, L'x'));
        EXPECT_EQ(SelectionOf(edit), (Selection{3, 3})) << "what is no digit moves nothing";
        EXPECT_FALSE(Asks(edit, 3, L'9'));
        EXPECT_EQ(SelectionOf(edit), (Selection{4, 5}));
    });
}

TEST(OrvoDegreeEdit, IsAPlainMaskedEditWithoutACell) {
    OrvoDegreeEdit edit(nullptr);
    QcUiGridCellCtrl& editor = edit;
    EXPECT_FALSE(editor.Create(RECT{0, 0, 50, 20}));
    EXPECT_EQ(edit.GetSafeHwnd(), nullptr);
    EXPECT_EQ(editor.GetWnd(), &edit);
    RunWith(edit, [&](EditDialog& dialog) {
        dialog.GetDlgItem(kSecondEdit)->SetFocus();
        edit.SetSel(3, 3);
        edit.SetFocus();
        EXPECT_TRUE(LineOf(edit)->hasFocus());
        EXPECT_EQ(SelectionOf(edit), (Selection{4, 5}));
        dialog.GetDlgItem(kSecondEdit)->SetFocus();
        EXPECT_FALSE(LineOf(edit)->hasFocus());
        edit.SendMessage(WM_KILLFOCUS);
        edit.SendMessage(WM_SETFOCUS);
        EXPECT_EQ(TextOf(edit), L"   度  分00秒");
        EXPECT_FALSE(editor.IsMyFocus(nullptr));
        EXPECT_TRUE(editor.IsMyFocus(&edit));
    });
}

TEST(OrvoDegreeEdit, AnswersAsTheEditorOfACell) {
    OrvoDegreeEdit edit(nullptr);
    QcUiGridCellCtrl& editor = edit;
    RunWith(edit, [&](EditDialog&) {
        CString text;
        editor.SetText(L"116度28分00秒");
        EXPECT_EQ(TextOf(edit), L"116度28分00秒");
        editor.GetText(text);
        EXPECT_EQ(text, L"116度28分00秒");
        EXPECT_FALSE(editor.IsModified());
        editor.SetModified(true);
        EXPECT_TRUE(editor.IsModified());
        EXPECT_TRUE(edit.GetModify());
        editor.SetModified(false);
        EXPECT_FALSE(edit.GetModify());
        edit.SendMessage(WM_CHAR, L'0', 1);
        EXPECT_TRUE(editor.IsModified());
        edit.SetSel(0, 4);
        EXPECT_TRUE(editor.IsCaretAtBegin());
        EXPECT_FALSE(editor.IsCaretAtEnd());
        edit.SetSel(9, 10);
        EXPECT_FALSE(editor.IsCaretAtBegin());
        EXPECT_FALSE(editor.IsCaretAtEnd()) << "the start of the selection counts";
        edit.SetSel(10, 10);
        EXPECT_TRUE(editor.IsCaretAtEnd());
        EXPECT_TRUE(editor.WantsArrowKeys());
        EXPECT_TRUE(editor.CanEndEdit());
        editor.SetText(L"");
        EXPECT_TRUE(editor.IsCaretAtBegin());
        EXPECT_TRUE(editor.IsCaretAtEnd());
    });
}
