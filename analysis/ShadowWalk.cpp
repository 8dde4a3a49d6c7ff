// Looks into nodes, passes over what cannot matter, and cuts what is asked by the planes of each face's cone.
#include "analysis/ShadowWalk.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "analysis/Boxes.h"

namespace {

// So that most walks need one allocation.
constexpr std::size_t kManySteps = 128;

Box BoxOf(const SunTarget& target) {
    const auto reach = [&](double Vector3::*axis) {
        return std::abs(target.right.*axis) * target.halfWidth + std::abs(target.up.*axis) * target.halfHeight;
    };
    const Vector3 half = {reach(&Vector3::x), reach(&Vector3::y), reach(&Vector3::z)};
    return {target.middle - half, target.middle + half};
}

}  // namespace

ShadowWalk::ShadowWalk(const DaySector& sector, const SunTarget& target, double precision, const EntityFilter& counts)
    : m_sector(sector),
      m_counts(counts),
      m_precision(precision),
      m_target(sector.Turned(target)),
      m_around(BoxOf(m_target)),
      m_view(m_target, sector.Curve()) {
    m_steps.reserve(kManySteps);
}

void ShadowWalk::Ask(TangentSpan asked) {
    m_asked = AskedSpan(asked);
    m_view.Want(asked);
}

void ShadowWalk::LookInto(std::uint32_t number) {
    const WideNode& node = m_sector.Tree().At(number);
    const SeenBoxes seen = m_view.Look(node);
    const std::size_t first = m_steps.size();
    for (unsigned lanes = seen.lanes; lanes != 0; lanes &= lanes - 1) {
        const int lane = std::countr_zero(lanes);
        const Step step{node.NumberAt(lane), node.IsThing(lane), seen.least[lane], seen.most[lane]};
        // It will be on its way while the others are looked at.
        __builtin_prefetch(step.isThing ? static_cast<const void*>(&m_sector.FaceAt(step.child))
                                        : static_cast<const void*>(&m_sector.Tree().At(step.child)));
        // The widest one last, since the last one is visited first.
        std::size_t place = m_steps.size();
        m_steps.push_back(step);
        for (; place > first && m_steps[place - 1].Width() > step.Width(); --place)
            m_steps[place] = m_steps[place - 1];
        m_steps[place] = step;
    }
}

bool ShadowWalk::Hides(const CastFace& face) {
    // Lengths along the normal are times its own length.
    const Vector3 normal = face.Normal();
    const double distance = Dot(normal, m_target.middle - face.corners[0]);
    if (LooksAway(face, normal, distance) || (m_counts && !m_counts(face.entity)))
        return false;
    double farthest = 0.0;  // before the target's plane
    for (const Vector3& corner : face.corners)
        farthest = std::max(farthest, Dot(corner - m_target.middle, m_target.outward));
    if (farthest <= m_precision)
        return false;
    m_shadow.Restart(m_asked);
    if (!m_target.IsPoint())
        return CutByHull(face);
    return distance * distance > m_precision * m_precision * Dot(normal, normal) && CutByPoint(face, distance > 0.0);
}

// Whether it belongs to a body that has other faces for every ray: whoever is outside of a body (and so of the box
// around it) meets first a face that looks at him.
bool ShadowWalk::LooksAway(const CastFace& face, const Vector3& normal, double distance) const {
    if (face.body < 0)
        return false;
    const double nearest = distance + std::abs(Dot(normal, m_target.right)) * m_target.halfWidth +
                           std::abs(Dot(normal, m_target.up)) * m_target.halfHeight;
    return nearest <= 0.0 && !Overlap(m_sector.BodyOf(face), m_around);
}

// The cone is that of the planes through the point and each edge; their inner sides are the other ones for who is
// before the face. The edge that a triangle lacks has a plane of nothing, which cuts nothing.
bool ShadowWalk::CutByPoint(const CastFace& face, bool isBefore) {
    Vector3 ways[4];
    for (int i = 0; i < 4; ++i)
        ways[i] = face.corners[i] - m_target.middle;
    const double sign = isBefore ? -1.0 : 1.0;
    const double tangent = sign * m_sector.Curve().tangent;
    for (int i = 0; i < 4; ++i) {
        const Vector3 plane = Cross(ways[i], ways[(i + 1) % 4]);
        if (!m_shadow.Cut(plane.z * tangent, plane.x * sign, plane.y * sign))
            return false;
    }
    return true;
}

bool ShadowWalk::CutByHull(const CastFace& face) {
    if (!m_hull.Build(m_target, face.corners, 4, m_precision))
        return false;
    const double tangent = m_sector.Curve().tangent;
    return std::all_of(m_hull.Planes().begin(), m_hull.Planes().end(),
                       [&](const Vector3& plane) { return m_shadow.Cut(plane.z * tangent, plane.x, plane.y); });
}
