// Finding places in the place database (g_dictSunZone, which the module has read from zone.xml): provinces, and the
// cities in them. Deeper levels are not looked at.
#pragma once

#include <optional>
#include <vector>

#include "facts/Place.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

class OrvoZoneRecord;

// Every city, in the order of the database.
ORVO_API std::vector<Place> AllPlaces();

// The cities in whose own or whose province's name the text occurs (ASCII letters without case), or whose or whose
// province's name in Latin letters begins with it (platform/base/LatinNames.h), in the order of the database; all of
// them for an empty text.
ORVO_API std::vector<Place> PlacesWith(const CString& text);

// The first city of this exact name in the order of the database; or, for a name "PROVINCE/CITY", the first such one. A
// province may stand in the database more than once.
ORVO_API std::optional<Place> FindPlace(const CString& name);

// The current place of the settings (g_SunDataSet), which they keep by its name alone: their own position is not known
// until somebody has looked it up. None when the database does not have the place (any more).
ORVO_API std::optional<Place> CurrentPlace();

// What to say about a name that stands for no place: what is wrong with it and which names come near, also of one in
// Latin letters.
ORVO_API CString UnknownPlaceText(const CString& name);

// The module's record of a place: the database's, texts and comment as they stand there; for a place that the database
// does not have, one made of the numbers.
ORVO_API OrvoZoneRecord RecordOf(const Place& place);
