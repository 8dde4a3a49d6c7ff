// Place and sun as members of a document.
#include "workbench/commands/SunAsJson.h"

#include <nlohmann/json.hpp>

#include "facts/DayTerms.h"
#include "facts/Settings.h"
#include "facts/SunDay.h"

using Json = nlohmann::ordered_json;

Json PlaceAsJson(const Settings& settings) {
    Json place;
    place["city"] = ToUtf8(settings.placeName.View());
    place["province"] = nullptr;
    place["longitude"] = nullptr;
    place["latitude"] = nullptr;
    if (settings.place) {
        place["province"] = ToUtf8(settings.place->province.View());
        place["longitude"] = settings.place->longitude;
        place["latitude"] = settings.place->latitude;
    }
    return place;
}

Json SunAsJson(const DayTerms& terms, const SunDay* sun) {
    Json document;
    document["declination"] = terms.declination;
    document["equationOfTime"] = terms.equationOfTime;
    document["noon"] = nullptr;
    document["sunrise"] = nullptr;
    document["sunset"] = nullptr;
    document["dayLength"] = nullptr;
    document["polar"] = nullptr;
    if (!sun)
        return document;
    document["noon"] = sun->noon;
    document["dayLength"] = sun->dayLength;
    switch (sun->kind) {
        case SunDay::Kind::PolarDay:
            document["polar"] = "day";
            break;
        case SunDay::Kind::PolarNight:
            document["polar"] = "night";
            break;
        case SunDay::Kind::Ordinary:
            document["sunrise"] = sun->sunrise;
            document["sunset"] = sun->sunset;
            break;
    }
    return document;
}
