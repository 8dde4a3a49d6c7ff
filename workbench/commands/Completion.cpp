// Candidates for the word at the end of a line.
#include "workbench/commands/Completion.h"

#include <algorithm>

#include "platform/base/TextSpace.h"
#include "platform/host/RxRegistry.h"
#include "workbench/commands/CommandLineModel.h"
#include "workbench/commands/FileNames.h"
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

// The option of this name; null when none has it.
const SubcommandOption* OptionNamed(const std::vector<SubcommandOption>& options, const CString& name) {
    for (const SubcommandOption& option : options) {
        const std::vector<CString> names = option.GetNames();
        if (!option.IsPositional() && std::find(names.begin(), names.end(), name) != names.end())
            return &option;
    }
    return nullptr;
}

// The option whose value the last word of a line will be; null when it will be none.
const SubcommandOption* OptionBefore(const Subcommand& row, const std::vector<CString>& words) {
    return OptionNamed(row.options, words.back());
}

// How many words the option at a place takes, itself and its values; 0 when there is none.
std::size_t WordsTaken(const std::vector<SubcommandOption>& options, const CString& word) {
    const int equals = word.Find(L'=');
    const SubcommandOption* option = OptionNamed(options, equals < 0 ? word : word.Left(equals));
    if (!option)
        return 0;
    const int values = option->count == SubcommandOption::kMany ? 1 : option->count;
    return 1 + static_cast<std::size_t>(equals < 0 ? values : 0);
}

// The first of what stands by itself that the words behind the subcommand have not given yet; null when there is none.
const SubcommandOption* NextPositional(const Subcommand& row, const std::vector<CString>& words) {
    std::vector<SubcommandOption> named = row.options;
    const std::vector<SubcommandOption> programs = ProgramOptions();
    named.insert(named.end(), programs.begin(), programs.end());
    std::size_t given = 0;
    for (std::size_t at = 1; at < words.size();) {
        const std::size_t taken = WordsTaken(named, words[at]);
        given += taken == 0;
        at += std::max<std::size_t>(taken, 1);
    }
    for (const SubcommandOption& option : row.options)
        if (option.IsPositional() && (option.count == SubcommandOption::kMany || given-- == 0))
            return &option;
    return nullptr;
}

// Whether nothing is a better guess than a file: one is asked for by its name, or something has to be given that brings
// no words.
bool AsksForFile(const SubcommandOption* positional) {
    return positional && !positional->words && (positional->name == L"FILE" || positional->isRequired);
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
    std::erase_if(followers, [](const CString& name) {  // refused at a prompt, and in the way of --place
        return name == L"--plugin" || name == L"--language";
    });
    return followers;
}

// What stands behind the program's own options at the beginning of a shell's command line.
std::vector<CString> WithoutProgramOptions(const std::vector<CString>& words) {
    const std::vector<SubcommandOption> options = ProgramOptions();
    std::size_t at = 0;
    while (at + 1 < words.size()) {
        const std::size_t taken = WordsTaken(options, words[at]);
        if (taken == 0)
            break;
        at += taken;
    }
    return {words.begin() + static_cast<std::ptrdiff_t>(std::min(at, words.size())), words.end()};
}

// Commands of plug-ins, and what the prompt alone understands, are none of a shell's.
std::vector<CString> ShellsFirstWords() {
    std::vector<CString> words = SubcommandNames();
    words.push_back(L"help");
    Append(words, OptionNames(nullptr));
    return words;
}

// What may follow these words in a shell, where the last word has been begun with those letters.
std::vector<CString> ShellsFollowers(const std::vector<CString>& words, const CString& begun) {
    if (words.empty())
        return ShellsFirstWords();
    if (words.front() == L"help")
        return words.size() == 1 ? SubcommandNames() : std::vector<CString>();
    const Subcommand* row = HostSubcommands().Find(words.front());
    if (!row)
        return {};
    if (const SubcommandOption* before = OptionBefore(*row, words); before && before->count != SubcommandOption::kFlag)
        return WordsOf(*before);
    if (begun.IsEmpty() && AsksForFile(NextPositional(*row, words)))
        return {};
    std::vector<CString> followers = Followers(words);
    Append(followers, OptionNames(nullptr));
    return followers;
}

