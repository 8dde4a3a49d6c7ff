// A sunlight standard in words.
#pragma once

#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

struct Standard;

struct Rule {
    enum class Kind { Day, Counting, Colors };
    CString label;
    CString words;
    Kind kind = Kind::Counting;
};

// Every rule of the standard, save its name, in the order in which a person would ask.
ORVO_API std::vector<Rule> RulesInWords(const Standard& standard);

// The current standard's rules in one line, first of all which part of a window must be lit; without the colours.
ORVO_API CString RulesInOneLine(const Standard& standard);

// Where the values come from that a standard of this name was shipped with, and how sure they are; empty for a name
// that was not shipped.
ORVO_API CString SourceOf(const CString& name);

// The reminder that belongs under every listing of standards.
ORVO_API CString SourceWarning();
