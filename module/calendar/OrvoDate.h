// The day of an analysis, and where the sun stands on it: a month and a day with the tables of the 24 solar terms.
// Why: docs/decisions/calendar.md
#pragma once

#include "calendar/OrvoSTerm.h"
#include "calendar/YearDays.h"
#include "containers/QcPDList.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

class CComboBox;
class QcDtDictionary;

// A date whose year only decides which days are counted and which table is in force: of common or of leap years, every
// fourth year without exception. Nothing is validated; any number gives some result, and day numbers that do not fit
// an int saturate.
//
// A table has 24 rows, from 冬至 (index 0) in December to 大雪 (index 23). A new date has none; the first look-up fills
// both with the built-in ones, unless LoadTermDataFromDict came before. Further rows may pile up behind (assignment
// adds the built-in ones each time) and are never looked at. A row may be missing, where a foreign file held fewer or
// somebody put a null into a list: look-ups pass over it.
class ORVO_API OrvoDate {
public:
    // Today, with empty tables.
    OrvoDate();
    // That day, whatever the numbers are, with empty tables.
    OrvoDate(int year, int month, int day);
    // As SetDate, with empty tables.
    OrvoDate(const wchar_t* text);
    // With copies of both tables.
    OrvoDate(const OrvoDate& other);
    // Takes year, month and day, and appends the built-in tables to this date's own; also when assigned to itself. The
    // tables of `other` are not taken.
    OrvoDate& operator=(const OrvoDate& other);

    // Puts today's local date (see Today.h); the tables stay.
    void Reset();

    // The fields alone, unchecked; the tables stay.
    int GetYear() const { return m_nYear; }
    int GetMonth() const { return m_nMonth; }
    void SetYear(int year) { m_nYear = year; }
    void SetMonth(int month) { m_nMonth = month; }
    void SetDay(int day) { m_nDay = day; }
    // Whether the year is a multiple of 4: 1900 and 2100 too.
    bool IsLeapYear() const { return IsFourthYear(m_nYear); }

    // By month and day; the year does not count.
    bool operator==(const OrvoDate& other) const { return GetMonthDay() == other.GetMonthDay(); }
    bool operator!=(const OrvoDate& other) const { return GetMonthDay() != other.GetMonthDay(); }
    bool operator<(const OrvoDate& other) const { return GetMonthDay() < other.GetMonthDay(); }
    bool operator>(const OrvoDate& other) const { return GetMonthDay() > other.GetMonthDay(); }

    // 2010年 6月22日: padded with blanks; the words pass through the language switch.
    CString GetDateString() const;
    // 2010- 6-22, padded with blanks, as files hold it. SetXmlDate reads it.
    CString GetDateXmlString() const;
    // Reads Y年M月D日; without 年 the year is today's. See DateText.h for texts that are not like that.
    void SetDate(const wchar_t* text);
    // Reads Y-M-D or M-D, the latter with today's year; any other number of parts gives today.
    void SetXmlDate(const CString& text);

    // Appends the built-in rows to both tables, whatever they hold.
    void LoadTermData();

    // A row of the table for this date's year, which stays the date's; null for an index outside 0 to 23 and for a row
    // that is missing. Fills the tables first when either is empty. (BuiltInTerms.h: how good the built-in rows are.)
    OrvoSTerm* GetTerm(int index);
    // Days from a term to the next: from index 0, across the end of the year, always 15 in a common and 16 in a leap
    // year, else by the table. 0 for an index outside 0 to 23 or where one of the two rows is missing.
    int GetTermDayNum(int index);
    // The term in force: the last one on or before this date. `exact` tells whether it is that very day. 0 where the
    // table has no row that could be.
    int GetSTermIndex(bool& exact);

    // Equation of time on this day (true less mean solar time), decimal hours: on a term's day its own E0; k days later
    // E0 + k (E1 - E0) / n, n days before the next term with E1. Where the next row is missing, or no day lies between
    // the two, the term's own; 0 when there is no term.
    //
    // Straight interpolation is this system's own rule. Error with the built-in rows, against the sun of the almanacs'
    // low-precision formulas at Beijing's noon on each day of 2001 to 2040: up to 35 seconds of time, 15 in the root
    // mean square. Interpolating alone takes up to 24 of them (in mid-November); the rest is the rows' own.
    double GetDgTime();
    // Declination of the sun on this day, decimal degrees, negative in the south: a term's own on its day; on all
    // others
    //
    //     23.75 sin((N - 80.25) (1 - N / 9500))    the angle in degrees, N = GetDayIndex()
    //
    // which is an empirical fit of unknown origin: a sine from the spring equinox whose pace slackens a little through
    // the year, and which reaches 0.3 degrees beyond the real sun's 23.44. Error, measured as that of the equation of
    // time: up to 0.75 degrees (in mid-February), 0.26 on average.
    //
    // The rows and the formula do not meet: from a term's day to its neighbours the declination jumps, beside its own
    // change, by a quarter of a degree at a typical term, at most by 0.50 in a common year (小满) and by 0.75 in a leap
    // year (谷雨).
    double GetDgLat();
    // Day of the year, January 1st being 1. Months outside 1 to 12 count as December.
    int GetDayIndex() const;

    // Adds the names of the whole table of common years, as it is, behind what the combo box holds: an entry's index is
    // its term's when the box was empty. Fills the tables first when that one is empty. A missing row gives an empty
    // entry.
    void InitStermCombo(CComboBox& combo);

    // Writes both tables into the dictionaries "常年节气" (common years) and "闰年节气" (leap years) below `dict`, in
    // place of what these held; empty tables give empty dictionaries. Rows of one name share one item, in which the
    // later one stays. False, with no row written, for null or when an item of another kind bears one of the names.
    bool SaveTermDatatoDict(QcDtDictionary* dict) const;
    // Appends the rows of both dictionaries to the tables, so start from a date whose tables are empty. False for null
    // or when either dictionary is missing; also at the first item that is no term, where the rows before it stay.
    bool LoadTermDataFromDict(QcDtDictionary* dict);

    int m_nYear;                         // decides which table is in force
    int m_nMonth;                        // 1 to 12
    int m_nDay;                          // 1 to 31
    QcPDList<OrvoSTerm> m_listTerm;      // the table of common years, which owns its rows
    QcPDList<OrvoSTerm> m_listLeapTerm;  // the table of leap years, likewise

private:
    MonthDay GetMonthDay() const { return {m_nMonth, m_nDay}; }
    QcPDList<OrvoSTerm>& FilledTerms();
    double DaysSinceTerm(int index, const OrvoSTerm& term) const;
};
