// Writing single values into the settings. Each value stands there more than once, for different readers; these keep
// the copies alike.
#pragma once

#include "facts/DayText.h"
#include "platform/base/Api.h"

class OrvoDataSet;
class OrvoZoneRecord;

// The step that the dialogs offer, minutes.
inline constexpr int kLeastStep = 1;
inline constexpr int kMostStep = 60;

// The current place: record and name.
ORVO_API void SetPlace(OrvoDataSet& settings, const OrvoZoneRecord& place);

// The settings' own day; their start and end as an angle and in whole numbers (minutes since midnight); their step.
ORVO_API void SetOwnDay(OrvoDataSet& settings, const Day& day);
ORVO_API void SetOwnStart(OrvoDataSet& settings, int minutes);
ORVO_API void SetOwnEnd(OrvoDataSet& settings, int minutes);
ORVO_API void SetOwnStep(OrvoDataSet& settings, int minutes);

// The same for the settings and their current standard, where there is one.
ORVO_API void SetDay(OrvoDataSet& settings, const Day& day);
ORVO_API void SetStart(OrvoDataSet& settings, int minutes);
ORVO_API void SetEnd(OrvoDataSet& settings, int minutes);
ORVO_API void SetStep(OrvoDataSet& settings, int minutes);
