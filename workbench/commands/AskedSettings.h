// The settings that a question is about: those in force, with the question's own place, day and standard over them.
#pragma once

#include <optional>

#include "facts/Settings.h"
#include "platform/base/CString.h"

struct AskedFor {
    std::optional<CString> place;
    std::optional<CString> date;      // Y-M-D
    std::optional<CString> standard;  // its day, span and step come with it
};

// What a question about the sun starts from.
struct AskedSettings {
    int code = 0;  // an ExitCode; when it is no success, that has been complained about, and there is no answer
    Settings settings;
};

// The settings themselves stay as they are. A place of the settings that nobody knows (any more) is complained about,
// and stays without a position.
AskedSettings ReadAskedSettings(const AskedFor& asked);
