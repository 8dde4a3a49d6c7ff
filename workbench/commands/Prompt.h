// The host's prompt.
#pragma once

class CollectedOutput;

// Reads lines until the end of the input or "quit" and runs each: a command that a plug-in has added (its name, without
// case), or a subcommand with the syntax of the command line. A line that fails does not end it. Empty lines and lines
// that begin with '#' ask for nothing.
//
// At a terminal it asks with "orvo> ", keeps a history and completes, and gives 0. Elsewhere it reads plain lines, and
// gives the exit code of the last line that failed, 0 when none did.
int RunPrompt(CollectedOutput& output);
