// The prompt's completion, for words instead of a line.
#include "workbench/commands/CompletionCommand.h"

#include <algorithm>

#include "platform/base/TextSpace.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Output.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/commands/CommandLineModel.h"
#include "workbench/commands/Completion.h"
#include "workbench/commands/UsageText.h"

namespace {

// Commands of plug-ins, and what the prompt alone understands, are none of a shell's.
std::vector<CString> FirstWordsFrom(const CString& begun) {
    std::vector<CString> words = SubcommandNames();
    words.push_back(L"help");
    const std::vector<CString> options = OptionNames(nullptr);
    words.insert(words.end(), options.begin(), options.end());
    std::erase_if(words, [&begun](const CString& word) { return word.Left(begun.GetLength()) != begun; });
    return words;
}

// The word as it would stand in a line.
CString Quoted(const CString& word) {
    const std::wstring_view text = word.View();
    if (text.find(L'"') != std::wstring_view::npos)
        return L"'" + word + L"'";
    const bool isPlain = !text.empty() && text.find(L'\'') == std::wstring_view::npos &&
                         std::none_of(text.begin(), text.end(), IsTextSpace);
    return isPlain ? word : L"\"" + word + L"\"";
}

}  // namespace

int RunCompletion(const std::vector<CString>& words, Output& output) {
    std::vector<CString> choices;
    if (words.size() <= 1) {
        choices = FirstWordsFrom(words.empty() ? CString() : words.front());
    } else {
        CString line;
        for (auto word = words.begin(); word != words.end() - 1; ++word)
            line += Quoted(*word) + L" ";
        choices = NamesFor(line + words.back());
    }
    for (const CString& choice : choices)
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
