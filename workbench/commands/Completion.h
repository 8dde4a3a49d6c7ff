// What a word at the prompt can be completed to.
#pragma once

#include <vector>

#include "platform/base/CString.h"
#include "workbench/terminal/LineCompletion.h"

// The ways to go on with the last word of a line (everything behind its last blank; empty when the line ends in one):
// commands and subcommands for the first word, then the subcommand's options, and behind an option the words that it
// brings (names of places and standards). Sorted as they are met, each once.
LineCompletion CompleteLine(const CString& line);

// Every command that plug-ins have added to the host.
std::vector<CString> HostCommandNames();

// What the prompt itself understands besides: quit, exit, help.
std::vector<CString> PromptWords();
