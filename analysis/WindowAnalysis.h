// Which windows of a drawing get the sun they must have, when, and what takes it from the others.
// Why: docs/decisions/analysis.md
#pragma once

#include <vector>

#include "analysis/DayRequest.h"
#include "analysis/PlanRules.h"
#include "analysis/UsualWindowLayers.h"
#include "analysis/WindowResult.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

class AcDbDatabase;

// What is asked. A plain value.
struct AnalysisRequest : DayRequest {
    std::vector<CString> windowLayers;  // none: kUsualWindowLayers
    PlanRules plan;                     // what plans do not say of the windows that they draw as lines
    // What lies on these layers is a project: windows are told with it and without it. Sides, bodies and floors are
    // found with everything present.
    std::vector<CString> proposedLayers;
    // Leave out what the tuning parameters of scope, height and altitude leave out.
    bool isScoped = false;
};

// What is answered. A plain value, which keeps nothing of the drawing.
struct AnalysisAnswer : DayAnswer {
    std::vector<WindowResult> windows;  // in the drawing's order, then those of repeated storeys; none with a failure
};

// Everything visible casts shadows, save what lies on the windows' layers; a drawing's lengths are taken by its unit.
// To be called on any thread, while nobody changes the drawing; the progress is told there. Throws std::bad_alloc, and
// nothing else.
ORVO_API AnalysisAnswer AnalyseWindows(const AcDbDatabase& drawing, const AnalysisRequest& request,
                                       const AnalysisProgress& progress = nullptr);
