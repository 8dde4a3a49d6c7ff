// What is told of every analysis besides its answer.
#pragma once

#include <optional>

#include "platform/base/CString.h"
#include "workbench/commands/StandardRules.h"

struct Settings;

struct DayReport {
    CString drawing;                     // the file, as it was asked for; may be empty
    std::optional<CString> fingerprint;  // of that file before it was read, for a page; none where it has none
    bool isChanged = false;              // in memory, and the file does not have that yet
    int standardIndex = 0;               // in the list of standards
    bool isCurrentStandard = false;
    StandardChanges changes;  // of the standard
};

// Where the settings' standard stands in the list, and what was changed in it.
void FindStandardOf(const Settings& settings, DayReport& report);
