// Point by point, because a document of millions of them would fill the memory before its first line is written.
#include "workbench/commands/PointsAsJson.h"

#include <string>

#include "platform/host/Output.h"
#include "workbench/commands/JsonPieces.h"
#include "workbench/commands/PointsReport.h"

namespace {

using Json = nlohmann::ordered_json;

Json OutlineAsJson(const OutlineResult& outline) {
    const bool hasPoints = outline.pointCount != 0;
    const auto minutes = [&](double value) { return hasPoints ? Json(value) : Json(nullptr); };
    return {{"handle", HandleAsJson(outline.handle)}, {"area", outline.area},
            {"share", OrNull(outline.share)},         {"points", outline.pointCount},
            {"least", minutes(outline.least)},        {"mean", minutes(outline.mean)},
            {"most", minutes(outline.most)}};
}

Json PointAsJson(const PointResult& point) {
    return {{"outline", point.outline},
            {"x", point.place.x},
            {"y", point.place.y},
            {"z", point.place.z},
            {"sunlit", PeriodsAsJson(point.sunlit)},
            {"total", point.total}};
}

Json OutlinesAsJson(const PointAnswer& answer) {
    Json list = Json::array();
    for (const OutlineResult& outline : answer.outlines)
        list.push_back(OutlineAsJson(outline));
    return list;
}

}  // namespace

bool PrintPointsAsJson(const PointsReport& report, Output& output, const AnalysisProgress& goOn) {
    output.Write(HeadLines(report, report.request, report.answer));
    output.Write("  \"spacing\": " + Json(report.request.spacing).dump() + ",\n");
    output.Write("  \"level\": " + OrNull(report.request.level).dump() + ",\n");
    output.Write("  \"outlines\": " + JsonLines(OutlinesAsJson(report.answer), 1) + ",\n  \"points\": [");
    const std::vector<PointResult>& points = report.answer.points;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!goOn(i, points.size()))
            return false;
        output.Write((i == 0 ? "\n    " : ",\n    ") + JsonLines(PointAsJson(points[i]), 2));
    }
    output.Write(points.empty() ? "]\n}\n" : "\n  ]\n}\n");
    return true;
}
