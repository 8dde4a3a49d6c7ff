// Dates in a masked edit, and its test of a digit at its place.
#include "controls/OrvoDateEdit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>

#include "controls/EditDialog.h"
#include "controls/PlaceTest.h"

namespace {

bool IsOneOf(int month, std::initializer_list<int> months) {
    return std::find(months.begin(), months.end(), month) != months.end();
}

bool ExpectedInMonth(int month, int day, bool shortYear) {
    if (month < 1 || month > 12)
        return false;
    if (month == 2)
        return day <= (shortYear ? 28 : 29);
    return !IsOneOf(month, {4, 6, 9, 11}) || day != 31;
}

bool ExpectedInDay(int month, int day, bool shortYear) {
    if (month == 2)
        return !shortYear || (day > 0 && day < 29);
    return day > 0 && day < (IsOneOf(month, {1, 3, 5, 7, 8, 10, 12}) ? 32 : 31);
}

bool Expected(const std::wstring& shown, int place, wchar_t digit, bool shortYear) {
    const std::wstring text = With(shown, place, digit);
    const int month = NumberIn(text, 0, 2);
    switch (place) {
        case 0:
        case 1:
            return ExpectedInMonth(month, NumberIn(text, 3, 2), shortYear);
        case 4:
        case 5:
            return ExpectedInDay(month, NumberIn(text, 4, 2), shortYear);
        default:
            return true;
    }
}

void ExpectTheRules(OrvoDateEdit& edit, const wchar_t* between, const wchar_t* end, std::initializer_list<int> places) {
    RunWith(edit, [&](EditDialog&) {
        for (const int month : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 31}) {
            for (const int day : {0, 1, 9, 10, 27, 28, 29, 30, 31, 32, 39}) {
                const std::wstring text = TwoDigits(month) + between + TwoDigits(day) + end;
                edit.SetWindowText(text.c_str());
                for (const bool shortYear : {false, true}) {
                    edit.SetShortYear(shortYear);
                    for (const int place : places)
                        for (wchar_t digit = L'0'; digit <= L'9'; ++digit)
                            ASSERT_EQ(Asks(edit, place, digit), Expected(text, place, digit, shortYear))
                                << month << "-" << day << " at " << place << ": " << static_cast<char>(digit)
                                << (shortYear ? ", short" : ", long");
                }
            }
        }
    });
}

}  // namespace

TEST(OrvoDateEdit, IsMadeForALongYear) {
    const OrvoDateEdit edit;
    EXPECT_EQ(edit.m_strGrammar, L"__月__日");
    EXPECT_EQ(edit.m_strDefault, L"01月01日");
    EXPECT_EQ(edit.m_strValidChars, L"0123456789");
    EXPECT_FALSE(edit.m_bNoFault);
    EXPECT_FALSE(edit.m_bShortYear);
    EXPECT_FALSE(edit.IsShortYear());
}

TEST(OrvoDateEdit, RemembersWhetherTheYearIsShort) {
    OrvoDateEdit edit;
    edit.SetShortYear(true);
    EXPECT_TRUE(edit.IsShortYear());
    EXPECT_TRUE(edit.m_bShortYear);
    edit.SetShortYear(false);
    EXPECT_FALSE(edit.IsShortYear());
}

TEST(OrvoDateEdit, ReadsMonthAndDay) {
    OrvoDateEdit edit;
    RunWith(edit, [&](EditDialog&) {
        edit.SetWindowText(L"12月31日");
        EXPECT_EQ(edit.GetMonth(), 12);
        EXPECT_EQ(edit.GetDay(), 31);
        edit.SetWindowText(L"_7月1_日");
        EXPECT_EQ(edit.GetMonth(), 0);
        EXPECT_EQ(edit.GetDay(), 1);
        edit.SetWindowText(L"");
        EXPECT_EQ(edit.GetMonth(), 0);
        EXPECT_EQ(edit.GetDay(), 0);
    });
}

TEST(OrvoDateEdit, WritesTheDayOverTheMonth) {
    OrvoDateEdit edit;
    RunWith(edit, [&](EditDialog& dialog) {
        EXPECT_TRUE(edit.SetDate(3, 7));
        EXPECT_EQ(TextOf(edit), L"07月01日");
        EXPECT_TRUE(edit.GetModify());
        ASSERT_EQ(dialog.m_changes.GetSize(), 2) << "the month stands there in between";
        EXPECT_EQ(dialog.m_changes.GetAt(0), L"03月01日");
        EXPECT_EQ(dialog.m_changes.GetAt(1), L"07月01日");
        edit.SetWindowText(L"06月22日");
        EXPECT_TRUE(edit.SetDate(12, 31));
        EXPECT_EQ(TextOf(edit), L"31月22日");
    });
}

