// The sun of the day that is asked about, before anything stands in its way.
#pragma once

#include "analysis/DayRequest.h"
#include "analysis/HourSpans.h"
#include "analysis/SunPath.h"

// A place and a standard that are there, and a unit that is known; else the answer says what is missing.
bool CanBeAsked(const DayRequest& request, std::optional<double> millimetres, DayAnswer& answer);

struct DaysSun {
    SunPath path;
    SunPeriod span;  // true solar time; without a length when the span is no span
    HourSpans up;    // the hours of the span with the sun up, from an altitude (degrees) on
};

// With the span and what is to be said of it in the answer.
DaysSun FindDaysSun(const DayRequest& request, double leastAltitude, DayAnswer& answer);
