// The sun's day over a place: noon, rise and set, and the way between the two time bases.
// Why: docs/decisions/facts.md
#pragma once

#include "platform/base/Api.h"

struct DayTerms;
struct Place;

// The course of the sun's centre over a flat horizon: no refraction, no height of the observer, and one declination and
// one equation of time from midnight to midnight. A plain value. Times are decimal hours and may lie before 0 or from
// 24 on, where they fall on the day before or after.
//
// Two time bases: true solar time, in which the sun is highest at 12, and Beijing time (UTC+8, the mean solar time of
// 120 degrees east):
//
//     true solar time = Beijing time + equation of time - (120 - longitude) / 15
//
// The horizon's hour angle H (15 degrees an hour from noon) has sin p sin d + cos p cos d cos H = 0 for the latitude p
// and the declination d: the altitude's formula in SunPosition.h for the altitude 0.
//
// Error: the formulas are exact for a sun that keeps its declination and its equation of time for the day. The real one
// moves by up to 0.1 degrees in the six hours before noon (around the equinoxes), which is worth some 17 seconds of
// sunrise at 35 degrees of latitude. Almanacs count refraction and the sun's upper limb, so that their days are longer:
// in China by 7 (south) to 15 minutes (north, in winter). How far the module's declination and equation of time are
// from the almanac's stands in OrvoDate.h.
struct ORVO_API SunDay {
    // What the sun does at the horizon.
    enum class Kind {
        Ordinary,    // it rises and sets
        PolarDay,    // it does not set
        PolarNight,  // it does not rise
    };

    // What the day was computed from.
    double declination = 0.0;     // degrees, north positive
    double equationOfTime = 0.0;  // true solar minus mean solar time, hours
    double longitude = 0.0;       // degrees, east positive
    double latitude = 0.0;        // degrees, north positive

    Kind kind = Kind::Ordinary;  // tells whether there is a sunrise
    double noon = 0.0;           // true solar noon, Beijing time
    double sunrise = 0.0;        // Beijing time; sunrise and sunset are only meaningful on an ordinary day
    double sunset = 0.0;         // Beijing time
    double dayLength = 0.0;      // hours; 24 or 0 on polar days and nights

    // From one time base to the other, decimal hours; any time will do, also one before 0 or from 24 on.
    double TrueSolarTime(double beijingTime) const { return beijingTime - noon + 12.0; }
    double BeijingTime(double trueSolarTime) const { return trueSolarTime - 12.0 + noon; }
};

// Degrees, but for the equation of time, which is in hours. The latitude is within [-90, 90]. At a pole on an equinox,
// where the sun goes round on the horizon, rounding decides what kind of day it is.
ORVO_API SunDay ComputeSunDay(double declination, double equationOfTime, double longitude, double latitude);
// With the day's own numbers and the place's. Both are the caller's to check (IsReasonable, IsOnTheGlobe).
ORVO_API SunDay ComputeSunDay(const DayTerms& terms, const Place& place);
