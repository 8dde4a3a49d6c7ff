// Lines to commands.
#include "workbench/commands/Prompt.h"

#include <unistd.h>

#include "platform/host/CommandLine.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/commands/Completion.h"
#include "workbench/commands/PromptLine.h"
#include "workbench/terminal/Complaint.h"
#include "workbench/terminal/PipeLines.h"
#include "workbench/terminal/TerminalLines.h"

namespace {

// Reads and runs until the end; gives the code of the last line that failed, or success.
int RunLines(LineSource& lines, CollectedOutput& output) {
    int failed = kExitOk;
    CString line;
    for (LineSource::Got got = lines.Next(line); got != LineSource::Got::End; got = lines.Next(line)) {
        PromptAnswer answer;
        if (got == LineSource::Got::Failed) {
            Complain(Say(L"读不了标准输入"));
            return kExitFailed;
        }
        if (got == LineSource::Got::TooLong) {
            Complain(Say(L"这一行太长，已跳过"));
            answer.code = kExitUsage;
        } else if (got == LineSource::Got::Line) {
            answer = RunPromptLine(line, output);
        }
        if (answer.isLeaving)
            break;
        failed = answer.code == kExitOk ? failed : answer.code;
    }
    return failed;
}

}  // namespace

int RunPrompt(CollectedOutput& output) {
    SetCommandLineSink(nullptr, nullptr);  // what commands print is the answer here
    if (isatty(STDIN_FILENO) && isatty(STDOUT_FILENO)) {
        TerminalLines lines(CompleteLine);
        if (lines.IsUsable()) {
            RunLines(lines, output);
            return kExitOk;
        }
    }
    PipeLines lines;
    return RunLines(lines, output);
}
