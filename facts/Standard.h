// The rules of a sunlight standard as a plain value.
// Why: docs/decisions/facts.md
#pragma once

#include <vector>

#include "calendar/CalendarDay.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

class OrvoStdSet;

// From how many hours of sunlight on a result has a colour.
struct TimeColor {
    double hours = 0.0;  // of sunlight: the least, that included
    int color = 0;       // the host's index
};

// What a standard of the module (OrvoStdSet, where each field is explained) holds, field by field; the numbers are as
// they are stored, and a file may hold any. Read on the module's thread, it is then anybody's. Copies are complete: the
// module's own class keeps the target's colours when it is assigned.
struct ORVO_API Standard {
    CString name;                // by which the settings find it
    CalendarDay day = {};        // of the analysis
    double start = 0.0;          // of the analysed span, decimal hours of the time base; start and end 0: not set
    double end = 0.0;            // of the analysed span
    double step = 0.0;           // minutes
    int fullWindow = 0;          // nonzero: the whole window must be lit; 0: the midpoint of its sill
    int limitWidth = 0;          // nonzero: a window's width counts within [minWidth, maxWidth]
    double minWidth = 0.0;       // millimetres
    double maxWidth = 0.0;       // millimetres
    int maxContinue = 0;         // OrvoSunCount
    int beijingTime = 0;         // OrvoTimeBase
    int allMaxContinueTime = 0;  // nonzero: periods longer than minContinueTime are added up
    int minContinueTime = 0;     // minutes
    int validSunType = 0;        // OrvoValidSun
    int minValidAngle = 0;       // degrees
    int minValidTime = 0;        // minutes
    int totalTimeType = 0;       // OrvoTotalTime
    int minMaxValidTime = 0;     // minutes
    std::vector<TimeColor> timeColors;  // ascending as a rule, which nobody checks; may be empty
    std::vector<int> typeColors;        // the host's index, by type number from 0; may be empty

    // Whether start and end are a span within a day. Settings take over only what makes sense.
    bool HasSpan() const;
    // Whether the step is one that the dialogs offer (whole minutes are taken of it).
    bool HasStep() const;
    // As OrvoColorTable::GetTimeColor: the colour of the last row whose bound the hours reach, 256 (by layer) without
    // one.
    int TimeColorOf(double hours) const;
};

// The least and the greatest step that the dialogs offer, minutes.
inline constexpr int kLeastStep = 1;
inline constexpr int kMostStep = 60;

// The standard as a value; nothing in it leads back to the object.
ORVO_API Standard StandardOf(const OrvoStdSet& standard);
