// Tables that are not the built-in ones: replaced, rewritten, short, with holes.
#include <gtest/gtest.h>

#include <cmath>

#include "calendar/OrvoDate.h"

namespace {

OrvoSTerm* NewTerm(const wchar_t* date, double time, double latitude) {
    OrvoSTerm* term = new OrvoSTerm(CString(L"term"));
    term->m_strDate = date;
    term->m_dgTime = time;
    term->m_dgLat = latitude;
    return term;
}

// A date with rows of its own, the same in both tables.
class OwnTable : public testing::Test {
protected:
    void Add(const wchar_t* date, double time, double latitude = 0) {
        m_date.m_listTerm.Append(NewTerm(date, time, latitude));
        m_date.m_listLeapTerm.Append(NewTerm(date, time, latitude));
    }
    void AddHole() {
        m_date.m_listTerm.Append(nullptr);
        m_date.m_listLeapTerm.Append(nullptr);
    }
    int TermOn(int month, int day) {
        m_date.SetMonth(month);
        m_date.SetDay(day);
        bool exact = false;
        return m_date.GetSTermIndex(exact);
    }
    double TimeOn(int month, int day) {
        TermOn(month, day);
        return m_date.GetDgTime();
    }

    OrvoDate m_date{2011, 6, 1};
};

}  // namespace

TEST(OrvoSTerm, IsEmptyByDefault) {
    const OrvoSTerm term;
    EXPECT_EQ(term.m_strName, L"");
    EXPECT_EQ(term.m_strDate, L"");
    EXPECT_EQ(term.m_dgTime.getDegree(), 0.0);
    EXPECT_EQ(term.m_dgLat.getDegree(), 0.0);
    EXPECT_EQ(term.GetMonthDay(), (MonthDay{0, 0}));
}

TEST(OrvoSTerm, TakesAName) {
    const OrvoSTerm term(CString(L"冬至"));
    EXPECT_EQ(term.m_strName, L"冬至");
    EXPECT_EQ(term.m_strDate, L"");
    EXPECT_EQ(term.m_dgTime.getDegree(), 0.0);
}

TEST(OrvoSTerm, CopiesAllFields) {
    OrvoSTerm term(CString(L"冬至"));
    term.m_strDate = L"12月22日";
    term.m_dgTime.setDegree(1, 75, 0);
    term.m_dgLat = -23.45;
    const OrvoSTerm copy(term);
    OrvoSTerm assigned;
    assigned = term;
    for (const OrvoSTerm* other : {&copy, static_cast<const OrvoSTerm*>(&assigned)}) {
        EXPECT_EQ(other->m_strName, L"冬至");
        EXPECT_EQ(other->m_strDate, L"12月22日");
        int degree = 0;
        int minute = 0;
        int second = 0;
        other->m_dgTime.getDegree(degree, minute, second);
        EXPECT_EQ(minute, 75);
        EXPECT_EQ(other->m_dgLat.getDegree(), -23.45);
    }
}

TEST(OrvoSTerm, ReadsItsDateAgainWhenTheTextChanges) {
    OrvoSTerm term;
    term.m_strDate = L"12月22日";
    EXPECT_EQ(term.GetMonthDay(), (MonthDay{12, 22}));
    term.m_strDate = L"12月21日";
    EXPECT_EQ(term.GetMonthDay(), (MonthDay{12, 21}));
    term.m_strDate = L"";
    EXPECT_EQ(term.GetMonthDay(), (MonthDay{0, 0}));
    term.m_strDate = L"2010年6月5日";
    EXPECT_EQ(term.GetMonthDay(), (MonthDay{6, 5}));
    OrvoSTerm other;
    other.m_strDate = L"1月2日";
    EXPECT_EQ(other.GetMonthDay(), (MonthDay{1, 2}));
    other = term;
    EXPECT_EQ(other.GetMonthDay(), (MonthDay{6, 5}));
}

TEST(ForeignTerms, HonourARewrittenDateAndAngle) {
    OrvoDate date(2011, 6, 21);
    bool exact = true;
    EXPECT_EQ(date.GetSTermIndex(exact), 11);
    EXPECT_FALSE(exact);
    date.GetTerm(12)->m_strDate = L"6月21日";
    date.GetTerm(12)->m_dgTime = 0.5;
    date.GetTerm(12)->m_dgLat = 1.5;
    EXPECT_EQ(date.GetSTermIndex(exact), 12);
    EXPECT_TRUE(exact);
    EXPECT_EQ(date.GetDgTime(), 0.5);
    EXPECT_EQ(date.GetDgLat(), 1.5);
    EXPECT_EQ(date.GetTermDayNum(12), 16);
}

