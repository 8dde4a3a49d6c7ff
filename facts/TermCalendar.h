// The solar terms as the term file has them, for the day that somebody asks about.
#pragma once

#include "calendar/OrvoDate.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

inline constexpr int kTermCount = 24;

// Whether the term file as it was loaded (g_dictSunSterm) holds all terms of common and of leap years, each with a day
// and with numbers that are possible at all.
ORVO_API bool HasUsableTermFile();

// Fills the term tables of a date that has none yet: from the term file, or with the built-in ones when the file cannot
// be used.
ORVO_API void FillTerms(OrvoDate& date);

// The month and day of a term in the year of `date`.
ORVO_API OrvoDate DayOfTerm(OrvoDate& date, int index);

// The term in force on a day.
struct TermInForce {
    int index;      // 0 is the winter solstice
    bool isItsDay;  // the day is the term's own
    CString name;
    CString next;    // the following term's name
    int daysToNext;  // days until the following term's own day
};
ORVO_API TermInForce FindTermInForce(OrvoDate& date);
