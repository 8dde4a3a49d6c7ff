// orvo completion: how a command line can go on, for the shells that ask.
#pragma once

#include <vector>

#include "platform/base/CString.h"

class Output;
struct Subcommand;

// The words behind the program's name, the last one as far as it was typed (empty: not at all). Answers with what that
// one may become, a line each; with nothing when there is none, or for words that no subcommand begins. Gives an
// ExitCode.
int RunCompletion(const std::vector<CString>& words, Output& output);

// Its row of the host's table.
Subcommand CompletionSubcommand();
