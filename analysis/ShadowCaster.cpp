// Divides the day into sectors, and asks each of them.
#include "analysis/ShadowCaster.h"

#include <cmath>

#include "analysis/Boxes.h"
#include "analysis/OpenSpans.h"
#include "analysis/ShadowWalk.h"
#include "analysis/Tolerances.h"

namespace {

constexpr double kLongestSector = 8.0;  // hours

// The middle of the box around all corners.
Vector3 MiddleOf(const std::vector<Occluder>& faces) {
    if (faces.empty())
        return {};
    Box around = BoxAround(faces.front());
    for (const Occluder& face : faces)
        around = BoxAround(around, BoxAround(face));
    return (around.least + around.most) * 0.5;
}

OpenSpans TangentsOf(const DaySector& sector, const HourSpans& hours) {
    std::vector<TangentSpan> spans;
    for (const SunPeriod& period : hours.All())
        spans.push_back(sector.TangentsOf(period));
    return OpenSpans(std::move(spans));
}

HourSpans HoursOf(const DaySector& sector, const OpenSpans& spans) {
    std::vector<SunPeriod> periods;
    for (const TangentSpan& span : spans.All())
        periods.push_back(sector.PeriodOf(span));
    return HourSpans::Of(std::move(periods));
}

}  // namespace

ShadowCaster::ShadowCaster(const OccluderSet& occluders, const SunPath& path, const HourSpans& hours, double precision)
    : m_precision(precision) {
    const Vector3 middle = MiddleOf(occluders.faces);
    for (const SunPeriod& period : hours.All()) {
        const double count = std::ceil((period.end - period.start) / kLongestSector);
        const double length = (period.end - period.start) / count;
        for (double i = 0.0; i < count; ++i) {
            const double end = i + 1.0 < count ? period.start + (i + 1.0) * length : period.end;
            m_sectors.emplace_back(occluders, path, middle, SunPeriod{period.start + i * length, end});
        }
    }
}

HourSpans ShadowCaster::HiddenHours(const SunTarget& target, const HourSpans& wanted,
                                    const EntityFilter& counts) const {
    HourSpans hidden;
    for (const DaySector& sector : m_sectors) {
        const HourSpans asked = Intersection(wanted, sector.Period());
        if (asked.IsEmpty())
            continue;
        OpenSpans open = TangentsOf(sector, asked);
        ShadowWalk walk(sector, target, m_precision, counts);
        walk.Ask(open.Around());
        while (!open.IsEmpty() && walk.Next([&](float least, float most) { return open.MayMeet(least, most); })) {
            bool isNarrower = false;
            walk.ForEachShadow([&](TangentSpan shadow) { isNarrower |= open.Take(shadow); });
            if (isNarrower && !open.IsEmpty())
                walk.Ask(open.Around());
        }
        HourSpans taken = Difference(asked, HoursOf(sector, open));
        taken.DropShorterThan(kShortestHours);  // what rounding makes of an end between hours and tangents
        hidden = Union(hidden, taken);
    }
    return hidden;
}

std::vector<CastShadow> ShadowCaster::ShadowsOn(const SunTarget& target, const HourSpans& wanted,
                                                const EntityFilter& counts) const {
    std::vector<CastShadow> shadows;
    for (const DaySector& sector : m_sectors) {
        const HourSpans asked = Intersection(wanted, sector.Period());
        if (asked.IsEmpty())
            continue;
        ShadowWalk walk(sector, target, m_precision, counts);
        walk.Ask(TangentsOf(sector, asked).Around());
        while (walk.Next([](float, float) { return true; }))
            walk.ForEachShadow([&](TangentSpan shadow) {
                const HourSpans parts = Intersection(asked, sector.PeriodOf(shadow));
                for (const SunPeriod& part : parts.All())
                    shadows.push_back({part, walk.Entity()});
            });
    }
    return shadows;
}
