// Puts together what the standard and the place say of a day.
#include "analysis/DaysSun.h"

#include <cmath>

#include "analysis/SunCount.h"
#include "facts/Angles.h"
#include "facts/SunDay.h"

namespace {

using Kind = AnalysisRemark::Kind;

void Remark(DayAnswer& answer, Kind kind, double amount = 0.0) {
    answer.remarks.push_back({kind, {}, 0, 0, amount});
}

SunPeriod TellSpan(const DayRequest& request, const SunDay& sun, DayAnswer& answer) {
    SunPeriod span;
    answer.beijingOffset = sun.BeijingTime(0.0);
    if (SpanOf(request.settings, answer.beijingOffset, answer.span))
        span = answer.span;
    else
        Remark(answer, Kind::SpanUnusable);
    if (!IsStep(request.settings.standard->step))
        Remark(answer, Kind::StepUnusable, request.settings.standard->step);
    return span;
}

}  // namespace

bool CanBeAsked(const DayRequest& request, std::optional<double> millimetres, DayAnswer& answer) {
    if (!request.settings.place || !request.settings.place->IsOnTheGlobe())
        answer.failure = AnalysisFailure::NoPlace;
    else if (!request.settings.standard)
        answer.failure = AnalysisFailure::NoStandard;
    else if (!millimetres)
        answer.failure = AnalysisFailure::UnknownUnit;
    return answer.failure == AnalysisFailure::None;
}

DaysSun FindDaysSun(const DayRequest& request, double leastAltitude, DayAnswer& answer) {
    const SunDay sun = ComputeSunDay(request.terms, *request.settings.place);
    DaysSun day{SunPath(sun.declination, sun.latitude, request.north), TellSpan(request, sun, answer), {}};
    day.up = day.path.HoursBefore({0.0, 0.0, 1.0}, std::sin(leastAltitude * kRadiansPerDegree), day.span);
    if (day.span.start < day.span.end && day.up.IsEmpty())
        Remark(answer, Kind::SunBelowHorizon, leastAltitude);
    if (sun.kind == SunDay::Kind::PolarDay)
        Remark(answer, Kind::SunNeverSets);
    if (leastAltitude > 0.0)
        Remark(answer, Kind::LeftOutByAltitude, leastAltitude);
    return day;
}
