// From a window to its hours: the span, less the night and the hours behind its plane, less what faces hide.
#include "analysis/WindowDay.h"

#include <algorithm>
#include <cmath>

#include "analysis/Boxes.h"
#include "analysis/Tolerances.h"
#include "calendar/ShanghaiValidTime.h"
#include "facts/Angles.h"
#include "facts/Standard.h"
#include "settings/OrvoStdSet.h"

namespace {

constexpr double kDay = 24.0;
constexpr double kPartStep = 100.0;  // millimetres from one part of a wide window to the next

bool IsWidthLimited(const Standard& standard) {
    return standard.fullWindow != 0 && standard.limitWidth != 0;
}

// Whether it is wider than a standard that limits widths takes.
bool IsJudgedByPart(const Standard& standard, const DrawnWindow& window) {
    return IsWidthLimited(standard) && standard.maxWidth > 0.0 && window.width > standard.maxWidth + kLengthTolerance;
}

struct LitHours {
    HourSpans before;  // HoursBefore
    HourSpans lit;
    HourSpans sunlit;  // lit and valid
};

// The hours with the sun up and before a plane.
HourSpans HoursBefore(const DayOfAnalysis& day, const Vector3& outward) {
    return Intersection(day.up, day.path.HoursBefore(outward, kSunInPlane, day.span));
}

LitHours FindLitHours(const DayOfAnalysis& day, const SunTarget& target, const HourSpans& valid,
                      const EntityFilter& counts) {
    LitHours hours;
    hours.before = HoursBefore(day, target.outward);
    hours.lit = Difference(hours.before, day.caster.HiddenHours(target, hours.before, counts));
    hours.lit.DropShorterThan(kShortestHours);
    hours.sunlit = Intersection(hours.lit, valid);
    hours.sunlit.DropShorterThan(kShortestHours);
    return hours;
}

// Where a window begins that is judged by a part of it: the left ends of all parts that are tried.
std::vector<double> PartStarts(double width, double part) {
    std::vector<double> starts;
    const double last = width - part;
    for (int i = 0; i * kPartStep < last; ++i)
        starts.push_back(i * kPartStep);
    starts.push_back(last);
    return starts;
}

// The left end of the part with the most judged sun, of equals the leftmost one.
double BestPart(const DayOfAnalysis& day, const WindowQuestion& question, double width, const EntityFilter& counts) {
    double best = 0.0;
    double most = -1.0;
    for (const double from : PartStarts(question.window.width, width)) {
        const SunTarget target = TargetOf(day, question.window, from, width);
        const HourSpans sunlit = FindLitHours(day, target, question.valid, counts).sunlit;
        const double judged = CountSun(sunlit, day.span, day.standard).judged;
        if (judged > most + kMinuteTolerance) {
            most = judged;
            best = from;
        }
    }
    return best;
}

bool IsCut(const DayOfAnalysis& day, const SunTarget& target, const EntityFilter& counts) {
    bool isCut = false;
    const Vector3 half = {std::abs(target.right.x) * target.halfWidth, std::abs(target.right.y) * target.halfWidth,
                          target.halfHeight};
    const Box around = {target.middle - half, target.middle + half};
    day.faceTree.Walk([&](const Box& box) { return Overlap(box, around); },
                      [&](std::size_t index) {
                          const Occluder& face = day.occluders.faces[index];
                          const bool isAsked = !counts || counts(face.entity);
                          isCut = isCut || (isAsked && CutsTarget(target, face.corners, face.count));
                      });
    return isCut;
}

// The hidden hours with all that hides any part of the window in each.
std::vector<HiddenPeriod> TellCulprits(const DayOfAnalysis& day, const SunTarget& target, const HourSpans& hidden,
                                       const EntityFilter& counts) {
    const std::vector<CastShadow> shadows = day.caster.ShadowsOn(target, hidden, counts);
    std::vector<HiddenPeriod> told;
    for (const SunPeriod& period : hidden.All()) {
        HiddenPeriod each{period, {}};
        for (const CastShadow& shadow : shadows)
            if (std::min(shadow.period.end, period.end) - std::max(shadow.period.start, period.start) > 0.0)
                each.by.push_back(day.occluders.handles[shadow.entity]);
        std::sort(each.by.begin(), each.by.end());
        each.by.erase(std::unique(each.by.begin(), each.by.end()), each.by.end());
        told.push_back(std::move(each));
    }
    return told;
}

void AddDropped(std::vector<DroppedPeriod>& dropped, HourSpans periods, DropReason reason) {
    periods.DropShorterThan(kShortestHours);
    for (const SunPeriod& period : periods.All())
        dropped.push_back({period, reason});
}

void AddCount(const DayOfAnalysis& day, const HourSpans& sunlit, WindowHours& result) {
    SunCount count = CountSun(sunlit, day.span, day.standard);
    result.stepped = std::move(count.stepped);
    result.counted = std::move(count.counted);
    result.dropped.insert(result.dropped.end(), count.dropped.begin(), count.dropped.end());
    std::stable_sort(result.dropped.begin(), result.dropped.end(),
                     [](const DroppedPeriod& a, const DroppedPeriod& b) { return a.period.start < b.period.start; });
    result.total = count.total;
    result.longest = count.longest;
    result.judged = count.judged;
}

}  // namespace

