// A place and the sun's day over it as data, the same in every answer.
#pragma once

#include <nlohmann/json_fwd.hpp>

struct DayTerms;
struct Settings;
struct SunDay;

// "city", "province", "longitude", "latitude"; null where the place is not known, save its name.
nlohmann::ordered_json PlaceAsJson(const Settings& settings);

// "declination", "equationOfTime", "noon", "sunrise", "sunset", "dayLength", "polar" ("day", "night" or null); null
// where there is no such time. `sun` is null where the place is not known.
nlohmann::ordered_json SunAsJson(const DayTerms& terms, const SunDay* sun);
