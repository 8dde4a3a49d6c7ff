// Term tables and the term in force.
#include "facts/TermCalendar.h"

#include <cmath>

#include "frame/ConfigDictionaries.h"
#include "platform/base/QcDtDictionary.h"

namespace {

// Any common and any leap year: it only chooses the table.
constexpr int kCommonYear = 2001;
constexpr int kLeapYear = 2004;

constexpr double kMostEquation = 24.0;     // hours
constexpr double kMostDeclination = 90.0;  // degrees

bool IsUsable(const OrvoSTerm& term) {
    const MonthDay day = term.GetMonthDay();
    return day.month >= 1 && day.month <= 12 && day.day >= 1 && day.day <= 31 &&
           std::abs(term.m_dgTime.getDegree()) <= kMostEquation &&
           std::abs(term.m_dgLat.getDegree()) <= kMostDeclination;
}

bool IsUsable(OrvoDate& date) {
    for (int i = 0; i < kTermCount; ++i) {
        const OrvoSTerm* term = date.GetTerm(i);
        if (!term || !IsUsable(*term))
            return false;
    }
    return true;
}

int DaysOfYear(const OrvoDate& date) {
    return date.IsLeapYear() ? 366 : 365;
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

void FillTerms(OrvoDate& date) {
    if (HasUsableTermFile())
        date.LoadTermDataFromDict(&g_dictSunSterm);
    else
        date.LoadTermData();
}

OrvoDate DayOfTerm(OrvoDate& date, int index) {
    const OrvoSTerm* term = date.GetTerm(index);
    const MonthDay day = term ? term->GetMonthDay() : MonthDay();
    return OrvoDate(date.m_nYear, day.month, day.day);
}

TermInForce FindTermInForce(OrvoDate& date) {
    TermInForce found = {};
    found.index = date.GetSTermIndex(found.isItsDay);
    const int nextIndex = (found.index + 1) % kTermCount;
    if (const OrvoSTerm* term = date.GetTerm(found.index))
        found.name = term->m_strName;
    if (const OrvoSTerm* next = date.GetTerm(nextIndex))
        found.next = next->m_strName;

    const OrvoDate next = DayOfTerm(date, nextIndex);
    found.daysToNext = next.GetDayIndex() - date.GetDayIndex();
    if (found.daysToNext <= 0) {  // the next term lies in the next year, whose own table tells its day
        OrvoDate nextYear(date.m_nYear + 1, 1, 1);
        FillTerms(nextYear);
        found.daysToNext = DaysOfYear(date) - date.GetDayIndex() + DayOfTerm(nextYear, nextIndex).GetDayIndex();
    }
    return found;
}
