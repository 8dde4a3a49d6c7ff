// From words to a subcommand.
#include "workbench/commands/CommandRunner.h"

#include <unistd.h>

#include <algorithm>
#include <csignal>

#include "platform/base/PlainText.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/commands/CommandLineModel.h"
#include "workbench/commands/EntityCommand.h"
#include "workbench/commands/InfoCommand.h"
#include "workbench/commands/ListCommands.h"
#include "workbench/commands/RecordCommand.h"
#include "workbench/commands/SetCommand.h"
#include "workbench/commands/ShadowCommand.h"
#include "workbench/commands/SunCommand.h"
#include "workbench/commands/UsageText.h"
#include "workbench/terminal/CollectedOutput.h"
#include "workbench/terminal/Complaint.h"
#include "workbench/terminal/TerminalProgress.h"
#include "workbench/window/WindowCommand.h"

namespace {

int Refuse(const CString& text, CLI::App* subcommand) {
    Complain(text);
    const CString command = subcommand ? L"orvo " + FromUtf8(subcommand->get_name()) : CString(L"orvo");
    Complain(SayFormat(L"用“%s --help”查看用法。", command));
    return kExitUsage;
}

// Another option where a value should be is a value that was forgotten.
CString ForgottenValue(CommandLineModel& model) {
    for (CLI::App* app : {model.Chosen(), &model.Root()}) {
        if (!app)
            continue;
        const std::vector<CString> names = model.OptionNames(app);
        for (const CLI::Option* option : app->get_options()) {
            const bool takesValue = option->nonpositional() && option->get_items_expected_max() > 0;
            const CString value = takesValue && option->count() > 0 ? FromUtf8(option->results().front()) : CString();
            if (!value.IsEmpty() && std::find(names.begin(), names.end(), value) != names.end())
                return FromUtf8(option->get_name());
        }
    }
    return CString();
}

// A flag that was given a value ("--json=yes").
CString FlagWithValue(CommandLineModel& model) {
    for (CLI::App* app : {model.Chosen(), &model.Root()}) {
        if (!app)
            continue;
        for (const CLI::Option* option : app->get_options()) {
            const bool isGivenFlag = option->get_items_expected_max() == 0 && option->count() > 0;
            if (isGivenFlag && option->results().front() != "true")
                return FromUtf8(option->get_name());
        }
    }
    return CString();
}

CString LanguageError(CommandLineModel& model, WordsFrom from) {
    const std::optional<CString> language = model.Value("--language");
    if (!language)
        return CString();
    if (from == WordsFrom::Prompt)
        return Say(L"选项 --language 只能在启动程序时给出");
    if (*language != L"zh" && *language != L"en")
        return SayFormat(L"没有语言“%s”：请写 zh 或 en", Printable(*language));
    return CString();
}

// A signal that cancelled one of several lines is not for that line alone, unless somebody at a terminal gave it up with
// Ctrl-C and goes on typing.
void PassOnSignal(int number, WordsFrom from) {
    const bool goesOn = number == SIGINT && isatty(STDIN_FILENO);
    if (number != 0 && from == WordsFrom::Prompt && !goesOn)
        std::raise(number);
}

int RunSubcommand(CommandLineModel& model, TerminalProgress& progress, Output& output) {
    const std::string& name = model.Chosen()->get_name();
    const bool isJson = name != "set" && name != "record" && name != "window" && model.HasFlag("--json");
    if (name == "info")
        return RunInfo({model.Value("--place"), model.Value("--date"), model.Value("--standard"), isJson}, output);
    if (name == "sun")
        return RunSun({model.Value("--place"), model.Value("--date"), model.Value("--step"), isJson}, output);
    if (name == "terms")
        return RunTerms({model.Value("--year"), isJson}, output);
    if (name == "places")
        return RunPlaces({model.Value("TEXT").value_or(CString()), isJson}, output);
    if (name == "standards")
        return RunStandards({model.Value("--reset"), isJson}, output);
    if (name == "shadow")
        return RunShadow({model.Value("--face"), model.Value("--light"), isJson}, output);
    if (name == "record")
        return RunRecord({model.Values("FRAMES"), model.Value("--output"), model.Value("--rate"), model.Value("--bits"),
                          model.HasFlag("--yes")},
                         output, progress);
    if (name == "window")
        return RunWindow({model.Value("FILE")});
    if (name == "entity")
        return RunEntity(
            {model.Value("FILE"), model.HasFlag("--list"), model.Values("--get"), model.Values("--set"), isJson},
            output);
    return RunSet({model.Value("--place"), model.Value("--date"), model.Value("--start"), model.Value("--end"),
                   model.Value("--step"), model.Value("--standard"), model.HasFlag("--reset")},
                  output);
}

int RunParsed(CommandLineModel& model, WordsFrom from, Output& output) {
    const CString language = LanguageError(model, from);
    if (!language.IsEmpty())
        return Refuse(language, nullptr);
    const CString forgotten = ForgottenValue(model);
    if (!forgotten.IsEmpty())
        return Refuse(SayFormat(L"选项 %s 后面缺少值", forgotten), model.Chosen());
    const CString flag = FlagWithValue(model);
    if (!flag.IsEmpty())
        return Refuse(SayFormat(L"选项 %s 不带值", flag), model.Chosen());
    if (model.HasFlag("--help")) {
        PrintHelp(model, model.Chosen(), output);
        return kExitOk;
    }
    if (model.HasFlag("--version")) {
        output.Line(L"orvo " + FromUtf8(ORVO_VERSION));
        return kExitOk;
    }
    if (!model.Chosen())
        return kExitOk;
    int signal = 0;
    int code = kExitOk;
    {
        TerminalProgress progress;
        code = RunSubcommand(model, progress, output);
        signal = progress.GetStopSignal();
    }
    PassOnSignal(signal, from);
    return code;
}

// "help" and "help info" ask for what "--help" and "info --help" ask for.
std::vector<CString> WithHelpAsOption(const std::vector<CString>& words) {
    if (words.empty() || words.front() != L"help")
        return words;
    std::vector<CString> turned(words.begin() + 1, words.end());
    turned.push_back(L"--help");
    return turned;
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
    return !model.Chosen() && !model.HasFlag("--help") && !model.HasFlag("--version") &&
           LanguageError(model, WordsFrom::CommandLine).IsEmpty();
}

int RunWords(const std::vector<CString>& given, WordsFrom from, CollectedOutput& output) {
    const std::vector<CString> words = WithHelpAsOption(given);
    CommandLineModel model;
    try {
        model.Parse(words);
    } catch (const CLI::ParseError& error) {
        return Refuse(ExplainParseError(error, model, words), model.Chosen());
    }
    return WriteAnswer(RunParsed(model, from, output), output);
}
