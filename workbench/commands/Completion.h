// What a word at the prompt can be completed to.
#pragma once

#include <vector>

#include "platform/base/CString.h"
#include "workbench/terminal/LineCompletion.h"

// The names that the last word of a line can become (empty when the line ends in a blank): commands and subcommands for
// the first word, then the subcommand's options, and behind an option the words that it brings (names of places and
// standards). Sorted as they are met, each once.
std::vector<CString> NamesFor(const CString& line);

// The same for a line that is typed here, and names of files where a value has no words of its own. A word with blanks
// or quotes in it is put into quotes.
LineCompletion CompleteLine(const CString& line);

// Every command that plug-ins have added to the host.
std::vector<CString> HostCommandNames();

// What the prompt itself understands besides: quit, exit, help.
std::vector<CString> PromptWords();
