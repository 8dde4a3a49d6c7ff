// Declaring the subcommands, and asking what was given.
#include "workbench/commands/CommandLineModel.h"

#include <algorithm>

#include "workbench/Texts.h"

namespace {

std::string Utf8(const CString& text) {
    return ToUtf8(text.View());
}

void AddOption(CLI::App& app, const SubcommandOption& option) {
    const std::string name = Utf8(option.name);
    if (option.count == SubcommandOption::kFlag) {
        app.add_flag(name);
        return;
    }
    // Values are kept as texts, and looked at by the subcommands.
    CLI::Option* added = app.add_option(name, [](const CLI::results_t&) { return true; });
    if (option.count == SubcommandOption::kMany)
        added->expected(CLI::detail::expected_max_vector_size)->allow_extra_args(option.IsPositional());
    else
        added->type_size(option.count);
}

void AppendLongNames(std::vector<CString>& names, const std::vector<SubcommandOption>& options) {
    for (const SubcommandOption& option : options)
        if (!option.IsPositional())
            names.push_back(option.GetNames().back());
}

}  // namespace

std::vector<SubcommandOption> ProgramOptions() {
    return {FlagOption(L"-h,--help", L"显示用法和例子"), FlagOption(L"--version", L"显示版本"),
            ValueOption(L"--language", L"zh|en", L"界面语言；不给出时由环境变量 LC_ALL、LC_MESSAGES、LANG 决定",
                        [] {
                            return std::vector<CString>{L"zh", L"en"};
                        }),
            ValuesOption(L"--plugin", SubcommandOption::kMany, L"FILE",
                         L"启动时加载这个插件；可以给出多次，排在 lib/orvo/plugins 中的插件之后")};
}

std::vector<CString> OptionNames(const Subcommand* subcommand) {
    std::vector<CString> names;
    if (subcommand)
        AppendLongNames(names, subcommand->options);
    AppendLongNames(names, ProgramOptions());
    return names;
}

CString TextOf(const Subcommand& row, const CString& text) {
    try {
        return row.translate ? row.translate(text) : text;
    } catch (...) {  // help is worth more than its language
        return text;
    }
}

CommandLineModel::CommandLineModel() : m_root(std::string(), "orvo") {
    m_root.set_help_flag();
    m_root.require_subcommand(0, 1);
    for (const SubcommandOption& option : ProgramOptions())
        AddOption(m_root, option);
    for (const Subcommand* row : HostSubcommands().GetAll()) {
        CLI::App* app = m_root.add_subcommand(Utf8(row->name));
        app->set_help_flag();
        app->fallthrough();  // --language and --help may stand behind the subcommand, too
        for (const SubcommandOption& option : row->options)
            AddOption(*app, option);
    }
}

void CommandLineModel::Parse(const std::vector<CString>& words) {
    std::vector<std::string> reversed;
    std::transform(words.rbegin(), words.rend(), std::back_inserter(reversed), Utf8);
    m_root.parse(std::move(reversed));
}

const CLI::App* CommandLineModel::ChosenApp() const {
    const std::vector<CLI::App*> chosen = m_root.get_subcommands();
    return chosen.empty() ? nullptr : chosen.front();
}

const Subcommand* CommandLineModel::Chosen() const {
    const CLI::App* chosen = ChosenApp();
    return chosen ? HostSubcommands().Find(FromUtf8(chosen->get_name())) : nullptr;
}

const CLI::Option* CommandLineModel::FindOption(const wchar_t* option) const {
    const std::string name = Utf8(option);
    const CLI::App* chosen = ChosenApp();
    const CLI::Option* found = chosen ? chosen->get_option_no_throw(name) : nullptr;
    return found ? found : m_root.get_option_no_throw(name);
}

std::optional<CString> CommandLineModel::Value(const wchar_t* option) const {
    const std::vector<CString> values = Values(option);
    return values.empty() ? std::nullopt : std::optional<CString>(values.front());
}

std::vector<CString> CommandLineModel::Values(const wchar_t* option) const {
    std::vector<CString> values;
    if (const CLI::Option* found = FindOption(option))
        for (const std::string& value : found->results())
            values.push_back(FromUtf8(value));
    return values;
}

bool CommandLineModel::HasFlag(const wchar_t* flag) const {
    const CLI::Option* found = FindOption(flag);
    return found && found->count() > 0;
}

std::vector<const CLI::Option*> CommandLineModel::GetOptions() const {
    std::vector<const CLI::Option*> options;
    for (const CLI::App* app : {ChosenApp(), &m_root}) {
        if (!app)
            continue;
        const std::vector<const CLI::Option*> own = app->get_options();
        options.insert(options.end(), own.begin(), own.end());
    }
    return options;
}

std::vector<CString> CommandLineModel::GetRemaining() const {
    std::vector<CString> words;
    for (const std::string& word : m_root.remaining(true))
        words.push_back(FromUtf8(word));
    return words;
}
