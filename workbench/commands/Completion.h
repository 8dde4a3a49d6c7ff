// What a word at the prompt can be completed to.
#pragma once

#include <vector>

#include "platform/base/CString.h"
#include "workbench/terminal/LineCompletion.h"

// The names that the last word of a shell's command line can become, the words being those behind the program's name:
// subcommands and options for the first, then the subcommand's options and the program's, and behind an option the
// words that it brings (names of places and standards). Sorted as they are met, each once. None where a file is asked
// for: shells offer those by themselves when they get nothing else.
std::vector<CString> NamesFor(std::vector<CString> words);

// The same for a line that is typed here, where commands are known and options of the program are not, and names of
// files where a value has no words of its own. A word with blanks or quotes in it is put into quotes.
LineCompletion CompleteLine(const CString& line);

// Every command that plug-ins have added to the host.
std::vector<CString> HostCommandNames();

// What the prompt itself understands besides: quit, exit, help.
std::vector<CString> PromptWords();
