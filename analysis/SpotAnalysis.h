// The day of one spot: of a wall, a roof or the ground.
// Why: docs/decisions/analysis.md
#pragma once

#include <vector>

#include "analysis/DayRequest.h"
#include "analysis/WindowResult.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/geometry/QcGePoint.h"
#include "platform/geometry/QcGeVector3d.h"

class AcDbDatabase;

// What is asked. A plain value.
struct SpotRequest : DayRequest {
    std::vector<CString> windowLayers;  // whose entities cast no shadow; none: kUsualWindowLayers
    QcGePoint place;                    // the drawing's units
    QcGeVector3d outward;               // towards the side that is asked about, of any length above 0
};

// What is answered. A plain value, which keeps nothing of the drawing.
struct SpotAnswer : DayAnswer {
    WindowHours
        hours;  // as of a window that is this point; in a plane that is not upright every sun before it is valid
};

// What casts shadows is as for AnalyseWindows; the spot stands g_nSunWinOffset before its plane. To be called on any
// thread, while nobody changes the drawing; the progress, always 0 of 0, is told there. Throws std::bad_alloc, and
// nothing else.
ORVO_API SpotAnswer AnalyseSpot(const AcDbDatabase& drawing, const SpotRequest& request,
                                const AnalysisProgress& progress = nullptr);
