// Hours, days and numbers as texts for people.
#pragma once

#include <string>

#include "calendar/OrvoDate.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

// A time of day in decimal hours as HH:MM:SS, rounded to the second; a time before 0 or from 24 on is marked as one of
// the day before or after.
ORVO_API CString ClockText(double hours);

// A signed duration of less than some hours, such as "+1分53秒", rounded to the second.
ORVO_API CString MinutesText(double hours);

// "YYYY-MM-DD", whatever the numbers are.
ORVO_API std::string IsoDay(int year, int month, int day);
ORVO_API std::string IsoDay(const OrvoDate& date);
