// Times in a masked edit: reading, writing, limits, copies.
#include "controls/OrvoTimeEdit.h"

#include <gtest/gtest.h>

#include <limits>

#include "controls/EditDialog.h"

namespace {

void ExpectRange(const OrvoTimeEdit& edit, int minHour, int minMinute, int maxHour, int maxMinute) {
    int limits[4] = {-1, -1, -1, -1};
    edit.GetTimeRange(limits[0], limits[1], limits[2], limits[3]);
    EXPECT_EQ(limits[0], minHour);
    EXPECT_EQ(limits[1], minMinute);
    EXPECT_EQ(limits[2], maxHour);
    EXPECT_EQ(limits[3], maxMinute);
}

void Show(OrvoTimeEdit& edit, const wchar_t* text) {
    edit.SetWindowText(text);
    edit.SetModify(FALSE);
}

}  // namespace

TEST(OrvoTimeEdit, IsMadeForTheWholeDay) {
    const OrvoTimeEdit edit;
    EXPECT_EQ(edit.m_strGrammar, L"__:__");
    EXPECT_EQ(edit.m_strDefault, L"00:00");
    EXPECT_EQ(edit.m_strValidChars, L"0123456789");
    EXPECT_FALSE(edit.m_bNoFault);
    EXPECT_EQ(edit.m_nMinHour, 0);
    EXPECT_EQ(edit.m_nMaxHour, 23);
    EXPECT_EQ(edit.m_nMinMinute, 0);
    EXPECT_EQ(edit.m_nMaxMinute, 59);
    EXPECT_EQ(sizeof edit.m_nMinHour, 2U);
    ExpectRange(edit, 0, 0, 23, 59);
    EXPECT_EQ(edit.GetMinMinuteNum(), 0);
    EXPECT_EQ(edit.GetMaxMinuteNum(), 1439);
}

TEST(OrvoTimeEdit, ReadsAsMuchOfANumberAsThereIs) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        struct Row {
            const wchar_t* text;
            int hour;
            int minute;
        };
        const Row rows[] = {{L"12:34", 12, 34}, {L"_7:1_", 0, 1}, {L" 7: 5", 7, 5}, {L"99:99", 99, 99},
                            {L"", 0, 0},        {L"1", 1, 0},     {L"08:3", 8, 3},  {L"__:__", 0, 0}};
        for (const Row& row : rows) {
            edit.SetWindowText(row.text);
            EXPECT_EQ(edit.GetHour(), row.hour) << CString(row.text).GetString();
            EXPECT_EQ(edit.GetMinute(), row.minute);
            EXPECT_EQ(edit.GetMinuteNum(), row.hour * 60 + row.minute);
        }
    });
}

TEST(OrvoTimeEdit, WritesHoursAndMinutesInTwoDigits) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        Show(edit, L"12:34");
        EXPECT_TRUE(edit.SetHour(7));
        EXPECT_EQ(TextOf(edit), L"07:34");
        EXPECT_TRUE(edit.GetModify());
        EXPECT_EQ(SelectionOf(edit), (Selection{0, 0}));
        Show(edit, L"12:34");
        EXPECT_TRUE(edit.SetMinute(5));
        EXPECT_EQ(TextOf(edit), L"12:05");
        EXPECT_TRUE(edit.GetModify());
        for (int hour = 0; hour < 24; ++hour) {
            EXPECT_TRUE(edit.SetHour(hour));
            EXPECT_EQ(edit.GetHour(), hour);
        }
        for (int minute = 0; minute < 60; ++minute) {
            EXPECT_TRUE(edit.SetMinute(minute));
            EXPECT_EQ(edit.GetMinute(), minute);
        }
        EXPECT_EQ(TextOf(edit), L"23:59");
    });
}

TEST(OrvoTimeEdit, RefusesHoursAndMinutesThatAreNone) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog& dialog) {
        Show(edit, L"12:34");
        dialog.m_changes.RemoveAll();
        constexpr int kLeast = std::numeric_limits<int>::min();
        constexpr int kMost = std::numeric_limits<int>::max();
        for (const int hour : {-1, 24, 100, kLeast, kMost})
            EXPECT_FALSE(edit.SetHour(hour));
        for (const int minute : {-1, 60, 100, kLeast, kMost})
            EXPECT_FALSE(edit.SetMinute(minute));
        EXPECT_EQ(TextOf(edit), L"12:34");
        EXPECT_FALSE(edit.GetModify());
        EXPECT_EQ(dialog.m_changes.GetSize(), 0);
    });
}

TEST(OrvoTimeEdit, WritesTimesOutsideItsLimitsToo) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        ASSERT_TRUE(edit.SetTimeRange(8, 0, 17, 30));
        EXPECT_TRUE(edit.SetHour(23));
        EXPECT_TRUE(edit.SetMinute(59));
        EXPECT_EQ(TextOf(edit), L"23:59");
        EXPECT_FALSE(edit.IsValid());
    });
}

