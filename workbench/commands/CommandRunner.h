// Runs one request: the words of a command line, or of a line at the prompt.
#pragma once

#include <vector>

#include "platform/base/CString.h"

class CollectedOutput;

// Where the words come from. At the prompt the language cannot be chosen any more, and an empty line asks for nothing.
enum class WordsFrom { CommandLine, Prompt };

// Whether the words name no subcommand and ask for nothing else, so that the prompt is wanted.
bool AsksForPrompt(const std::vector<CString>& words);

// Does what the words say, writes the answer, and gives an ExitCode.
int RunWords(const std::vector<CString>& words, WordsFrom from, CollectedOutput& output);
