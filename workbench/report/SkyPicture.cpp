// Puts a sky together: grid, bodies, what is behind the wall, the sun, directions and legend.
#include "workbench/report/SkyPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "analysis/DayRequest.h"
#include "analysis/OccluderSet.h"
#include "analysis/WindowResult.h"
#include "facts/SunDay.h"
#include "workbench/Texts.h"
#include "workbench/report/Markup.h"
#include "workbench/report/PaperLegend.h"
#include "workbench/report/SkyBodies.h"
#include "workbench/report/SkyFrame.h"
#include "workbench/report/SkySun.h"

namespace {

constexpr int kGridSize = 220;      // of texts, hundredths of a millimetre
constexpr int kAxisHeight = 460;    // below the horizon, for the directions
constexpr double kGridStep = 15.0;  // degrees
constexpr double kAltitudeStep = 10.0;

std::string Line(PaperPoint from, PaperPoint to) {
    std::string path;
    AppendLine(path, {from, to});
    return path;
}

// Lines every 15 degrees of direction and 10 of altitude.
std::string DrawGrid(const SkyFrame& frame) {
    std::string path;
    for (double compass = 0.0; compass < 360.0; compass += kGridStep) {
        const double place = frame.FromMiddle(compass);
        if (std::abs(place) <= frame.half)
            path += Line(frame.Point(place, 0.0), frame.Point(place, frame.top));
    }
    for (double altitude = kAltitudeStep; altitude < frame.top; altitude += kAltitudeStep)
        path += Line(frame.Point(-frame.half, altitude), frame.Point(frame.half, altitude));
    return "<path class=\"grid\" fill=\"none\" stroke=\"#ddd\" stroke-width=\"8\" d=\"" + path + "\"/>\n";
}

std::string DrawAxes(const SkyFrame& frame) {
    const std::array names = {Say(L"北"), Say(L"东北"), Say(L"东"), Say(L"东南"),
                              Say(L"南"), Say(L"西南"), Say(L"西"), Say(L"西北")};
    std::string markup = "<g class=\"axes\" font-size=\"" + std::to_string(kGridSize) + "\">\n";
    for (std::size_t i = 0; i < names.size(); ++i) {
        const double place = frame.FromMiddle(45.0 * static_cast<double>(i));
        const PaperPoint point = frame.Point(place, 0.0);
        // No name hangs over the ends.
        if (std::abs(place) <= frame.half - 6.0)
            markup += PlacedText(names[i], point.x, point.y + 1.4 * kGridSize, "middle");
    }
    for (double altitude = 0.0; altitude < frame.top; altitude += kAltitudeStep) {
        const PaperPoint point = frame.Point(-frame.half, altitude);
        markup +=
            PlacedText(FromUtf8(Coordinate(altitude) + "\u00B0"), point.x - 60, point.y + 0.35 * kGridSize, "end");
    }
    return markup + "</g>\n";
}

// Where the wall stands in the way: all that is not within 90 degrees of straight out.
std::string DrawBehind(const SkyFrame& frame, const std::string& pattern) {
    std::string path;
    const double outward = frame.FromMiddle(frame.outward);
    for (const double turn : {-360.0, 0.0, 360.0}) {
        const double from = std::max(outward + 90.0 + turn, -frame.half);
        const double to = std::min(outward + 270.0 + turn, frame.half);
        if (from < to)
            AppendLoop(path, {frame.Point(from, 0.0), frame.Point(to, 0.0), frame.Point(to, frame.top),
                              frame.Point(from, frame.top)});
    }
    if (path.empty())
        return {};
    return "<path class=\"behind\" fill=\"url(#" + pattern + ")\" stroke=\"#888\" stroke-width=\"12\" d=\"" + path +
           "\"/>\n";
}

std::string Stroke(const char* look) {
    return std::string("<path fill=\"none\" d=\"M0 150h500\" ") + look + "/>";
}

std::vector<LegendEntry> LegendOf(const SkyPicture& picture, const SkyBodies& bodies, const std::string& pattern) {
    constexpr const char* kRim = "stroke=\"#222\" stroke-width=\"100\"";
    std::vector<LegendEntry> entries;
    entries.push_back({Stroke(kRim) + Stroke("stroke=\"#ffb400\" stroke-width=\"76\""), Say(L"照到窗")});
    if (!picture.hours.hidden.empty())
        entries.push_back({Stroke("stroke=\"#222\" stroke-width=\"60\""), Say(L"窗的全部或一部分被遮挡")});
    const bool hasDropped =
        std::any_of(picture.hours.dropped.begin(), picture.hours.dropped.end(), [](const DroppedPeriod& each) {
            return each.reason == DropReason::Facing || each.reason == DropReason::Angle;
        });
    if (hasDropped)
        entries.push_back({Stroke(kRim) + Stroke("stroke=\"#fff\" stroke-width=\"76\"") +
                               Stroke("stroke=\"#ffb400\" stroke-width=\"76\" stroke-dasharray=\"60 60\""),
                           Say(L"照到窗，按标准不计")});
    if (bodies.hasCulprits)
        entries.push_back(
            {"<rect x=\"20\" y=\"50\" width=\"460\" height=\"200\" fill=\"#c4c4c0\" stroke=\"#222\" "
             "stroke-width=\"18\"/>",
             Say(L"当天遮挡此窗的实体及其句柄")});
    if (bodies.hasOthers)
        entries.push_back(
            {"<rect x=\"20\" y=\"50\" width=\"460\" height=\"200\" fill=\"#ececea\" stroke=\"#999\" "
             "stroke-width=\"10\"/>",
             Say(L"其他实体")});
    entries.push_back({"<rect x=\"20\" y=\"50\" width=\"460\" height=\"200\" fill=\"url(#" + pattern +
                           ")\" stroke=\"#888\" stroke-width=\"12\"/>",
                       Say(L"在窗所在墙面之后")});
    entries.push_back({"", Say(L"路径上方：真太阳时，下方：北京时间")});
    return entries;
}

std::string Pattern(const std::string& id) {
    return "<pattern id=\"" + id +
           "\" width=\"120\" height=\"120\" patternUnits=\"userSpaceOnUse\"><rect width=\"120\" height=\"120\" "
           "fill=\"#f4f4f2\"/><path d=\"M0 120L120 0M-30 30L30-30M90 150L150 90\" stroke=\"#bbb\" "
           "stroke-width=\"10\"/></pattern>\n";
}

}  // namespace

