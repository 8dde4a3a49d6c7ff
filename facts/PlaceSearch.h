// Finding places in the zone tree (g_dictSunZone): provinces, and the cities in them. Deeper levels are not looked at.
#pragma once

#include <optional>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "zone/OrvoZoneRecord.h"

// Every city, in the order of the tree.
ORVO_API std::vector<OrvoZoneRecord> AllPlaces();

// The cities in whose own or whose province's name the text occurs (ASCII letters without case), in the order of the
// tree; all of them for an empty text.
ORVO_API std::vector<OrvoZoneRecord> PlacesWith(const CString& text);

// The first city of this exact name in the order of the tree; or, for a name "PROVINCE/CITY", that city.
ORVO_API std::optional<OrvoZoneRecord> FindPlace(const CString& name);

// "PROVINCE/CITY".
ORVO_API CString FullName(const OrvoZoneRecord& place);

// What to say about a name that FindPlace does not know: what is wrong with it and which names come near.
ORVO_API CString UnknownPlaceText(const CString& name);

// Whether the position is one on the globe: finite, latitude within [-90, 90], longitude within [-180, 180].
ORVO_API bool IsOnTheGlobe(const OrvoZoneRecord& place);
