// Window by window, because a document of a million of them would fill the memory before its first line is written.
#include "workbench/commands/AnalysisAsJson.h"

#include <nlohmann/json.hpp>
#include <string>

#include "facts/DayText.h"
#include "platform/host/HandleText.h"
#include "platform/host/Output.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/SunAsJson.h"

namespace {

using Json = nlohmann::ordered_json;

template <class T>
Json OrNull(const std::optional<T>& value) {
    return value ? Json(*value) : Json(nullptr);
}

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

Json DroppedAsJson(const std::vector<DroppedPeriod>& dropped) {
    Json list = Json::array();
    for (const DroppedPeriod& each : dropped) {
        list.push_back(PeriodAsJson(each.period));
        list.back()["reason"] = ReasonKey(each.reason);
    }
    return list;
}

Json HiddenAsJson(const std::vector<HiddenPeriod>& hidden) {
    Json list = Json::array();
    for (const HiddenPeriod& each : hidden) {
        Json by = Json::array();
        for (const std::uint64_t handle : each.by)
            by.push_back(HandleAsJson(handle));
        list.push_back({{"start", each.period.start}, {"end", each.period.end}, {"by", std::move(by)}});
    }
    return list;
}

Json CornersAsJson(const WindowResult& window) {
    Json list = Json::array();
    for (const QcGePoint& corner : window.corners)
        list.push_back(Json::array({corner.x, corner.y, corner.z}));
    return list;
}

Json NotesAsJson(const WindowHours& hours) {
    Json list = Json::array();
    for (const WindowNote note : hours.notes)
        list.push_back(NoteKey(note));
    return list;
}

Json VerdictAsJson(const WindowHours& hours) {
    return hours.passes ? Json(VerdictKey(*hours.passes)) : Json(nullptr);
}

// A window with its own hours, or with those before.
Json WindowAsJson(const WindowResult& window, const WindowHours& hours) {
    Json document;
    document["handle"] = HandleAsJson(window.handle);
    document["name"] = ToUtf8(window.name.View());
    document["floor"] = OrNull(window.floor);
    document["facing"] = OrNull(window.facing);
    document["width"] = window.width;
    document["height"] = window.height;
    document["sill"] = window.sill;
    document["corners"] = CornersAsJson(window);
    document["sunlit"] = PeriodsAsJson(hours.sunlit);
    document["stepped"] = PeriodsAsJson(hours.stepped);
    document["counted"] = PeriodsAsJson(hours.counted);
    document["dropped"] = DroppedAsJson(hours.dropped);
    document["hidden"] = HiddenAsJson(hours.hidden);
    document["total"] = hours.total;
    document["longest"] = hours.longest;
    document["judged"] = hours.judged;
    document["verdict"] = VerdictAsJson(hours);
    document["color"] = hours.color;
    if (hours.part)
        document["part"] = {{"from", hours.part->from}, {"width", hours.part->width}};
    document["notes"] = NotesAsJson(hours);
    return document;
}

Json ChangeAsJson(const WindowResult& window) {
    return {{"minutes", window.judged - window.before->judged},
            {"from", VerdictAsJson(*window.before)},
            {"to", VerdictAsJson(window)}};
}

Json WindowAsJson(const AnalysisReport& report, const WindowResult& window) {
    Json document = WindowAsJson(window, window);
    if (IsCompared(report)) {
        document["before"] = window.before ? WindowAsJson(window, *window.before) : Json(nullptr);
        document["change"] = window.before ? ChangeAsJson(window) : Json(nullptr);
    }
    return document;
}

// Everything before the windows.
Json HeadAsJson(const AnalysisReport& report) {
    const AnalysisRequest& request = report.request;
    Json document;
    document["note"] = ToUtf8(NoteOf(request.settings).View());
    document["place"] = PlaceAsJson(request.settings);
    document["date"] = IsoDay(request.terms.day);
    document["standard"] = ListedStandardAsJson(report.standardIndex, report.isCurrentStandard,
                                                *request.settings.standard, report.changes);
    document["north"] = request.north;
    for (const LayerHeight& each : request.heights)
        document["heights"].push_back({{"layer", ToUtf8(each.layer.View())}, {"metres", each.metres}});
    for (const CString& layer : request.proposedLayers)
        document["proposed"].push_back(ToUtf8(layer.View()));
    document["need"] = OrNull(request.need);
    document["span"] = {{"start", report.answer.span.start}, {"end", report.answer.span.end}};
    document["beijingOffset"] = report.answer.beijingOffset;
    return document;
}

Json LeftOutAsJson(const LeftOut& leftOut) {
    return {{"scope", OrNull(leftOut.entities)}, {"belowAltitude", OrNull(leftOut.belowAltitude)}};
}

// The lines of a value that stands `depth` levels deep in a document, without blanks before the first.
std::string Lines(const Json& value, int depth) {
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

}  // namespace

bool PrintAnalysisAsJson(const AnalysisReport& report, Output& output, const AnalysisProgress& goOn) {
    constexpr std::string_view kEnd = "\n}";
    std::string head = Lines(HeadAsJson(report), 0);
    head.resize(head.size() - kEnd.size());
    output.Write(head + ",\n  \"windows\": [");
    const std::vector<WindowResult>& windows = report.answer.windows;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (!goOn(i, windows.size()))
            return false;
        output.Write((i == 0 ? "\n    " : ",\n    ") + Lines(WindowAsJson(report, windows[i]), 2));
    }
    output.Write(windows.empty() ? "]" : "\n  ]");
    const LeftOut leftOut = LeftOutOf(report);
    if (leftOut.entities || leftOut.belowAltitude)
        output.Write(",\n  \"leftOut\": " + Lines(LeftOutAsJson(leftOut), 1));
    output.Write("\n}\n");
    return true;
}
