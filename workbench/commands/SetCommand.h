// orvo set: changes the settings and saves them.
#pragma once

#include <optional>

#include "platform/base/CString.h"

class Output;
struct Subcommand;

struct SetOptions {
    std::optional<CString> place;
    std::optional<CString> date;      // Y-M-D
    std::optional<CString> start;     // H:MM
    std::optional<CString> end;       // H:MM
    std::optional<CString> step;      // whole minutes
    std::optional<CString> standard;  // name; chosen before the other values are written
    bool isReset = false;             // everything as shipped, and nothing else

    bool HasValues() const { return place || date || start || end || step || standard; }
};

// Gives an ExitCode. Everything is looked at first: one value that cannot be leaves all of them unwritten. A day, span
// or step goes into the settings' own fields, their whole-number copies and the current standard's, so that every
// reader finds the same. What others have saved meanwhile is taken in first. When saving fails, the settings are as
// they were.
int RunSet(const SetOptions& options, Output& output);

// Its row of the host's table.
Subcommand SetSubcommand();
