// orvo info: where the place is, where the sun stands, what the rule is.
#pragma once

#include <optional>

#include "platform/base/CString.h"

class Output;
struct Subcommand;

struct InfoOptions {
    std::optional<CString> place;     // instead of the settings' own, for this answer only
    std::optional<CString> date;      // Y-M-D, likewise
    std::optional<CString> standard;  // likewise; its day, span and step come with it
    bool isJson = false;
};

// Gives an ExitCode. The settings are left as they are.
int RunInfo(const InfoOptions& options, Output& output);

// Its row of the host's table.
Subcommand InfoSubcommand();
