// Help texts and usage messages.
#include "workbench/commands/UsageText.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>

#include "facts/NearestNames.h"
#include "platform/base/PlainText.h"
#include "platform/host/Output.h"
#include "platform/host/PlugInFiles.h"
#include "workbench/Texts.h"
#include "workbench/commands/CommandLineModel.h"
#include "workbench/terminal/TextTable.h"

namespace {

using Align = TextTable::Align;

constexpr const wchar_t* kProgramExamples[] = {
    L"orvo info --place 上海",
    L"orvo terms --year 2025 --json",
    L"orvo --language en standards",
    L"echo 'places 杭州' | orvo",
};

CString OptionTitle(const SubcommandOption& option) {
    CString title = option.name;
    title.Replace(L",", L", ");
    return option.type.IsEmpty() ? title : title + L" " + option.type;
}

// As it is written on a command line: by its short name, if it has one.
CString UseOf(const SubcommandOption& option) {
    CString use = option.GetNames().front();
    if (!option.type.IsEmpty())
        use += L" " + option.type;
    return option.count == SubcommandOption::kMany ? use + L"..." : use;
}

CString UsageLine(const Subcommand* subcommand) {
    if (!subcommand)
        return L"orvo [--language zh|en] [--plugin FILE] [SUBCOMMAND [OPTIONS] | FILE.dxf]";
    CString line = L"orvo " + subcommand->name;
    for (const SubcommandOption& option : subcommand->options) {
        const CString use = UseOf(option);
        line += option.isRequired ? L" " + use : L" [" + use + L"]";
    }
    return line;
}

void PrintSubcommands(Output& output) {
    TextTable table({Align::Left, Align::Left});
    for (const Subcommand* row : HostSubcommands().GetAll())
        table.Add({row->name, Printable(TextOf(*row, row->description))});
    output.Line(Say(L"子命令："));
    table.PrintTo(output, 2);
    output.Line(L"");
}

void PrintOptions(const Subcommand* subcommand, Output& output) {
    TextTable table({Align::Left, Align::Left});
    if (subcommand)
        for (const SubcommandOption& option : subcommand->options)
            table.Add({Printable(OptionTitle(option)), Printable(TextOf(*subcommand, option.description))});
    for (const SubcommandOption& option : ProgramOptions())
        table.Add({OptionTitle(option), Say(option.description)});
    output.Line(Say(L"选项："));
    table.PrintTo(output, 2);
}

void PrintExamples(const std::vector<CString>& examples, Output& output) {
    if (examples.empty())
        return;
    output.Line(L"");
    output.Line(Say(L"例子："));
    for (const CString& example : examples)
        output.Line(L"  " + Printable(example));
}

void PrintProgramNotes(Output& output) {
    output.Line(L"");
    output.Line(Say(L"不带子命令时出现提示符，可输入子命令和主机命令；quit、exit 或输入结束即退出。"));
    output.Line(Say(L"给出 DXF 文件而不是子命令时，在窗口里打开它。"));
    output.Line(Say(L"退出码：0 成功；1 请求无法完成（没有这个名字、文件不可用、写不出去）；2 用法错误。"));
    output.Line(Say(L"从管道读命令时，退出码是最后一条失败命令的；没有失败的则为 0。"));
}

CString Near(const CString& name, const std::vector<CString>& names) {
    const std::vector<CString> nearest = NearestNames(name, names);
    return nearest.empty() ? CString() : SayFormat(L"。相近的有：%s", JoinNames(nearest));
}

CString UnknownOptionText(const CString& option, const Subcommand* subcommand) {
    const int equals = option.Find(L'=');
    const CString name = equals < 0 ? option : option.Left(equals);
    return SayFormat(L"没有选项 %s", Printable(name)) + Near(name, OptionNames(subcommand));
}

// The option of this name among the subcommand's and the program's; nothing when there is none.
std::optional<SubcommandOption> OptionNamed(const CString& name, const Subcommand* subcommand) {
    std::vector<SubcommandOption> options = ProgramOptions();
    if (subcommand)
        options.insert(options.end(), subcommand->options.begin(), subcommand->options.end());
    for (const SubcommandOption& option : options) {
        const std::vector<CString> names = option.GetNames();
        if (std::find(names.begin(), names.end(), name) != names.end())
            return option;
    }
    return std::nullopt;
}

// The flag that the word stands right behind, as if it were its value; empty when there is none.
CString FlagBefore(const CString& word, const std::vector<CString>& words, const Subcommand* subcommand) {
    for (std::size_t i = 1; i < words.size(); ++i)
        if (words[i] == word)
            if (const auto option = OptionNamed(words[i - 1], subcommand);
                option && option->count == SubcommandOption::kFlag)
                return words[i - 1];
    return CString();
}

// Plug-ins that were not loaded: one of them may have what is missing.
CString NotLoadedText() {
    const std::vector<CString> files = FilesNotLoaded();
    return files.empty() ? CString() : SayFormat(L"。没有加载的插件：%s，原因见上文", Printable(JoinNames(files)));
}

CString ExtrasText(const CommandLineModel& model, const std::vector<CString>& words) {
    const std::vector<CString> extras = model.GetRemaining();
    const CString extra = extras.empty() ? CString() : extras.front();
    if (extra.GetLength() > 1 && extra.GetAt(0) == L'-')
        return UnknownOptionText(extra, model.Chosen());
    if (!model.Chosen())
        return UnknownSubcommandText(extra, SubcommandNames());
    const CString text = SayFormat(L"多余的参数“%s”", Printable(extra));
    const CString flag = FlagBefore(extra, words, model.Chosen());
    return flag.IsEmpty() ? text : text + L": " + SayFormat(L"选项 %s 不带值", flag);
}

// The option that an error of the library speaks of: it begins its message with the name.
CString OptionOf(const CLI::ParseError& error) {
    const std::string message = error.what();
    return FromUtf8(message.substr(0, message.find_first_of(": ")));
}

bool IsRepeated(const CString& option, const std::vector<CString>& words) {
    const CString withValue = option + L"=";
    return std::count_if(words.begin(), words.end(), [&](const CString& word) {
               return word == option || word.Left(withValue.GetLength()) == withValue;
           }) > 1;
}

}  // namespace