// Each once.
std::vector<CString> BeginningWith(const CString& begun, const std::vector<CString>& names) {
    std::vector<CString> choices;
    for (const CString& name : names) {
        const bool isNew = std::find(choices.begin(), choices.end(), name) == choices.end();
        if (isNew && name.Left(begun.GetLength()) == begun)
            choices.push_back(name);
    }
    return choices;
}

// Whether the next word may name a file: no table says so, but what brings no words of its own may, as shells have it.
enum class FilesHere { None, Too, Alone };

FilesHere FilesAt(const std::vector<CString>& line) {
    const std::vector<CString> words = WithoutProgramName(line);
    const Subcommand* row = words.empty() ? nullptr : HostSubcommands().Find(words.front());
    if (!row)
        return FilesHere::None;
    const SubcommandOption* before = OptionBefore(*row, words);
    if (before && before->count != SubcommandOption::kFlag)
        return before->words ? FilesHere::None : FilesHere::Alone;
    const bool takesFiles = std::any_of(row->options.begin(), row->options.end(), [](const SubcommandOption& option) {
        return option.IsPositional() && !option.words;
    });
    return takesFiles ? FilesHere::Too : FilesHere::None;
}

bool NeedsQuotes(const CString& word) {
    const std::wstring_view text = word.View();
    return std::any_of(text.begin(), text.end(),
                       [](wchar_t each) { return IsTextSpace(each) || each == L'"' || each == L'\''; });
}

// How the word, as it is written in the line, goes on to what all choices begin with.
void GoOn(const CString& written, const BegunWord& begun, LineCompletion& completion) {
    const CString start = CommonStart(completion.choices);
    const bool isOnly = completion.choices.size() == 1;
    const bool isFolder = start.Right(1) == L"/";
    if (begun.isBare && !NeedsQuotes(start)) {
        completion.rest = start.Mid(begun.text.GetLength());
        if (isOnly && !isFolder)
            completion.rest += L" ";
        return;
    }
    if (!isOnly && start == begun.text)
        return;
    wchar_t quote = begun.quote == 0 ? L'"' : begun.quote;
    if (start.Find(quote) >= 0)
        quote = quote == L'"' ? L'\'' : L'"';
    completion.replaced = written.GetLength();
    completion.rest = CString(quote) + start;
    if (isOnly && !isFolder)
        completion.rest += CString(quote) + L" ";
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

std::vector<CString> NamesFor(std::vector<CString> words) {
    CString begun;
    if (!words.empty()) {
        begun = words.back();
        words.pop_back();
    }
    // The program's options may stand anywhere.
    const std::vector<SubcommandOption> programs = ProgramOptions();
    const SubcommandOption* before = words.empty() ? nullptr : OptionNamed(programs, words.back());
    if (before && before->count != SubcommandOption::kFlag)
        return BeginningWith(begun, WordsOf(*before));
    words.push_back(begun);  // the last is no option of the program, however it is spelt
    words = WithoutProgramOptions(words);
    words.pop_back();
    return BeginningWith(begun, ShellsFollowers(words, begun));
}

LineCompletion CompleteLine(const CString& line) {
    const BegunWord begun = LastWord(line);
    const std::optional<std::vector<CString>> words = SplitWords(line.Left(begun.start));
    LineCompletion completion;
    if (!words)
        return completion;
    const FilesHere files = FilesAt(*words);
    if (files != FilesHere::Alone)
        completion.choices = BeginningWith(begun.text, Followers(*words));
    if (files != FilesHere::None)
        Append(completion.choices, FileNamesFrom(begun.text));
    if (!completion.choices.empty())
        GoOn(line.Mid(begun.start), begun, completion);
    return completion;
}
