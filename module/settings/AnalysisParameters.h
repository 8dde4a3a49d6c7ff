// The tuning parameters that all analyses share: precisions, scopes, limits, switches. One copy in the process; they
// start from these values each time the module is loaded, and no file keeps them.
//
// Lengths are in millimetres, angles in degrees. Behind each stands what it starts from, and what this
// system's own analyses take it for; what the others mean is up to the analyses that use them, and their names say it.
// Any number may be put in; here the precision dialog writes the angle precision, the distance precision and the window
// offset, and nothing else touches them.
#pragma once

#include "platform/base/Api.h"

extern ORVO_API int g_RenderMaxFaceNum;         // 5000
extern ORVO_API int g_bHardOpenGL;              // 1
extern ORVO_API bool g_bLimitClientScope;       // true, whether what is far away is left out
extern ORVO_API int g_bMAOutputDetail;          // 0
extern ORVO_API int g_bPolyBuild;               // 0
extern ORVO_API int g_bWinAllPointAna;          // 0
extern ORVO_API double g_nBuildingHeightLimit;  // 100000, the most that counts of how far something rises over a sill
extern ORVO_API int g_nCtrlWarningMin;          // 5
extern ORVO_API double g_nCutterTimePrec;       // 10
extern ORVO_API double g_nKtRatio;              // 0.5
extern ORVO_API double g_nKtWEMaxScope;         // 50000
extern ORVO_API double g_nKtWEMinScope;         // 30000
extern ORVO_API double g_nMainScopeRadius;      // 300000, how near something has to come in plan
extern ORVO_API double g_nMainScopeRadius1;     // 300000
extern ORVO_API double g_nMinBrightness;        // 7000
extern ORVO_API double g_nMinSunAngle;          // 5, degrees of altitude below which the sun may be left out
extern ORVO_API double g_nScopeFactorOfHeight;  // 1.4, the same by how far it rises: a factor
extern ORVO_API double g_nSunAngPrec;           // 0.00001, the angle precision
extern ORVO_API double g_nSunDistPrec;          // 0.05, the distance precision
extern ORVO_API int g_nSunExpert;               // 18
extern ORVO_API double g_nSunWinOffset;         // 5, how far outside the wall the analysed point of a window lies
extern ORVO_API double g_nViewXYAngle;          // 120
extern ORVO_API double g_nViewZAAngle;          // 120
extern ORVO_API double g_nWinThickness;         // 200, how far before or behind a face a window may lie
extern ORVO_API double g_nZtRatio;              // 0.5
extern ORVO_API double g_nZtWEMaxScope;         // 50000
extern ORVO_API double g_nZtWEMinScope;         // 30000
