// What a standard counts of the sun that reaches a window.
// Why: docs/decisions/analysis.md
#pragma once

#include <vector>

#include "analysis/HourSpans.h"
#include "analysis/WindowResult.h"

struct Settings;
struct Standard;

struct SunCount {
    std::vector<SunPeriod> stepped;
    std::vector<SunPeriod> counted;
    std::vector<DroppedPeriod> dropped;  // by the step; in order of time
    double total = 0.0;                  // minutes
    double longest = 0.0;
    double judged = 0.0;
};

// The span to analyse, of the standard or else of the settings, in true solar time. False when it is no span within a
// day of its clock: `span` is then what was asked for, as long as that is two numbers. `beijingOffset` is added to true
// solar time for Beijing's.
bool SpanOf(const Settings& settings, double beijingOffset, SunPeriod& span);
// Whether the standard's step is a time. However short, it costs nothing.
bool IsStep(double minutes);

// `sunlit` lies in the span. Steps count from the span's start.
SunCount CountSun(const HourSpans& sunlit, SunPeriod span, const Standard& standard);

// The colour of a duration in the standard's table.
int ColorOf(const Standard& standard, double minutes);