void PrintHelp(const Subcommand* subcommand, Output& output) {
    output.Line(SayFormat(L"用法：%s", Printable(UsageLine(subcommand))));
    output.Line(subcommand ? Printable(TextOf(*subcommand, subcommand->description))
                           : Say(L"日照分析共享数据的主机程序"));
    output.Line(L"");
    if (!subcommand)
        PrintSubcommands(output);
    PrintOptions(subcommand, output);
    if (!subcommand)
        PrintProgramNotes(output);
    PrintExamples(subcommand ? subcommand->examples : ProgramExamples(), output);
}

std::vector<CString> ProgramExamples() {
    return {std::begin(kProgramExamples), std::end(kProgramExamples)};
}

CString ExplainParseError(const CLI::ParseError& error, const CommandLineModel& model,
                          const std::vector<CString>& words) {
    if (dynamic_cast<const CLI::ExtrasError*>(&error))
        return ExtrasText(model, words);
    const CString option = OptionOf(error);
    if (IsRepeated(option, words))
        return SayFormat(L"选项 %s 给出了不止一次", Printable(option));
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
        return MissingValueText(option, model.Chosen());
    return Say(L"看不懂这个命令行");
}

CString MissingValueText(const CString& name, const Subcommand* subcommand) {
    const std::optional<SubcommandOption> option = OptionNamed(name, subcommand);
    if (!option || option->count <= 1)
        return SayFormat(L"选项 %s 后面缺少值", Printable(name));
    const CString text = SayFormat(L"选项 %s 需要 %d 个值", Printable(name), option->count);
    return option->type.IsEmpty() ? text : text + L": " + Printable(option->type);
}

std::vector<CString> SubcommandNames() {
    std::vector<CString> names;
    for (const Subcommand* row : HostSubcommands().GetAll())
        names.push_back(row->name);
    return names;
}

CString UnknownSubcommandText(const CString& name, const std::vector<CString>& names) {
    const CString near = Near(name, names);
    return SayFormat(L"没有子命令“%s”", Printable(name)) +
           (near.IsEmpty() ? SayFormat(L"。现有的：%s", JoinNames(names)) : near) + NotLoadedText();
}
