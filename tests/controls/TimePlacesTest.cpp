// The time edit's test of a digit at its place, against the rules written down another way, for digits, places, times
// and limits of every kind.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/EditDialog.h"
#include "controls/OrvoTimeEdit.h"
#include "controls/PlaceTest.h"

namespace {

struct Limits {
    int minHour;
    int minMinute;
    int maxHour;
    int maxMinute;
};

bool Expected(const std::wstring& shown, int place, wchar_t digit, const Limits& limits) {
    const std::wstring text = With(shown, place, digit);
    const int hour = NumberIn(text, 0, 2);
    const int minute = NumberIn(text, 3, 2);
    const bool tooEarly = hour == limits.minHour && minute < limits.minMinute;
    if (place < 2) {
        const bool tooLate = hour == limits.maxHour && minute > limits.maxMinute;
        return limits.minHour <= hour && hour <= limits.maxHour && !tooEarly && !tooLate;
    }
    // The minute's places look at the maximum minute twice.
    return minute <= 59 && !tooEarly && !(hour == limits.maxMinute && minute > limits.maxMinute);
}

void SetLimits(OrvoTimeEdit& edit, const Limits& limits) {
    edit.m_nMinHour = static_cast<short>(limits.minHour);
    edit.m_nMinMinute = static_cast<short>(limits.minMinute);
    edit.m_nMaxHour = static_cast<short>(limits.maxHour);
    edit.m_nMaxMinute = static_cast<short>(limits.maxMinute);
}

const std::vector<Limits> kLimits = {{0, 0, 23, 59},  {8, 0, 17, 30},   {8, 30, 17, 45},
                                     {5, 10, 20, 20}, {12, 15, 12, 15}, {0, 20, 12, 12}};

}  // namespace

TEST(TimePlaces, FollowTheRules) {
    OrvoTimeEdit edit;
    edit.SetNoFault(true);
    RunWith(edit, [&](EditDialog&) {
        std::vector<std::wstring> texts = {L"__:__", L"_1:_2", L"1_:3_", L" 5: 5"};
        for (const int hour : {0, 4, 5, 8, 10, 12, 13, 17, 20, 21, 23, 29, 30, 45, 99})
            for (const int minute : {0, 10, 12, 15, 20, 29, 30, 31, 46, 59, 77})
                texts.push_back(TwoDigits(hour) + L":" + TwoDigits(minute));
        for (const std::wstring& text : texts) {
            edit.SetWindowText(text.c_str());
            for (const Limits& limits : kLimits) {
                SetLimits(edit, limits);
                for (const int place : {0, 1, 3, 4})
                    for (wchar_t digit = L'0'; digit <= L'9'; ++digit)
                        ASSERT_EQ(Asks(edit, place, digit), Expected(text, place, digit, limits))
                            << text << " at " << place << ": " << static_cast<char>(digit) << ", from "
                            << limits.minHour << ":" << limits.minMinute << " to " << limits.maxHour << ":"
                            << limits.maxMinute;
            }
        }
    });
}

TEST(TimePlaces, HoldTheHourAgainstTheMaximumMinute) {
    OrvoTimeEdit edit;
    edit.SetNoFault(true);
    RunWith(edit, [&](EditDialog&) {
        SetLimits(edit, {8, 0, 17, 20});
        edit.SetWindowText(L"17:00");
        EXPECT_TRUE(Asks(edit, 3, L'5')) << "17:50 lies behind the limits";
        edit.SetWindowText(L"20:00");
        EXPECT_TRUE(Asks(edit, 3, L'2'));
        EXPECT_FALSE(Asks(edit, 3, L'3'));
    });
}

TEST(TimePlaces, AskOnlyTheBaseWithoutTheFlag) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        edit.SetSel(2, 2);
        EXPECT_TRUE(edit.IsValidChar(static_cast<UINT>(L'9')));
        EXPECT_FALSE(edit.IsValidChar(static_cast<UINT>(L'x')));
        EXPECT_EQ(SelectionOf(edit), (Selection{2, 2})) << "and leave the caret";
        edit.SetNoFault(true);
        EXPECT_FALSE(edit.IsValidChar(static_cast<UINT>(L'x')));
        EXPECT_FALSE(edit.IsValidChar(0x10030U)) << "not cut down to a 0";
        EXPECT_EQ(SelectionOf(edit), (Selection{2, 2}));
        EXPECT_FALSE(edit.IsValidChar(static_cast<UINT>(L'9')));
        EXPECT_EQ(SelectionOf(edit), (Selection{3, 4})) << "to where the digit would go";
        EXPECT_EQ(TextOf(edit), L"00:00");
        EXPECT_FALSE(edit.GetModify());
    });
}

TEST(TimePlaces, OfFixedCharactersAreFree) {
    OrvoTimeEdit edit;
    edit.SetNoFault(true);
    edit.SetGrammarString(L"______");
    RunWith(edit, [&](EditDialog&) {
        EXPECT_TRUE(Asks(edit, 2, L'9'));
        EXPECT_TRUE(Asks(edit, 5, L'9'));
    });
}
