// A city's position by its names.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// Looks a city up in g_dictSunZone by exact province and city name, and copies its longitude and latitude texts
// (decimal degrees, as they stand in the file). Gives 1; 0, with the outputs untouched, when either is missing.
ORVO_API int SunZoneInfo(const CString& province, const CString& city, CString& longitude, CString& latitude);
