#!/usr/bin/env python3
"""Asks whether the module exports functions and variables outside its classes by their right names only: it shares its
process with strangers, where a general name may be somebody else's.

usage: exports_test.py OrvoDataBase.so
"""
import re
import subprocess
import sys

# The system's own, which others call and set; then what bears the module's name, for hosts and tests.
EXPORTED = set("""
    acrxEntryPoint LoadSunData SaveSunData LoadSunSterm SaveSunSterm LoadSunSet SaveSunSet TranslateText LoadModuleLanguage
    GetShanghaiValidTime SunZoneInfo SunZoneDlgDoModal SunZoneDbDoModal SunStdDlgDoModal GetFaceNormal
    SetEntData GetEntData GetSymbolName FindString SelectString
    g_SunDataSet g_dictSunZone g_dictSunSterm g_dictSunSet g_sRecordFile
    g_RenderMaxFaceNum g_bHardOpenGL g_bLimitClientScope g_bMAOutputDetail g_bPolyBuild g_bWinAllPointAna
    g_nBuildingHeightLimit g_nCtrlWarningMin g_nCutterTimePrec g_nKtRatio g_nKtWEMaxScope g_nKtWEMinScope
    g_nMainScopeRadius g_nMainScopeRadius1 g_nMinBrightness g_nMinSunAngle g_nScopeFactorOfHeight g_nSunAngPrec
    g_nSunDistPrec g_nSunExpert g_nSunWinOffset g_nViewXYAngle g_nViewZAAngle g_nWinThickness g_nZtRatio
    g_nZtWEMaxScope g_nZtWEMinScope

    OrvoResourceScript g_commandTable g_pfnToday GetModuleResourceHandle LanguageKeyOfModuleFile
""".split())

# A symbol of the dynamic table: not weak ones, which are templates' and stand for classes.
SYMBOL = re.compile(r"^[0-9a-f]+ [TDBR] ([A-Za-z]\w*)(?:\(.*\))?$", re.M)


def main():
    table = subprocess.run(["nm", "-DC", "--defined-only", sys.argv[1]], capture_output=True, text=True, check=True).stdout
    found = set(SYMBOL.findall(table))
    for name in sorted(found - EXPORTED):
        print(f"{name} is exported: is it the system's own name?")
    for name in sorted(EXPORTED - found):
        print(f"{name} is not exported")
    return 1 if found != EXPORTED else 0


if __name__ == "__main__":
    sys.exit(main())
