// Walks through the faces that can matter, and gathers when each hides the sun.
#include "analysis/ShadowCaster.h"

#include <algorithm>
#include <cmath>

#include "analysis/Boxes.h"
#include "analysis/SkyWindow.h"

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

// Hours that are behind every plane of a hull: pieces of a sector, cut by one arc after another.
class SectorPieces {
public:
    // In radians around the sector's middle.
    void Reset(double least, double most) { m_pieces.assign(1, {least, most}); }
    bool IsEmpty() const { return m_pieces.empty(); }
    const std::vector<SunPeriod>& All() const { return m_pieces; }

    void Cut(const HourArc& arc) {
        if (arc.kind == HourArc::Kind::Always)
            return;
        m_former.swap(m_pieces);
        m_pieces.clear();
        if (arc.kind == HourArc::Kind::Never)
            return;
        for (const SunPeriod& piece : m_former)
            for (const double turn : {-kTurn, 0.0, kTurn})
                Keep(piece, turn + arc.middle - arc.half, turn + arc.middle + arc.half);
    }

private:
    void Keep(const SunPeriod& piece, double least, double most) {
        const SunPeriod common{std::max(piece.start, least), std::min(piece.end, most)};
        if (common.start < common.end)
            m_pieces.push_back(common);
    }

    std::vector<SunPeriod> m_pieces;
    std::vector<SunPeriod> m_former;
};

}  // namespace

ShadowCaster::ShadowCaster(const OccluderSet& occluders, const SunPath& path, const HourSpans& hours, double precision)
    : m_path(path), m_precision(precision), m_middle(MiddleOf(occluders.faces)) {
    for (const SunPeriod& period : hours.All()) {
        const double count = std::ceil((period.end - period.start) / kLongestSector);
        const double length = (period.end - period.start) / count;
        for (double i = 0.0; i < count; ++i)
            m_sectors.push_back(MakeSector(
                occluders,
                {period.start + i * length, i + 1.0 < count ? period.start + (i + 1.0) * length : period.end}));
    }
}

ShadowCaster::Sector ShadowCaster::MakeSector(const OccluderSet& occluders, SunPeriod period) const {
    Sector sector;
    sector.period = period;
    sector.middle = 0.5 * (HourAngleOf(period.start) + HourAngleOf(period.end));
    sector.faces = occluders.faces;
    for (Occluder& face : sector.faces)
        for (Vector3& corner : face.corners)
            corner = ToSector(sector, corner - m_middle);
    sector.tree = BoxTree(BoxesAround(sector.faces));
    return sector;
}

Vector3 ShadowCaster::ToSector(const Sector& sector, const Vector3& direction) const {
    const Vector3 sky = m_path.ToSky(direction);
    const double cosine = std::cos(sector.middle);
    const double sine = std::sin(sector.middle);
    return {cosine * sky.x + sine * sky.y, cosine * sky.y - sine * sky.x, sky.z};
}

SunTarget ShadowCaster::ToSector(const Sector& sector, const SunTarget& target) const {
    SunTarget turned = target;
    turned.middle = ToSector(sector, target.middle - m_middle);
    turned.right = ToSector(sector, target.right);
    turned.up = ToSector(sector, target.up);
    turned.outward = ToSector(sector, target.outward);
    return turned;
}

// Calls take(entity, hour angles around the sector's middle, the view) for every face that hides some of the sector;
// it may narrow the view.
template <class Take>
void ShadowCaster::Walk(const Sector& sector, const SunTarget& target, const HourSpans& wanted,
                        const EntityFilter& counts, const Take& take) const {
    const double sine = m_path.SinDeclination();
    const double cosine = m_path.CosDeclination();
    const SunTarget turned = ToSector(sector, target);
    SkyWindow view(turned, sine, cosine, sector.middle);
    view.Want(wanted);
    ShadowHull hull;
    SectorPieces pieces;
    const double least = HourAngleOf(sector.period.start) - sector.middle;
    const double most = HourAngleOf(sector.period.end) - sector.middle;
    sector.tree.Walk([&](const Box& box) { return view.Reaches(box); },
                     [&](std::size_t index) {
                         const Occluder& face = sector.faces[index];
                         if (counts && !counts(face.entity))
                             return;
                         if (!hull.Build(turned, face.corners, face.count, m_precision))
                             return;
                         pieces.Reset(least, most);
                         for (const Vector3& plane : hull.Planes()) {
                             pieces.Cut(SolveHourArc(plane.z * sine, plane.x * cosine, plane.y * cosine));
                             if (pieces.IsEmpty())
                                 return;
                         }
                         for (const SunPeriod& piece : pieces.All())
                             take(face.entity,
                                  SunPeriod{HoursOf(sector.middle + piece.start), HoursOf(sector.middle + piece.end)},
                                  view);
                     });
}

HourSpans ShadowCaster::HiddenHours(const SunTarget& target, const HourSpans& wanted,
                                    const EntityFilter& counts) const {
    HourSpans hidden;
    for (const Sector& sector : m_sectors) {
        const HourSpans asked = Intersection(wanted, sector.period);
        if (asked.IsEmpty())
            continue;
        HourSpans open = asked;
        Walk(sector, target, asked, counts, [&](std::uint32_t, SunPeriod period, SkyWindow& view) {
            if (!open.Meets(period))
                return;
            open = Difference(open, period);
            view.Want(open);
        });
        hidden = Union(hidden, Difference(asked, open));
    }
    return hidden;
}

std::vector<CastShadow> ShadowCaster::ShadowsOn(const SunTarget& target, const HourSpans& wanted,
                                                const EntityFilter& counts) const {
    std::vector<CastShadow> shadows;
    for (const Sector& sector : m_sectors) {
        const HourSpans asked = Intersection(wanted, sector.period);
        if (asked.IsEmpty())
            continue;
        Walk(sector, target, asked, counts, [&](std::uint32_t entity, SunPeriod period, SkyWindow&) {
            const HourSpans parts = Intersection(asked, period);
            for (const SunPeriod& part : parts.All())
                shadows.push_back({part, entity});
        });
    }
    return shadows;
}
