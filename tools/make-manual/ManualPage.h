// The pages of the manual, out of the table that help and completion go by.
#pragma once

#include <string>

#include "ProseFile.h"

struct Subcommand;

// What stands on every page.
struct ManualHead {
    std::string date;
    std::string version;
};

// orvo(1), and the page of one subcommand, in the language in force; prose is of the same language.
std::string ProgramPage(const ManualHead& head, ProseFile& prose);
std::string SubcommandPage(const Subcommand& row, const ManualHead& head, ProseFile& prose);