TEST(OrvoTimeEdit, FillsATextThatIsTooShortFromTheDefault) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        edit.SetWindowText(L"");
        EXPECT_TRUE(edit.SetMinute(30));
        EXPECT_EQ(TextOf(edit), L"00:30");
        edit.SetWindowText(L"");
        EXPECT_TRUE(edit.SetHour(8));
        EXPECT_EQ(edit.GetHour(), 8);
        EXPECT_TRUE(edit.SetMinute(5));
        EXPECT_EQ(TextOf(edit), L"08:05");
        edit.SetDefaultString(L"9");
        edit.SetWindowText(L"");
        EXPECT_TRUE(edit.SetMinute(30));
        EXPECT_EQ(TextOf(edit), L"9 :30") << "behind the default from the template";
    });
}

TEST(OrvoTimeEdit, KeepsWhatALongTextHasBehindTheTime) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        edit.SetWindowText((std::wstring(10000, L'x') + L"😀").c_str());
        EXPECT_TRUE(edit.SetHour(8));
        EXPECT_TRUE(edit.SetMinute(9));
        EXPECT_EQ(TextOf(edit).Left(7), L"08x09xx");
        EXPECT_EQ(TextOf(edit).Right(CString(L"😀").GetLength()), L"😀");
    });
}

TEST(OrvoTimeEdit, CountsOnAndBackToItsLimits) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        ASSERT_TRUE(edit.SetTimeRange(8, 0, 17, 30));
        struct Row {
            const wchar_t* from;
            int minutes;
            const wchar_t* to;
        };
        const Row rows[] = {{L"10:50", 15, L"11:05"},
                            {L"11:05", -15, L"10:50"},
                            {L"10:00", 0, L"10:00"},
                            {L"17:29", 1, L"17:30"},
                            {L"17:30", 1, L"17:30"},
                            {L"08:01", -1, L"08:00"},
                            {L"08:00", -1, L"08:00"},
                            {L"12:00", -1441, L"08:00"},
                            {L"12:00", 1441, L"17:30"},
                            {L"12:00", std::numeric_limits<int>::max(), L"17:30"},
                            {L"00:00", std::numeric_limits<int>::min(), L"08:00"},
                            {L"23:00", 0, L"17:30"},
                            {L"__:__", 0, L"08:00"}};
        for (const Row& row : rows) {
            Show(edit, row.from);
            EXPECT_TRUE(edit.AddMinutes(row.minutes));
            EXPECT_EQ(TextOf(edit), row.to);
            EXPECT_TRUE(edit.GetModify());
        }
    });
}

TEST(OrvoTimeEdit, GoesToAMinuteOfTheDay) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        for (int minutes = 0; minutes < 1440; minutes += 7) {
            edit.SetMinuteNum(minutes);
            EXPECT_EQ(edit.GetMinuteNum(), minutes);
        }
        edit.SetMinuteNum(std::numeric_limits<int>::max());
        EXPECT_EQ(TextOf(edit), L"23:59");
        edit.SetMinuteNum(std::numeric_limits<int>::min());
        EXPECT_EQ(TextOf(edit), L"00:00");
        ASSERT_TRUE(edit.SetTimeRange(8, 0, 17, 30));
        edit.SetMinuteNum(0);
        EXPECT_EQ(TextOf(edit), L"08:00");
    });
}

TEST(OrvoTimeEdit, KnowsWhichTimesAreWithinItsLimits) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        ASSERT_TRUE(edit.SetTimeRange(8, 10, 17, 30));
        EXPECT_EQ(edit.GetMinMinuteNum(), 490);
        EXPECT_EQ(edit.GetMaxMinuteNum(), 1050);
        for (int hour = -1; hour <= 24; ++hour) {
            for (int minute = -1; minute <= 60; ++minute) {
                const bool isTime = hour >= 0 && hour < 24 && minute >= 0 && minute < 60;
                const int total = hour * 60 + minute;
                EXPECT_EQ(edit.IsValidMinutes(total), total >= 490 && total <= 1050);
                EXPECT_EQ(edit.IsValidTime(hour, minute), isTime && total >= 490 && total <= 1050)
                    << hour << ":" << minute;
            }
        }
        EXPECT_FALSE(edit.IsValidTime(std::numeric_limits<int>::max(), 0));
        const std::pair<const wchar_t*, bool> texts[] = {
            {L"08:09", false}, {L"08:10", true}, {L"17:30", true}, {L"17:31", false}, {L"10:60", false}};
        for (const auto& [text, valid] : texts) {
            edit.SetWindowText(text);
            EXPECT_EQ(edit.IsValid(), valid) << CString(text).GetString();
        }
    });
}

TEST(OrvoTimeEdit, MovesATimeBelowNewLimits) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        Show(edit, L"06:15");
        EXPECT_TRUE(edit.SetTimeRange(8, 0, 17, 30));
        EXPECT_EQ(TextOf(edit), L"08:00");
        EXPECT_EQ(edit.m_strDefault, L"08:00");
        EXPECT_TRUE(edit.GetModify());
        ExpectRange(edit, 8, 0, 17, 30);
    });
}

