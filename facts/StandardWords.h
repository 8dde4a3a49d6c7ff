// A sunlight standard in words.
#pragma once

#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

struct Standard;

// One rule, in the interface's language.
struct Rule {
    // What it is about.
    enum class Kind {
        Day,       // the day of the analysis
        Counting,  // which sun counts and how it is added up; span, step and time base, too
        Colors,    // how results are coloured
    };
    CString label;               // the field's name, as the dialogs have it
    CString words;               // its value, in words
    Kind kind = Kind::Counting;  // what it is about
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
