// What the solar terms say of a day: declination and equation of time, the term in force, the whole year's table.
// Why: docs/decisions/facts.md
#pragma once

#include <vector>

#include "calendar/CalendarDay.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

// One of the 24 terms, on its day in one year.
struct SolarTerm {
    int index = 0;                // 0 is the winter solstice
    CString name;                 // such as 冬至: as built in or read, to be translated where it is shown
    CalendarDay day = {};         // of that year
    double equationOfTime = 0.0;  // true solar minus mean solar time, hours
    double declination = 0.0;     // degrees, north positive
};

// A plain value: read on the module's thread, then anybody's.
struct ORVO_API DayTerms {
    CalendarDay day = {};          // that was asked for
    bool isLeapYear = false;       // as the module counts them: every fourth year
    std::vector<SolarTerm> table;  // the year's 24 terms by their index, the winter solstice of its December first

    SolarTerm term;             // the one in force: the last one on or before the day
    bool isItsDay = false;      // the day is the term's own
    CString next;               // the following term's name
    int daysToNext = 0;         // until the following term's own day; not negative, whatever the day is
    double declination = 0;     // of the day, degrees, north positive
    double equationOfTime = 0;  // of the day, hours

    // Whether both numbers are possible at all; a table that somebody wrote may make others of them.
    bool IsReasonable() const;
};

// The one rule of which table counts, for everybody: the term file's (g_dictSunSterm, as the module has read it), or
// the built-in one where that file cannot be used. OrvoDate by itself, such as g_SunDataSet.CurDate(), knows the
// built-in one alone. Declination and equation of time are the module's own: OrvoDate.h tells their formulas and
// errors.
ORVO_API DayTerms TermsFor(const CalendarDay& day);

// Whether the term file holds all terms of common and of leap years, each with a day and with numbers that are possible
// at all.
ORVO_API bool HasUsableTermFile();
