// The answer of orvo info as lines and as a document.
#include "workbench/commands/InfoAnswer.h"

#include <nlohmann/json.hpp>

#include "calendar/ShanghaiValidTime.h"
#include "facts/Angles.h"
#include "facts/ClockText.h"
#include "facts/DayText.h"
#include "facts/StandardWords.h"
#include "platform/base/PlainText.h"
#include "platform/host/Output.h"
#include "settings/OrvoStdSet.h"
#include "workbench/Texts.h"
#include "workbench/commands/CompassWords.h"
#include "workbench/commands/SunAsJson.h"
#include "workbench/commands/SunRows.h"
#include "workbench/terminal/JsonOutput.h"
#include "workbench/terminal/TextTable.h"

namespace {

using Json = nlohmann::ordered_json;
using Align = TextTable::Align;

struct Facing {
    const char* key;
    double direction;  // degrees from east, counter-clockwise, in a drawing whose y axis points north
};
// From north on clockwise.
constexpr Facing kFacings[] = {
    {"N", 90.0}, {"NE", 45.0}, {"E", 0.0}, {"SE", 315.0}, {"S", 270.0}, {"SW", 225.0}, {"W", 180.0}, {"NW", 135.0},
};

CString BeijingTime(double hours) {
    return SayFormat(L"%s 北京时间", ClockText(hours));
}

void AddSun(TextTable& table, const SunDay& sun) {
    table.Add({Say(L"真太阳时正午"), BeijingTime(sun.noon)});
    if (sun.kind == SunDay::Kind::Ordinary) {
        table.Add({Say(L"日出"), BeijingTime(sun.sunrise)});
        table.Add({Say(L"日落"), BeijingTime(sun.sunset)});
    } else {
        table.Add({Say(L"日出日落"), PolarText(sun)});
    }
    table.Add({L"", Say(L"（日面中心，平坦地平线，不计大气折射）")});
}

void PrintStandard(Output& output, const std::optional<Standard>& standard, const StandardChanges& changes) {
    if (!standard) {
        output.Line(Say(L"当前标准：无（设置没有选定标准）"));
        return;
    }
    output.Line(SayFormat(L"当前标准：%s", Printable(standard->name)));
    PrintRules(*standard, changes, output);
}

// The period in which sunlight counts by the Shanghai rule, decimal hours; start equals end when there is none.
struct FacingPeriod {
    double start;
    double end;
};

FacingPeriod PeriodOf(const Facing& facing) {
    const QcGePoint period = GetShanghaiValidTime(facing.direction * kRadiansPerDegree);
    return {period.x, period.y};
}

void PrintFacings(Output& output) {
    output.Line(Say(L"上海规定的有效时段（按窗的朝向）"));
    TextTable table({Align::Left, Align::Left});
    for (const Facing& facing : kFacings) {
        const auto [start, end] = PeriodOf(facing);
        table.Add({CompassWord(facing.direction),
                   start < end
                       ? SayFormat(L"%s～%s", OrvoDegree(start).TimeFormat(false), OrvoDegree(end).TimeFormat(false))
                       : Say(L"无")});
    }
    table.PrintTo(output, 2);
}

Json FacingsAsJson() {
    Json list = Json::array();
    for (const Facing& facing : kFacings) {
        const auto [start, end] = PeriodOf(facing);
        list.push_back({{"facing", facing.key},
                        {"direction", facing.direction},
                        {"counts", start < end},
                        {"start", start},
                        {"end", end}});
    }
    return list;
}

}  // namespace

void InfoAnswer::PrintAsText(Output& output) const {
    output.Line(Printable(NoteOf(settings)));
    output.Line(L"");
    TextTable table({Align::Left, Align::Left});
    AddPlaceRows(table, settings);
    table.Add({Say(L"分析日期"), Printable(DayInWords(terms.day))});
    if (terms.day.month != settings.ownDay.month || terms.day.day != settings.ownDay.day)
        table.Add({L"", Say(L"（取自当前标准；上面一行中的日期是设置自己的）")});
    AddTermRows(table, terms);
    if (sun)
        AddSun(table, *sun);
    table.PrintTo(output);
    output.Line(L"");
    PrintStandard(output, settings.standard, changes);
    if (!settings.standard)
        return;
    output.Line(SourceWarning());
    if (settings.standard->validSunType != ORVO_SUN_SHANGHAI)
        return;
    output.Line(L"");
    PrintFacings(output);
}

void InfoAnswer::PrintAsJson(Output& output) const {
    Json document;
    document["note"] = ToUtf8(NoteOf(settings).View());
    document["place"] = PlaceAsJson(settings);
    document["date"] = IsoDay(terms.day);
    document["settingsDate"] = IsoDay(settings.ownDay);
    document["term"] = {{"index", terms.term.index},
                        {"name", ToUtf8(terms.term.name.View())},
                        {"exact", terms.isItsDay},
                        {"next", ToUtf8(terms.next.View())},
                        {"daysToNext", terms.daysToNext}};
    document["sun"] = SunAsJson(terms, sun ? &*sun : nullptr);
    document["standard"] = settings.standard ? RulesAsJson(*settings.standard, changes) : Json(nullptr);
    document["shanghaiValidTime"] = FacingsAsJson();
    PrintJson(output, document);
}
