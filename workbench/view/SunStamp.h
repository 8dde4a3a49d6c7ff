// What a picture in the sun says of its moment: place, day, both times, and where the sun stands.
#pragma once

#include <QString>
#include <vector>

#include "calendar/CalendarDay.h"
#include "platform/base/CString.h"

struct SunDay;
struct SunPosition;

// `place` is the first line.
std::vector<QString> SunStamp(const CString& place, const CalendarDay& day, const SunDay& sun, double trueSolarTime);

// Where the sun stands, or that it is night.
QString SunPositionText(const SunPosition& sun);
