// Candidates for the word at the end of a line.
#include "workbench/commands/Completion.h"

#include <algorithm>

#include "platform/base/TextSpace.h"
#include "platform/host/RxRegistry.h"
#include "workbench/commands/CommandLineModel.h"
#include "workbench/commands/LineWords.h"
#include "workbench/commands/UsageText.h"

namespace {

void Append(std::vector<CString>& to, const std::vector<CString>& from) {
    to.insert(to.end(), from.begin(), from.end());
}

std::vector<CString> FirstWords() {
    std::vector<CString> names = SubcommandNames();
    Append(names, HostCommandNames());
    Append(names, PromptWords());
    return names;
}

// What all of the names begin with.
CString CommonStart(const std::vector<CString>& names) {
    CString start(names.front());
    for (const CString& name : names) {
        int length = 0;
        while (length < start.GetLength() && start.GetAt(length) == name.GetAt(length))
            ++length;
        start = start.Left(length);
    }
    return start;
}

// Where the last word of a line begins.
int StartOfLastWord(const CString& line) {
    int start = line.GetLength();
    while (start > 0 && !IsTextSpace(line.GetAt(start - 1)))
        --start;
    return start;
}

// A line may begin with the program's name, as on the command line.
std::vector<CString> WithoutProgramName(std::vector<CString> words) {
    if (!words.empty() && words.front() == L"orvo")
        words.erase(words.begin());
    return words;
}

// The words that an option brings. A key that was pressed is no place for what a plug-in throws.
std::vector<CString> WordsOf(const SubcommandOption& option) {
    try {
        return option.words ? option.words() : std::vector<CString>();
    } catch (...) {
        return {};
    }
}

// The option whose value the last word of a line will be; null when it will be none.
const SubcommandOption* OptionBefore(const Subcommand& row, const std::vector<CString>& words) {
    for (const SubcommandOption& option : row.options) {
        const std::vector<CString> names = option.GetNames();
        if (!option.IsPositional() && std::find(names.begin(), names.end(), words.back()) != names.end())
            return &option;
    }
    return nullptr;
}

// Everything that may follow the finished words of a line.
std::vector<CString> Followers(const std::vector<CString>& line) {
    const std::vector<CString> words = WithoutProgramName(line);
    if (words.empty())
        return FirstWords();
    const Subcommand* row = HostSubcommands().Find(words.front());
    if (!row)
        return {};
    const SubcommandOption* before = OptionBefore(*row, words);
    if (before && before->words)
        return WordsOf(*before);
    std::vector<CString> followers;
    for (const SubcommandOption& option : row->options)
        if (option.IsPositional())
            Append(followers, WordsOf(option));
    Append(followers, OptionNames(row));
    std::erase(followers, L"--plugin");  // refused at a prompt, and in the way of --place
    return followers;
}

}  // namespace

std::vector<CString> HostCommandNames() {
    const AcEdCommandStack& stack = HostCommandStack();
    std::vector<CString> names;
    for (int i = 0; i < stack.groupCount(); ++i) {
        const CString group = stack.groupName(i);
        for (int j = 0; j < stack.commandCount(group); ++j)
            names.push_back(stack.commandAt(group, j)->name);
    }
    return names;
}

std::vector<CString> PromptWords() {
    return {L"help", L"quit", L"exit"};
}

LineCompletion CompleteLine(const CString& line) {
    const int start = StartOfLastWord(line);
    const CString begun = line.Mid(start);
    const std::optional<std::vector<CString>> words = SplitWords(line.Left(start));
    LineCompletion completion;
    std::vector<CString>& choices = completion.choices;
    for (const CString& name : words ? Followers(*words) : std::vector<CString>()) {
        const bool isNew = std::find(choices.begin(), choices.end(), name) == choices.end();
        if (isNew && name.Left(begun.GetLength()) == begun)
            choices.push_back(name);
    }
    if (!choices.empty())
        completion.rest = CommonStart(choices).Mid(begun.GetLength());
    if (choices.size() == 1)
        completion.rest += L" ";
    return completion;
}
