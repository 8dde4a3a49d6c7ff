// From a line to whatever runs it.
#include "workbench/commands/PromptLine.h"

#include <cstdio>
#include <vector>

#include "platform/host/ExitCode.h"
#include "platform/host/RxRegistry.h"
#include "platform/host/Subcommands.h"
#include "platform/window/CDialog.h"
#include "workbench/Texts.h"
#include "workbench/commands/CommandRunner.h"
#include "workbench/commands/Completion.h"
#include "workbench/commands/GuardedRun.h"
#include "workbench/commands/LineWords.h"
#include "workbench/commands/StandardNotice.h"
#include "workbench/commands/UsageText.h"
#include "workbench/commands/ZoneEditorWatch.h"
#include "workbench/terminal/Complaint.h"

namespace {

bool IsQuit(const std::vector<CString>& words) {
    return words.size() == 1 && (words.front() == L"quit" || words.front() == L"exit");
}

bool IsSubcommand(const CString& word) {
    return word == L"help" || word.Left(1) == L"-" || HostSubcommands().Find(word) != nullptr;
}

int UnknownCommand(const CString& word) {
    std::vector<CString> names = SubcommandNames();
    for (const std::vector<CString>& more : {HostCommandNames(), PromptWords()})
        names.insert(names.end(), more.begin(), more.end());
    Complain(UnknownSubcommandText(word, names));
    return kExitUsage;
}

int RunHostCommand(const AcEdCommand& command) {
    const int unseen = CDialog::GetUnseenCount();
    const std::optional<int> code = RunGuarded(command.name, [&command, unseen] {
        const StandardNotice notice(command);
        {
            const ZoneEditorWatch watch;
            command.function();
            watch.Report();
        }
        notice.Tell();
        // What the command was for is in a dialog that nobody has seen.
        return static_cast<int>(CDialog::GetUnseenCount() == unseen ? kExitOk : kExitFailed);
    });
    return std::fflush(stdout) == 0 ? code.value_or(kExitFailed) : static_cast<int>(kExitFailed);
}

int RunLineWords(std::vector<CString> words, CollectedOutput& output) {
    if (words.size() > 1 && words.front() == L"orvo")  // a line copied from a shell
        words.erase(words.begin());
    if (words.empty() || words.front().Left(1) == L"#")
        return kExitOk;
    const AcEdCommand* command = words.size() == 1 ? HostCommandStack().lookupCmd(words.front()) : nullptr;
    if (command) {
        const AcEdCommand running = *command;  // it may change the list it stands in
        return RunHostCommand(running);
    }
    return IsSubcommand(words.front()) ? RunWords(words, WordsFrom::Prompt, output) : UnknownCommand(words.front());
}

}  // namespace

PromptAnswer RunPromptLine(const CString& line, CollectedOutput& output) {
    const std::optional<std::vector<CString>> words = SplitWords(line);
    if (!words) {
        Complain(Say(L"引号没有配对"));
        return {kExitUsage, false};
    }
    if (IsQuit(*words))
        return {kExitOk, true};
    return {RunLineWords(*words, output), false};
}
