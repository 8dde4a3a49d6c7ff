// orvo window: the host with a window.
// Why: docs/decisions/workbench.md
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"

struct Subcommand;

struct WindowOptions {
    std::optional<CString> file;  // a drawing to open at once
};

// Shows the window until it is closed, and gives an ExitCode: a failure where there is no display, where the window is
// open already, and when the file cannot be opened (the window is shown all the same).
int RunWindow(const WindowOptions& options);

// Whether a program that was started with these words should show its window: they ask for nothing, there is a display,
// and nobody types at a terminal or into a pipe, because the program was started from a desktop.
bool IsStartedFromDesktop(const std::vector<CString>& words);

// Its row of the host's table.
Subcommand WindowSubcommand();
