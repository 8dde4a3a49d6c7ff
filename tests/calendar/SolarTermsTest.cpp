// Where a day stands among the terms, and what the sun does on it.
#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <cmath>
#include <numbers>
#include <vector>

#include "ExpectedTerms.h"
#include "FixedToday.h"
#include "calendar/OrvoDate.h"

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year;

// The calendar told once more, by counting days on a time line: the terms of a year between the winter terms of that
// year and of the year before.
class TimeLine {
public:
    explicit TimeLine(int yearNumber) : m_isLeap(yearNumber % 4 == 0) {
        m_starts.push_back({DayOf(yearNumber - 1, kExpectedTerms[0]), 0});
        for (int index = 1; index < 24; ++index)
            m_starts.push_back({DayOf(yearNumber, kExpectedTerms[index]), index});
        m_starts.push_back({DayOf(yearNumber, kExpectedTerms[0]), 0});
        m_starts.push_back({DayOf(yearNumber + 1, kExpectedTerms[1]), 1});
    }

    struct Place {
        int index = 0;
        int daysSince = 0;
        int gap = 0;
    };
    Place Find(sys_days day) const {
        std::size_t last = 0;
        for (std::size_t at = 0; at < m_starts.size(); ++at)
            if (m_starts[at].day <= day)
                last = at;
        return {m_starts[last].index, static_cast<int>((day - m_starts[last].day).count()),
                static_cast<int>((m_starts[last + 1].day - m_starts[last].day).count())};
    }

private:
    struct Start {
        sys_days day;
        int index;
    };
    sys_days DayOf(int yearNumber, const ExpectedTerm& term) const {
        return year{yearNumber} / term.month / (m_isLeap ? term.leapDay : term.day);
    }

    bool m_isLeap;
    std::vector<Start> m_starts;
};

struct EveryDay {
    sys_days day;
    int number;  // in the year, from 1
    OrvoDate date;
};

std::vector<EveryDay> DaysOf(int yearNumber) {
    std::vector<EveryDay> all;
    const sys_days start = year{yearNumber} / 1 / 1;
    for (sys_days day = start; day < sys_days(year{yearNumber + 1} / 1 / 1); day += days{1}) {
        const std::chrono::year_month_day parts(day);
        all.push_back(
            {day, static_cast<int>((day - start).count()) + 1,
             OrvoDate(yearNumber, static_cast<int>(unsigned(parts.month())), static_cast<int>(unsigned(parts.day())))});
    }
    return all;
}

int TermOf(OrvoDate date, bool expectExact) {
    bool exact = !expectExact;
    const int index = date.GetSTermIndex(exact);
    EXPECT_EQ(exact, expectExact);
    return index;
}

}  // namespace

TEST(SolarTerms, AreInForceFromTheirDayToTheDayBeforeTheNext) {
    for (const int yearNumber : {2011, 2012}) {
        const TimeLine line(yearNumber);
        for (EveryDay& each : DaysOf(yearNumber)) {
            const TimeLine::Place place = line.Find(each.day);
            bool exact = false;
            EXPECT_EQ(each.date.GetSTermIndex(exact), place.index) << yearNumber << " day " << each.number;
            EXPECT_EQ(exact, place.daysSince == 0) << yearNumber << " day " << each.number;
        }
    }
}

TEST(SolarTerms, InterpolateTheEquationOfTimeBetweenTheirDays) {
    for (const int yearNumber : {2011, 2012}) {
        const TimeLine line(yearNumber);
        for (EveryDay& each : DaysOf(yearNumber)) {
            const TimeLine::Place place = line.Find(each.day);
            const double from = kExpectedTerms[place.index].equationOfTime;
            const double to = kExpectedTerms[(place.index + 1) % 24].equationOfTime;
            const double expected = std::lerp(from, to, static_cast<double>(place.daysSince) / place.gap);
            EXPECT_NEAR(each.date.GetDgTime(), expected, 1e-15) << yearNumber << " day " << each.number;
        }
    }
}

