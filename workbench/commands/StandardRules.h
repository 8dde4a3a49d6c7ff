// A sunlight standard as rows of a table and as data, and what has been changed since it was shipped.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <vector>

#include "facts/SettingsForm.h"
#include "facts/StandardWords.h"
#include "workbench/terminal/TextTable.h"

class Output;
struct Standard;

// The fields in which the standard that is kept differs from the shipped one; nothing when none of its name was
// shipped.
using StandardChanges = std::optional<std::vector<const StandardField*>>;

// These rules of the standard, where the shipped values come from, and which of them have been changed.
TextTable RulesTable(const std::vector<Rule>& rules, const Standard& standard, const StandardChanges& changes);
// All of them.
void PrintRules(const Standard& standard, const StandardChanges& changes, Output& output);

// Every field with its number as it is stored; "source" where one is known (see SourceOf); "changedFromShipped", the
// keys of the fields that were changed, null when none of its name was shipped.
nlohmann::ordered_json RulesAsJson(const Standard& standard, const StandardChanges& changes);

// The same as an element of the list of standards, with its "index" there and whether it is the "current" one first.
nlohmann::ordered_json ListedStandardAsJson(int index, bool isCurrent, const Standard& standard,
                                            const StandardChanges& changes);
