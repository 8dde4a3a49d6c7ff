// How a sky lies on its paper: directions to the right, altitudes upwards, both in the same degrees.
#pragma once

#include "analysis/SkyOutlines.h"
#include "workbench/report/PaperOutline.h"

// Compass directions are degrees from true north, clockwise.
struct SkyFrame {
    PaperBox frame;
    double middle = 180.0;   // the compass direction in the middle: the one of the sun at noon
    double half = 90.0;      // degrees to either side, at most 180
    double top = 60.0;       // degrees of altitude
    double outward = 180.0;  // the compass direction straight out of the wall
    double unitsPerDegree = 1.0;

    // From the middle, within (-180, 180].
    double FromMiddle(double compass) const;
    PaperPoint Point(double fromMiddle, double altitude) const;
};

struct SunPosition;
// The same of the sun; in the zenith, where it has no direction, 0.
double FromMiddle(const SkyFrame& frame, const SunPosition& sun);

// An angle within (-180, 180].
double HalfTurn(double degrees);

struct SkyPicture;
struct SunDay;
// As wide as the picture, showing all of the day's sun and what is before the window as far as the sun comes.
SkyFrame LayOutSky(const SkyPicture& picture, const SunDay& sun);

// The middle of the window, of its judged part, or of its sill, as it is analysed; and the compass direction of its
// facing.
SkyEye EyeOf(const SkyPicture& picture);
double OutwardOf(const SkyPicture& picture);
