// Candidates for the word at the end of a line.
#include "workbench/commands/Completion.h"

#include <algorithm>

#include "facts/PlaceSearch.h"
#include "facts/ShippedSettings.h"
#include "facts/StandardSearch.h"
#include "platform/base/TextNumber.h"
#include "platform/host/RxRegistry.h"
#include "settings/OrvoDataSet.h"
#include "workbench/commands/CommandLineModel.h"
#include "workbench/commands/LineWords.h"

namespace {

void Append(std::vector<CString>& to, const std::vector<CString>& from) {
    to.insert(to.end(), from.begin(), from.end());
}

std::vector<CString> PlaceNames() {
    std::vector<CString> names;
    for (const Place& place : AllPlaces())
        names.push_back(place.city);
    return names;
}

std::vector<CString> ShippedStandardNames() {
    std::vector<CString> names;
    if (const std::unique_ptr<OrvoDataSet> shipped = ReadShippedSettings())
        names = NamesOfStandards(*shipped);
    return names;
}

std::vector<CString> FirstWords() {
    std::vector<CString> names = CommandLineModel().SubcommandNames();
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

// Everything that may follow the finished words of a line.
std::vector<CString> Followers(const std::vector<CString>& line) {
    const std::vector<CString> words = WithoutProgramName(line);
    if (words.empty())
        return FirstWords();
    CommandLineModel model;
    CLI::App* subcommand = model.FindSubcommand(words.front());
    if (words.back() == L"--place")
        return PlaceNames();
    if (words.back() == L"--standard")
        return NamesOfStandards(g_SunDataSet);
    if (words.front() == L"standards" && words.back() == L"--reset")
        return ShippedStandardNames();
    return subcommand ? model.OptionNames(subcommand) : std::vector<CString>();
}

}  // namespace

std::vector<CString> HostCommandNames() {
    const AcEdCommandStack& stack = HostCommandStack();
    std::vector<CString> names;
    for (int i = 0; i < stack.groupCount(); ++i) {
        const CString group = stack.groupName(i);
        for (int j = 0; j < stack.commandCount(group); ++j)
            names.push_back(stack.commandAt(group, j)->m_strName);
    }
    return names;
}

std::vector<CString> PromptWords() {
    return {L"help", L"quit", L"exit"};
}

std::vector<CString> CompletionsOf(const CString& line) {
    const int start = StartOfLastWord(line);
    const CString begun = line.Mid(start);
    const std::optional<std::vector<CString>> words = SplitWords(line.Left(start));
    std::vector<CString> matches;
    for (const CString& name : words ? Followers(*words) : std::vector<CString>()) {
        const bool isNew = std::find(matches.begin(), matches.end(), name) == matches.end();
        if (isNew && name.Left(begun.GetLength()) == begun)
            matches.push_back(name);
    }
    return matches;
}

CString RestOfWord(const CString& line, const std::vector<CString>& completions) {
    const CString rest = CommonStart(completions).Mid(line.GetLength() - StartOfLastWord(line));
    return completions.size() == 1 ? rest + L" " : rest;
}
