// orvo sun: altitude, azimuth and the length of a shadow, hour by hour of one day.
// Why: docs/decisions/workbench.md
#pragma once

#include <optional>

#include "platform/base/CString.h"

class Output;
struct Subcommand;

struct SunOptions {
    std::optional<CString> place;  // instead of the settings' own
    std::optional<CString> date;   // Y-M-D, likewise
    std::optional<CString> step;   // whole minutes, from 1 to 60
    bool isJson = false;
};

// Gives an ExitCode: a failure where nobody knows where the place is.
int RunSun(const SunOptions& options, Output& output);

// Its row of the host's table.
Subcommand SunSubcommand();
