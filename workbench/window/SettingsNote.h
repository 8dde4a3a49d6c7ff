// The line about the settings in force, for the status bar.
// Why: docs/decisions/workbench.md
#pragma once

#include "platform/base/CString.h"

// The module's note; where the language is not Chinese its day, solar term and place, which the module leaves as they
// are, in words that are read there.
CString SettingsNote();