TEST(OrvoTimeEdit, MovesATimeAboveNewLimits) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        Show(edit, L"19:15");
        EXPECT_TRUE(edit.SetTimeRange(8, 5, 17, 30));
        EXPECT_EQ(TextOf(edit), L"17:30");
        EXPECT_EQ(edit.m_strDefault, L"08:05");
        EXPECT_TRUE(edit.GetModify());
    });
}

TEST(OrvoTimeEdit, LeavesATimeWithinNewLimitsAlone) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog& dialog) {
        for (const wchar_t* text : {L"08:05", L"12:00", L"17:30"}) {
            Show(edit, text);
            dialog.m_changes.RemoveAll();
            EXPECT_TRUE(edit.SetTimeRange(8, 5, 17, 30));
            EXPECT_EQ(TextOf(edit), text);
            EXPECT_FALSE(edit.GetModify());
            EXPECT_EQ(dialog.m_changes.GetSize(), 0);
            edit.SetModify(TRUE);
            EXPECT_TRUE(edit.SetTimeRange(8, 5, 17, 30));
            EXPECT_TRUE(edit.GetModify());
        }
    });
}

TEST(OrvoTimeEdit, RefusesLimitsThatAreNotInOrder) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        Show(edit, L"06:15");
        const int ranges[][4] = {{8, 30, 17, 0}, {17, 0, 8, 30}, {-1, 0, 17, 0},  {8, 0, 24, 0}, {8, -1, 17, 0},
                                 {8, 0, 17, 60}, {24, 0, 24, 0}, {8, 60, 17, 60}, {8, 0, -1, 0}, {8, 0, 17, -1}};
        for (const auto& range : ranges)
            EXPECT_FALSE(edit.SetTimeRange(range[0], range[1], range[2], range[3])) << range[0] << " " << range[1];
        ExpectRange(edit, 0, 0, 23, 59);
        EXPECT_EQ(edit.m_strDefault, L"00:00");
        EXPECT_EQ(TextOf(edit), L"06:15");
        EXPECT_FALSE(edit.GetModify());
        EXPECT_TRUE(edit.SetTimeRange(8, 30, 8, 30)) << "one single time is a range";
        EXPECT_TRUE(edit.SetTimeRange(0, 0, 23, 59));
    });
}

TEST(OrvoTimeEdit, TakesLimitsAndTextOfAnother) {
    OrvoTimeEdit edit;
    EditDialog dialog;
    RunDialog(dialog, [&] {
        OrvoTimeEdit other;
        ASSERT_TRUE(edit.SubclassDlgItem(kFirstEdit, &dialog));
        ASSERT_TRUE(other.SubclassDlgItem(kSecondEdit, &dialog));
        other.SetDefault();
        ASSERT_TRUE(other.SetTimeRange(8, 5, 17, 30));
        other.SetWindowText(L"12:34");
        other.SetModify(FALSE);
        other.SetGrammarString(L"__.__");
        other.SetValidChars(L"01");
        other.SetNoFault(true);
        edit.SetDefault();
        edit.SetModify(FALSE);
        EXPECT_EQ(&(edit = other), &edit);
        ExpectRange(edit, 8, 5, 17, 30);
        EXPECT_EQ(TextOf(edit), L"12:34");
        EXPECT_TRUE(edit.GetModify());
        EXPECT_FALSE(other.GetModify());
        EXPECT_EQ(edit.m_strGrammar, L"__:__");
        EXPECT_EQ(edit.m_strDefault, L"00:00");
        EXPECT_EQ(edit.m_strValidChars, L"0123456789");
        EXPECT_FALSE(edit.m_bNoFault);
    });
}

TEST(OrvoTimeEdit, BringsCopiedLimitsInOrder) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        OrvoTimeEdit other;
        other.m_nMinHour = 1;
        other.m_nMinMinute = 135;
        other.m_nMaxHour = 10;
        other.m_nMaxMinute = 60;
        edit = other;
        ExpectRange(edit, 3, 15, 11, 0);
        edit.SetWindowText(L"05:00");
        OrvoTimeEdit& same = edit;
        edit = same;
        EXPECT_EQ(TextOf(edit), L"05:00");
        ExpectRange(edit, 3, 15, 11, 0);
    });
}

TEST(OrvoTimeEdit, DoesNothingHarmfulWithoutAWindow) {
    OrvoTimeEdit edit;
    EXPECT_TRUE(edit.SetHour(5));
    EXPECT_FALSE(edit.SetHour(24));
    EXPECT_TRUE(edit.AddMinutes(5));
    EXPECT_TRUE(edit.SetTimeRange(8, 0, 17, 30));
    EXPECT_EQ(edit.GetMinuteNum(), 0);
    edit.SetNoFault(true);
    EXPECT_FALSE(edit.IsValidChar(static_cast<UINT>(L'3'))) << "hour 3 lies before the first";
}
