// The built-in tables: every row, and whether the real sun agrees.
#include <gtest/gtest.h>

#include <chrono>

#include "AlmanacTerms.h"
#include "ExpectedTerms.h"
#include "calendar/OrvoDate.h"
#include "platform/base/TextNumber.h"

namespace {

CString DateOf(int month, int day) {
    return IntToText(month) + L"月" + IntToText(day) + L"日";
}

}  // namespace

TEST(BuiltInTerms, FillBothTablesRowByRow) {
    for (const bool isLeapYear : {false, true}) {
        OrvoDate date(isLeapYear ? 2012 : 2011, 1, 1);
        for (int index = 0; index < 24; ++index) {
            const ExpectedTerm& expected = kExpectedTerms[index];
            const OrvoSTerm* term = date.GetTerm(index);
            ASSERT_NE(term, nullptr);
            EXPECT_EQ(term->m_strName, expected.name);
            EXPECT_EQ(term->m_strDate, DateOf(expected.month, isLeapYear ? expected.leapDay : expected.day)) << index;
            EXPECT_EQ(term->m_dgTime.getDegree(), expected.equationOfTime) << index;
            EXPECT_EQ(term->m_dgLat.getDegree(), expected.declination) << index;
        }
    }
}

TEST(BuiltInTerms, HoldTheSplitOfTheirAngles) {
    OrvoDate date(2011, 1, 1);
    int degree = 0;
    int minute = 0;
    int second = 0;
    date.GetTerm(0)->m_dgLat.getDegree(degree, minute, second);
    EXPECT_EQ(degree, -23);
    EXPECT_EQ(minute, -26);
    EXPECT_EQ(second, -60);
    date.GetTerm(0)->m_dgTime.getDegree(degree, minute, second);
    EXPECT_EQ(degree, 0);
    EXPECT_EQ(minute, 1);
    EXPECT_EQ(second, 53);
}

TEST(BuiltInTerms, AppendToWhatIsThere) {
    OrvoDate date(2011, 1, 1);
    date.LoadTermData();
    date.LoadTermData();
    EXPECT_EQ(date.m_listTerm.GetLength(), 48);
    EXPECT_EQ(date.m_listLeapTerm.GetLength(), 48);
    for (int index = 0; index < 48; ++index) {
        EXPECT_EQ((*date.m_listTerm.GetAt(index))->m_strName, kExpectedTerms[index % 24].name);
        EXPECT_EQ((*date.m_listLeapTerm.GetAt(index))->m_strName, kExpectedTerms[index % 24].name);
    }
}

TEST(BuiltInTerms, AreHalfAMonthApart) {
    for (const int year : {2011, 2012}) {
        OrvoDate date(year, 1, 1);
        for (int index = 0; index < 24; ++index) {
            EXPECT_GE(date.GetTermDayNum(index), 14) << year << " term " << index;
            EXPECT_LE(date.GetTermDayNum(index), 16) << year << " term " << index;
        }
    }
}

// The tables serve every year, the almanac's numbers are those of one: they may differ by as much as the sun moves in
// about a day, which is 0.0083 hours of equation of time and 0.4 degrees of declination at most. The tolerances are
// well within that.
TEST(BuiltInTerms, AgreeWithTheSun) {
    using namespace std::chrono;
    OrvoDate date(2001, 1, 1);
    for (const AlmanacTerm& sun : AlmanacTermsOf2001()) {
        const OrvoSTerm* term = date.GetTerm(sun.index);
        EXPECT_NEAR(term->m_dgTime.getDegree(), sun.equationOfTime, 0.005) << sun.index;
        EXPECT_NEAR(term->m_dgLat.getDegree(), sun.declination, 0.22) << sun.index;
        const MonthDay day = term->GetMonthDay();
        const sys_days ours = year{2001} / day.month / day.day;
        EXPECT_GE((ours - sun.day).count(), 0) << sun.index;
        EXPECT_LE((ours - sun.day).count(), 1) << sun.index;
    }
}
