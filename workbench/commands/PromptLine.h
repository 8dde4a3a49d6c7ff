// One line at a prompt: a subcommand, a command that a plug-in has added, or the wish to leave.
#pragma once

#include "platform/base/CString.h"

class CollectedOutput;

struct PromptAnswer {
    int code = 0;            // an ExitCode
    bool isLeaving = false;  // the line says quit or exit, and nothing was run
};

// Runs the line and writes its answer; complains itself about what it cannot make sense of. An empty line and one that
// begins with # do nothing.
PromptAnswer RunPromptLine(const CString& line, CollectedOutput& output);
