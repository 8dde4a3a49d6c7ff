// A change of the settings whose messages are complained about as they come.
#pragma once

#include "facts/SettingsChange.h"

// As SettingsChange::Begin and Save.
bool BeginTelling(SettingsChange& change);
bool SaveTelling(SettingsChange& change);
