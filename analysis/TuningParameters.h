// The module's parameters that analyses go by, as they stood at one moment.
// Why: docs/decisions/analysis.md
#pragma once

#include "analysis/Reach.h"
#include "platform/base/Api.h"

// A plain value: who has one asks the module no more, and may be on any thread. Lengths are millimetres.
struct TuningParameters {
    double windowThickness = 0.0;    // g_nWinThickness: how far before or behind a face a window may lie
    double distancePrecision = 0.0;  // g_nSunDistPrec
    double windowOffset = 0.0;       // g_nSunWinOffset: how far before its plane a window or a point is looked at
    double leastSunAngle = 0.0;      // g_nMinSunAngle, degrees
    bool limitsScope = false;        // g_bLimitClientScope
    ReachLimits reach;               // how far it looks, where the scope is limited
};

// Those in force. To be called on the module's thread.
ORVO_API TuningParameters CurrentTuningParameters();
