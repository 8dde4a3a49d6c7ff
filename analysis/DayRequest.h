// What every analysis of a day asks, whatever the sun shines on, and what it tells besides.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "analysis/AnalysisRemark.h"
#include "analysis/SunPeriod.h"
#include "analysis/TuningParameters.h"
#include "facts/DayTerms.h"
#include "facts/Settings.h"
#include "platform/base/CString.h"
#include "scene/LayerHeight.h"

// The numbers are the caller's to check: finite, and within the ranges given here; whatever the settings, the standard
// and the drawing hold is checked and remarked on.
struct DayRequest {
    Settings settings;   // place, day, rules: the place and the standard must be there
    DayTerms terms;      // of settings.Day()
    double north = 0.0;  // degrees, of any turn: true north lies that far counter-clockwise of the drawing's y axis
    std::optional<double> need;    // hours of judged sun that are asked for, above 0
    std::optional<double> facing;  // degrees from true east, counter-clockwise: for what stands upright and does not
                                   // tell which side of it is outside
    std::vector<LayerHeight> heights;     // metres above 0; each layer once
    std::optional<double> leastAltitude;  // degrees, [0, 90): the sun counts from this altitude on
    unsigned threads = 0;                 // at most 256; 0: one for each core. The answer is the same with any number
    TuningParameters tuning = CurrentTuningParameters();  // as they stand when the question is put together
};

// Why there is no answer.
enum class AnalysisFailure {
    None,            // there is one
    NoPlace,         // settings.place is missing or off the globe
    NoStandard,      // settings.standard is missing
    TooManyWindows,  // more than kMostWindows, those of repeated storeys among them
    TooManyPoints,   // more than kMostPoints
    UnknownUnit,     // the drawing's unit is none that lengths are measured in: `unit`
    Cancelled,       // by the caller
};

// What every analysis answers. A plain value; with a failure it has no results, only why.
struct DayAnswer {
    AnalysisFailure failure = AnalysisFailure::None;  // why there is no answer
    CString unit;                                     // of the drawing, by name; only with UnknownUnit
    SunPeriod span;                                   // that was analysed, true solar time
    double beijingOffset = 0.0;                       // hours to add to true solar time for Beijing's
    std::vector<AnalysisRemark> remarks;              // what there is to know beside the numbers
};

// Whether to go on, told now and then how many of how many are done, on the thread of who asks: 0 of 0 at first, while
// nobody knows how many there are.
using AnalysisProgress = std::function<bool(std::size_t done, std::size_t total)>;
