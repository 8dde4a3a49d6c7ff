// Declaring the subcommands, and asking what was given.
#include "workbench/commands/CommandLineModel.h"

#include <algorithm>

#include "workbench/Texts.h"

namespace {

std::string Described(const wchar_t* text) {
    return ToUtf8(Say(text).View());
}

}  // namespace

CommandLineModel::CommandLineModel() : m_root(Described(L"日照分析共享数据的主机程序"), "orvo") {
    m_root.set_help_flag();
    m_root.require_subcommand(0, 1);
    AddFlag(&m_root, "-h,--help", L"显示用法和例子");
    AddFlag(&m_root, "--version", L"显示版本");
    AddValue(&m_root, "--language", "zh|en", L"界面语言；不给出时由环境变量 LC_ALL、LC_MESSAGES、LANG 决定");
    AddInfo();
    AddSun();
    AddLists();
    AddShadow();
    AddRecord();
    AddEntity();
    AddSet();
    AddWindow();
}

CLI::App* CommandLineModel::AddSubcommand(const char* name, const wchar_t* description) {
    CLI::App* app = m_root.add_subcommand(name, Described(description));
    app->set_help_flag();
    app->fallthrough();  // --language and --help may stand behind the subcommand, too
    return app;
}

void CommandLineModel::AddValue(CLI::App* app, const char* option, const char* type, const wchar_t* description) {
    // Values are kept as texts, and looked at by the subcommands.
    app->add_option(
           option, [](const CLI::results_t&) { return true; }, Described(description))
        ->type_name(type);
}

void CommandLineModel::AddValues(CLI::App* app, const char* option, int count, const char* type,
                                 const wchar_t* description) {
    app->add_option(
           option, [](const CLI::results_t&) { return true; }, Described(description))
        ->type_name(type)
        ->type_size(count);
}

void CommandLineModel::AddFlag(CLI::App* app, const char* flag, const wchar_t* description) {
    const std::string described = Described(description);
    app->add_flag(flag, described);
}

void CommandLineModel::AddInfo() {
    CLI::App* info = AddSubcommand("info", L"显示地区位置、太阳、当前标准和有效时段");
    AddValue(info, "--place", "NAME", L"地区名，或 省份/地区");
    AddValue(info, "--date", "Y-M-D", L"分析日期，例如 2025-12-22");
    AddValue(info, "--standard", "NAME", L"日照标准名");
    AddFlag(info, "--json", L"以 JSON 输出");
}

void CommandLineModel::AddSun() {
    CLI::App* sun = AddSubcommand("sun", L"显示一天中太阳的高度角、方位角和影长");
    AddValue(sun, "--place", "NAME", L"地区名，或 省份/地区");
    AddValue(sun, "--date", "Y-M-D", L"分析日期，例如 2025-12-22");
    AddValue(sun, "--step", "MINUTES", L"每隔多少分钟一行，从 1 到 60；不给出时为 60");
    AddFlag(sun, "--json", L"以 JSON 输出");
}

void CommandLineModel::AddLists() {
    CLI::App* terms = AddSubcommand("terms", L"列出一年的二十四节气");
    AddValue(terms, "--year", "Y", L"年份，从 1 到 9999；不给出时为今年");
    AddFlag(terms, "--json", L"以 JSON 输出");

    CLI::App* places = AddSubcommand("places", L"查找地区");
    AddValue(places, "TEXT", "", L"地区名或省份名的一部分；不给出时列出全部");
    AddFlag(places, "--json", L"以 JSON 输出");

    CLI::App* standards = AddSubcommand("standards", L"列出日照标准，或恢复一个标准的出厂值");
    AddValue(standards, "--reset", "NAME", L"不列出，而把这个标准恢复为出厂值并保存；删除了的也会恢复");
    AddFlag(standards, "--json", L"以 JSON 输出");
}

void CommandLineModel::AddShadow() {
    CLI::App* shadow = AddSubcommand("shadow", L"显示一个面的法向、平面、受光情况和投影矩阵");
    AddValue(shadow, "--face", "\"x,y,z;x,y,z;x,y,z[;x,y,z]\"", L"面的 3 或 4 个角点，从正面看按逆时针；必须给出");
    AddValue(shadow, "--light", "dx,dy,dz", L"光线前进的方向，从太阳到场景；必须给出");
    AddFlag(shadow, "--json", L"以 JSON 输出");
}

