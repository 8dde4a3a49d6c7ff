// Hours, days and numbers as texts for people.
#pragma once

#include <string>

#include "calendar/OrvoDate.h"
#include "platform/base/CString.h"

// A time of day in decimal hours as HH:MM:SS, rounded to the second; a time before 0 or from 24 on is marked as one of
// the day before or after.
CString ClockText(double hours);

// A signed duration of less than some hours, such as "+1分53秒", rounded to the second.
CString MinutesText(double hours);

// "YYYY-MM-DD", whatever the numbers are.
std::string IsoDay(int year, int month, int day);
std::string IsoDay(const OrvoDate& date);
