// The settings, standards and other files that come with the program.
// Why: docs/decisions/facts.md
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "facts/SettingsForm.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/QcDtDictionary.h"

class OrvoDataSet;
class OrvoStdSet;

// The path of a shipped file, whether or not it is there.
ORVO_API CString ShippedPath(const wchar_t* name);

// The shipped SunSet.xml; null where the installation lacks it, or has one that holds no settings.
ORVO_API std::unique_ptr<OrvoDataSet> ReadShippedSettings();

// The fields in which a standard differs from the shipped one of its name; nothing where none of that name was shipped,
// or it is not known what was.
ORVO_API std::optional<std::vector<const StandardField*>> ChangesFromShipped(const OrvoStdSet& standard,
                                                                             const OrvoDataSet* shipped);

// Gives the settings the shipped values in every field of a standard, colours included; a standard that was deleted
// comes back at the end of the list. Gives its index.
ORVO_API int ResetStandard(OrvoDataSet& settings, const OrvoStdSet& shipped);
