// The dates, times and numbers that a user types, read strictly: a value that is not exactly what it should be is
// refused, never guessed.
#pragma once

#include <optional>

#include "platform/base/CString.h"

struct Day {
    int year;
    int month;
    int day;
};

// Whether the day exists in the calendar (with the century rule of leap years; years 1 to 9999).
bool IsRealDay(const Day& day);

// Y-M-D with ASCII digits, each part with or without leading zeros. None for other texts and for days that the calendar
// does not have.
std::optional<Day> ParseDay(const CString& text);

// H:MM or HH:MM from 0:00 to 24:00, in whole minutes since midnight.
std::optional<int> ParseClock(const CString& text);

// A whole number from `least` to `most`, digits only.
std::optional<int> ParseWhole(const CString& text, int least, int most);

// Today in the user's time zone.
Day Today();
