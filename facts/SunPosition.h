// Where the sun stands at a time: direction, altitude and azimuth.
#pragma once

#include <optional>

#include "platform/base/Api.h"

struct SunDay;

// The way to the sun, of length 1. (Light travels the other way.)
struct SunDirection {
    double east = 0.0;   // -1 to 1, like the others
    double north = 0.0;  // true north
    double up = 0.0;     // the sine of the altitude: negative below the horizon
};

// With the latitude p, the declination d and the hour angle H:
//
//     east  = -cos d sin H
//     north =  cos p sin d - sin p cos d cos H
//     up    =  sin p sin d + cos p cos d cos H
//
// the transformation of equatorial into horizontal coordinates that every textbook of spherical astronomy has. The time
// is true solar time in decimal hours; SunDay::TrueSolarTime makes it of Beijing time. Any time will do: the direction
// repeats after 24 hours.
//
// Error, measured at 936 directions that an independent almanac has (tests/facts/data): 0.0001 degrees with the
// almanac's own declination and hour angle. With the module's declination and equation of time, one of each for a day,
// at most 0.75 degrees there; against low-precision almanac formulas, every hour of daylight from 2021 to 2032, at most
// 0.85 degrees (in mid-February), 0.3 on December 22, 0.45 on January 20, and less than 0.3 on average. Left out:
// refraction, which lifts the sun by 0.5 degrees on the horizon and by 0.1 at 10 degrees, and the observer's height.
ORVO_API SunDirection DirectionOfSun(const SunDay& day, double trueSolarTime);

// Where the sun stands in the sky.
struct SunPosition {
    double altitude = 0.0;  // degrees above the horizon, negative below
    double azimuth = 0.0;   // degrees from north clockwise, within [0, 360): east 90, south 180, west 270
};

// From a direction of any length but 0. The altitude is atan2(up, hypot(east, north)), which keeps its digits near the
// zenith too; the azimuth atan2(east, north), 0 where the sun is in the zenith and has none.
ORVO_API SunPosition PositionOf(const SunDirection& direction);
// At a time in decimal hours of true solar time: PositionOf(DirectionOfSun(...)).
ORVO_API SunPosition PositionOfSun(const SunDay& day, double trueSolarTime);

// The length of the shadow on level ground of something one unit high, in that unit: cot altitude. None while the sun
// is not above the horizon.
ORVO_API std::optional<double> ShadowLength(const SunPosition& position);
