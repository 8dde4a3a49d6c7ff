// Follows the sun through the hours.
#include "workbench/report/SkySun.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "analysis/DayRequest.h"
#include "analysis/Vector3.h"
#include "analysis/WindowResult.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"
#include "workbench/report/Markup.h"
#include "workbench/report/SkyContent.h"

namespace {

constexpr double kStep = 0.05;  // hours, less than a degree of the sun's way
constexpr int kHourSize = 220;  // hundredths of a millimetre
constexpr int kBeijingSize = 170;

// The sun's way over the horizon in a period; parted where it leaves the sky at one end and comes back at the other.
std::string WayOf(SunPeriod period, const SkyFrame& frame, const SunDay& sun) {
    std::string path;
    PaperLoop line;
    double before = 0.0;
    const auto end = [&] {
        if (line.size() > 1)
            AppendLine(path, line);
        line.clear();
    };
    const auto count = static_cast<int>(std::ceil(std::clamp((period.end - period.start) / kStep, 1.0, 1e4)));
    for (int i = 0; i <= count; ++i) {
        const double part = static_cast<double>(i) / count;
        const SunPosition position = PositionOfSun(sun, period.start + (period.end - period.start) * part);
        const double direction = FromMiddle(frame, position);
        if (position.altitude < -0.02 || (!line.empty() && std::abs(direction - before) > 180.0))
            end();
        if (position.altitude >= -0.02) {
            const PaperPoint point = frame.Point(direction, std::max(position.altitude, 0.0));
            if (line.empty() || point != line.back())
                line.push_back(point);
        }
        before = direction;
    }
    end();
    return path;
}

std::string Path(const std::string& look, const std::string& way) {
    return way.empty() ? std::string() : "<path fill=\"none\" " + look + " d=\"" + way + "\"/>\n";
}

// Hours and minutes of a clock, rounded to the minute.
CString ClockOf(double hours) {
    const auto minutes = std::lround(hours * 60.0);
    const auto ofDay = (minutes % 1440 + 1440) % 1440;
    const std::string rest = std::to_string(ofDay % 60);
    return FromUtf8(std::to_string(ofDay / 60) + (rest.size() < 2 ? ":0" : ":") + rest);
}

// Which way the sun goes on paper, of length 1.
Vector3 WayAt(double hour, const SkyFrame& frame, const SunDay& sun) {
    const SunPosition before = PositionOfSun(sun, hour - kStep);
    const SunPosition after = PositionOfSun(sun, hour + kStep);
    const double across = HalfTurn(FromMiddle(frame, after) - FromMiddle(frame, before));
    const Vector3 way = {across, before.altitude - after.altitude, 0.0};
    const double length = Length(way);
    return length > 0.0 ? way * (1.0 / length) : Vector3{1.0, 0.0, 0.0};
}

// On the upper (-1) or lower (1) side of the sun's way, so far away that the box just does not touch it.
PaperBox BoxBeside(const CString& text, int size, PaperPoint place, double side, const Vector3& way) {
    constexpr double kGap = 90.0;
    const PaperBox box = BoxForText(text, size, place);
    const Vector3 out = (way.x < 0.0 ? Vector3{way.y, -way.x, 0.0} : Vector3{-way.y, way.x, 0.0}) * side;
    const double away = 0.5 * (std::abs(out.x) * box.Width() + std::abs(out.y) * box.Height()) + kGap;
    return BoxForText(
        text, size,
        {place.x + static_cast<int>(std::lround(out.x * away)), place.y + static_cast<int>(std::lround(out.y * away))});
}

}  // namespace

std::string DrawSunPath(const SkyPicture& picture, const SkyFrame& frame, const SunDay& sun) {
    std::string lit;
    std::string hidden;
    std::string dropped;
    for (const SunPeriod& period : picture.hours.sunlit)
        lit += WayOf(period, frame, sun);
    for (const HiddenPeriod& each : picture.hours.hidden)
        hidden += WayOf(each.period, frame, sun);
    for (const DroppedPeriod& each : picture.hours.dropped)
        // The others are parts of what is lit, which the standard leaves out afterwards.
        if (each.reason == DropReason::Facing || each.reason == DropReason::Angle)
            dropped += WayOf(each.period, frame, sun);
    std::string all = Path("class=\"way\" stroke=\"#777\" stroke-width=\"14\" stroke-dasharray=\"60 40\"",
                           WayOf({0.0, 24.0}, frame, sun));
    all += Path("class=\"hidden\" stroke=\"#222\" stroke-width=\"60\"", hidden);
    all += Path("stroke=\"#222\" stroke-width=\"100\"", lit + dropped);
    all += Path("class=\"lit\" stroke=\"#ffb400\" stroke-width=\"76\"", lit);
    all += Path("stroke=\"#fff\" stroke-width=\"76\"", dropped);
    all += Path("class=\"dropped\" stroke=\"#ffb400\" stroke-width=\"76\" stroke-dasharray=\"60 60\"", dropped);
    return all;
}

std::string DrawSunHours(const SkyPicture& picture, const SkyFrame& frame, const SunDay& sun, PaperLabels& labels) {
    constexpr int kDot = 55;
    std::string dots;
    std::string names;
    std::string beijing;
    for (int hour = 0; hour < 24; ++hour) {
        const SunPosition position = PositionOfSun(sun, hour);
        if (position.altitude <= 0.0)
            continue;
        const PaperPoint place = frame.Point(FromMiddle(frame, position), position.altitude);
        dots += "<circle cx=\"" + std::to_string(place.x) + "\" cy=\"" + std::to_string(place.y) + "\" r=\"" +
                std::to_string(kDot) + "\"/>\n";
        const CString name = ClockOf(hour);
        const PaperBox above = BoxBeside(name, kHourSize, place, -1.0, WayAt(hour, frame, sun));
        if (labels.TryTake(above))
            names += TextInBox(name, above, kHourSize);
        const CString other = ClockOf(hour + picture.answer.beijingOffset);
        const PaperBox below = BoxBeside(other, kBeijingSize, place, 1.0, WayAt(hour, frame, sun));
        if (labels.TryTake(below))
            beijing += TextInBox(other, below, kBeijingSize);
    }
    return "<g class=\"dots\" fill=\"#fff\" stroke=\"#111\" stroke-width=\"18\">\n" + dots +
           "</g>\n<g text-anchor=\"middle\" paint-order=\"stroke\" stroke=\"#fff\" stroke-opacity=\".8\" "
           "stroke-width=\"50\" stroke-linejoin=\"round\">\n<g class=\"hours\" font-weight=\"bold\" font-size=\"" +
           std::to_string(kHourSize) + "\">\n" + names + "</g>\n<g class=\"beijing\" font-size=\"" +
           std::to_string(kBeijingSize) + "\">\n" + beijing + "</g>\n</g>\n";
}
