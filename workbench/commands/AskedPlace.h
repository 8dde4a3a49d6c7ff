// The option --place, which every question about the sun has.
#pragma once

#include <optional>

#include "facts/Place.h"
#include "platform/base/CString.h"
#include "platform/host/Subcommands.h"

// Its row of a subcommand's options.
SubcommandOption PlaceOption();

// Reads its value. Gives an ExitCode, and has complained unless it is success.
int ReadAskedPlace(const CString& text, std::optional<Place>& place);
