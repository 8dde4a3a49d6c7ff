// The choice of the table, and the module's answers about a day as one value.
#include "facts/DayTerms.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "calendar/BuiltInTerms.h"
#include "calendar/OrvoDate.h"
#include "calendar/YearDays.h"
#include "facts/DayText.h"
#include "frame/ConfigDictionaries.h"
#include "platform/base/QcDtDictionary.h"

namespace {

// Any common and any leap year: it only chooses the table.
constexpr int kCommonYear = 2001;
constexpr int kLeapYear = 2004;

constexpr double kMostEquation = 24.0;     // hours
constexpr double kMostDeclination = 90.0;  // degrees

bool AreReasonable(double declination, double equationOfTime) {
    return std::abs(equationOfTime) <= kMostEquation && std::abs(declination) <= kMostDeclination;
}

bool IsUsable(const OrvoSTerm& term) {
    const MonthDay day = term.GetMonthDay();
    return day.month >= 1 && day.month <= 12 && day.day >= 1 && day.day <= 31 &&
           AreReasonable(term.m_dgLat.getDegree(), term.m_dgTime.getDegree());
}

bool IsUsable(OrvoDate& date) {
    for (int i = 0; i < kTermCount; ++i) {
        const OrvoSTerm* term = date.GetTerm(i);
        if (!term || !IsUsable(*term))
            return false;
    }
    return true;
}

// The date with the table that counts.
OrvoDate DateWithTerms(const CalendarDay& day) {
    OrvoDate date(day.year, day.month, day.day);
    if (HasUsableTermFile())
        date.LoadTermDataFromDict(&g_dictSunSterm);
    else
        date.LoadTermData();
    return date;
}

std::vector<SolarTerm> TableOf(OrvoDate& date) {
    std::vector<SolarTerm> table;
    for (int i = 0; i < kTermCount; ++i) {
        const OrvoSTerm& term = *date.GetTerm(i);
        const MonthDay day = term.GetMonthDay();
        table.push_back({i,
                         term.m_strName,
                         {date.m_nYear, day.month, day.day},
                         term.m_dgTime.getDegree(),
                         term.m_dgLat.getDegree()});
    }
    return table;
}

// In a type that takes the sum of two whatever the day is.
long long DayIndex(const CalendarDay& day) {
    return OrvoDate(day.year, day.month, day.day).GetDayIndex();
}

// Days from a day to a term's, which lies in the next year when it comes no later in this one; that year's own table
// then tells its day. A day that no calendar has may lie anywhere.
int DaysTo(std::size_t index, const DayTerms& terms) {
    long long days = DayIndex(terms.table[index].day) - DayIndex(terms.day);
    if (days <= 0) {
        const bool isNextLeapYear = IsFourthYear(static_cast<long long>(terms.day.year) + 1);
        OrvoDate nextYear = DateWithTerms({isNextLeapYear ? kLeapYear : kCommonYear, 1, 1});
        days = DaysOfYear(terms.isLeapYear) - DayIndex(terms.day) + DayIndex(TableOf(nextYear)[index].day);
    }
    return static_cast<int>(std::clamp<long long>(days, 0, std::numeric_limits<int>::max()));
}

}  // namespace

bool HasUsableTermFile() {
    OrvoDate common(kCommonYear, 1, 1);
    if (!common.LoadTermDataFromDict(&g_dictSunSterm))
        return false;
    if (common.m_listTerm.GetLength() < kTermCount || common.m_listLeapTerm.GetLength() < kTermCount)
        return false;
    OrvoDate leap(common);
    leap.SetYear(kLeapYear);
    return IsUsable(common) && IsUsable(leap);
}

bool DayTerms::IsReasonable() const {
    return AreReasonable(declination, equationOfTime);
}

DayTerms TermsFor(const CalendarDay& day) {
    OrvoDate date = DateWithTerms(day);
    DayTerms terms;
    terms.day = day;
    terms.isLeapYear = date.IsLeapYear();
    terms.table = TableOf(date);
    const std::size_t index = static_cast<std::size_t>(date.GetSTermIndex(terms.isItsDay));
    const std::size_t next = (index + 1) % kTermCount;
    terms.term = terms.table[index];
    terms.next = terms.table[next].name;
    terms.daysToNext = DaysTo(next, terms);
    terms.declination = date.GetDgLat();
    terms.equationOfTime = date.GetDgTime();
    return terms;
}
