// When a target is hidden from the sun, and by what.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "analysis/BoxTree.h"
#include "analysis/HourSpans.h"
#include "analysis/OccluderSet.h"
#include "analysis/ShadowHull.h"
#include "analysis/SunPath.h"

// A part of the day that is hidden, and the entity (of OccluderSet::handles) that hides it.
struct CastShadow {
    SunPeriod period;
    std::uint32_t entity = 0;
};

// Which entities count for a target; null: all of them.
using EntityFilter = std::function<bool(std::uint32_t entity)>;

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
    // A part of the day of at most a third of a turn, with the faces in axes of its own: the sky's, turned around the
    // pole so that x points to the middle of the part. Everything the sun can be behind has a positive x there.
    struct Sector {
        SunPeriod period;
        double middle = 0.0;  // hour angle, radians
        std::vector<Occluder> faces;
        BoxTree tree;
    };

    Sector MakeSector(const OccluderSet& occluders, SunPeriod period) const;
    Vector3 ToSector(const Sector& sector, const Vector3& direction) const;
    SunTarget ToSector(const Sector& sector, const SunTarget& target) const;
    template <class Take>
    void Walk(const Sector& sector, const SunTarget& target, const HourSpans& wanted, const EntityFilter& counts,
              const Take& take) const;

    SunPath m_path;
    double m_precision;
    Vector3 m_middle;  // of the scene: coordinates are relative to it
    std::vector<Sector> m_sectors;
};
