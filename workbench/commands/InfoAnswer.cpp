// The answer of orvo info as lines and as a document.
#include "workbench/commands/InfoAnswer.h"

#include <nlohmann/json.hpp>
#include <numbers>

#include "calendar/ShanghaiValidTime.h"
#include "facts/ClockText.h"
#include "facts/PlaceSearch.h"
#include "facts/StandardWords.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "settings/OrvoStdSet.h"
#include "workbench/Texts.h"
#include "workbench/terminal/Output.h"
#include "workbench/terminal/TextTable.h"

namespace {

using Json = nlohmann::ordered_json;
using Align = TextTable::Align;

struct Facing {
    const wchar_t* name;
    const char* key;
    double direction;
};
constexpr Facing kFacings[] = {
    {L"北", "N", 90.0},  {L"东北", "NE", 45.0},  {L"东", "E", 0.0},   {L"东南", "SE", 315.0},
    {L"南", "S", 270.0}, {L"西南", "SW", 225.0}, {L"西", "W", 180.0}, {L"西北", "NW", 135.0},
};

CString TermText(const TermInForce& term) {
    const CString name = Printable(Say(term.name));
    const CString next = Printable(Say(term.next));
    if (term.isItsDay)
        return SayFormat(L"%s（当日），%d 天后%s", name, term.daysToNext, next);
    return SayFormat(L"%s，%d 天后%s", name, term.daysToNext, next);
}

CString PositionText(const CString& split, double degrees) {
    return SayFormat(L"%s（%s 度）", split, DoubleToText(degrees));
}

CString BeijingTime(double hours) {
    return SayFormat(L"%s 北京时间", ClockText(hours));
}

void AddPlace(TextTable& table, const InfoAnswer& answer) {
    if (!answer.place) {
        table.Add({Say(L"地区"), SayFormat(L"%s（位置未知）", Printable(answer.placeName))});
        return;
    }
    CString longitude;
    CString latitude;
    answer.place->FormatLongitude(longitude);
    answer.place->FormatLatitude(latitude);
    table.Add({Say(L"地区"), Printable(FullName(*answer.place))});
    table.Add({Say(L"经度"), PositionText(longitude, answer.place->GetTotalLong())});
    table.Add({Say(L"纬度"), PositionText(latitude, answer.place->GetTotalLat())});
}

void AddSun(TextTable& table, const InfoAnswer& answer) {
    CString declination;
    declination.Format(L"%.4f", answer.declination);
    CString equation;
    equation.Format(L"%.6f", answer.equationOfTime);
    table.Add({Say(L"太阳赤纬"), SayFormat(L"%s 度", declination)});
    table.Add({Say(L"时差"), SayFormat(L"%s（%s 小时）", MinutesText(answer.equationOfTime), equation)});
    if (!answer.sun)
        return;
    const SunDay& sun = *answer.sun;
    table.Add({Say(L"真太阳时正午"), BeijingTime(sun.noon)});
    if (sun.kind == SunDay::Kind::PolarDay) {
        table.Add({Say(L"日出日落"), Say(L"极昼：太阳整日不落")});
    } else if (sun.kind == SunDay::Kind::PolarNight) {
        table.Add({Say(L"日出日落"), Say(L"极夜：太阳整日不出")});
    } else {
        table.Add({Say(L"日出"), BeijingTime(sun.sunrise)});
        table.Add({Say(L"日落"), BeijingTime(sun.sunset)});
    }
    table.Add({L"", Say(L"（日面中心，平坦地平线，不计大气折射）")});
}

void PrintStandard(Output& output, const OrvoStdSet* standard, const StandardChanges& changes) {
    if (!standard) {
        output.Line(Say(L"当前标准：无（设置没有选定标准）"));
        return;
    }
    output.Line(SayFormat(L"当前标准：%s", Printable(standard->m_strName)));
    PrintRules(*standard, changes, output);
}

void PrintFacings(Output& output, const std::vector<FacingPeriod>& facings) {
    output.Line(Say(L"上海规定的有效时段（按窗的朝向）"));
    TextTable table({Align::Left, Align::Left});
    for (const FacingPeriod& facing : facings) {
        const bool counts = facing.start < facing.end;
        table.Add({Say(facing.name), counts ? SayFormat(L"%s～%s", OrvoDegree(facing.start).TimeFormat(false),
                                                        OrvoDegree(facing.end).TimeFormat(false))
                                            : Say(L"无")});
    }
    table.PrintTo(output, 2);
}

Json PlaceAsJson(const InfoAnswer& answer) {
    Json place;
    place["city"] = ToUtf8(answer.placeName.View());
    place["province"] = nullptr;
    place["longitude"] = nullptr;
    place["latitude"] = nullptr;
    if (answer.place) {
        place["province"] = ToUtf8(answer.place->m_strProvince.View());
        place["longitude"] = answer.place->GetTotalLong();
        place["latitude"] = answer.place->GetTotalLat();
    }
    return place;
}

Json SunAsJson(const InfoAnswer& answer) {
    Json sun;
    sun["declination"] = answer.declination;
    sun["equationOfTime"] = answer.equationOfTime;
    sun["noon"] = nullptr;
    sun["sunrise"] = nullptr;
    sun["sunset"] = nullptr;
    sun["dayLength"] = nullptr;
    sun["polar"] = nullptr;
    if (!answer.sun)
        return sun;
    sun["noon"] = answer.sun->noon;
    sun["dayLength"] = answer.sun->dayLength;
    switch (answer.sun->kind) {
        case SunDay::Kind::PolarDay:
            sun["polar"] = "day";
            break;
        case SunDay::Kind::PolarNight:
            sun["polar"] = "night";
            break;
        case SunDay::Kind::Ordinary:
            sun["sunrise"] = answer.sun->sunrise;
            sun["sunset"] = answer.sun->sunset;
            break;
    }
    return sun;
}

Json FacingsAsJson(const std::vector<FacingPeriod>& facings) {
    Json list = Json::array();
    for (const FacingPeriod& facing : facings) {
        list.push_back({{"facing", facing.key},
                        {"direction", facing.direction},
                        {"counts", facing.start < facing.end},
                        {"start", facing.start},
                        {"end", facing.end}});
    }
    return list;
}

std::string Iso(const Day& day) {
    return IsoDay(day.year, day.month, day.day);
}

}  // namespace

