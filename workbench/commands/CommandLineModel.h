// The subcommands with their options, as the command-line library knows them.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

#include "platform/base/CString.h"

// Every value that the command line can carry. One object serves one parse.
class CommandLineModel {
public:
    CommandLineModel();
    CommandLineModel(const CommandLineModel&) = delete;
    CommandLineModel& operator=(const CommandLineModel&) = delete;

    // Parses the words behind the program's name. Throws CLI::ParseError.
    void Parse(const std::vector<CString>& words);

    // The subcommand that was named; null when there was none.
    CLI::App* Chosen();
    // What an option of the chosen subcommand (or of the program) was given; nothing when it was left out.
    std::optional<CString> Value(const char* option);
    // All values of an option that takes several.
    std::vector<CString> Values(const char* option);
    bool HasFlag(const char* flag);

    CLI::App& Root() { return m_root; }
    std::vector<CString> SubcommandNames();
    // "--name" of each option that may stand behind the subcommand (or, for null, before any).
    std::vector<CString> OptionNames(CLI::App* subcommand);
    CLI::App* FindSubcommand(const CString& name);

private:
    void AddInfo();
    void AddSun();
    void AddLists();
    void AddSet();
    void AddShadow();
    void AddRecord();
    void AddEntity();
    void AddWindow();
    CLI::App* AddSubcommand(const char* name, const wchar_t* description);
    void AddFlag(CLI::App* app, const char* flag, const wchar_t* description);
    void AddValue(CLI::App* app, const char* option, const char* type, const wchar_t* description);
    // An option that takes several values at once, whatever they look like.
    void AddValues(CLI::App* app, const char* option, int count, const char* type, const wchar_t* description);

    CLI::App m_root;
    std::vector<std::string> m_frames;  // where the library puts the one list of values
};
