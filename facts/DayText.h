// Days: as a user types them, as files and answers write them, today, and out of the module's dates.
#pragma once

#include <optional>
#include <string>

#include "calendar/CalendarDay.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

class OrvoDate;

// Whether the day exists in the calendar (with the century rule of leap years; years 1 to 9999).
ORVO_API bool IsRealDay(const CalendarDay& day);

// Y-M-D, Y/M/D, Y.M.D or Y年M月D日 with ASCII digits, each part with or without leading zeros, and in the last form,
// which DayInWords writes, with blanks before a number; otherwise read strictly: none for other texts and for days that
// the calendar does not have.
ORVO_API std::optional<CalendarDay> ParseDay(const CString& text);

// "YYYY-MM-DD", whatever the numbers are.
ORVO_API std::string IsoDay(const CalendarDay& day);

// The day as the module writes it for people, in the interface's language: 2025年12月22日.
ORVO_API CString DayInWords(const CalendarDay& day);

// Today in the user's time zone, as the module's dates have it.
ORVO_API CalendarDay Today();

// The day of one of the module's dates, without its terms.
ORVO_API CalendarDay DayOf(const OrvoDate& date);
