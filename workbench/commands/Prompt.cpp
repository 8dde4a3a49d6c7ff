// Lines to commands.
#include "workbench/commands/Prompt.h"

#include <unistd.h>

#include <cstdio>
#include <memory>

#include "platform/host/CommandLine.h"
#include "platform/host/RxRegistry.h"
#include "workbench/commands/CommandLineModel.h"
#include "workbench/commands/CommandRunner.h"
#include "workbench/commands/Completion.h"
#include "workbench/commands/ExitCode.h"
#include "workbench/commands/LineWords.h"
#include "workbench/commands/Output.h"
#include "workbench/commands/PipeLines.h"
#include "workbench/commands/TerminalLines.h"
#include "workbench/commands/Texts.h"
#include "workbench/commands/UsageText.h"

namespace {

bool IsQuit(const std::vector<CString>& words) {
    return words.size() == 1 && (words.front() == L"quit" || words.front() == L"exit");
}

bool IsSubcommand(const CString& word) {
    return word == L"help" || word.Left(1) == L"-" || CommandLineModel().FindSubcommand(word) != nullptr;
}

int UnknownCommand(const CString& word) {
    std::vector<CString> names = CommandLineModel().SubcommandNames();
    for (const std::vector<CString>& more : {HostCommandNames(), PromptWords()})
        names.insert(names.end(), more.begin(), more.end());
    Complain(UnknownSubcommandText(word, names));
    return kExitUsage;
}

int RunHostCommand(AcRxFunctionPtr function) {
    function();
    return std::fflush(stdout) == 0 ? kExitOk : kExitFailed;
}

int RunLineWords(std::vector<CString> words, Output& output) {
    if (words.size() > 1 && words.front() == L"orvo")  // a line copied from a shell
        words.erase(words.begin());
    if (words.empty() || words.front().Left(1) == L"#")
        return kExitOk;
    const AcEdCommand* command = words.size() == 1 ? HostCommandStack().lookupCmd(words.front()) : nullptr;
    if (command)
        return RunHostCommand(command->m_pFunction);
    return IsSubcommand(words.front()) ? RunWords(words, WordsFrom::Prompt, output) : UnknownCommand(words.front());
}

// Reads and runs until the end; `failed` receives the code of the last line that failed.
void RunLines(LineSource& lines, Output& output, int& failed) {
    CString line;
    for (LineSource::Got got = lines.Next(line); got != LineSource::Got::End; got = lines.Next(line)) {
        int code = kExitOk;
        if (got == LineSource::Got::Failed) {
            Complain(Say(L"读不了标准输入"));
            failed = kExitFailed;
            return;
        }
        const std::optional<std::vector<CString>> words = SplitWords(line);
        if (got == LineSource::Got::TooLong) {
            Complain(Say(L"这一行太长，已跳过"));
            code = kExitUsage;
        } else if (got == LineSource::Got::Line && !words) {
            Complain(Say(L"引号没有配对"));
            code = kExitUsage;
        } else if (got == LineSource::Got::Line) {
            if (IsQuit(*words))
                return;
            code = RunLineWords(*words, output);
        }
        failed = code == kExitOk ? failed : code;
    }
}

}  // namespace

int RunPrompt(Output& output) {
    SetCommandLineSink(nullptr, nullptr);  // what commands print is the answer here
    int failed = kExitOk;
    if (isatty(STDIN_FILENO) && isatty(STDOUT_FILENO)) {
        TerminalLines lines;
        if (lines.IsUsable()) {
            RunLines(lines, output, failed);
            return kExitOk;
        }
    }
    PipeLines lines;
    RunLines(lines, output, failed);
    return failed;
}
