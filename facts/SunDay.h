// Where the sun stands over a place on one day, as clock times.
#pragma once

#include "platform/base/Api.h"

// The course of the sun's centre over a flat horizon: no refraction, no height of the observer, and the declination of
// the day from morning to evening.
struct SunDay {
    enum class Kind {
        Ordinary,    // it rises and sets
        PolarDay,    // it does not set
        PolarNight,  // it does not rise
    };
    Kind kind;
    double noon;       // true solar noon
    double sunrise;    // the times are decimal hours of Beijing time (UTC+8); before 0 or from 24 on they fall on the
    double sunset;     // day before or after. Sunrise and sunset are only meaningful on an ordinary day.
    double dayLength;  // hours; 24 or 0 on polar days and nights
};

// True solar time is Beijing time + equation of time - (120 - longitude) / 15 hours.
//   declination, longitude, latitude: degrees, north and east positive; latitude within [-90, 90]
//   equationOfTime: true solar minus mean solar time, hours
ORVO_API SunDay ComputeSunDay(double declination, double equationOfTime, double longitude, double latitude);