std::string DrawSky(const SkyPicture& picture) {
    if (!picture.window.facing || !picture.request.settings.place || !picture.request.settings.standard)
        return {};
    const SunDay sun = ComputeSunDay(picture.request.terms, *picture.request.settings.place);
    const SkyFrame frame = LayOutSky(picture, sun);
    const std::string pattern = picture.id + "-behind";
    const std::string clip = picture.id + "-frame";
    PaperLabels labels(frame.frame);
    const std::string path = DrawSunPath(picture, frame, sun);
    const std::string hours = DrawSunHours(picture, frame, sun, labels);
    const SkyBodies bodies = DrawBodies(picture, frame, labels);

    std::string below;
    const int legendTop = frame.frame.bottom + kAxisHeight;
    const int width = frame.frame.right;
    const int height = legendTop + LayOutLegend(LegendOf(picture, bodies, pattern), width, legendTop, below);
    const std::string box = "x=\"" + std::to_string(frame.frame.left) + "\" y=\"" + std::to_string(frame.frame.top) +
                            "\" width=\"" + std::to_string(frame.frame.Width()) + "\" height=\"" +
                            std::to_string(frame.frame.Height()) + "\"";
    const CString title = picture.title.IsEmpty() ? Say(L"从窗看到的天空") : picture.title;
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"sky\" role=\"img\" width=\"" +
           Coordinate(width / kPaperUnits) + "mm\" height=\"" + Coordinate(height / kPaperUnits) +
           "mm\" viewBox=\"0 0 " + std::to_string(width) + ' ' + std::to_string(height) +
           "\" font-family=\"sans-serif\" fill=\"#111\">\n<title>" + Markup(title) + "</title>\n<clipPath id=\"" +
           clip + "\"><rect " + box + "/></clipPath>\n" + Pattern(pattern) + "<g clip-path=\"url(#" + clip +
           ")\">\n<rect " + box + " fill=\"#fff\"/>\n" + DrawGrid(frame) + bodies.shapes + DrawBehind(frame, pattern) +
           path + bodies.handles + hours + "</g>\n<rect class=\"frame\" " + box +
           " fill=\"none\" stroke=\"#111\" stroke-width=\"20\"/>\n" + DrawAxes(frame) + below + "</svg>\n";
}
