// The subcommands that the program comes with.
#pragma once

#include "platform/base/CString.h"

// Adds them to the host's table in the name of this plug-in. False, with the reason in words, when one of them cannot
// be added; those before it have been.
bool AddOwnSubcommands(void* applicationHandle, CString& reason);
