// Back to what was shipped: orvo set --reset, orvo standards --reset.
// Why: docs/decisions/workbench.md
#pragma once

#include "platform/base/CString.h"

class Output;

// Settings and standards as shipped; the file before stays as a backup. Gives an ExitCode.
int RunReset(Output& output);

// One standard as shipped, also when it was deleted. Where it is the current one, the settings take its day, span and
// step, as they do when it is chosen. Gives an ExitCode.
int RunStandardReset(const CString& name, bool isJson, Output& output);
