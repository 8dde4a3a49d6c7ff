// The table of subcommands, as the command-line library knows it.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <vector>

#include "platform/base/CString.h"
#include "platform/host/Subcommands.h"

// What may stand before a subcommand or behind any: --help, --version, --language, --plugin.
std::vector<SubcommandOption> ProgramOptions();

// "--name" of each option that may stand behind the subcommand (or, for null, before any), the program's own last.
std::vector<CString> OptionNames(const Subcommand* subcommand);

// The text of a row in the language in force.
CString TextOf(const Subcommand& row, const CString& text);

// Every value that the command line can carry. One object serves one parse, with the rows that the host's table has
// when it is made.
class CommandLineModel {
public:
    CommandLineModel();
    CommandLineModel(const CommandLineModel&) = delete;
    CommandLineModel& operator=(const CommandLineModel&) = delete;

    // Parses the words behind the program's name. Throws CLI::ParseError.
    void Parse(const std::vector<CString>& words);

    // The row of the subcommand that was named; null when there was none.
    const Subcommand* Chosen() const;
    // What an option of the chosen subcommand (or of the program) was given; nothing when it was left out.
    std::optional<CString> Value(const wchar_t* option) const;
    // All values of an option that takes several.
    std::vector<CString> Values(const wchar_t* option) const;
    bool HasFlag(const wchar_t* flag) const;

    // The options that could be given, as the library knows them: the chosen subcommand's, then the program's.
    std::vector<const CLI::Option*> GetOptions() const;
    // Words that belong to nothing.
    std::vector<CString> GetRemaining() const;

private:
    const CLI::App* ChosenApp() const;
    const CLI::Option* FindOption(const wchar_t* option) const;

    CLI::App m_root;
};