TEST(SolarTerms, TakeTheDeclinationFromTheTableOnTheirDayAndFromAFormulaOtherwise) {
    for (const int yearNumber : {2011, 2012}) {
        const TimeLine line(yearNumber);
        for (EveryDay& each : DaysOf(yearNumber)) {
            const TimeLine::Place place = line.Find(each.day);
            const long double turn = (each.number - 80.25L) * (9500.0L - each.number) / 9500.0L;
            const double byFormula =
                static_cast<double>(23.75L * std::sin(turn * std::numbers::pi_v<long double> / 180));
            if (place.daysSince == 0)
                EXPECT_EQ(each.date.GetDgLat(), kExpectedTerms[place.index].declination)
                    << yearNumber << " day " << each.number;
            else
                EXPECT_NEAR(each.date.GetDgLat(), byFormula, 1e-12) << yearNumber << " day " << each.number;
        }
    }
}

TEST(SolarTerms, GiveTheDeclinationsThatWereComputedByHand) {
    const struct {
        int year, month, day;
        double declination;
    } samples[] = {{2011, 6, 21, 23.74997144869594},    {2011, 1, 1, -23.33255171094053},
                   {2011, 12, 31, -23.697520667253407}, {2012, 2, 29, -8.170522039257943},
                   {2012, 12, 31, -23.668735713640736}, {2011, 10, 1, -3.3717810889306246}};
    for (const auto& sample : samples)
        EXPECT_NEAR(OrvoDate(sample.year, sample.month, sample.day).GetDgLat(), sample.declination, 1e-12)
            << sample.year << '-' << sample.month << '-' << sample.day;
}

TEST(SolarTerms, KnowMidsummerOfALeapYear) {
    OrvoDate date(2012, 6, 21);
    EXPECT_EQ(TermOf(date, true), 12);
    EXPECT_EQ(date.GetDgLat(), 23.45);
    EXPECT_EQ(date.GetDgTime(), -0.028889);
}

TEST(SolarTerms, KnowTheDayBeforeMidsummerOfACommonYear) {
    OrvoDate date(2011, 6, 21);
    EXPECT_EQ(TermOf(date, false), 11);
    EXPECT_EQ(date.GetTerm(11)->m_strName, L"芒种");
    EXPECT_DOUBLE_EQ(date.GetDgLat(), 23.75 * std::sin((172 - 80.25) * (1 - 172 / 9500.0) * std::numbers::pi / 180));
}

TEST(SolarTerms, ReachAcrossTheEndOfTheYear) {
    EXPECT_EQ(TermOf(OrvoDate(2011, 12, 22), true), 0);
    EXPECT_EQ(TermOf(OrvoDate(2011, 12, 21), false), 23);
    EXPECT_EQ(TermOf(OrvoDate(2012, 12, 21), true), 0);
    EXPECT_EQ(TermOf(OrvoDate(2011, 12, 25), false), 0);
    EXPECT_EQ(TermOf(OrvoDate(2011, 1, 3), false), 0);
    EXPECT_EQ(TermOf(OrvoDate(2011, 1, 6), true), 1);
    const double start = 0.031389;
    const double slope = -0.091111 - 0.031389;
    EXPECT_NEAR(OrvoDate(2011, 12, 25).GetDgTime(), start + 3 * slope / 15, 1e-15);
    EXPECT_NEAR(OrvoDate(2011, 1, 3).GetDgTime(), start + 12 * slope / 15, 1e-15);
    EXPECT_NEAR(OrvoDate(2012, 12, 25).GetDgTime(), start + 4 * slope / 16, 1e-15);
    EXPECT_NEAR(OrvoDate(2012, 1, 3).GetDgTime(), start + 13 * slope / 16, 1e-15);
}

// Over the end of the year only the number of the day decides on which side of it a date lies, so a day that the first
// term should not reach is taken as one of January. Only a table of one's own gets there.
TEST(SolarTerms, TellDecemberFromJanuaryByTheDayAlone) {
    const struct {
        int year, day, daysSince, gap;
    } samples[] = {{2011, 21, 30, 15}, {2011, 22, 31, 15}, {2011, 23, 1, 15},
                   {2012, 20, 30, 16}, {2012, 21, 31, 16}, {2012, 22, 1, 16}};
    for (const auto& sample : samples) {
        OrvoDate date(sample.year, 12, sample.day);
        date.GetTerm(0)->m_strDate = L"12月10日";
        EXPECT_NEAR(date.GetDgTime(), 0.031389 + sample.daysSince * (-0.091111 - 0.031389) / sample.gap, 1e-14)
            << sample.year << "-12-" << sample.day;
    }
}

