// Dates as texts, day numbers, and what the terms tell about a day.
#include "calendar/OrvoDate.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "calendar/BuiltInTerms.h"
#include "calendar/Today.h"
#include "frame/Resources.h"
#include "platform/window/CComboBox.h"

namespace {

int ToInt(long long value) {
    return static_cast<int>(
        std::clamp<long long>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

// The day of the year, 1-based, without any check.
long long DayIndex(bool isLeapYear, MonthDay date) {
    const int month = date.month < 1 || date.month > 12 ? 12 : date.month;
    return static_cast<long long>(date.day) + kDaysBeforeMonth[static_cast<std::size_t>(month - 1)] +
           (isLeapYear && month > 2 ? 1 : 0);
}

OrvoSTerm* NewTerm(const BuiltInTerm& row, const wchar_t* date) {
    OrvoSTerm* term = new OrvoSTerm(CString(row.name));
    term->m_strDate = date;
    term->m_dgTime = row.equationOfTime;
    term->m_dgLat = row.declination;
    return term;
}

}  // namespace

OrvoDate::OrvoDate() {
    Reset();
}

OrvoDate::OrvoDate(int year, int month, int day) : m_nYear(year), m_nMonth(month), m_nDay(day) {}

OrvoDate::OrvoDate(const wchar_t* text) {
    SetDate(text);
}

OrvoDate::OrvoDate(const OrvoDate& other) = default;

// Assignment to oneself refills the tables like any other.
OrvoDate& OrvoDate::operator=(const OrvoDate& other) {
    m_nYear = other.m_nYear;
    m_nMonth = other.m_nMonth;
    m_nDay = other.m_nDay;
    LoadTermData();
    return *this;
}

void OrvoDate::Reset() {
    const CalendarDay today = g_pfnToday ? g_pfnToday() : LocalToday();
    m_nYear = today.year;
    m_nMonth = today.month;
    m_nDay = today.day;
}

CString OrvoDate::GetDateString() const {
    return FormatTranslated(L"%4d年%2d月%2d日", m_nYear, m_nMonth, m_nDay);
}

CString OrvoDate::GetDateXmlString() const {
    CString text;
    text.Format(L"%4d-%2d-%2d", m_nYear, m_nMonth, m_nDay);
    return text;
}

void OrvoDate::SetDate(const wchar_t* text) {
    Reset();
    const DateText parsed = ParseDateText(text);
    if (parsed.hasYear)
        m_nYear = parsed.year;
    m_nMonth = parsed.date.month;
    m_nDay = parsed.date.day;
}

void OrvoDate::SetXmlDate(const CString& text) {
    Reset();
    CStringArray parts;
    CutStrToArr(text, L"-", parts);
    if (parts.GetSize() == 3)
        SetDate(parts.GetAt(0) + L"年" + parts.GetAt(1) + L"月" + parts.GetAt(2) + L"日");
    else if (parts.GetSize() == 2)
        SetDate(parts.GetAt(0) + L"月" + parts.GetAt(1) + L"日");
}

void OrvoDate::LoadTermData() {
    for (const BuiltInTerm& row : kBuiltInTerms)
        m_listTerm.Append(NewTerm(row, row.commonDate));
    for (const BuiltInTerm& row : kBuiltInTerms)
        m_listLeapTerm.Append(NewTerm(row, row.leapDate));
}

QcPDList<OrvoSTerm>& OrvoDate::FilledTerms() {
    if (m_listTerm.IsEmpty() || m_listLeapTerm.IsEmpty())
        LoadTermData();
    return IsLeapYear() ? m_listLeapTerm : m_listTerm;
}

OrvoSTerm* OrvoDate::GetTerm(int index) {
    QcPDList<OrvoSTerm>& terms = FilledTerms();
    if (index < 0 || index >= kTermCount)
        return nullptr;
    OrvoSTerm* const* slot = terms.GetAt(index);
    return slot ? *slot : nullptr;
}

int OrvoDate::GetTermDayNum(int index) {
    if (index < 0 || index >= kTermCount)
        return 0;
    if (index == 0)
        return IsLeapYear() ? 16 : 15;
    const OrvoSTerm* term = GetTerm(index);
    const OrvoSTerm* next = GetTerm((index + 1) % kTermCount);
    if (!term || !next)
        return 0;
    return ToInt(DayIndex(IsLeapYear(), next->GetMonthDay()) - DayIndex(IsLeapYear(), term->GetMonthDay()));
}

int OrvoDate::GetSTermIndex(bool& exact) {
    exact = false;
    const QcPDList<OrvoSTerm>& terms = FilledTerms();
    const MonthDay date = GetMonthDay();
    int inForce = 0;
    int index = 0;
    for (OrvoSTerm* const* slot = terms.GetFirst(); slot && index < kTermCount; slot = terms.GetNext(slot), ++index) {
        const OrvoSTerm* term = *slot;
        if (!term)
            continue;
        const MonthDay start = term->GetMonthDay();
        exact = date == start;
        if (exact)
            return index;
        // The first row stands at the end of the calendar year: what comes behind it is in its term, and what comes
        // before it may be in any.
        if (index == 0 ? date > start : date < start)
            return inForce;
        inForce = index;
    }
    return inForce;
}

// Days that have passed since the day of the term in force.
double OrvoDate::DaysSinceTerm(int index, const OrvoSTerm& term) const {
    if (index != 0)
        return static_cast<double>(DayIndex(IsLeapYear(), GetMonthDay()) - DayIndex(IsLeapYear(), term.GetMonthDay()));
    // Across the end of the year the number of the day alone tells December from January.
    const double day = m_nDay;
    if (IsLeapYear())
        return m_nDay < 22 ? day + 10 : day - 21;
    return m_nDay < 23 ? day + 9 : day - 22;
}

double OrvoDate::GetDgTime() {
    bool exact = false;
    const int index = GetSTermIndex(exact);
    const OrvoSTerm* term = GetTerm(index);
    if (!term)
        return 0.0;
    if (exact)
        return term->m_dgTime.getDegree();
    const OrvoSTerm* next = GetTerm((index + 1) % kTermCount);
    const int span = GetTermDayNum(index);
    if (!next || span == 0)
        return term->m_dgTime.getDegree();
    const double slope = next->m_dgTime.getDegree() - term->m_dgTime.getDegree();
    return term->m_dgTime.getDegree() + DaysSinceTerm(index, *term) * slope / span;
}

double OrvoDate::GetDgLat() {
    bool exact = false;
    const int index = GetSTermIndex(exact);
    const OrvoSTerm* term = exact ? GetTerm(index) : nullptr;
    if (term)
        return term->m_dgLat.getDegree();
    const double day = GetDayIndex();
    return 23.75 * std::sin((day - 80.25) * (1.0 - day / 9500.0) * std::numbers::pi / 180.0);
}

int OrvoDate::GetDayIndex() const {
    return ToInt(DayIndex(IsLeapYear(), GetMonthDay()));
}

void OrvoDate::InitStermCombo(CComboBox& combo) {
    if (m_listTerm.IsEmpty())
        LoadTermData();
    for (OrvoSTerm* const* slot = m_listTerm.GetFirst(); slot; slot = m_listTerm.GetNext(slot))
        combo.AddString(*slot ? TranslateText((*slot)->m_strName) : CString());
}
