// The prompt's completion, for words instead of a line.
#include "workbench/commands/CompletionCommand.h"

#include "platform/host/ExitCode.h"
#include "platform/host/Output.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/commands/Completion.h"

int RunCompletion(const std::vector<CString>& words, Output& output) {
    for (const CString& choice : NamesFor(words))
        output.Line(choice);
    return kExitOk;
}

Subcommand CompletionSubcommand() {
    return {L"completion",
            L"列出命令行最后一个词可以补全成什么，供命令解释器使用",
            {ValuesOption(L"WORD", SubcommandOption::kMany, L"", L"orvo 之后的词，最后一个可以没有写完；写在 -- 之后")},
            {L"orvo completion -- sun --pl"},
            [](SubcommandCall& call) { return RunCompletion(call.GetValues(L"WORD"), call.GetOutput()); },
            Say};
}