std::vector<FacingPeriod> MainFacings() {
    std::vector<FacingPeriod> periods;
    for (const Facing& facing : kFacings) {
        const QcGePoint period = GetShanghaiValidTime(facing.direction * std::numbers::pi / 180.0);
        periods.push_back({facing.name, facing.key, facing.direction, period.x, period.y});
    }
    return periods;
}

void InfoAnswer::PrintAsText(Output& output) const {
    output.Line(Printable(note));
    output.Line(L"");
    TextTable table({Align::Left, Align::Left});
    AddPlace(table, *this);
    table.Add({Say(L"分析日期"), Printable(dayText)});
    if (day.month != ownDay.month || day.day != ownDay.day)
        table.Add({L"", Say(L"（取自当前标准；上面一行中的日期是设置自己的）")});
    table.Add({Say(L"节气"), TermText(term)});
    AddSun(table, *this);
    table.PrintTo(output);
    output.Line(L"");
    PrintStandard(output, standard, changes);
    if (!standard)
        return;
    output.Line(SourceWarning());
    if (standard->m_nValidSunType != ORVO_SUN_SHANGHAI)
        return;
    output.Line(L"");
    PrintFacings(output, facings);
}

void InfoAnswer::PrintAsJson(Output& output) const {
    Json document;
    document["note"] = ToUtf8(note.View());
    document["place"] = PlaceAsJson(*this);
    document["date"] = Iso(day);
    document["settingsDate"] = Iso(ownDay);
    document["term"] = {{"index", term.index},
                        {"name", ToUtf8(term.name.View())},
                        {"exact", term.isItsDay},
                        {"next", ToUtf8(term.next.View())},
                        {"daysToNext", term.daysToNext}};
    document["sun"] = SunAsJson(*this);
    document["standard"] = standard ? RulesAsJson(*standard, changes) : Json(nullptr);
    document["shanghaiValidTime"] = FacingsAsJson(facings);
    output.Json(document);
}
