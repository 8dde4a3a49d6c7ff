// Where the calendar gets today's date from.
#pragma once

#include "calendar/CalendarDay.h"
#include "platform/base/Api.h"

// Gives a day that counts as today's. Must not throw.
using TodayFunction = CalendarDay (*)();

// Today in the local time zone, by the system's clock. 1970-01-01 when the system cannot tell.
CalendarDay LocalToday();

// What OrvoDate asks for today's date: LocalToday, unless somebody (a test, a host with a clock of its own) puts
// another function here; null stands for LocalToday too. Ready before any constructor of a static object runs.
extern ORVO_API TodayFunction g_pfnToday;
