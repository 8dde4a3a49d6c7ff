// The subcommands of the program, in one table: its own and those that plug-ins bring. Help, completion and the reading
// of a command line all go by it.
// Why: docs/decisions/host.md
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

class Output;
class Progress;

// One thing that may stand behind a subcommand.
struct ORVO_API SubcommandOption {
    // How many values it has, beside a plain number of them.
    static constexpr int kFlag = 0;   // none: it is there or not
    static constexpr int kMany = -1;  // an option may be given again and again, with one value each time; what stands
                                      // by itself takes all words that are left

    // "--place" or, with a letter for the hurried, "-o,--output". What stands by itself without being named, such as
    // the file of "orvo window FILE", has a name in capitals: "FILE".
    CString name;
    // What the values are, as the help shows it behind the name: "NAME", "HANDLE CODE". May be empty.
    CString type;
    // What it is for, as the help shows it.
    CString description;
    // How many values it has: above 0, kFlag or kMany.
    int count = 1;
    // A request without it is refused before the subcommand runs.
    bool isRequired = false;
    // The words that the first value can be completed to; null for none. Whatever it throws stands for no words.
    std::function<std::vector<CString>()> words;

    // Whether it stands by itself without being named.
    bool IsPositional() const;
    // "-o" and "--output".
    std::vector<CString> GetNames() const;
};

// The usual kinds in one line each: an option without a value, with one, and with that many of them. Nothing is checked
// before it is added to the table.
ORVO_API SubcommandOption FlagOption(const wchar_t* name, const wchar_t* description);
ORVO_API SubcommandOption ValueOption(const wchar_t* name, const wchar_t* type, const wchar_t* description,
                                      std::function<std::vector<CString>()> words = nullptr);
ORVO_API SubcommandOption ValuesOption(const wchar_t* name, int count, const wchar_t* type, const wchar_t* description);
// The same, as one that has to be given.
ORVO_API SubcommandOption Required(SubcommandOption option);

// One request, while its subcommand runs.
class ORVO_API SubcommandCall {
public:
    // For those who derive from it.
    SubcommandCall() = default;
    virtual ~SubcommandCall();
    SubcommandCall(const SubcommandCall&) = delete;
    SubcommandCall& operator=(const SubcommandCall&) = delete;

    // What an option was given, named by one of its names ("--place" or "-p"); nothing when it was left out. An option
    // that the subcommand's row does not have cannot be asked for: the call then ends as an internal error, by an
    // exception, here and below.
    virtual std::optional<CString> GetValue(const wchar_t* option) const = 0;
    // Every value of an option that has several; none when it was left out.
    virtual std::vector<CString> GetValues(const wchar_t* option) const = 0;
    // Whether an option stands there, with values or without.
    virtual bool HasFlag(const wchar_t* option) const = 0;

    // Where the answer goes. It is shown when the subcommand has ended.
    virtual Output& GetOutput() = 0;
    // Whom to tell how far long work is, and who may ask it to stop.
    virtual Progress& GetProgress() = 0;
};

// A row of the table.
struct ORVO_API Subcommand {
    // A word of ASCII letters, digits and hyphens that begins with a letter.
    CString name;
    // One sentence without a full stop, as the help shows it.
    CString description;
    // In the order in which the help shows them, and values without a name are given.
    std::vector<SubcommandOption> options;
    // Whole command lines that the help shows as they are.
    std::vector<CString> examples;
    // Answers a request and gives an ExitCode. What it throws is told as an error of the program's own, with the code
    // kExitFailed and without an answer; the program goes on. At the prompt and in the window it runs between two
    // lines.
    std::function<int(SubcommandCall&)> run;
    // From a text of this row, as it is written here, to the one that is shown in the language in force; null: the
    // texts are shown as they are. So is one for which it throws.
    CString (*translate)(const wchar_t* text) = nullptr;
};

// Used in the host's thread only.
class ORVO_API SubcommandTable {
public:
    // Without rows.
    SubcommandTable();
    ~SubcommandTable();
    SubcommandTable(const SubcommandTable&) = delete;
    SubcommandTable& operator=(const SubcommandTable&) = delete;

    // Adds a row behind the others, in the name of the plug-in with this application handle, usually on kInitAppMsg.
    // False, with the reason in words and the table as it was, when
    // * the handle is null;
    // * the name is no such word as above, is help, quit, exit or orvo, or another row has it (in whatever case);
    // * there is nothing to run;
    // * an option's name is none of the forms above, appears twice, or is the program's own (-h, --help, --version,
    //   --language, --plugin); its count makes no sense (fewer than kMany; something without a name that has not one
    //   value or all); or something without a name follows what takes all words.
    bool Add(const Subcommand& row, void* applicationHandle, CString& reason);

    // Removes a row of this plug-in. False when it has none of this name.
    bool Remove(const wchar_t* name, void* applicationHandle);
    // Removes every row of this plug-in. The host does so before it closes the library, so that none outlives it.
    void Forget(void* applicationHandle);

    // A row by its exact name; null when there is none. Good until the table changes, like the following ones.
    const Subcommand* Find(const wchar_t* name) const;
    // All rows in the order in which they were added; they stay the table's.
    std::vector<const Subcommand*> GetAll() const;

private:
    struct Rows;
    std::unique_ptr<Rows> m_rows;
};

// The host's one table. It is made at the first call and never destroyed.
ORVO_API SubcommandTable& HostSubcommands();
