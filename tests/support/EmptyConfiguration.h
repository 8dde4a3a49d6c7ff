// The module's configuration as it is before any file was read.
#pragma once

#include "frame/ConfigDictionaries.h"
#include "platform/base/QcDtDictionary.h"
#include "settings/OrvoDataSet.h"

inline void EmptyConfiguration() {
    g_dictSunZone.ReadFromXML(nullptr);
    g_dictSunSterm.ReadFromXML(nullptr);
    g_dictSunSet.ReadFromXML(nullptr);
    g_SunDataSet = OrvoDataSet();
}
