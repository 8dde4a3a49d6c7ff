// orvo terms, orvo places, orvo standards.
#include "workbench/commands/ListCommands.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "facts/ClockText.h"
#include "facts/DayTerms.h"
#include "facts/DayText.h"
#include "facts/NumberText.h"
#include "facts/PlaceSearch.h"
#include "facts/ShippedSettings.h"
#include "facts/Standard.h"
#include "facts/StandardSearch.h"
#include "facts/StandardWords.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Output.h"
#include "platform/host/Subcommands.h"
#include "settings/OrvoDataSet.h"
#include "workbench/Texts.h"
#include "workbench/commands/NameLists.h"
#include "workbench/commands/ResetCommands.h"
#include "workbench/commands/StandardRules.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Complaint.h"
#include "workbench/terminal/JsonOutput.h"
#include "workbench/terminal/TextTable.h"

namespace {

using Json = nlohmann::ordered_json;
using Align = TextTable::Align;

constexpr int kMostYear = 9999;

CString Decimals(const wchar_t* format, double value) {
    CString text;
    text.Format(format, value);
    return text;
}

// The terms in the order of a calendar year: the winter solstice, index 0, comes last.
std::vector<SolarTerm> InCalendarOrder(const DayTerms& terms) {
    std::vector<SolarTerm> ordered = terms.table;
    std::rotate(ordered.begin(), ordered.begin() + 1, ordered.end());
    return ordered;
}

void PrintTerms(const DayTerms& terms, Output& output) {
    TextTable table({Align::Left, Align::Left, Align::Right, Align::Right, Align::Right});
    table.Add({Say(L"节气"), Say(L"日期"), Say(L"时差（小时）"), Say(L"时差（分秒）"), Say(L"赤纬（度）")});
    for (const SolarTerm& term : InCalendarOrder(terms))
        table.Add({Printable(Say(term.name)), FromUtf8(IsoDay(term.day)), Decimals(L"%.6f", term.equationOfTime),
                   MinutesText(term.equationOfTime), Decimals(L"%.6f", term.declination)});
    table.PrintTo(output);
}

void PrintTermsAsJson(const DayTerms& terms, Output& output) {
    Json list = Json::array();
    for (const SolarTerm& term : InCalendarOrder(terms)) {
        list.push_back({{"index", term.index},
                        {"name", ToUtf8(term.name.View())},
                        {"date", IsoDay(term.day)},
                        {"equationOfTime", term.equationOfTime},
                        {"declination", term.declination}});
    }
    PrintJson(output, {{"year", terms.day.year}, {"leapYear", terms.isLeapYear}, {"terms", list}});
}

void PrintPlaces(const std::vector<Place>& places, Output& output) {
    TextTable table({Align::Left, Align::Left, Align::Right, Align::Right});
    table.Add({Say(L"省份"), Say(L"地区"), Say(L"经度"), Say(L"纬度")});
    for (const Place& place : places)
        table.Add({Printable(place.province), Printable(place.city), DoubleToText(place.longitude),
                   DoubleToText(place.latitude)});
    table.PrintTo(output);
    output.Line(SayFormat(L"共 %d 个地区", static_cast<int>(places.size())));
}

void PrintPlacesAsJson(const std::vector<Place>& places, Output& output) {
    Json list = Json::array();
    for (const Place& place : places) {
        list.push_back({{"province", ToUtf8(place.province.View())},
                        {"city", ToUtf8(place.city.View())},
                        {"longitude", place.longitude},
                        {"latitude", place.latitude}});
    }
    PrintJson(output, list);
}

}  // namespace

int RunTerms(const TermsOptions& options, Output& output) {
    int year = Today().year;
    if (options.year) {
        const std::optional<int> wanted = ParseWhole(*options.year, 1, kMostYear);
        if (!wanted) {
            Complain(BadNumberText(L"--year", *options.year, 1, kMostYear));
            return kExitUsage;
        }
        year = *wanted;
    }
    const DayTerms terms = TermsFor({year, 1, 1});
    if (options.isJson)
        PrintTermsAsJson(terms, output);
    else
        PrintTerms(terms, output);
    return kExitOk;
}

int RunPlaces(const PlacesOptions& options, Output& output) {
    const std::vector<Place> places = PlacesWith(options.text);
    if (options.isJson)
        PrintPlacesAsJson(places, output);
    if (places.empty()) {
        Complain(UnknownPlaceText(options.text));
        return kExitFailed;
    }
    if (!options.isJson)
        PrintPlaces(places, output);
    return kExitOk;
}

int RunStandards(const StandardsOptions& options, Output& output) {
    if (options.reset)
        return RunStandardReset(*options.reset, options.isJson, output);
    const std::unique_ptr<OrvoDataSet> shipped = ReadShippedSettings();
    Json list = Json::array();
    for (int i = 0; i < g_SunDataSet.m_listStd.GetLength(); ++i) {
        const OrvoStdSet* kept = StandardAt(g_SunDataSet, i);
        if (!kept)
            continue;
        const Standard standard = StandardOf(*kept);
        const StandardChanges changes = ChangesFromShipped(*kept, shipped.get());
        const bool isCurrent = i == g_SunDataSet.m_nCurStd;
        if (options.isJson) {
            list.push_back(ListedStandardAsJson(i, isCurrent, standard, changes));
        } else {
            const CString name = Printable(standard.name);
            output.Line(isCurrent ? SayFormat(L"%s（当前）", name) : name);
            PrintRules(standard, changes, output);
            output.Line(L"");
        }
    }
    if (options.isJson)
        PrintJson(output, {{"warning", ToUtf8(SourceWarning().View())}, {"standards", list}});
    else
        output.Line(g_SunDataSet.m_listStd.GetLength() > 0
                        ? SourceWarning()
                        : Say(L"设置中没有任何标准；orvo set --reset 恢复随程序提供的标准。"));
    return kExitOk;
}

Subcommand TermsSubcommand() {
    return {
        L"terms",
        L"列出一年的二十四节气（固定的表，可能与历书差一天）",
        {ValueOption(L"--year", L"Y", L"年份，从 1 到 9999；不给出时为今年"), FlagOption(L"--json", L"以 JSON 输出")},
        {L"orvo terms --year 2024"},
        [](SubcommandCall& call) {
            return RunTerms({call.GetValue(L"--year"), call.HasFlag(L"--json")}, call.GetOutput());
        },
        Say};
}

Subcommand PlacesSubcommand() {
    return {
        L"places",
        L"查找地区",
        {ValueOption(L"TEXT", L"", L"地区名或省份名的一部分；不给出时列出全部"),
         FlagOption(L"--json", L"以 JSON 输出")},
        {L"orvo places 江", L"orvo places --json"},
        [](SubcommandCall& call) {
            return RunPlaces({call.GetValue(L"TEXT").value_or(CString()), call.HasFlag(L"--json")}, call.GetOutput());
        },
        Say};
}

Subcommand StandardsSubcommand() {
    return {L"standards",
            L"列出日照标准，或恢复一个标准的出厂值",
            {ValueOption(L"--reset", L"NAME", L"不列出，而把这个标准恢复为出厂值并保存；删除了的也会恢复",
                         ShippedStandardNames),
             FlagOption(L"--json", L"以 JSON 输出")},
            {L"orvo standards", L"orvo standards --reset 上海标准"},
            [](SubcommandCall& call) {
                return RunStandards({call.GetValue(L"--reset"), call.HasFlag(L"--json")}, call.GetOutput());
            },
            Say};
}
