// Few elements a bar, one for each kind of stretch: a report has thousands of them.
#include "workbench/report/TimeLinePicture.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "analysis/WindowResult.h"
#include "workbench/report/Joined.h"
#include "workbench/report/Markup.h"

namespace {

constexpr double kMinutesOfHour = 60.0;
constexpr double kHeight = 12.0;
// More hours than a day has are those of a span that is none.
constexpr double kMostHours = 24.0;

double WidthOf(SunPeriod span) {
    return std::clamp(span.end - span.start, 0.0, kMostHours) * kMinutesOfHour;
}

// Bars of one kind as one path.
class Bars {
public:
    Bars(SunPeriod span, double top, double height) : m_span(span), m_top(top), m_height(height) {}

    void Add(SunPeriod period) {
        const double from = (std::max(period.start, m_span.start) - m_span.start) * kMinutesOfHour;
        const double to = std::min((period.end - m_span.start) * kMinutesOfHour, WidthOf(m_span));
        if (!(to > from))
            return;
        m_path += Joined({"M", Coordinate(from), " ", Coordinate(m_top), "H", Coordinate(to), "v", Coordinate(m_height),
                          "H", Coordinate(from), "z"});
    }
    template <class List>
    void AddAll(const List& list) {
        for (const auto& each : list)
            Add(PeriodOf(each));
    }
    std::string Path(std::string_view kind) const {
        return m_path.empty() ? m_path : Joined({"<path class=\"", kind, "\" d=\"", m_path, "\"/>"});
    }

private:
    static SunPeriod PeriodOf(SunPeriod period) { return period; }
    static SunPeriod PeriodOf(const DroppedPeriod& dropped) { return dropped.period; }
    static SunPeriod PeriodOf(const HiddenPeriod& hidden) { return hidden.period; }

    SunPeriod m_span;
    double m_top;
    double m_height;
    std::string m_path;
};

std::string HoursPath(SunPeriod span) {
    std::string path;
    const double end = std::min(span.end, span.start + kMostHours);
    for (double hour = std::ceil(span.start); hour <= end; ++hour)
        path += Joined({"M", Coordinate((hour - span.start) * kMinutesOfHour), " 0v", Coordinate(kHeight)});
    return Joined({"<path class=\"g\" d=\"", path, "\"/>"});
}

std::string Opened(SunPeriod span) {
    return Joined({"<svg class=\"tl\" viewBox=\"0 0 ", Coordinate(std::max(WidthOf(span), 1.0)), " ",
                   Coordinate(kHeight), "\" preserveAspectRatio=\"none\" aria-hidden=\"true\">"});
}

// The full hours of one time in a line; they stretch with the bars, their letters do not.
std::string ScaleLine(SunPeriod span, double offset) {
    constexpr double kWhole = 100.0;
    std::string texts;
    const double width = std::max(WidthOf(span) / kMinutesOfHour, 1.0 / kMinutesOfHour);
    const SunPeriod shown = {span.start + offset, span.start + offset + width};
    for (double hour = std::ceil(shown.start); hour <= shown.end; ++hour) {
        const double hourOfDay = std::fmod(hour + kMostHours, kMostHours);
        texts += Joined({"<text x=\"", Coordinate((hour - shown.start) / width * kWhole), "%\" y=\"10\">",
                         Coordinate(hourOfDay), "</text>"});
    }
    return Joined({"<svg class=\"ts\" aria-hidden=\"true\">", texts, "</svg>"});
}

}  // namespace

std::string DrawTimeLine(const TimeLine& line) {
    Bars hidden(line.span, 5.0, 2.0);
    hidden.AddAll(line.hours.hidden);
    Bars lost(line.span, 2.0, 8.0);
    if (line.lost)
        lost.AddAll(*line.lost);
    Bars lit(line.span, 3.0, 6.0);
    lit.AddAll(line.hours.sunlit);
    lit.AddAll(line.hours.dropped);
    Bars counted(line.span, 0.0, kHeight);
    counted.AddAll(line.hours.counted);
    return Opened(line.span) + HoursPath(line.span) + hidden.Path("h") + lost.Path("x") + lit.Path("s") +
           counted.Path("c") + "</svg>";
}

std::string DrawTimeScale(SunPeriod span, double offset) {
    return ScaleLine(span, 0.0) + ScaleLine(span, offset);
}
