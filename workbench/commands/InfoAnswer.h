// What orvo info answers: everything it found out, and the two ways of telling it.
#pragma once

#include <optional>
#include <vector>

#include "facts/DayText.h"
#include "facts/SunDay.h"
#include "facts/TermCalendar.h"
#include "platform/base/CString.h"
#include "workbench/commands/StandardRules.h"
#include "zone/OrvoZoneRecord.h"

class Output;
class OrvoStdSet;

// The period in which sunlight counts for a window by the Shanghai rule; start equals end when there is none.
struct FacingPeriod {
    const wchar_t* name;  // built-in text
    const char* key;      // "N", "NE" ...
    double direction;     // degrees from east, counter-clockwise, in a drawing whose y axis points north
    double start;         // decimal hours
    double end;
};

// The eight main facings, from north on clockwise.
std::vector<FacingPeriod> MainFacings();

struct InfoAnswer {
    CString note;
    CString placeName;                    // as the settings have it
    std::optional<OrvoZoneRecord> place;  // when it is known where that is
    Day day;                              // of the analysis
    Day ownDay;                           // of the settings
    CString dayText;
    TermInForce term;
    double declination;                 // degrees
    double equationOfTime;              // hours
    std::optional<SunDay> sun;          // when the place is known
    const OrvoStdSet* standard;         // the current one; null when there is none
    StandardChanges changes;            // of the one that is kept: what was asked for this once is no change
    std::vector<FacingPeriod> facings;  // printed only where the standard follows the Shanghai rule

    void PrintAsText(Output& output) const;
    void PrintAsJson(Output& output) const;
};