TEST_F(OwnTable, IsHonouredAfterItReplacedTheBuiltInOne) {
    m_date.GetDgTime();
    m_date.m_listTerm.Reset();
    m_date.m_listLeapTerm.Reset();
    Add(L"12月1日", 1.0);
    Add(L"3月1日", 2.0, 7.0);
    EXPECT_EQ(TermOn(3, 1), 1);
    EXPECT_EQ(m_date.GetDgTime(), 2.0);
    EXPECT_EQ(m_date.GetDgLat(), 7.0);
}

TEST_F(OwnTable, IsFilledUpWhenOneOfTheTwoIsEmpty) {
    m_date.m_listTerm.Append(NewTerm(L"12月1日", 1.0, 0));
    EXPECT_EQ(m_date.GetTerm(0)->m_strDate, L"12月1日");
    EXPECT_EQ(m_date.m_listTerm.GetLength(), 25);
    EXPECT_EQ(m_date.m_listLeapTerm.GetLength(), 24);
    EXPECT_EQ(m_date.GetTerm(1)->m_strName, L"冬至");
}

TEST_F(OwnTable, MayBeShorterThanAYear) {
    Add(L"12月22日", 1.0);
    Add(L"1月6日", 2.0);
    Add(L"1月16日", 4.0);
    EXPECT_EQ(m_date.GetTerm(3), nullptr);
    EXPECT_EQ(TermOn(1, 11), 1);
    EXPECT_DOUBLE_EQ(m_date.GetDgTime(), 3.0);
    EXPECT_EQ(TermOn(8, 1), 2);
    EXPECT_EQ(m_date.GetDgTime(), 4.0) << "no next term to go to";
    EXPECT_EQ(TermOn(12, 25), 0);
    EXPECT_EQ(m_date.GetTermDayNum(1), 10);
    EXPECT_EQ(m_date.GetTermDayNum(2), 0);
    EXPECT_EQ(m_date.GetTermDayNum(23), 0);
    EXPECT_LE(std::abs(m_date.GetDgLat()), 23.75);
}

TEST_F(OwnTable, MayHoldASingleRow) {
    Add(L"6月1日", 1.5, 2.5);
    EXPECT_EQ(TimeOn(6, 1), 1.5);
    EXPECT_EQ(m_date.GetDgLat(), 2.5);
    EXPECT_EQ(TimeOn(3, 1), 1.5);
    EXPECT_EQ(TimeOn(9, 1), 1.5);
}

TEST_F(OwnTable, MayHaveHoles) {
    Add(L"12月22日", 1.0);
    AddHole();
    Add(L"1月20日", 3.0);
    AddHole();
    Add(L"2月20日", 5.0);
    EXPECT_EQ(m_date.GetTerm(1), nullptr);
    EXPECT_EQ(TermOn(1, 10), 0);
    EXPECT_EQ(m_date.GetDgTime(), 1.0);
    EXPECT_EQ(TermOn(2, 1), 2);
    EXPECT_EQ(m_date.GetDgTime(), 3.0);
    EXPECT_EQ(TermOn(2, 21), 4);
    EXPECT_EQ(m_date.GetTermDayNum(0), 15);
    EXPECT_EQ(m_date.GetTermDayNum(1), 0);
    EXPECT_EQ(m_date.GetTermDayNum(2), 0);
}

TEST_F(OwnTable, MayHoldNothingButHoles) {
    AddHole();
    AddHole();
    EXPECT_EQ(TermOn(6, 1), 0);
    EXPECT_EQ(m_date.GetTerm(0), nullptr);
    EXPECT_EQ(m_date.GetDgTime(), 0.0);
    EXPECT_LE(std::abs(m_date.GetDgLat()), 23.75);
    EXPECT_EQ(m_date.m_listTerm.GetLength(), 2);
}

TEST_F(OwnTable, IsReadFromItsFirst24RowsOnly) {
    Add(L"12月22日", 1.0);
    for (int row = 1; row < 24; ++row)
        Add(L"1月1日", 2.0);
    Add(L"5月1日", 3.0);
    EXPECT_EQ(TermOn(6, 1), 23);
    EXPECT_EQ(m_date.GetTerm(24), nullptr);
}

TEST_F(OwnTable, StaysFiniteWhenNoDayLiesBeforeTheNextTerm) {
    Add(L"12月22日", 1.0);
    Add(L"x", 2.0);
    Add(L"12月0日", 3.0);
    // Row 1 reads as day 0 of month 0: before June, but counted as a day of December, so that row 2 is no day later.
    EXPECT_EQ(TermOn(6, 1), 1);
    EXPECT_EQ(m_date.GetTermDayNum(1), 0);
    EXPECT_EQ(m_date.GetDgTime(), 2.0);
}

TEST_F(OwnTable, ReadsDatesThatAreNoneAsZero) {
    Add(L"no date", 1.0);
    Add(L"", 2.0);
    EXPECT_EQ(TermOn(0, 0), 0);
    EXPECT_TRUE(std::isfinite(TimeOn(6, 1)));
    EXPECT_TRUE(std::isfinite(TimeOn(12, 31)));
}
