// The dates and times that a user types, read strictly: a value that is not exactly what it should be is
// refused, never guessed.
#pragma once

#include <optional>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

struct Day {
    int year;
    int month;
    int day;
};

// Whether the day exists in the calendar (with the century rule of leap years; years 1 to 9999).
ORVO_API bool IsRealDay(const Day& day);

// Y-M-D with ASCII digits, each part with or without leading zeros. None for other texts and for days that the calendar
// does not have.
ORVO_API std::optional<Day> ParseDay(const CString& text);

// H:MM or HH:MM from 0:00 to 24:00, in whole minutes since midnight.
ORVO_API std::optional<int> ParseClock(const CString& text);

// Today in the user's time zone.
ORVO_API Day Today();
