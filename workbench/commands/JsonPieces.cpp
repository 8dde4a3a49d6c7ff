// Handles, periods and heads as JSON.
#include "workbench/commands/JsonPieces.h"

#include "analysis/DayRequest.h"
#include "facts/DayText.h"
#include "platform/host/HandleText.h"
#include "workbench/commands/DayReport.h"
#include "workbench/commands/SunAsJson.h"

using Json = nlohmann::ordered_json;

Json HandleAsJson(std::uint64_t handle) {
    return handle == 0 ? Json(nullptr) : Json(ToUtf8(HandleText(handle).View()));
}

Json PeriodAsJson(SunPeriod period) {
    return {{"start", period.start}, {"end", period.end}, {"minutes", period.Minutes()}};
}

Json PeriodsAsJson(const std::vector<SunPeriod>& periods) {
    Json list = Json::array();
    for (const SunPeriod& period : periods)
        list.push_back(PeriodAsJson(period));
    return list;
}

Json HeadAsJson(const DayReport& report, const DayRequest& request, const DayAnswer& answer) {
    Json document;
    document["note"] = ToUtf8(NoteOf(request.settings).View());
    document["place"] = PlaceAsJson(request.settings);
    document["date"] = IsoDay(request.terms.day);
    document["standard"] = ListedStandardAsJson(report.standardIndex, report.isCurrentStandard,
                                                *request.settings.standard, report.changes);
    document["north"] = request.north;
    for (const LayerHeight& each : request.heights)
        document["heights"].push_back({{"layer", ToUtf8(each.layer.View())}, {"metres", each.metres}});
    document["need"] = OrNull(request.need);
    document["span"] = {{"start", answer.span.start}, {"end", answer.span.end}};
    document["beijingOffset"] = answer.beijingOffset;
    return document;
}

std::string HeadLines(const DayReport& report, const DayRequest& request, const DayAnswer& answer) {
    constexpr std::string_view kEnd = "\n}";
    std::string head = JsonLines(HeadAsJson(report, request, answer), 0);
    head.resize(head.size() - kEnd.size());
    return head + ",\n";
}

std::string JsonLines(const Json& value, int depth) {
    constexpr int kIndent = 2;
    const std::string text = value.dump(kIndent, ' ', false, Json::error_handler_t::replace);
    const std::string blanks(static_cast<std::size_t>(depth) * kIndent, ' ');
    std::string lines;
    for (const char character : text) {  // a line end within a text is written as \n
        lines += character;
        if (character == '\n')
            lines += blanks;
    }
    return lines;
}
