// Copies the module's parameters.
#include "analysis/TuningParameters.h"

#include "settings/AnalysisParameters.h"

TuningParameters CurrentTuningParameters() {
    TuningParameters now;
    now.windowThickness = g_nWinThickness;
    now.distancePrecision = g_nSunDistPrec;
    now.windowOffset = g_nSunWinOffset;
    now.leastSunAngle = g_nMinSunAngle;
    now.limitsScope = g_bLimitClientScope;
    now.reach = {g_nMainScopeRadius, g_nScopeFactorOfHeight, g_nBuildingHeightLimit};
    return now;
}
