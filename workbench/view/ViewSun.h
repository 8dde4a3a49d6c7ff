// The sun that a view shows: of which day and place, at which moment.
#pragma once

#include <vector>

#include "facts/SunDay.h"
#include "workbench/view/ScenePainter.h"

// A plain value. Times are decimal hours of true solar time.
struct ViewSun {
    SunDay day;
    double north = 0.0;           // degrees: true north lies that far counter-clockwise of the drawing's y axis
    double trueSolarTime = 12.0;  // the moment
    double shownLater = 0.0;      // hours to add to true solar time for the clock that people are shown
};

bool operator==(const ViewSun& a, const ViewSun& b);

// The sun's direction in the drawing's axes.
SceneSun SunInDrawing(const SunDay& day, double north, double trueSolarTime);

// A place of the sun's path, by the clock that people are shown.
struct PathHour {
    int hour = 0;  // 0 to 23
    double trueSolarTime = 0.0;
};

// The whole hours at which the sun is above the horizon, those of one day.
std::vector<PathHour> HoursOfPath(const ViewSun& sun);
