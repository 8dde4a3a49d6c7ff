// The outline of the differences as the target sees it: clipped to what is before the target, seen in perspective on a
// plane before it, and wound round as a convex hull in the plane.
#include "analysis/ShadowHull.h"

#include <algorithm>

namespace {

// Lengths below this are rounding, millimetres.
constexpr double kNearest = 1e-6;
// What is nearer to the target's plane than this (millimetres) is not seen: its directions lie within a hair of the
// plane, and the perspective has no place for those in it. The hair, seen from a jamb a few centimetres aside, has to
// be less than what the sun does in the shortest period, else the sun would seem to slip in along the wall.
constexpr double kNearestSeen = 1e-10;

Vector3 InTargetAxes(const SunTarget& target, const Vector3& point) {
    const Vector3 way = point - target.middle;
    return {Dot(way, target.right), Dot(way, target.up), Dot(way, target.outward)};
}

bool IsPlaneNearOrigin(const std::vector<Vector3>& polygon, double precision) {
    const Vector3 normal = Cross(polygon[1] - polygon[0], polygon[2] - polygon[0]);
    return std::abs(Dot(normal, polygon[0])) <= precision * Length(normal);
}

Vector3 AtDepth(const Vector3& from, const Vector3& to, double depth) {
    return from + (to - from) * ((depth - from.z) / (to.z - from.z));
}

}  // namespace

bool ShadowHull::Build(const SunTarget& target, const Vector3* corners, int count, double precision) {
    m_planes.clear();
    m_polygon.clear();
    double farthest = 0.0;
    for (int i = 0; i < count; ++i) {
        m_polygon.push_back(InTargetAxes(target, corners[i]));
        farthest = std::max(farthest, m_polygon.back().z);
    }
    if (farthest <= precision || (target.IsPoint() && IsPlaneNearOrigin(m_polygon, precision)))
        return false;
    Clip(m_polygon);
    AddDifferences(target);
    if (!MakeOutline())
        return false;
    for (std::size_t i = 0; i < m_outline.size(); ++i) {
        const Vector3 plane = Cross(m_outline[i].way, m_outline[(i + 1) % m_outline.size()].way);
        m_planes.push_back(target.right * plane.x + target.up * plane.y + target.outward * plane.z);
    }
    return true;
}

void ShadowHull::Clip(const std::vector<Vector3>& polygon) {
    m_before.clear();
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Vector3& corner = polygon[i];
        const Vector3& next = polygon[(i + 1) % polygon.size()];
        const bool isBefore = corner.z >= kNearestSeen;
        if (isBefore)
            m_before.push_back(corner);
        if (isBefore == (next.z >= kNearestSeen))
            continue;
        m_before.push_back(AtDepth(corner, next, kNearestSeen));
        m_before.back().z = kNearestSeen;
    }
}

void ShadowHull::AddDifferences(const SunTarget& target) {
    m_differences.clear();
    const auto add = [this](const Vector3& way) { m_differences.push_back({way, {way.x / way.z, way.y / way.z}}); };
    for (const Vector3& corner : m_before) {
        if (target.IsPoint()) {
            add(corner);
            continue;
        }
        for (const double x : {corner.x - target.halfWidth, corner.x + target.halfWidth})
            for (const double y : {corner.y - target.halfHeight, corner.y + target.halfHeight})
                add({x, y, corner.z});
    }
}

// Andrew's monotone chain: the lower side from left to right, then the upper one back; counter-clockwise. What lies in
// the target's plane is seen some 1e15 times as far from the middle as what stands before it.
bool ShadowHull::MakeOutline() {
    if (m_differences.size() < 3)
        return false;
    std::sort(m_differences.begin(), m_differences.end(), [](const Difference& a, const Difference& b) {
        return a.seen.x < b.seen.x || (a.seen.x == b.seen.x && a.seen.y < b.seen.y);
    });
    m_outline.clear();
    const auto wind = [&](std::size_t bottom, const Difference& next) {
        while (m_outline.size() >= bottom + 2 &&
               !TurnsLeft(m_outline[m_outline.size() - 2].seen, m_outline.back().seen, next.seen))
            m_outline.pop_back();
        m_outline.push_back(next);
    };
    for (const Difference& next : m_differences)
        wind(0, next);
    const std::size_t lower = m_outline.size() - 1;
    for (std::size_t i = m_differences.size() - 1; i-- > 0;)
        wind(lower, m_differences[i]);
    m_outline.pop_back();  // the first one again
    return m_outline.size() >= 3;
}

bool CutsTarget(const SunTarget& target, const Vector3* corners, int count) {
    if (target.IsPoint())
        return false;
    // Where the face's outline goes through the target's plane; of a convex face that is a segment.
    double first = 0.0;
    double last = 1.0;
    Vector3 ends[2];
    int found = 0;
    for (int i = 0; i < count; ++i) {
        const Vector3 corner = InTargetAxes(target, corners[i]);
        const Vector3 next = InTargetAxes(target, corners[(i + 1) % count]);
        if ((corner.z < 0.0) != (next.z < 0.0) && found < 2)
            ends[found++] = AtDepth(corner, next, 0.0);
    }
    bool isBefore = false;
    bool isBehind = false;
    for (int i = 0; i < count; ++i) {
        const double depth = InTargetAxes(target, corners[i]).z;
        isBefore = isBefore || depth > kNearest;
        isBehind = isBehind || depth < -kNearest;
    }
    if (found < 2 || !isBefore || !isBehind)
        return false;
    // What is left of the segment between the rectangle's sides, which themselves are outside.
    const auto cut = [&](double from, double to, double half) {
        const double way = to - from;
        if (way == 0.0)
            return std::abs(from) < half - kNearest;
        const double one = (-half - from) / way;
        const double other = (half - from) / way;
        first = std::max(first, std::min(one, other));
        last = std::min(last, std::max(one, other));
        return true;
    };
    return cut(ends[0].x, ends[1].x, target.halfWidth) && cut(ends[0].y, ends[1].y, target.halfHeight) &&
           (last - first) * Length(ends[1] - ends[0]) > kNearest;
}
