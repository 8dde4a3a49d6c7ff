// Days as texts, against the rules of the calendar, and back.
#include "facts/DayText.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>

#include "calendar/OrvoDate.h"
#include "calendar/Today.h"
#include "support/TableSwitch.h"

namespace {

CString Typed(int year, int month, int day) {
    CString text;
    text.Format(L"%d-%d-%d", year, month, day);
    return text;
}

// The standard library's calendar.
bool IsRealInTheLibrary(int year, int month, int day) {
    return std::chrono::year_month_day(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                       std::chrono::day(static_cast<unsigned>(day)))
        .ok();
}

}  // namespace

TEST(TypedDays, AreThoseOfTheCalendarInAllYears) {
    for (int year = 1; year <= 9999; ++year) {
        for (const auto& [month, day] :
             {std::pair(12, 31), {12, 32}, {1, 1}, {1, 0}, {2, 28}, {2, 29}, {2, 30}, {4, 31}, {13, 1}, {0, 1}}) {
            const bool isReal = IsRealInTheLibrary(year, month, day);
            ASSERT_EQ(IsRealDay({year, month, day}), isReal) << year << " " << month << " " << day;
            const CalendarDay wanted = {year, month, day};
            ASSERT_EQ(ParseDay(Typed(year, month, day)), isReal ? std::optional(wanted) : std::nullopt);
        }
    }
}

TEST(TypedDays, AreThoseOfTheCalendarInEveryMonth) {
    for (const int year : {1900, 2000, 2023, 2024, 2100}) {
        for (int month = -1; month <= 14; ++month) {
            for (int day = -1; day <= 33; ++day) {
                const bool isReal = month >= 0 && day >= 0 && IsRealInTheLibrary(year, month, day);
                ASSERT_EQ(IsRealDay({year, month, day}), isReal) << year << " " << month << " " << day;
            }
        }
    }
}

TEST(TypedDays, AreReadStrictly) {
    EXPECT_EQ(ParseDay(L"2024-02-29"), (CalendarDay{2024, 2, 29}));
    EXPECT_EQ(ParseDay(L"0007-3-004"), (CalendarDay{7, 3, 4})) << "leading zeros";
    EXPECT_EQ(ParseDay(L"2026/01/20"), (CalendarDay{2026, 1, 20}));
    EXPECT_EQ(ParseDay(L"2026.1.20"), (CalendarDay{2026, 1, 20}));
    EXPECT_EQ(ParseDay(L"2026年1月20日"), (CalendarDay{2026, 1, 20}));
    EXPECT_EQ(ParseDay(L"2026年 1月 2日"), (CalendarDay{2026, 1, 2})) << "as the program pads it";
    for (const wchar_t* text : {L"",
                                L"-",
                                L"--",
                                L"2024",
                                L"2024-2",
                                L"2024-2-",
                                L"2024--2",
                                L"-2024-2-2",
                                L"2024-2-2-",
                                L"2024-2-2-2",
                                L"2024/2-2",
                                L"2024-2/2",
                                L"2024.2/2",
                                L"2024/2/30",
                                L"2024. 2. 2",
                                L"2024年2月2",
                                L"2024年2月22",
                                L"2024年2月日",
                                L"年2月2日",
                                L"2024年2月30日",
                                L"2024年2 月2日",
                                L"2024月2年2日",
                                L"2024年2月2日日",
                                L"2024年2月2日 ",
                                L" 2024-2-2",
                                L"2024-2-2 ",
                                L"2024- 2- 2",
                                L"2024-+2-2",
                                L"+2024-2-2",
                                L"0-1-1",
                                L"10000-1-1",
                                L"2023-2-29",
                                L"1900-2-29",
                                L"2024-13-1",
                                L"2024-0-1",
                                L"2024-1-0",
                                L"2024-4-31",
                                L"２０２４-1-1",
                                L"2024-1-1\n",
                                L"0002024-1-1",
                                L"2024-1-1e0",
                                L"99999999999999999999-1-1",
                                L"2024\x2010"
                                L"1\x2010"
                                L"1"})
        EXPECT_FALSE(ParseDay(text)) << ToUtf8(text);
}

TEST(TypedDays, AreReadAsTheModuleWritesThem) {
    for (const CalendarDay& day : {CalendarDay{2025, 12, 22}, {2026, 1, 2}, {7, 3, 4}})
        EXPECT_EQ(ParseDay(DayInWords(day)), day) << ToUtf8(DayInWords(day).View());
}

TEST(RealDays, AreNoneWithAbsurdNumbers) {
    for (const int absurd : {std::numeric_limits<int>::min(), -1, 0, 10000, std::numeric_limits<int>::max()}) {
        EXPECT_FALSE(IsRealDay({absurd, 1, 1})) << absurd;
        EXPECT_FALSE(IsRealDay({2024, absurd, 1})) << absurd;
        EXPECT_FALSE(IsRealDay({2024, 1, absurd})) << absurd;
    }
}

TEST(ShownDays, AreWrittenAsFilesAndPeopleHaveThem) {
    EXPECT_EQ(IsoDay({2025, 12, 22}), "2025-12-22");
    EXPECT_EQ(IsoDay({7, 3, 4}), "0007-03-04");
    EXPECT_EQ(IsoDay({12345, 678, -9}), "12345-678--9") << "whatever the numbers are";
    EXPECT_EQ(IsoDay({std::numeric_limits<int>::min(), 0, std::numeric_limits<int>::max()}),
              "-2147483648-00-2147483647");
    EXPECT_EQ(DayInWords({2025, 12, 22}), L"2025年12月22日");
    EXPECT_EQ(DayInWords({2026, 1, 2}), L"2026年 1月 2日");
    const TableSwitch english({{L"%4d年%2d月%2d日", L"%d-%d-%d"}});
    EXPECT_EQ(DayInWords({2026, 1, 2}), L"2026-1-2");
}

TEST(ShownDays, AreReadBack) {
    for (const CalendarDay& day : {CalendarDay{1, 1, 1}, {999, 12, 31}, {2024, 2, 29}, {9999, 12, 31}})
        EXPECT_EQ(ParseDay(FromUtf8(IsoDay(day))), day);
}

TEST(DaysOfTheModule, AreTakenAsTheyAre) {
    EXPECT_EQ(DayOf(OrvoDate(2023, 4, 5)), (CalendarDay{2023, 4, 5}));
    EXPECT_EQ(DayOf(OrvoDate(-1, 77, 0)), (CalendarDay{-1, 77, 0}));
    const TodayFunction before = g_pfnToday;
    g_pfnToday = [] { return CalendarDay{2031, 5, 6}; };
    EXPECT_EQ(Today(), (CalendarDay{2031, 5, 6}));
    g_pfnToday = before;
}
