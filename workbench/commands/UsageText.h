// What the command line has to say about itself: help, and what is wrong with a request.
#pragma once

#include <vector>

#include "platform/base/CString.h"

namespace CLI {
class ParseError;
}  // namespace CLI

class CommandLineModel;
class Output;
struct Subcommand;

// The help of a subcommand, or of the program for null.
void PrintHelp(const Subcommand* subcommand, Output& output);

// Whole command lines that the help of the program shows.
std::vector<CString> ProgramExamples();

// What a failed parse is to be told as, with the nearest names that exist.
CString ExplainParseError(const CLI::ParseError& error, const CommandLineModel& model,
                          const std::vector<CString>& words);

// That an option lacks a value, or some of the values that it takes. Null stands for the program's own options alone.
CString MissingValueText(const CString& name, const Subcommand* subcommand);

// The names of all subcommands.
std::vector<CString> SubcommandNames();

// "no such subcommand" with the nearest of the names, and the plug-ins that may have it and were not loaded.
CString UnknownSubcommandText(const CString& name, const std::vector<CString>& names);
