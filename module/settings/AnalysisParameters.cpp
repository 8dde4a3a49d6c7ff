// The tuning parameters with the values that they start from: static data, there before any code of the module runs.
#include "settings/AnalysisParameters.h"

constinit int g_RenderMaxFaceNum = 5000;
constinit int g_bHardOpenGL = 1;
constinit bool g_bLimitClientScope = true;
constinit int g_bMAOutputDetail = 0;
constinit int g_bPolyBuild = 0;
constinit int g_bWinAllPointAna = 0;
constinit double g_nBuildingHeightLimit = 100000.0;
constinit int g_nCtrlWarningMin = 5;
constinit double g_nCutterTimePrec = 10.0;
constinit double g_nKtRatio = 0.5;
constinit double g_nKtWEMaxScope = 50000.0;
constinit double g_nKtWEMinScope = 30000.0;
constinit double g_nMainScopeRadius = 300000.0;
constinit double g_nMainScopeRadius1 = 300000.0;
constinit double g_nMinBrightness = 7000.0;
constinit double g_nMinSunAngle = 5.0;
constinit double g_nScopeFactorOfHeight = 1.4;
constinit double g_nSunAngPrec = 0.00001;
constinit double g_nSunDistPrec = 0.05;
constinit int g_nSunExpert = 18;
constinit double g_nSunWinOffset = 5.0;
constinit double g_nViewXYAngle = 120.0;
constinit double g_nViewZAAngle = 120.0;
constinit double g_nWinThickness = 200.0;
constinit double g_nZtRatio = 0.5;
constinit double g_nZtWEMaxScope = 50000.0;
constinit double g_nZtWEMinScope = 30000.0;
