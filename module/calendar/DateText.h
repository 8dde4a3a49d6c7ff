// Reading the dates that people see and files hold: Y年M月D日, or M月D日 without a year.
#pragma once

#include "platform/base/CString.h"

// A day of any year, in calendar order. Not validated.
struct MonthDay {
    int month = 0;  // 1 to 12
    int day = 0;    // 1 to 31

    bool operator==(const MonthDay&) const = default;
    // Earlier, and later, in one year.
    bool operator<(const MonthDay& other) const { return month != other.month ? month < other.month : day < other.day; }
    bool operator>(const MonthDay& other) const { return other < *this; }
};

// What such a text says.
struct DateText {
    bool hasYear = false;  // whether it tells a year
    int year = 0;          // only when hasYear
    MonthDay date;         // 0 for a number that cannot be read
};

// The year is the number before the first 年, the month the one between 年 (without it: the start) and the first 月,
// the day the one between 月 (without it: the start) and the first 日. A number that is missing, unreadable or not in
// that order reads as 0.
DateText ParseDateText(const CString& date);