DayOfAnalysis DayOf(const DayRequest& request, const DaysSun& sun, const OccluderSet& occluders,
                    const BoxTree& faceTree, const ShadowCaster& caster) {
    DayOfAnalysis day{*request.settings.standard, occluders, faceTree, caster, sun.path};
    day.span = sun.span;
    day.up = sun.up;
    day.north = request.north;
    day.need = request.need;
    day.offset = request.tuning.windowOffset;
    day.precision = request.tuning.distancePrecision;
    return day;
}

HourSpans ValidHours(const DayOfAnalysis& day, const DrawnWindow& window) {
    if (day.standard.validSunType == ORVO_SUN_SHANGHAI) {
        const QcGePoint hours = GetShanghaiValidTime(FacingOf(window, day.north) * kRadiansPerDegree);
        // The rule is one of every day, and a span of the clock may hold hours of the day before or after.
        HourSpans valid;
        for (const double turn : {-kDay, 0.0, kDay})
            valid = Union(valid, Intersection(SunPeriod{hours.x + turn, hours.y + turn}, day.span));
        return valid;
    }
    const int least = day.standard.minValidAngle;
    if (least <= 0)
        return day.span;
    if (least >= 90)
        return {};
    // The sun's direction in plan is at least this angle off the wall, on both ends of it.
    const double sine = std::sin(least * kRadiansPerDegree);
    const double cosine = std::cos(least * kRadiansPerDegree);
    const Vector3 outward = window.Outward() * cosine;
    return Intersection(day.path.HoursBefore(outward - window.right * sine, 0.0, day.span),
                        day.path.HoursBefore(outward + window.right * sine, 0.0, day.span));
}

bool IsTooNarrow(const Standard& standard, const DrawnWindow& window) {
    return IsWidthLimited(standard) && window.width < standard.minWidth - kLengthTolerance;
}

double FacingOf(const DrawnWindow& window, double north) {
    const Vector3 outward = window.Outward();
    const double turned = std::atan2(outward.y, outward.x) / kRadiansPerDegree - north;
    const double facing = turned - 360.0 * std::floor(turned / 360.0);
    return facing < 360.0 ? facing : 0.0;
}

SunTarget TargetOf(const DayOfAnalysis& day, const DrawnWindow& window, double from, double width) {
    SunTarget target;
    target.right = window.right;
    target.up = {0.0, 0.0, 1.0};
    target.outward = window.Outward();
    const Vector3 outside = window.lowerLeft + target.outward * day.offset;
    if (day.standard.fullWindow == 0) {
        target.middle = outside + target.right * (0.5 * window.width) + target.up * day.precision;
        return target;
    }
    target.middle = outside + target.right * (from + 0.5 * width) + target.up * (0.5 * window.height);
    target.halfWidth = std::max(0.5 * width - day.precision, 0.0);
    target.halfHeight = std::max(0.5 * window.height - day.precision, 0.0);
    return target;
}

void AnalyseDay(const DayOfAnalysis& day, const WindowQuestion& question, const EntityFilter& counts,
                WindowHours& hours) {
    const Standard& standard = day.standard;
    double from = 0.0;
    double width = question.window.width;
    if (IsJudgedByPart(standard, question.window)) {
        width = standard.maxWidth;
        from = BestPart(day, question, width, counts);
        hours.part = WindowPart{from / kMillimetresPerMetre, width / kMillimetresPerMetre};
    }
    const SunTarget target = TargetOf(day, question.window, from, width);
    if (IsCut(day, target, counts))
        hours.notes.push_back(WindowNote::Cut);
    AnalyseTarget(day, target, question.valid, counts, hours);
}

void AnalyseTarget(const DayOfAnalysis& day, const SunTarget& target, const HourSpans& valid,
                   const EntityFilter& counts, WindowHours& hours) {
    const Standard& standard = day.standard;
    const LitHours found = FindLitHours(day, target, valid, counts);
    hours.sunlit = found.sunlit.All();
    AddDropped(hours.dropped, Difference(found.lit, valid),
               standard.validSunType == ORVO_SUN_SHANGHAI ? DropReason::Facing : DropReason::Angle);
    HourSpans hidden = Difference(Intersection(found.before, valid), found.sunlit);
    hidden.DropShorterThan(kShortestHours);
    hours.hidden = TellCulprits(day, target, hidden, counts);
    AddCount(day, found.sunlit, hours);
    if (day.need)
        hours.passes = hours.judged >= *day.need * 60.0 - kMinuteTolerance;
    hours.color = ColorOf(standard, hours.judged);
}

bool MayMatter(const DayOfAnalysis& day, const WindowQuestion& question, const EntityFilter& entities) {
    // A shadow on any part that may be judged is one on the window.
    const SunTarget target = TargetOf(day, question.window, 0.0, question.window.width);
    return !day.caster.HiddenHours(target, HoursBefore(day, question.window.Outward()), entities).IsEmpty() ||
           IsCut(day, target, entities);
}

std::vector<HiddenPeriod> TellLost(const DayOfAnalysis& day, const DrawnWindow& window, const WindowHours& before,
                                   const EntityFilter& entities) {
    const double from = before.part ? before.part->from * kMillimetresPerMetre : 0.0;
    const double width = before.part ? before.part->width * kMillimetresPerMetre : window.width;
    const SunTarget target = TargetOf(day, window, from, width);
    HourSpans hidden = day.caster.HiddenHours(target, HourSpans::Of(before.sunlit), entities);
    hidden.DropShorterThan(kShortestHours);
    return TellCulprits(day, target, hidden, entities);
}
