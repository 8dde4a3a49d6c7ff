// From words to a subcommand.
#include "workbench/commands/CommandRunner.h"

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <stdexcept>

#include "platform/base/PlainText.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/Version.h"
#include "workbench/commands/CommandLineModel.h"
#include "workbench/commands/GuardedRun.h"
#include "workbench/commands/UsageText.h"
#include "workbench/terminal/CollectedOutput.h"
#include "workbench/terminal/Complaint.h"
#include "workbench/terminal/TerminalProgress.h"

namespace {

int Refuse(const CString& text, const Subcommand* subcommand) {
    Complain(text);
    const CString command = subcommand ? L"orvo " + subcommand->name : CString(L"orvo");
    Complain(SayFormat(L"用“%s --help”查看用法。", command));
    return kExitUsage;
}

// Another option where a value should be is a value that was forgotten.
CString ForgottenValue(const CommandLineModel& model) {
    const std::vector<CString> names = OptionNames(model.Chosen());
    for (const CLI::Option* option : model.GetOptions()) {
        const bool takesValue = option->nonpositional() && option->get_items_expected_max() > 0;
        const CString value = takesValue && option->count() > 0 ? FromUtf8(option->results().front()) : CString();
        if (!value.IsEmpty() && std::find(names.begin(), names.end(), value) != names.end())
            return FromUtf8(option->get_name());
    }
    return CString();
}

// A flag that was given a value ("--json=yes").
CString FlagWithValue(const CommandLineModel& model) {
    for (const CLI::Option* option : model.GetOptions()) {
        const bool isGivenFlag = option->get_items_expected_max() == 0 && option->count() > 0;
        if (isGivenFlag && option->results().front() != "true")
            return FromUtf8(option->get_name());
    }
    return CString();
}

// What is wrong with the options that the program itself has taken at its start (PlugIns.h, LanguageChoice.h).
CString StartError(const CommandLineModel& model, WordsFrom from) {
    for (const wchar_t* option : {L"--language", L"--plugin"})
        if (from == WordsFrom::Prompt && model.HasFlag(option))
            return SayFormat(L"选项 %s 只能在启动程序时给出", option);
    const std::optional<CString> language = model.Value(L"--language");
    if (language && *language != L"zh" && *language != L"en")
        return SayFormat(L"没有语言“%s”：请写 zh 或 en", Printable(*language));
    for (const CString& file : model.Values(L"--plugin"))
        if (file.IsEmpty() || file.Left(2) == L"--")
            return SayFormat(L"选项 %s 后面缺少值", L"--plugin");
    return CString();
}

// What has to be given and was not; empty when there is nothing.
CString MissingText(const CommandLineModel& model, const Subcommand& row) {
    for (const SubcommandOption& option : row.options)
        if (option.isRequired && !model.HasFlag(option.GetNames().back()))
            return SayFormat(L"没有给出 %s：%s", option.GetNames().back(), Printable(TextOf(row, option.description)));
    return CString();
}

// The words of a command line, as the subcommand asks for them.
class Call : public SubcommandCall {
public:
    Call(const Subcommand& row, const CommandLineModel& model, Output& output, Progress& progress)
        : m_row(row), m_model(model), m_output(output), m_progress(progress) {}
    std::optional<CString> GetValue(const wchar_t* option) const override { return m_model.Value(OwnName(option)); }
    std::vector<CString> GetValues(const wchar_t* option) const override { return m_model.Values(OwnName(option)); }
    bool HasFlag(const wchar_t* option) const override { return m_model.HasFlag(OwnName(option)); }
    Output& GetOutput() override { return m_output; }
    Progress& GetProgress() override { return m_progress; }

private:
    // A slip of the pen would answer like an option that was left out, and a wrong answer would come without a word.
    const wchar_t* OwnName(const wchar_t* option) const {
        const bool isKnown =
            std::any_of(m_row.options.begin(), m_row.options.end(), [option](const SubcommandOption& own) {
                const std::vector<CString> names = own.GetNames();
                return std::find(names.begin(), names.end(), CString(option)) != names.end();
            });
        if (!isKnown)
            throw std::invalid_argument(ToUtf8(
                SayFormat(L"子命令 %s 没有名为“%s”的选项，却要读它", m_row.name, Printable(CString(option))).View()));
        return option;
    }

