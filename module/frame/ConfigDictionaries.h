// The three process-wide dictionaries that hold the module's configuration files. They live for as long as the library
// is loaded, and every part of the module and every analysis shares them. Used on the user-interface thread only.
#pragma once

#include "platform/base/Api.h"

class QcDtDictionary;

// zone.xml: provinces and their cities with their positions (see zone/OrvoZoneRecord.h).
extern ORVO_API QcDtDictionary g_dictSunZone;
// SunSet.xml: the current settings and the sunlight standards (see settings/OrvoDataSet.h).
extern ORVO_API QcDtDictionary g_dictSunSet;
// SunTerm.xml: the solar terms of common and leap years (see calendar/OrvoDate.h).
extern ORVO_API QcDtDictionary g_dictSunSterm;
