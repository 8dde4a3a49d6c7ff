// Writing single values into the settings, and choosing a standard. Each value stands there more than once, for
// different readers; these keep the copies alike.
#pragma once

#include "calendar/CalendarDay.h"
#include "platform/base/Api.h"

class OrvoDataSet;
struct Place;

// The current place: name, and record with the database's own texts (RecordOf).
ORVO_API void SetPlace(OrvoDataSet& settings, const Place& place);

// The settings' own day, unchecked.
ORVO_API void SetOwnDay(OrvoDataSet& settings, const CalendarDay& day);
// The settings' start and end, each as an angle and in whole numbers: minutes since midnight, 0 to 1440, unchecked.
ORVO_API void SetOwnStart(OrvoDataSet& settings, int minutes);
ORVO_API void SetOwnEnd(OrvoDataSet& settings, int minutes);
// The settings' step in minutes, unchecked.
ORVO_API void SetOwnStep(OrvoDataSet& settings, int minutes);

// The same for the settings and their current standard, where there is one.
ORVO_API void SetDay(OrvoDataSet& settings, const CalendarDay& day);
ORVO_API void SetStart(OrvoDataSet& settings, int minutes);
ORVO_API void SetEnd(OrvoDataSet& settings, int minutes);
ORVO_API void SetStep(OrvoDataSet& settings, int minutes);

// Makes the standard at an index the current one, and takes its day, span and step into the settings' own fields (the
// span and the step only where the standard has ones that make sense), so that the note line tells what the analysis
// will use. An index that the list does not have leaves those fields alone, and the settings without a current
// standard.
ORVO_API void UseStandard(OrvoDataSet& settings, int index);
