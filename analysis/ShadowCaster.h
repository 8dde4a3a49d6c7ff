// When a target is hidden from the sun, and by what.
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/DaySector.h"
#include "analysis/EntityFilter.h"
#include "analysis/HourSpans.h"
#include "analysis/OccluderSet.h"
#include "analysis/ShadowHull.h"
#include "analysis/SunPath.h"

// A part of the day that is hidden, and the entity (of OccluderSet::handles) that hides it.
struct CastShadow {
    SunPeriod period;
    std::uint32_t entity = 0;
};

// A plain value that only reads when it is asked: several threads may ask at once, each with buffers of its own.
class ShadowCaster {
public:
    // The hours are all that will ever be asked about. `precision` as for ShadowHull.
    ShadowCaster(const OccluderSet& occluders, const SunPath& path, const HourSpans& hours, double precision);

    // The hidden part of the wanted hours.
    HourSpans HiddenHours(const SunTarget& target, const HourSpans& wanted, const EntityFilter& counts = nullptr) const;
    // Everything that hides some of the wanted hours, whatever else hides them too; in no order that means anything.
    std::vector<CastShadow> ShadowsOn(const SunTarget& target, const HourSpans& wanted,
                                      const EntityFilter& counts = nullptr) const;

private:
    double m_precision;
    std::vector<DaySector> m_sectors;
};
