// Which windows of a drawing get the sun they must have, when, and what takes it from the others.
// Why: docs/decisions/analysis.md
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "analysis/AnalysisRemark.h"
#include "analysis/PlanRules.h"
#include "analysis/SunPeriod.h"
#include "analysis/UsualWindowLayers.h"
#include "analysis/WindowResult.h"
#include "facts/DayTerms.h"
#include "facts/Settings.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "scene/LayerHeight.h"

class AcDbDatabase;

// What is asked. A plain value. Its numbers are the caller's to check: finite, and within the ranges given here;
// whatever the settings, the standard and the drawing hold is checked and remarked on.
struct AnalysisRequest {
    Settings settings;   // place, day, rules: the place and the standard must be there
    DayTerms terms;      // of settings.Day()
    double north = 0.0;  // degrees, of any turn: true north lies that far counter-clockwise of the drawing's y axis
    std::optional<double> need;    // hours of judged sun that a window must have, above 0
    std::optional<double> facing;  // degrees from true east, counter-clockwise: for windows whose side cannot be told
    std::vector<CString> windowLayers;  // none: kUsualWindowLayers
    PlanRules plan;
    std::vector<LayerHeight> heights;  // metres above 0; each layer once
    // What lies on these layers is a project: windows are told with it and without it. Sides, bodies and floors are
    // found with everything present.
    std::vector<CString> proposedLayers;
    // Leave out what the module's parameters of scope, height and altitude (AnalysisParameters.h) leave out.
    bool isScoped = false;
    std::optional<double> leastAltitude;  // degrees, [0, 90): the sun counts from this altitude on
    unsigned threads = 0;                 // at most 256; 0: one for each core. The answer is the same with any number
};

enum class AnalysisFailure {
    None,
    NoPlace,         // settings.place is missing or off the globe
    NoStandard,      // settings.standard is missing
    TooManyWindows,  // more than kMostWindows, those of repeated storeys among them
    UnknownUnit,     // the drawing's unit is none that lengths are measured in: `unit`
    Cancelled,       // by the caller
};

struct AnalysisAnswer {
    AnalysisFailure failure = AnalysisFailure::None;  // with any, there are no windows
    CString unit;                                     // of the drawing, by name; only with UnknownUnit
    SunPeriod span;                                   // that was analysed
    double beijingOffset = 0.0;                       // hours to add to true solar time for Beijing's
    std::vector<WindowResult> windows;                // in the drawing's order, then those of repeated storeys
    std::vector<AnalysisRemark> remarks;
};

// Whether to go on, told now and then how many of how many windows are done; on the thread of who asks.
using AnalysisProgress = std::function<bool(std::size_t done, std::size_t total)>;

// Everything visible casts shadows, save what lies on the windows' layers; a drawing's lengths are taken by its unit.
// The module's g_nSunWinOffset, g_nSunDistPrec and g_nWinThickness (AnalysisParameters.h) always apply, as they stand
// when it is called.
// To be called on the module's thread. Throws std::bad_alloc, and nothing else.
ORVO_API AnalysisAnswer AnalyseWindows(const AcDbDatabase& drawing, const AnalysisRequest& request,
                                       const AnalysisProgress& progress = nullptr);