TEST(OrvoDateEdit, TakesEveryMonthForALongOne) {
    OrvoDateEdit edit;
    RunWith(edit, [&](EditDialog&) {
        for (const bool shortYear : {false, true}) {
            edit.SetShortYear(shortYear);
            for (int month = -1; month <= 14; ++month)
                for (int day = -1; day <= 33; ++day)
                    EXPECT_EQ(edit.SetDate(month, day), month >= 1 && month <= 12 && day >= 1 && day <= 31)
                        << month << "-" << day;
        }
    });
}

TEST(OrvoDateEdit, ChangesNothingForWhatIsNoDate) {
    OrvoDateEdit edit;
    RunWith(edit, [&](EditDialog& dialog) {
        EXPECT_FALSE(edit.SetDate(13, 1));
        EXPECT_FALSE(edit.SetDate(2, 0));
        EXPECT_FALSE(edit.SetDate(0, 1));
        EXPECT_FALSE(edit.SetDate(1, 32));
        EXPECT_EQ(TextOf(edit), L"01月01日");
        EXPECT_FALSE(edit.GetModify());
        EXPECT_EQ(dialog.m_changes.GetSize(), 0);
    });
}

TEST(OrvoDateEdit, WritesIntoTextsOfAnyLength) {
    OrvoDateEdit edit;
    RunWith(edit, [&](EditDialog&) {
        edit.SetWindowText(L"");
        EXPECT_TRUE(edit.SetDate(3, 7));
        EXPECT_EQ(TextOf(edit).Left(2), L"07");
        edit.SetWindowText(std::wstring(10000, L'月').c_str());
        EXPECT_TRUE(edit.SetDate(3, 7));
        EXPECT_EQ(TextOf(edit).GetLength(), 10000);
        EXPECT_EQ(TextOf(edit).Left(3), L"07月");
    });
}

TEST(OrvoDateEdit, TakesFlagAndTextOfAnother) {
    EditDialog dialog;
    OrvoDateEdit edit;
    RunDialog(dialog, [&] {
        OrvoDateEdit other;
        ASSERT_TRUE(edit.SubclassDlgItem(kFirstEdit, &dialog));
        ASSERT_TRUE(other.SubclassDlgItem(kSecondEdit, &dialog));
        edit.SetDefault();
        other.SetShortYear(true);
        other.SetWindowText(L"06月22日");
        other.SetGrammarString(L"__-__");
        other.SetDefaultString(L"01-01");
        other.SetValidChars(L"0");
        EXPECT_EQ(&(edit = other), &edit);
        EXPECT_TRUE(edit.IsShortYear());
        EXPECT_EQ(TextOf(edit), L"06月22日");
        EXPECT_TRUE(edit.GetModify());
        EXPECT_FALSE(other.GetModify());
        EXPECT_EQ(edit.m_strGrammar, L"__月__日");
        EXPECT_EQ(edit.m_strDefault, L"01月01日");
        EXPECT_EQ(edit.m_strValidChars, L"0123456789");
    });
}

TEST(OrvoDateEdit, HasPlacesThatFollowTheRules) {
    OrvoDateEdit edit;
    edit.SetNoFault(true);
    ExpectTheRules(edit, L"月", L"日", {0, 1, 3, 4});
}

// Where the template lets character 5 be typed, and where that is a digit.
TEST(OrvoDateEdit, HasARuleForTheCharacterBehindTheDay) {
    OrvoDateEdit edit;
    edit.SetNoFault(true);
    edit.SetGrammarString(L"______");
    ExpectTheRules(edit, L"-", L"0", {0, 1, 2, 3, 4, 5});
    ExpectTheRules(edit, L"-", L"3", {4, 5});
}

TEST(OrvoDateEdit, LooksAtTheDaysUnitsAlone) {
    OrvoDateEdit edit;
    edit.SetNoFault(true);
    RunWith(edit, [&](EditDialog&) {
        edit.SetWindowText(L"04月31日");
        EXPECT_TRUE(Asks(edit, 3, L'9')) << "the tens are free";
        EXPECT_TRUE(Asks(edit, 4, L'9')) << "so that this is the 9th";
        EXPECT_FALSE(Asks(edit, 4, L'0'));
    });
}

TEST(OrvoDateEdit, AsksOnlyTheBaseWithoutTheFlag) {
    OrvoDateEdit edit;
    RunWith(edit, [&](EditDialog&) {
        EXPECT_TRUE(Asks(edit, 0, L'9'));
        EXPECT_EQ(SelectionOf(edit), (Selection{0, 0})) << "and leaves the caret";
        EXPECT_FALSE(Asks(edit, 0, L'x'));
        edit.SetNoFault(true);
        EXPECT_FALSE(Asks(edit, 0, L'9'));
        EXPECT_FALSE(Asks(edit, 3, L'x'));
        EXPECT_TRUE(Asks(edit, 2, L'9'));
        EXPECT_EQ(SelectionOf(edit), (Selection{3, 4}));
    });
}