    const Subcommand& m_row;
    const CommandLineModel& m_model;
    Output& m_output;
    Progress& m_progress;
};

int RunRow(const Subcommand& row, SubcommandCall& call, CollectedOutput& output) {
    const std::optional<int> code = RunGuarded(row.name, [&] { return row.run(call); });
    if (!code)
        output.Drop();
    return code.value_or(kExitFailed);
}

// A signal that cancelled one of several lines is not for that line alone, unless somebody at a terminal gave it up
// with Ctrl-C and goes on typing.
void PassOnSignal(int number, WordsFrom from) {
    const bool goesOn = number == SIGINT && isatty(STDIN_FILENO);
    if (number != 0 && from == WordsFrom::Prompt && !goesOn)
        std::raise(number);
}

int RunSubcommand(const Subcommand& row, const CommandLineModel& model, WordsFrom from, CollectedOutput& output) {
    int signal = 0;
    int code = kExitOk;
    {
        TerminalProgress progress;
        Call call(row, model, output, progress);
        code = RunRow(row, call, output);
        signal = progress.GetStopSignal();
    }
    PassOnSignal(signal, from);
    return code;
}

int RunParsed(const CommandLineModel& model, WordsFrom from, CollectedOutput& output) {
    const Subcommand* chosen = model.Chosen();
    const CString wrong = StartError(model, from);
    if (!wrong.IsEmpty())
        return Refuse(wrong, nullptr);
    const CString forgotten = ForgottenValue(model);
    if (!forgotten.IsEmpty())
        return Refuse(MissingValueText(forgotten, chosen), chosen);
    const CString flag = FlagWithValue(model);
    if (!flag.IsEmpty())
        return Refuse(SayFormat(L"选项 %s 不带值", flag), chosen);
    if (model.HasFlag(L"--help")) {
        PrintHelp(chosen, output);
        return kExitOk;
    }
    if (model.HasFlag(L"--version")) {
        output.Line(VersionText());
        return kExitOk;
    }
    if (!chosen)
        return kExitOk;
    const CString missing = MissingText(model, *chosen);
    if (!missing.IsEmpty())
        return Refuse(missing, chosen);
    const Subcommand row = *chosen;  // it may change the table it stands in
    return RunSubcommand(row, model, from, output);
}

// "help" and "help info" ask for what "--help" and "info --help" ask for.
std::vector<CString> WithHelpAsOption(const std::vector<CString>& words) {
    if (words.empty() || words.front() != L"help")
        return words;
    std::vector<CString> turned(words.begin() + 1, words.end());
    turned.push_back(L"--help");
    return turned;
}

std::filesystem::path PathOf(const CString& file) {
    return ToUtf8(file.View());
}

bool NamesDrawing(const CString& word) {
    std::error_code error;
    const auto there = std::filesystem::status(PathOf(word), error);
    return word.Right(4).CompareNoCase(L".dxf") == 0 ||
           (std::filesystem::exists(there) && !std::filesystem::is_directory(there));
}

// The file that stands where a subcommand would; empty where there is none.
CString DrawingWithoutSubcommand(const std::vector<CString>& words) {
    CommandLineModel model;
    try {
        model.Parse(words);
    } catch (const CLI::ExtrasError&) {
        const std::vector<CString> extras = model.GetRemaining();
        if (!model.Chosen() && !extras.empty() && extras.front().Left(1) != L"-" && NamesDrawing(extras.front()))
            return extras.front();
    } catch (const CLI::ParseError&) {  // told where it is parsed in earnest
    }
    return CString();
}

int WriteAnswer(int code, CollectedOutput& output) {
    return output.Flush() || code != kExitOk ? code : kExitFailed;
}

}  // namespace

bool AsksForPrompt(const std::vector<CString>& words) {
    CommandLineModel model;
    try {
        model.Parse(words);
    } catch (const CLI::ParseError&) {
        return false;
    }
    return !model.Chosen() && !model.HasFlag(L"--help") && !model.HasFlag(L"--version") &&
           StartError(model, WordsFrom::CommandLine).IsEmpty();
}

int RunWords(const std::vector<CString>& given, WordsFrom from, CollectedOutput& output) {
    std::vector<CString> words = WithHelpAsOption(given);
    if (from == WordsFrom::CommandLine) {
        const CString drawing = DrawingWithoutSubcommand(words);
        std::error_code error;
        if (!drawing.IsEmpty() && !std::filesystem::exists(PathOf(drawing), error))
            return Refuse(kExitFailed, SayFormat(L"没有文件“%s”：请检查它的名字和文件夹", Printable(drawing)));
        if (!drawing.IsEmpty())
            words.insert(words.begin(), L"window");
    }
    CommandLineModel model;
    try {
        model.Parse(words);
    } catch (const CLI::ParseError& error) {
        return Refuse(ExplainParseError(error, model, words), model.Chosen());
    }
    return WriteAnswer(RunParsed(model, from, output), output);
}
