// Dates: fields, texts, comparisons and day numbers.
#include "calendar/OrvoDate.h"

#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <ctime>

#include "FixedToday.h"
#include "support/GermanLocale.h"

namespace {

void ExpectDate(const OrvoDate& date, int year, int month, int day) {
    EXPECT_EQ(date.m_nYear, year);
    EXPECT_EQ(date.m_nMonth, month);
    EXPECT_EQ(date.m_nDay, day);
}

}  // namespace

TEST(OrvoDate, IsTodayByDefaultWithEmptyTables) {
    const FixedToday today(2026, 11, 21);
    const OrvoDate date;
    ExpectDate(date, 2026, 11, 21);
    EXPECT_EQ(date.m_listTerm.GetLength(), 0);
    EXPECT_EQ(date.m_listLeapTerm.GetLength(), 0);
}

TEST(OrvoDate, AsksTheSystemForTheLocalDate) {
    // Midnight may pass between the two: then the later look must agree.
    for (int attempt = 0; attempt < 2; ++attempt) {
        const OrvoDate date;
        const std::time_t now = std::time(nullptr);
        const std::tm local = *std::localtime(&now);
        if (date.m_nDay != local.tm_mday && attempt == 0)
            continue;
        ExpectDate(date, local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
        return;
    }
}

TEST(OrvoDate, FallsBackToTheSystemForANullClock) {
    const TodayFunction before = g_pfnToday;
    g_pfnToday = nullptr;
    const OrvoDate date;
    g_pfnToday = before;
    EXPECT_GE(date.m_nYear, 2020);
}

TEST(OrvoDate, KeepsWhatItIsGiven) {
    OrvoDate date(2011, 13, -4);
    ExpectDate(date, 2011, 13, -4);
    EXPECT_EQ(date.m_listTerm.GetLength(), 0);
    date.SetYear(-5);
    date.SetMonth(0);
    date.SetDay(99);
    EXPECT_EQ(date.GetYear(), -5);
    EXPECT_EQ(date.GetMonth(), 0);
    EXPECT_EQ(date.m_nDay, 99);
}

TEST(OrvoDate, ResetsToTodayAndKeepsItsTables) {
    const FixedToday today(2024, 2, 29);
    OrvoDate date(2011, 6, 21);
    date.LoadTermData();
    date.Reset();
    ExpectDate(date, 2024, 2, 29);
    EXPECT_EQ(date.m_listTerm.GetLength(), 24);
}

TEST(OrvoDate, CountsEveryFourthYearAsALeapYear) {
    for (const int year : {2012, 2000, 1900, 2100, 0, -4, 4})
        EXPECT_TRUE(OrvoDate(year, 1, 1).IsLeapYear()) << year;
    for (const int year : {2011, 2010, 2009, 1, -1, -2, -3, INT_MAX})
        EXPECT_FALSE(OrvoDate(year, 1, 1).IsLeapYear()) << year;
    EXPECT_TRUE(OrvoDate(INT_MIN, 1, 1).IsLeapYear());
}

TEST(OrvoDate, ComparesByMonthAndDayAlone) {
    const OrvoDate june(2010, 6, 22);
    EXPECT_TRUE(june == OrvoDate(2011, 6, 22));
    EXPECT_FALSE(june != OrvoDate(2011, 6, 22));
    EXPECT_TRUE(june != OrvoDate(2010, 6, 23));
    EXPECT_TRUE(june != OrvoDate(2010, 7, 22));
    EXPECT_TRUE(june < OrvoDate(2009, 6, 23));
    EXPECT_TRUE(june < OrvoDate(2009, 7, 1));
    EXPECT_TRUE(june > OrvoDate(2011, 6, 21));
    EXPECT_TRUE(june > OrvoDate(2011, 5, 31));
    EXPECT_FALSE(june < OrvoDate(2011, 6, 22));
    EXPECT_FALSE(june > OrvoDate(2009, 6, 22));
}

TEST(OrvoDate, NumbersTheDaysOfCommonAndLeapYears) {
    using namespace std::chrono;
    for (const int number : {2011, 2012}) {
        const sys_days start = year{number} / 1 / 1;
        for (sys_days day = start; day < sys_days(year{number + 1} / 1 / 1); day += days{1}) {
            const year_month_day date(day);
            const int month = static_cast<int>(unsigned(date.month()));
            const int dayOfMonth = static_cast<int>(unsigned(date.day()));
            EXPECT_EQ(OrvoDate(number, month, dayOfMonth).GetDayIndex(), (day - start).count() + 1)
                << number << '-' << month << '-' << dayOfMonth;
        }
    }
    EXPECT_EQ(OrvoDate(1900, 3, 1).GetDayIndex(), 61);
    EXPECT_EQ(OrvoDate(2100, 12, 31).GetDayIndex(), 366);
}

TEST(OrvoDate, CountsMonthsThatDoNotExistAsDecember) {
    for (const int month : {0, -1, 13, INT_MIN, INT_MAX}) {
        EXPECT_EQ(OrvoDate(2011, month, 5).GetDayIndex(), 339) << month;
        EXPECT_EQ(OrvoDate(2012, month, 5).GetDayIndex(), 340) << month;
    }
}

TEST(OrvoDate, NumbersDaysThatDoNotExistWithoutOverflow) {
    EXPECT_EQ(OrvoDate(2011, 3, 0).GetDayIndex(), 59);
    EXPECT_EQ(OrvoDate(2011, 1, 400).GetDayIndex(), 400);
    EXPECT_EQ(OrvoDate(2012, 12, INT_MAX).GetDayIndex(), INT_MAX);
    EXPECT_EQ(OrvoDate(2012, 2, INT_MIN).GetDayIndex(), INT_MIN + 31);
}

TEST(OrvoDate, ShowsItselfPaddedWithBlanks) {
    EXPECT_EQ(OrvoDate(2010, 6, 2).GetDateString(), L"2010年 6月 2日");
    EXPECT_EQ(OrvoDate(2010, 12, 22).GetDateString(), L"2010年12月22日");
    EXPECT_EQ(OrvoDate(7, 1, 1).GetDateString(), L"   7年 1月 1日");
    EXPECT_EQ(OrvoDate(2010, 6, 2).GetDateXmlString(), L"2010- 6- 2");
    EXPECT_EQ(OrvoDate(2010, 12, 22).GetDateXmlString(), L"2010-12-22");
    EXPECT_EQ(OrvoDate(INT_MIN, 1, 1).GetDateXmlString(), L"-2147483648- 1- 1");
}

TEST(OrvoDate, ReadsAFullDate) {
    const FixedToday today(2026, 11, 21);
    OrvoDate date(1, 1, 1);
    date.SetDate(L"2010年6月22日");
    ExpectDate(date, 2010, 6, 22);
    date.SetDate(L"2010年 6月 2日");
    ExpectDate(date, 2010, 6, 2);
    ExpectDate(OrvoDate(L"1999年12月31日"), 1999, 12, 31);
}

TEST(OrvoDate, KeepsTodaysYearWithoutOneInTheText) {
    const FixedToday today(2026, 11, 21);
    OrvoDate date(1, 1, 1);
    date.SetDate(L"6月22日");
    ExpectDate(date, 2026, 6, 22);
    ExpectDate(OrvoDate(L"12月22日"), 2026, 12, 22);
}

TEST(OrvoDate, ReadsWhatItCannotReadAsZero) {
    const FixedToday today(2026, 11, 21);
    ExpectDate(OrvoDate(static_cast<const wchar_t*>(nullptr)), 2026, 0, 0);
    ExpectDate(OrvoDate(L""), 2026, 0, 0);
    ExpectDate(OrvoDate(L"hello"), 2026, 0, 0);
    ExpectDate(OrvoDate(L"x年y月z日"), 0, 0, 0);
    ExpectDate(OrvoDate(L"年月日"), 0, 0, 0);
    ExpectDate(OrvoDate(L"2010年"), 2010, 0, 0);
    ExpectDate(OrvoDate(L"2010年6月"), 2010, 6, 0);
    ExpectDate(OrvoDate(L"6月22"), 2026, 6, 0);
    ExpectDate(OrvoDate(L"-3年-4月-5日"), -3, -4, -5);
    ExpectDate(OrvoDate(L"99999999999年6月22日"), INT_MAX, 6, 22);
}

TEST(OrvoDate, ReadsMarksInTheWrongOrderAsZero) {
    const FixedToday today(2026, 11, 21);
    // The month is what stands before 月, and that begins with 22.
    ExpectDate(OrvoDate(L"22日6月"), 2026, 22, 0);
    ExpectDate(OrvoDate(L"日6月"), 2026, 0, 0);
    ExpectDate(OrvoDate(L"日月年"), 0, 0, 0);
    ExpectDate(OrvoDate(L"6月22日2010年"), 6, 0, 22);
    ExpectDate(OrvoDate(L"5日"), 2026, 0, 5);
    ExpectDate(OrvoDate(L"2010年5日"), 2010, 0, 2010);
}

TEST(OrvoDate, ReadsUpToTheFirstOfEachMark) {
    const FixedToday today(2026, 11, 21);
    ExpectDate(OrvoDate(L"2010年6月7日8日9月"), 2010, 6, 7);
    ExpectDate(OrvoDate(L" 2010 年 6 月 22 日 "), 2010, 6, 22);
}

TEST(OrvoDate, ReadsTheFormOfFiles) {
    const FixedToday today(2026, 11, 21);
    OrvoDate date(1, 1, 1);
    date.SetXmlDate(L"2010-06-02");
    ExpectDate(date, 2010, 6, 2);
    date.SetXmlDate(OrvoDate(2010, 6, 2).GetDateXmlString());
    ExpectDate(date, 2010, 6, 2);
    date.SetXmlDate(L"6-2");
    ExpectDate(date, 2026, 6, 2);
}

TEST(OrvoDate, StaysTodayForAnyOtherNumberOfParts) {
    const FixedToday today(2026, 11, 21);
    for (const wchar_t* text : {L"", L"2010", L"2010-6-2-1", L"-2010-6-2", L"2010/6/2"}) {
        OrvoDate date(1, 1, 1);
        date.SetXmlDate(text);
        ExpectDate(date, 2026, 11, 21);
    }
    OrvoDate date(1, 1, 1);
    date.SetXmlDate(L"--");
    ExpectDate(date, 0, 0, 0);
    date.SetXmlDate(L"-");
    ExpectDate(date, 2026, 0, 0);
}

TEST(OrvoDate, ReadsEveryDayBackFromTheFormOfFiles) {
    for (const int year : {2011, 2012, 5})
        for (int month = 1; month <= 12; ++month)
            for (int day = 1; day <= 31; ++day) {
                OrvoDate date(1, 1, 1);
                date.SetXmlDate(OrvoDate(year, month, day).GetDateXmlString());
                ExpectDate(date, year, month, day);
                date.SetDate(OrvoDate(year, month, day).GetDateString());
                ExpectDate(date, year, month, day);
            }
}

TEST(OrvoDate, ReadsAndShowsTheSameInEveryLocale) {
    const GermanLocale german;
    OrvoDate date(1, 1, 1);
    date.SetDate(L"2010年6月22日");
    ExpectDate(date, 2010, 6, 22);
    EXPECT_EQ(OrvoDate(12010, 6, 2).GetDateString(), L"12010年 6月 2日");
    EXPECT_EQ(OrvoDate(12010, 6, 2).GetDateXmlString(), L"12010- 6- 2");
}

TEST(OrvoDate, CopiesItsTables) {
    OrvoDate date(2011, 6, 21);
    date.LoadTermData();
    date.GetTerm(3)->m_strName = L"mine";
    OrvoDate copy(date);
    ExpectDate(copy, 2011, 6, 21);
    EXPECT_EQ(copy.m_listTerm.GetLength(), 24);
    EXPECT_EQ(copy.m_listLeapTerm.GetLength(), 24);
    EXPECT_EQ(copy.GetTerm(3)->m_strName, L"mine");
    date.GetTerm(3)->m_strName = L"changed";
    EXPECT_EQ(copy.GetTerm(3)->m_strName, L"mine");
}

TEST(OrvoDate, AppendsTheBuiltInTablesOnEachAssignment) {
    OrvoDate source(2011, 6, 21);
    source.GetTerm(3)->m_strName = L"mine";
    OrvoDate date(1, 1, 1);
    EXPECT_EQ(&(date = source), &date);
    ExpectDate(date, 2011, 6, 21);
    EXPECT_EQ(date.m_listTerm.GetLength(), 24);
    EXPECT_EQ(date.m_listLeapTerm.GetLength(), 24);
    EXPECT_EQ(date.GetTerm(3)->m_strName, L"立春");
    date.GetTerm(4)->m_strName = L"own";
    date = source;
    EXPECT_EQ(date.m_listTerm.GetLength(), 48);
    EXPECT_EQ(date.m_listLeapTerm.GetLength(), 48);
    EXPECT_EQ(date.GetTerm(4)->m_strName, L"own");
    const OrvoDate& same = date;
    date = same;
    ExpectDate(date, 2011, 6, 21);
    EXPECT_EQ(date.m_listTerm.GetLength(), 72);
    EXPECT_EQ(date.m_listLeapTerm.GetLength(), 72);
}
