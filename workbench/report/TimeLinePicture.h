// The time lines of a report: a window's day as a bar, and the scale over many of them.
#pragma once

#include <string>
#include <vector>

#include "analysis/SunPeriod.h"

struct HiddenPeriod;
struct WindowHours;

// How the stretches look is the page's matter (PageStyle.h): "g" are the full hours, "h" what is hidden, "x" what a
// project takes, "s" what is lit, "c" what counts of that. Lower bars stand behind higher ones, so that the kinds can
// be told without colours.

// The bar of `hours` within `span`; `lost` as WindowResult has it, or null.
struct TimeLine {
    SunPeriod span;
    const WindowHours& hours;
    const std::vector<HiddenPeriod>* lost = nullptr;
};
std::string DrawTimeLine(const TimeLine& line);

// The full hours of both times, each where it stands over the bars: those of clocks are `offset` hours later.
std::string DrawTimeScale(SunPeriod span, double offset);
