// What orvo info answers: everything it found out, and the two ways of telling it.
#pragma once

#include <optional>

#include "facts/DayTerms.h"
#include "facts/Settings.h"
#include "facts/SunDay.h"
#include "workbench/commands/StandardRules.h"

class Output;

struct InfoAnswer {
    Settings settings;          // those asked about
    DayTerms terms;             // of the day of the analysis
    std::optional<SunDay> sun;  // when the place is known
    StandardChanges changes;    // of the standard

    void PrintAsText(Output& output) const;
    void PrintAsJson(Output& output) const;
};
