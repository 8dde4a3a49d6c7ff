// The settings in force as a plain value: what an analysis is asked by, unless the question says otherwise.
// Why: docs/decisions/facts.md
#pragma once

#include <optional>

#include "calendar/CalendarDay.h"
#include "facts/Place.h"
#include "facts/Standard.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

class OrvoDataSet;

// A time of day in whole numbers, as the settings keep it; nobody checks them.
struct ClockTime {
    int hour = 0;    // 0 to 24
    int minute = 0;  // 0 to 59
};

// Read on the module's thread, then anybody's. The members below change the value alone, for one question; what changes
// the settings themselves stands in SettingsEdit.h.
struct ORVO_API Settings {
    CString placeName;                 // as the settings keep it
    std::optional<Place> place;        // where that is; none when the place database does not have it
    CalendarDay ownDay = {};           // the settings' own day
    ClockTime start;                   // of the analysed span
    ClockTime end;                     // of the analysed span, itself included
    int step = 0;                      // whole minutes
    std::optional<Standard> standard;  // the current one; none where no standard is chosen

    // The day of an analysis: the current standard's; the settings' own where there is none.
    CalendarDay Day() const { return standard ? standard->day : ownDay; }

    // The place with its name; a position off the globe is taken, too, and refused by the analysis.
    void UsePlace(const Place& other);
    // The settings' own day and the current standard's.
    void UseDay(const CalendarDay& day);
    // The standard with its day, and with its span and step as far as these make sense.
    void UseStandard(const Standard& other);
};

// The settings in force, with their place looked up.
ORVO_API Settings ReadSettings(const OrvoDataSet& settings);
// Those of g_SunDataSet.
ORVO_API Settings CurrentSettings();

// The module's one line about settings: standard, place, day, span and step, in the interface's language.
ORVO_API CString NoteOf(const Settings& settings);
