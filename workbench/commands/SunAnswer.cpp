// The answer of orvo sun as a table and as a document.
#include "workbench/commands/SunAnswer.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "facts/ClockText.h"
#include "facts/DayText.h"
#include "platform/base/PlainText.h"
#include "platform/host/Output.h"
#include "workbench/Texts.h"
#include "workbench/commands/SunAsJson.h"
#include "workbench/commands/SunRows.h"
#include "workbench/terminal/JsonOutput.h"
#include "workbench/terminal/TextTable.h"

namespace {

using Json = nlohmann::ordered_json;
using Align = TextTable::Align;
using Event = SunAnswer::Event;
using Moment = SunAnswer::Moment;

constexpr double kNoon = 12.0;
constexpr double kDay = 24.0;

// The part of the day, in true solar time, in whose inside the steps are told.
struct Part {
    double from;
    double to;
};

Part LitPart(const SunDay& sun) {
    switch (sun.kind) {
        case SunDay::Kind::PolarDay:
            return {-1.0, kDay};  // midnight once, at the beginning
        case SunDay::Kind::PolarNight:
            return {kNoon, kNoon};
        case SunDay::Kind::Ordinary:
            break;
    }
    return {sun.TrueSolarTime(sun.sunrise), sun.TrueSolarTime(sun.sunset)};
}

std::vector<Moment> MomentsOf(const SunDay& sun, int step) {
    constexpr double kSame = 1e-6;  // hours: a step at sunrise, noon or sunset is that
    const Part part = LitPart(sun);
    const bool isOrdinary = sun.kind == SunDay::Kind::Ordinary;
    std::vector<Moment> moments;
    if (isOrdinary)
        moments.push_back({part.from, Event::Sunrise});
    bool isNoonTold = false;
    for (int minutes = 0; minutes <= kMinutesPerDay; minutes += step) {
        const double time = static_cast<double>(minutes) / kMinutesPerHour;
        if (!isNoonTold && time > kNoon - kSame) {
            moments.push_back({kNoon, Event::Noon});
            isNoonTold = true;
        }
        if (time > part.from + kSame && time < part.to - kSame && std::abs(time - kNoon) > kSame)
            moments.push_back({time, Event::None});
    }
    if (isOrdinary)
        moments.push_back({part.to, Event::Sunset});
    return moments;
}

CString EventText(Event event) {
    switch (event) {
        case Event::Sunrise:
            return Say(L"日出");
        case Event::Noon:
            return Say(L"正午");
        case Event::Sunset:
            return Say(L"日落");
        case Event::None:
            break;
    }
    return CString();
}

Json EventAsJson(Event event) {
    switch (event) {
        case Event::Sunrise:
            return "sunrise";
        case Event::Noon:
            return "noon";
        case Event::Sunset:
            return "sunset";
        case Event::None:
            break;
    }
    return nullptr;
}

CString Decimals(double value) {
    CString text;
    text.Format(L"%.2f", value);
    return text == L"-0.00" ? CString(L"0.00") : text;
}

// On the horizon the rounding of the last bit decides whether there would be a shadow, many kilometres long.
std::optional<double> ShadowAt(const Moment& moment, const SunPosition& position) {
    const bool isOnHorizon = moment.event == Event::Sunrise || moment.event == Event::Sunset;
    return isOnHorizon ? std::nullopt : ShadowLength(position);
}

void PrintMoments(const SunAnswer& answer, Output& output) {
    TextTable table({Align::Left, Align::Left, Align::Right, Align::Right, Align::Right, Align::Left});
    table.Add({Say(L"真太阳时"), Say(L"北京时间"), Say(L"高度角（度）"), Say(L"方位角（度）"),
               Say(L"1 米高的影长（米）"), L""});
    for (const Moment& moment : answer.moments) {
        const SunPosition position = PositionOfSun(answer.sun, moment.trueSolarTime);
        const std::optional<double> shadow = ShadowAt(moment, position);
        table.Add({ClockText(moment.trueSolarTime), ClockText(answer.sun.BeijingTime(moment.trueSolarTime)),
                   Decimals(position.altitude), Decimals(position.azimuth), shadow ? Decimals(*shadow) : CString(L"-"),
                   EventText(moment.event)});
    }
    table.PrintTo(output);
}

Json MomentAsJson(const SunDay& sun, const Moment& moment) {
    const SunDirection direction = DirectionOfSun(sun, moment.trueSolarTime);
    const SunPosition position = PositionOf(direction);
    const std::optional<double> shadow = ShadowAt(moment, position);
    return {{"trueSolarTime", moment.trueSolarTime},
            {"beijingTime", sun.BeijingTime(moment.trueSolarTime)},
            {"altitude", position.altitude},
            {"azimuth", position.azimuth},
            {"direction", {direction.east, direction.north, direction.up}},
            {"shadow", shadow ? Json(*shadow) : Json(nullptr)},
            {"event", EventAsJson(moment.event)}};
}

}  // namespace

SunAnswer::SunAnswer(const Settings& askedSettings, const DayTerms& dayTerms, int stepMinutes)
    : settings(askedSettings),
      terms(dayTerms),
      sun(ComputeSunDay(dayTerms, *askedSettings.place)),
      step(stepMinutes),
      moments(MomentsOf(sun, stepMinutes)) {}

void SunAnswer::PrintAsText(Output& output) const {
    TextTable table({Align::Left, Align::Left});
    AddPlaceRows(table, settings);
    table.Add({Say(L"分析日期"), Printable(DayInWords(terms.day))});
    AddTermRows(table, terms);
    if (sun.kind != SunDay::Kind::Ordinary)
        table.Add({Say(L"日出日落"), PolarText(sun)});
    table.PrintTo(output);
    output.Line(L"");
    PrintMoments(*this, output);
    output.Line(Say(L"方位角从正北起顺时针计。日面中心，平坦地平线，不计大气折射；赤纬和时差整日不变。"));
}

void SunAnswer::PrintAsJson(Output& output) const {
    Json document;
    document["place"] = PlaceAsJson(settings);
    document["date"] = IsoDay(terms.day);
    document["sun"] = SunAsJson(terms, &sun);
    document["step"] = step;
    document["times"] = Json::array();
    for (const Moment& moment : moments)
        document["times"].push_back(MomentAsJson(sun, moment));
    PrintJson(output, document);
}
