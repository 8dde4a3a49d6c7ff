// What a word at the prompt can be completed to.
#pragma once

#include <vector>

#include "platform/base/CString.h"

// The ways to go on with the last word of a line (everything behind its last blank; empty when the line ends in one):
// commands and subcommands for the first word, then options, and names of places and standards behind the options that
// take them. Sorted as they are met, each once.
std::vector<CString> CompletionsOf(const CString& line);

// What can be added to the line because all of its completions (of which there must be one) agree on it; behind the
// only one a blank. Empty when they go different ways at once.
CString RestOfWord(const CString& line, const std::vector<CString>& completions);

// Every command that plug-ins have added to the host.
std::vector<CString> HostCommandNames();

// What the prompt itself understands besides: quit, exit, help.
std::vector<CString> PromptWords();
