// orvo terms, orvo places, orvo standards.
#include "workbench/commands/ListCommands.h"

#include <nlohmann/json.hpp>

#include "facts/ClockText.h"
#include "facts/DayText.h"
#include "facts/NumberText.h"
#include "facts/PlaceSearch.h"
#include "facts/ShippedSettings.h"
#include "facts/StandardWords.h"
#include "facts/TermCalendar.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/ExitCode.h"
#include "settings/OrvoDataSet.h"
#include "workbench/Texts.h"
#include "workbench/commands/ResetCommands.h"
#include "workbench/commands/StandardRules.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Output.h"
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

// Index of the term that comes `position`-th in a calendar year: the winter solstice, index 0, comes last.
int TermAtPosition(int position) {
    return (position + 1) % kTermCount;
}

void PrintTerms(OrvoDate& date, Output& output) {
    TextTable table({Align::Left, Align::Left, Align::Right, Align::Right, Align::Right});
    table.Add({Say(L"节气"), Say(L"日期"), Say(L"时差（小时）"), Say(L"时差（分秒）"), Say(L"赤纬（度）")});
    for (int i = 0; i < kTermCount; ++i) {
        const int index = TermAtPosition(i);
        const OrvoSTerm* term = date.GetTerm(index);
        if (!term)
            continue;
        const double equation = term->m_dgTime.getDegree();
        table.Add({Printable(Say(term->m_strName)), FromUtf8(IsoDay(DayOfTerm(date, index))),
                   Decimals(L"%.6f", equation), MinutesText(equation), Decimals(L"%.6f", term->m_dgLat.getDegree())});
    }
    table.PrintTo(output);
}

void PrintTermsAsJson(OrvoDate& date, Output& output) {
    Json list = Json::array();
    for (int i = 0; i < kTermCount; ++i) {
        const int index = TermAtPosition(i);
        const OrvoSTerm* term = date.GetTerm(index);
        if (!term)
            continue;
        list.push_back({{"index", index},
                        {"name", ToUtf8(term->m_strName.View())},
                        {"date", IsoDay(DayOfTerm(date, index))},
                        {"equationOfTime", term->m_dgTime.getDegree()},
                        {"declination", term->m_dgLat.getDegree()}});
    }
    output.Json({{"year", date.m_nYear}, {"leapYear", date.IsLeapYear()}, {"terms", list}});
}

void PrintPlaces(const std::vector<OrvoZoneRecord>& places, Output& output) {
    TextTable table({Align::Left, Align::Left, Align::Right, Align::Right});
    table.Add({Say(L"省份"), Say(L"地区"), Say(L"经度"), Say(L"纬度")});
    for (const OrvoZoneRecord& place : places)
        table.Add({Printable(place.m_strProvince), Printable(place.m_strCity), DoubleToText(place.GetTotalLong()),
                   DoubleToText(place.GetTotalLat())});
    table.PrintTo(output);
    output.Line(SayFormat(L"共 %d 个地区", static_cast<int>(places.size())));
}

void PrintPlacesAsJson(const std::vector<OrvoZoneRecord>& places, Output& output) {
    Json list = Json::array();
    for (const OrvoZoneRecord& place : places) {
        list.push_back({{"province", ToUtf8(place.m_strProvince.View())},
                        {"city", ToUtf8(place.m_strCity.View())},
                        {"longitude", place.GetTotalLong()},
                        {"latitude", place.GetTotalLat()}});
    }
    output.Json(list);
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
    OrvoDate date(year, 1, 1);
    FillTerms(date);
    if (options.isJson)
        PrintTermsAsJson(date, output);
    else
        PrintTerms(date, output);
    return kExitOk;
}

int RunPlaces(const PlacesOptions& options, Output& output) {
    const std::vector<OrvoZoneRecord> places = PlacesWith(options.text);
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
        const OrvoStdSet* const* slot = g_SunDataSet.m_listStd.GetAt(i);
        if (!slot || !*slot)
            continue;
        const OrvoStdSet& standard = **slot;
        const StandardChanges changes = ChangesFromShipped(standard, shipped.get());
        const bool isCurrent = i == g_SunDataSet.m_nCurStd;
        if (options.isJson) {
            list.push_back({{"index", i}, {"current", isCurrent}});
            list.back().update(RulesAsJson(standard, changes));
        } else {
            const CString name = Printable(standard.m_strName);
            output.Line(isCurrent ? SayFormat(L"%s（当前）", name) : name);
            PrintRules(standard, changes, output);
            output.Line(L"");
        }
    }
    if (options.isJson)
        output.Json({{"warning", ToUtf8(SourceWarning().View())}, {"standards", list}});
    else
        output.Line(g_SunDataSet.m_listStd.GetLength() > 0
                        ? SourceWarning()
                        : Say(L"设置中没有任何标准；orvo set --reset 恢复随程序提供的标准。"));
    return kExitOk;
}
