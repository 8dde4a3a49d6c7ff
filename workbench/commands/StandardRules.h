// A sunlight standard in words and as data.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <vector>

#include "platform/base/CString.h"

class OrvoStdSet;

struct Rule {
    CString label;
    CString words;
};

// Every rule of the standard, save its name, in the order in which a person would ask.
std::vector<Rule> RulesInWords(const OrvoStdSet& standard);

// Every field with its number as it is stored; "source" where one is known (see SourceOf).
nlohmann::ordered_json RulesAsJson(const OrvoStdSet& standard);

// Where the values come from that a standard of this name was shipped with, and how sure they are; empty for a name
// that was not shipped.
CString SourceOf(const CString& name);

// The reminder that belongs under every listing of standards.
CString SourceWarning();