TEST(SolarTerms, CountTheDaysToTheNextTerm) {
    for (const int yearNumber : {2011, 2012}) {
        const TimeLine line(yearNumber);
        OrvoDate date(yearNumber, 5, 5);
        for (EveryDay& each : DaysOf(yearNumber)) {
            const TimeLine::Place place = line.Find(each.day);
            EXPECT_EQ(date.GetTermDayNum(place.index), place.gap) << yearNumber << " term " << place.index;
        }
    }
    EXPECT_EQ(OrvoDate(2011, 1, 1).GetTermDayNum(0), 15);
    EXPECT_EQ(OrvoDate(2012, 1, 1).GetTermDayNum(0), 16);
    EXPECT_EQ(OrvoDate(2011, 1, 1).GetTermDayNum(23), 15);
    EXPECT_EQ(OrvoDate(2012, 1, 1).GetTermDayNum(23), 14);
}

TEST(SolarTerms, DoNotDependOnToday) {
    for (const int todaysYear : {2023, 2024}) {
        const FixedToday today(todaysYear, 2, 28);
        OrvoDate date(2012, 3, 1);
        EXPECT_EQ(date.GetTermDayNum(4), 15);
        EXPECT_EQ(OrvoDate(2011, 3, 1).GetTermDayNum(4), 15);
        EXPECT_NEAR(date.GetDgTime(), -0.2325 + 11 * (-0.192222 + 0.2325) / 15, 1e-15);
    }
}

TEST(SolarTerms, FillEmptyTablesAtTheFirstLookUp) {
    bool exact = false;
    OrvoDate byTerm(2011, 6, 1);
    byTerm.GetTerm(0);
    OrvoDate byIndex(2011, 6, 1);
    byIndex.GetSTermIndex(exact);
    OrvoDate byDays(2011, 6, 1);
    byDays.GetTermDayNum(3);
    OrvoDate byTime(2011, 6, 1);
    byTime.GetDgTime();
    OrvoDate byLatitude(2011, 6, 1);
    byLatitude.GetDgLat();
    for (const OrvoDate* date : {&byTerm, &byIndex, &byDays, &byTime, &byLatitude}) {
        EXPECT_EQ(date->m_listTerm.GetLength(), 24);
        EXPECT_EQ(date->m_listLeapTerm.GetLength(), 24);
    }
    byTerm.GetDgTime();
    EXPECT_EQ(byTerm.m_listTerm.GetLength(), 24);
}

TEST(SolarTerms, AnswerForDatesThatDoNotExist) {
    for (const int yearNumber : {2011, 2012, INT_MIN, INT_MAX})
        for (const int month : {INT_MIN, -1, 0, 2, 12, 13, INT_MAX})
            for (const int day : {INT_MIN, -1, 0, 30, 31, 32, INT_MAX}) {
                OrvoDate date(yearNumber, month, day);
                bool exact = true;
                const int index = date.GetSTermIndex(exact);
                EXPECT_GE(index, 0);
                EXPECT_LT(index, 24);
                EXPECT_FALSE(exact && month != 2 && month != 12);
                EXPECT_TRUE(std::isfinite(date.GetDgTime()));
                EXPECT_LE(std::abs(date.GetDgLat()), 23.75);
            }
}

TEST(SolarTerms, GiveNoRowOutsideTheTable) {
    OrvoDate date(2011, 1, 1);
    date.LoadTermData();
    date.LoadTermData();
    for (const int index : {-1, 24, 25, 47, INT_MIN, INT_MAX}) {
        EXPECT_EQ(date.GetTerm(index), nullptr) << index;
        EXPECT_EQ(date.GetTermDayNum(index), 0) << index;
    }
}
