// What orvo sun answers: where the sun stands through one day, and the two ways of telling it.
#pragma once

#include <vector>

#include "facts/DayTerms.h"
#include "facts/Settings.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"

class Output;

struct SunAnswer {
    enum class Event { None, Sunrise, Noon, Sunset };

    struct Moment {
        double trueSolarTime;  // decimal hours
        Event event;
    };

    // The settings have a place. The moments are the full steps (minutes) of true solar time, counted from midnight,
    // while the sun is up, with sunrise and sunset around them, and noon in any case.
    SunAnswer(const Settings& askedSettings, const DayTerms& dayTerms, int step);

    void PrintAsText(Output& output) const;
    void PrintAsJson(Output& output) const;

    Settings settings;
    DayTerms terms;
    SunDay sun;
    int step;
    std::vector<Moment> moments;
};
