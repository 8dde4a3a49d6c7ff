// Help texts and usage messages.
#include "workbench/commands/UsageText.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "facts/NearestNames.h"
#include "platform/base/PlainText.h"
#include "platform/host/Output.h"
#include "workbench/Texts.h"
#include "workbench/commands/CommandLineModel.h"
#include "workbench/terminal/TextTable.h"

namespace {

using Align = TextTable::Align;

struct Example {
    const char* subcommand;  // empty for the program
    const wchar_t* command;
};
constexpr Example kExamples[] = {
    {"", L"orvo info --place 上海"},
    {"", L"orvo terms --year 2025 --json"},
    {"", L"orvo --language en standards"},
    {"", L"echo 'places 杭州' | orvo"},
    {"info", L"orvo info"},
    {"info", L"orvo info --place 浙江/杭州 --date 2025-1-20"},
    {"info", L"orvo info --standard 国标大寒日 --json"},
    {"sun", L"orvo sun"},
    {"sun", L"orvo sun --place 浙江/杭州 --date 2025-1-20 --step 10"},
    {"terms", L"orvo terms --year 2024"},
    {"places", L"orvo places 江"},
    {"places", L"orvo places --json"},
    {"standards", L"orvo standards"},
    {"standards", L"orvo standards --reset 上海标准"},
    {"shadow", L"orvo shadow --face \"0,0,0;4,0,0;4,3,0;0,3,0\" --light 1,0,-2"},
    {"shadow", L"orvo shadow --face \"0,0,0;4,0,0;4,0,3\" --light 0,1,-1 --json"},
    {"record", L"orvo record 0900.png 0930.png 1000.png -o sun.avi"},
    {"record", L"orvo record *.bmp -o sun.avi --bits 8 --yes"},
    {"entity", L"orvo entity house.dxf --list"},
    {"entity", L"orvo entity house.dxf --get 2F 8"},
    {"entity", L"orvo entity house.dxf --set 2F 10 1.5,2,0"},
    {"window", L"orvo window"},
    {"window", L"orvo window house.dxf"},
    {"set", L"orvo set --place 上海 --standard 上海标准"},
    {"set", L"orvo set --date 2025-12-22 --start 9:00 --end 15:00 --step 5"},
    {"set", L"orvo set --reset"},
};

CString OptionTitle(const CLI::Option& option) {
    CString title = FromUtf8(option.get_positional() ? option.get_name(true, false) : option.get_name(false, true));
    title.Replace(L",", L", ");
    const CString type = FromUtf8(option.get_type_name());
    return type.IsEmpty() ? title : title + L" " + type;
}

void AddOptions(const CLI::App& app, TextTable& table) {
    for (const CLI::Option* option : app.get_options())
        table.Add({OptionTitle(*option), FromUtf8(option->get_description())});
}

CString UsageLine(const CLI::App* subcommand) {
    if (!subcommand)
        return L"orvo [--language zh|en] [SUBCOMMAND [OPTIONS]]";
    CString line = L"orvo " + FromUtf8(subcommand->get_name());
    for (const CLI::Option* option : subcommand->get_options())
        line += L" [" + OptionTitle(*option) + L"]";
    return line;
}

void PrintExamples(const std::string& subcommand, Output& output) {
    output.Line(L"");
    output.Line(Say(L"例子："));
    for (const Example& example : kExamples) {
        if (example.subcommand == subcommand)
            output.Line(CString(L"  ") + example.command);
    }
}

void PrintProgramNotes(Output& output) {
    output.Line(L"");
    output.Line(Say(L"不带子命令时出现提示符，可输入子命令和主机命令；quit、exit 或输入结束即退出。"));
    output.Line(Say(L"退出码：0 成功；1 请求无法完成（没有这个名字、文件不可用、写不出去）；2 用法错误。"));
    output.Line(Say(L"从管道读命令时，退出码是最后一条失败命令的；没有失败的则为 0。"));
}

CString Near(const CString& name, const std::vector<CString>& names) {
    const std::vector<CString> nearest = NearestNames(name, names);
    return nearest.empty() ? CString() : SayFormat(L"。相近的有：%s", JoinNames(nearest));
}

CString UnknownOptionText(const CString& option, CommandLineModel& model) {
    const int equals = option.Find(L'=');
    const CString name = equals < 0 ? option : option.Left(equals);
    return SayFormat(L"没有选项 %s", Printable(name)) + Near(name, model.OptionNames(model.Chosen()));
}

CString ExtrasText(CommandLineModel& model) {
    const std::vector<std::string> extras = model.Root().remaining(true);
    const CString extra = extras.empty() ? CString() : FromUtf8(extras.front());
    if (extra.GetLength() > 1 && extra.GetAt(0) == L'-')
        return UnknownOptionText(extra, model);
    if (!model.Chosen())
        return UnknownSubcommandText(extra, model.SubcommandNames());
    return SayFormat(L"多余的参数“%s”", Printable(extra));
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

void PrintHelp(CommandLineModel& model, CLI::App* subcommand, Output& output) {
    output.Line(SayFormat(L"用法：%s", UsageLine(subcommand)));
    output.Line(FromUtf8(subcommand ? subcommand->get_description() : model.Root().get_description()));
    output.Line(L"");
    if (!subcommand) {
        TextTable subcommands({Align::Left, Align::Left});
        for (const CString& name : model.SubcommandNames())
            subcommands.Add({name, FromUtf8(model.FindSubcommand(name)->get_description())});
        output.Line(Say(L"子命令："));
        subcommands.PrintTo(output, 2);
        output.Line(L"");
    }
    TextTable options({Align::Left, Align::Left});
    if (subcommand)
        AddOptions(*subcommand, options);
    AddOptions(model.Root(), options);
    output.Line(Say(L"选项："));
    options.PrintTo(output, 2);
    if (!subcommand)
        PrintProgramNotes(output);
    PrintExamples(subcommand ? subcommand->get_name() : std::string(), output);
}

CString ExplainParseError(const CLI::ParseError& error, CommandLineModel& model, const std::vector<CString>& words) {
    if (dynamic_cast<const CLI::ExtrasError*>(&error))
        return ExtrasText(model);
    const CString option = OptionOf(error);
    if (IsRepeated(option, words))
        return SayFormat(L"选项 %s 给出了不止一次", Printable(option));
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
        return SayFormat(L"选项 %s 后面缺少值", Printable(option));
    return Say(L"看不懂这个命令行");
}

CString UnknownSubcommandText(const CString& name, const std::vector<CString>& names) {
    const CString near = Near(name, names);
    return SayFormat(L"没有子命令“%s”", Printable(name)) +
           (near.IsEmpty() ? SayFormat(L"。现有的：%s", JoinNames(names)) : near);
}
