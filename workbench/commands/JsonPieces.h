// What the documents of analyses are made of.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "analysis/SunPeriod.h"

struct DayAnswer;
struct DayReport;
struct DayRequest;

template <class T>
nlohmann::ordered_json OrNull(const std::optional<T>& value) {
    return value ? nlohmann::ordered_json(*value) : nlohmann::ordered_json(nullptr);
}

// As drawings write it; null for 0, which is none.
nlohmann::ordered_json HandleAsJson(std::uint64_t handle);
nlohmann::ordered_json PeriodAsJson(SunPeriod period);
nlohmann::ordered_json PeriodsAsJson(const std::vector<SunPeriod>& periods);

// What stands before the windows or points: "note" to "beijingOffset".
nlohmann::ordered_json HeadAsJson(const DayReport& report, const DayRequest& request, const DayAnswer& answer);
// The same as the lines of a document that goes on: without its last bracket, and with a comma.
std::string HeadLines(const DayReport& report, const DayRequest& request, const DayAnswer& answer);

// The lines of a value that stands `depth` levels deep in a document, without blanks before the first.
std::string JsonLines(const nlohmann::ordered_json& value, int depth);
