// The subcommands that list something: terms, places, standards.
#pragma once

#include <optional>

#include "platform/base/CString.h"

class Output;
struct Subcommand;

struct TermsOptions {
    std::optional<CString> year;  // 1 to 9999; this year when it is left out
    bool isJson = false;
};
// The 24 terms of a year in the order of its days.
int RunTerms(const TermsOptions& options, Output& output);

struct PlacesOptions {
    CString text;  // part of a city's or a province's name; empty for all
    bool isJson = false;
};
// Places by part of a name. None found is a failure.
int RunPlaces(const PlacesOptions& options, Output& output);

struct StandardsOptions {
    std::optional<CString> reset;  // a standard that gets its shipped values back, instead of a listing
    bool isJson = false;
};
// Every standard with its rules, which is the current one, and what was changed since it was shipped.
int RunStandards(const StandardsOptions& options, Output& output);

// Their rows of the host's table.
Subcommand TermsSubcommand();
Subcommand PlacesSubcommand();
Subcommand StandardsSubcommand();