void CommandLineModel::AddSet() {
    CLI::App* set = AddSubcommand("set", L"更改当前设置并保存");
    AddValue(set, "--place", "NAME", L"地区名，或 省份/地区");
    AddValue(set, "--date", "Y-M-D", L"分析日期，例如 2025-12-22");
    AddValue(set, "--start", "H:MM", L"分析时段的开始");
    AddValue(set, "--end", "H:MM", L"分析时段的结束");
    AddValue(set, "--step", "MINUTES", L"计算精度，从 1 到 60 分钟");
    AddValue(set, "--standard", "NAME", L"当前标准；它的日期、时段和精度随之采用");
    AddFlag(set, "--reset", L"把设置和标准全部恢复为出厂值；原来的文件留作 .bak");
}

void CommandLineModel::AddRecord() {
    CLI::App* record = AddSubcommand("record", L"把图像录成 AVI 动画，每幅一秒");
    record->add_option("FRAMES", m_frames, Described(L"图像文件（BMP 或 PNG），按放映次序"))->type_name("");
    AddValue(record, "-o,--output", "FILE", L"录像文件");
    AddValue(record, "--rate", "N", L"每秒帧数，从 1 到 1000；不给出时为 10");
    AddValue(record, "--bits", "8|24|32", L"每像素位数；不给出时为 24");
    AddFlag(record, "-y,--yes", L"替换已有的文件而不询问");
}

void CommandLineModel::AddWindow() {
    CLI::App* window = AddSubcommand("window", L"打开窗口：三维视图、命令行和菜单");
    AddValue(window, "FILE", "", L"要打开的 DXF 文件；不给出时不打开图形");
}

void CommandLineModel::AddEntity() {
    CLI::App* entity = AddSubcommand("entity", L"列出图形中的实体，读出或更改实体的一个组码");
    AddValue(entity, "FILE", "", L"DXF 文件（文本格式）");
    AddFlag(entity, "--list", L"列出实体的句柄、类型和图层；不给出别的选项时就是它");
    AddValues(entity, "--get", 2, "HANDLE CODE", L"显示一个组码的值");
    AddValues(entity, "--set", 3, "HANDLE CODE VALUE", L"更改一个组码的值并保存；原来的文件留作 FILE.bak");
    AddFlag(entity, "--json", L"以 JSON 输出");
}

void CommandLineModel::Parse(const std::vector<CString>& words) {
    std::vector<std::string> reversed;
    std::transform(words.rbegin(), words.rend(), std::back_inserter(reversed),
                   [](const CString& word) { return ToUtf8(word.View()); });
    m_root.parse(std::move(reversed));
}

CLI::App* CommandLineModel::Chosen() {
    const std::vector<CLI::App*> chosen = m_root.get_subcommands();
    return chosen.empty() ? nullptr : chosen.front();
}

std::optional<CString> CommandLineModel::Value(const char* option) {
    CLI::App* chosen = Chosen();
    CLI::Option* found = chosen ? chosen->get_option_no_throw(option) : nullptr;
    if (!found)
        found = m_root.get_option_no_throw(option);
    if (!found || found->results().empty())
        return std::nullopt;
    return FromUtf8(found->results().front());
}

std::vector<CString> CommandLineModel::Values(const char* option) {
    std::vector<CString> values;
    CLI::App* chosen = Chosen();
    const CLI::Option* found = chosen ? chosen->get_option_no_throw(option) : nullptr;
    if (found)
        for (const std::string& value : found->results())
            values.push_back(FromUtf8(value));
    return values;
}

bool CommandLineModel::HasFlag(const char* flag) {
    CLI::App* chosen = Chosen();
    const CLI::Option* found = chosen ? chosen->get_option_no_throw(flag) : nullptr;
    if (!found)
        found = m_root.get_option_no_throw(flag);
    return found && found->count() > 0;
}

std::vector<CString> CommandLineModel::SubcommandNames() {
    std::vector<CString> names;
    for (const CLI::App* app : m_root.get_subcommands([](CLI::App*) { return true; }))
        names.push_back(FromUtf8(app->get_name()));
    return names;
}

std::vector<CString> CommandLineModel::OptionNames(CLI::App* subcommand) {
    std::vector<CString> names;
    for (CLI::App* app : {subcommand, &m_root}) {
        if (!app)
            continue;
        for (const CLI::Option* option : app->get_options()) {
            for (const std::string& name : option->get_lnames())
                names.push_back(L"--" + FromUtf8(name));
        }
    }
    return names;
}

CLI::App* CommandLineModel::FindSubcommand(const CString& name) {
    const std::vector<CLI::App*> found =
        m_root.get_subcommands([&name](CLI::App* app) { return FromUtf8(app->get_name()) == name; });
    return found.empty() ? nullptr : found.front();
}
