// Loading and saving of zone.xml, SunTerm.xml and SunSet.xml.
#include "frame/ConfigFiles.h"

#include "frame/ConfigDictionaries.h"
#include "frame/Resources.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/Support.h"
#include "platform/host/CommandLine.h"
#include "settings/OrvoDataSet.h"

namespace {

const wchar_t* const kZoneFile = L"zone.xml";
const wchar_t* const kTermFile = L"SunTerm.xml";
const wchar_t* const kSettingsFile = L"SunSet.xml";

// Saves print the same lines, which speak of loading, on purpose.
const wchar_t* const kNoZoneFile = L"\n加载选项配置文件失败！未找到配置文件zone.xml。";
const wchar_t* const kNoTermFile = L"\n加载选项配置文件失败！未找到配置文件SunTerm.xml。";
const wchar_t* const kNoSettingsFile = L"\n加载选项配置文件失败！未找到配置文件SunSet.xml。";

bool FindOrReport(const wchar_t* file, const wchar_t* message, CString& path) {
    if (FindFile(file, path))
        return true;
    acutPrintf(L"%s", TranslateText(message).GetString());
    return false;
}

}  // namespace

bool LoadSunData() {
    CString path;
    FindOrReport(kZoneFile, kNoZoneFile, path);
    return g_dictSunZone.ReadFromXML(path);
}

bool SaveSunData() {
    CString path;
    if (!FindOrReport(kZoneFile, kNoZoneFile, path))
        return false;
    if (g_dictSunZone.GetTag().IsEmpty())
        g_dictSunZone.SetTag(L"ORVO_ZONEDATA");
    return g_dictSunZone.SaveToXML(path);
}

bool LoadSunSterm() {
    CString path;
    return FindOrReport(kTermFile, kNoTermFile, path) && g_dictSunSterm.ReadFromXML(path);
}

bool SaveSunSterm() {
    CString path;
    return FindOrReport(kTermFile, kNoTermFile, path) && g_dictSunSterm.SaveToXML(path);
}

bool LoadSunSet() {
    CString path;
    if (!FindOrReport(kSettingsFile, kNoSettingsFile, path))
        return false;
    if (!g_dictSunSet.ReadFromXML(path))
        return false;
    g_SunDataSet.LoadSunDataSetDict(&g_dictSunSet);
    return true;
}

bool SaveSunSet() {
    CString path;
    if (!FindOrReport(kSettingsFile, kNoSettingsFile, path))
        return false;
    g_SunDataSet.SaveSunDataSetDict(&g_dictSunSet);
    return g_dictSunSet.SaveToXML(path);
}
