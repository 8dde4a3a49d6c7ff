// Window by window, because a document of a million of them would fill the memory before its first line is written.
#include "workbench/commands/AnalysisAsJson.h"

#include <string>

#include "platform/host/Output.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/JsonPieces.h"

namespace {

using Json = nlohmann::ordered_json;

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

// The line of the project's layers in the head; nothing without a project.
std::string ProposedLine(const AnalysisReport& report) {
    if (!IsCompared(report))
        return {};
    Json layers;
    for (const CString& layer : report.request.proposedLayers)
        layers.push_back(ToUtf8(layer.View()));
    return "  \"proposed\": " + JsonLines(layers, 1) + ",\n";
}

Json LeftOutAsJson(const LeftOut& leftOut) {
    return {{"scope", OrNull(leftOut.entities)}, {"belowAltitude", OrNull(leftOut.belowAltitude)}};
}

}  // namespace

bool PrintAnalysisAsJson(const AnalysisReport& report, Output& output, const AnalysisProgress& goOn) {
    output.Write(HeadLines(report, report.request, report.answer) + ProposedLine(report) + "  \"windows\": [");
    const std::vector<WindowResult>& windows = report.answer.windows;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (!goOn(i, windows.size()))
            return false;
        output.Write((i == 0 ? "\n    " : ",\n    ") + JsonLines(WindowAsJson(report, windows[i]), 2));
    }
    output.Write(windows.empty() ? "]" : "\n  ]");
    const LeftOut leftOut = LeftOutOf(report);
    if (leftOut.entities || leftOut.belowAltitude)
        output.Write(",\n  \"leftOut\": " + JsonLines(LeftOutAsJson(leftOut), 1));
    output.Write("\n}\n");
    return true;
}
