// Finds which side of a window is outside by the faces around it.
#include "analysis/WindowSides.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "analysis/BodyInside.h"
#include "analysis/BoxTree.h"
#include "analysis/Boxes.h"
#include "analysis/HalfPlaneCount.h"
#include "analysis/OccluderSet.h"
#include "analysis/WindowRectangle.h"
#include "facts/Angles.h"

namespace {

const double kParallel = std::cos(10.0 * kRadiansPerDegree);
// How far beside a face it is asked what is inside.
constexpr double kBesideFace = 2.0;
constexpr double kInwards = 10.0;
constexpr double kLeastCosine = 1e-9;

// Which side of a window is outside: the one that its Outward points to, or the other.
enum class Side {
    Own,
    Other,
    Unknown,    // the next rule may tell
    Untellable  // and no rule will
};

Side SideOf(bool isOwn) {
    return isOwn ? Side::Own : Side::Other;
}

// A face across from a place on a window.
struct Foot {
    const Occluder* face;
    Vector3 place;    // on the window
    double distance;  // of the face from there along Outward
};

class SideFinder {
public:
    SideFinder(const OccluderSet& occluders, const SideRules& rules);
    void Tell(DrawnWindow& window);

private:
    std::vector<Foot> FeetAt(const DrawnWindow& window, const Vector3& place) const;
    // Those across from the middle that count, else those across from the corners.
    template <class Counts>
    std::vector<Foot> FeetOf(const DrawnWindow& window, const Counts& counts) const;

    Side ByFaces(const DrawnWindow& window);
    Side OnBody(const DrawnWindow& window) const;
    Side SideOfFeet(const std::vector<Foot>& feet, const Vector3& outward) const;
    Side OutsideOf(const Foot& foot, const Vector3& outward) const;
    Side BeforeFace(const DrawnWindow& window) const;
    bool CountsBefore(const Foot& foot, const Vector3& outward) const;
    Side AmongLoose(const DrawnWindow& window);
    Side ByFacing(const DrawnWindow& window) const;
    bool IsProposed(const DrawnWindow& window) const;
    bool IsInsideBefore(const Vector3& place) const;
    HalfPlaneCount::Sides CountJoined(const DrawnWindow& window, const Vector3& middle);
    const HalfPlaneCount& Joined(std::int32_t number);
    bool IsOn(const Foot& foot) const { return std::fabs(foot.distance) <= m_on; }

    const OccluderSet& m_set;
    SideRules m_rules;
    double m_on;  // how far a window on a face may be from it
    BodyInside m_bodies;
    std::vector<bool> m_isBodyProposed;
    BoxTree m_faces;
    HalfPlaneCount m_loose;
    std::vector<std::vector<Vector3>> m_joinedMiddles;  // by the number of the joined set
    std::unordered_map<std::int32_t, HalfPlaneCount> m_joined;
};

SideFinder::SideFinder(const OccluderSet& occluders, const SideRules& rules)
    : m_set(occluders),
      m_rules(rules),
      m_on(std::max(kWindowTolerance, rules.precision)),
      m_bodies(occluders),
      m_isBodyProposed(static_cast<std::size_t>(occluders.bodyCount), false),
      m_joinedMiddles(static_cast<std::size_t>(occluders.joinedCount)) {
    std::vector<Box> boxes;
    std::vector<Vector3> loose;
    boxes.reserve(occluders.faces.size());
    for (const Occluder& face : occluders.faces) {
        boxes.push_back(BoxAround(face));
        if (face.body >= 0) {
            if (occluders.IsProposed(face.entity))
                m_isBodyProposed[static_cast<std::size_t>(face.body)] = true;
            continue;
        }
        loose.push_back(face.Middle());
        if (face.joined >= 0)
            m_joinedMiddles[static_cast<std::size_t>(face.joined)].push_back(face.Middle());
    }
    m_faces = BoxTree(boxes);
    m_loose = HalfPlaneCount(std::move(loose));
}

// Where the line through a place on the window, at right angles to it, meets a face; within a tolerance of its edges.
bool Meets(const Occluder& face, const Vector3& place, const Vector3& right) {
    bool isLeftOfAll = true;
    bool isRightOfAll = true;
    for (int i = 0; i < face.count; ++i) {
        const Vector3 a = face.corners[i] - place;
        const Vector3 way = face.corners[(i + 1) % face.count] - face.corners[i];
        const double ax = Dot(a, right);
        const double wayX = Dot(way, right);
        const double side = (ax * way.z - a.z * wayX) / std::hypot(wayX, way.z);
        isLeftOfAll = isLeftOfAll && side >= -kWindowTolerance;
        isRightOfAll = isRightOfAll && side <= kWindowTolerance;
    }
    return isLeftOfAll || isRightOfAll;
}

std::vector<Foot> SideFinder::FeetAt(const DrawnWindow& window, const Vector3& place) const {
    const Vector3 outward = window.Outward();
    const Vector3 reach = outward * std::max(m_rules.thickness, m_on);
    const Box box = Widened(BoxAround(BoxAround(place + reach), BoxAround(place - reach)), m_on);
    std::vector<Foot> feet;
    m_faces.Walk([&](const Box& other) { return Overlap(box, other); },
                 [&](std::size_t index) {
                     const Occluder& face = m_set.faces[index];
                     const Vector3 normal = face.Normal();
                     const double slope = Dot(normal, outward);
                     if (std::fabs(slope) < kParallel * Length(normal) || !Meets(face, place, window.right))
                         return;
                     feet.push_back({&face, place, Dot(normal, face.corners[0] - place) / slope});
                 });
    return feet;
}

std::vector<Vector3> CornersInwards(const DrawnWindow& window) {
    const double inX = std::min(kInwards, window.width / 4.0);
    const double inZ = std::min(kInwards, window.height / 4.0);
    std::vector<Vector3> corners;
    for (const double x : {inX, window.width - inX})
        for (const double z : {inZ, window.height - inZ})
            corners.push_back(window.lowerLeft + window.right * x + Vector3{0.0, 0.0, z});
    return corners;
}

template <class Counts>
std::vector<Foot> SideFinder::FeetOf(const DrawnWindow& window, const Counts& counts) const {
    std::vector<Foot> feet = FeetAt(window, window.Middle());
    std::erase_if(feet, [&](const Foot& foot) { return !counts(foot); });
    if (!feet.empty())
        return feet;
    for (const Vector3& corner : CornersInwards(window))
        for (const Foot& foot : FeetAt(window, corner))
            if (counts(foot))
                feet.push_back(foot);
    return feet;
}

// Which side of a body's face is outside.
Side SideFinder::OutsideOf(const Foot& foot, const Vector3& outward) const {
    const Vector3 onFace = foot.place + outward * foot.distance;
    const std::vector<std::int32_t> own = m_bodies.Around(onFace + outward * kBesideFace);
    const std::vector<std::int32_t> other = m_bodies.Around(onFace - outward * kBesideFace);
    const bool isInOwn = std::binary_search(own.begin(), own.end(), foot.face->body);
    const bool isInOther = std::binary_search(other.begin(), other.end(), foot.face->body);
    if (isInOwn == isInOther)
        return Side::Unknown;
    // What holds both sides does not begin there.
    const std::vector<std::int32_t>& outside = isInOwn ? other : own;
    const std::vector<std::int32_t>& inside = isInOwn ? own : other;
    const bool doesAnotherBegin = !std::includes(inside.begin(), inside.end(), outside.begin(), outside.end());
    return doesAnotherBegin ? Side::Untellable : SideOf(isInOther);
}

Side SideFinder::OnBody(const DrawnWindow& window) const {
    const auto counts = [&](const Foot& each) { return each.face->body >= 0 && IsOn(each); };
    const Side told = SideOfFeet(FeetOf(window, counts), window.Outward());
    if (told != Side::Untellable)
        return told;
    // Where something is built against the middle, a corner may still be free.
    Side free = Side::Untellable;
    for (const Vector3& corner : CornersInwards(window)) {
        std::vector<Foot> feet = FeetAt(window, corner);
        std::erase_if(feet, [&](const Foot& foot) { return !counts(foot); });
        const Side side = SideOfFeet(feet, window.Outward());
        if (side != Side::Own && side != Side::Other)
            continue;
        if (free != Side::Untellable && free != side)
            return Side::Untellable;
        free = side;
    }
    return free;
}

Side SideFinder::SideOfFeet(const std::vector<Foot>& feet, const Vector3& outward) const {
    Side told = Side::Unknown;
    for (const Foot& foot : feet) {
        const Side side = OutsideOf(foot, outward);
        if (side == Side::Unknown)
            continue;
        if (side == Side::Untellable || (told != Side::Unknown && told != side))
            return Side::Untellable;
        told = side;
    }
    return told;
}

bool SideFinder::CountsBefore(const Foot& foot, const Vector3& outward) const {
    if (IsOn(foot) || std::fabs(foot.distance) > m_rules.thickness)
        return false;
    if (foot.face->body < 0)
        return true;
    // Just before the face it must be outside of its body, just behind inside.
    const Vector3 onFace = foot.place + outward * foot.distance;
    const Vector3 behind = outward * std::copysign(kBesideFace, foot.distance);
    const double near = std::min(1.0, std::fabs(foot.distance) / (2.0 * kBesideFace));
    return m_bodies.IsInside(onFace + behind, foot.face->body) &&
           !m_bodies.IsInside(onFace - behind * near, foot.face->body);
}

Side SideFinder::BeforeFace(const DrawnWindow& window) const {
    const Vector3 outward = window.Outward();
    const std::vector<Foot> feet = FeetOf(window, [&](const Foot& foot) { return CountsBefore(foot, outward); });
    if (feet.empty())
        return Side::Unknown;
    const auto nearer = [](const Foot& a, const Foot& b) { return std::fabs(a.distance) < std::fabs(b.distance); };
    const Foot& nearest = *std::min_element(feet.begin(), feet.end(), nearer);
    bool isAsNearBehind = false;
    bool isByBody = false;
    for (const Foot& foot : feet) {
        if (std::fabs(foot.distance) > std::fabs(nearest.distance) + kWindowTolerance)
            continue;
        isAsNearBehind = isAsNearBehind || (foot.distance > 0.0) != (nearest.distance > 0.0);
        isByBody = isByBody || foot.face->body >= 0;
    }
    if (!isAsNearBehind)
        return SideOf(nearest.distance < 0.0);
    return isByBody ? Side::Untellable : Side::Unknown;
}

const HalfPlaneCount& SideFinder::Joined(std::int32_t number) {
    const auto [known, isNew] = m_joined.try_emplace(number);
    if (isNew)
        known->second = HalfPlaneCount(m_joinedMiddles[static_cast<std::size_t>(number)]);
    return known->second;
}

// Of the loose faces that are joined to those that the window lies on.
HalfPlaneCount::Sides SideFinder::CountJoined(const DrawnWindow& window, const Vector3& middle) {
    std::vector<std::int32_t> numbers;
    for (const Foot& foot : FeetOf(window, [&](const Foot& each) { return each.face->joined >= 0 && IsOn(each); }))
        numbers.push_back(foot.face->joined);
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    HalfPlaneCount::Sides sides;
    for (const std::int32_t number : numbers) {
        const HalfPlaneCount::Sides each = Joined(number).Count(middle, window.Outward(), m_on);
        sides.before += each.before;
        sides.behind += each.behind;
    }
    return sides;
}

Side SideFinder::AmongLoose(const DrawnWindow& window) {
    const Vector3 middle = window.Middle();
    if (m_bodies.IsInside(middle))
        return Side::Unknown;
    HalfPlaneCount::Sides sides = CountJoined(window, middle);
    if (sides.before == sides.behind)
        sides = m_loose.Count(middle, window.Outward(), m_on);
    if (sides.before == sides.behind)
        return Side::Unknown;
    return SideOf(sides.before < sides.behind);
}

Side SideFinder::ByFaces(const DrawnWindow& window) {
    Side side = OnBody(window);
    if (side == Side::Unknown)
        side = BeforeFace(window);
    if (side == Side::Unknown)
        side = AmongLoose(window);
    return side;
}

Side SideFinder::ByFacing(const DrawnWindow& window) const {
    if (!m_rules.facing)
        return Side::Unknown;
    const double angle = std::fmod(*m_rules.facing, 360.0) * kRadiansPerDegree;
    const double cosine = Dot(window.Outward(), {std::cos(angle), std::sin(angle), 0.0});
    return std::fabs(cosine) > kLeastCosine ? SideOf(cosine > 0.0) : Side::Unknown;
}

bool SideFinder::IsProposed(const DrawnWindow& window) const {
    if (m_set.proposed.empty())
        return false;
    const Vector3 outward = window.Outward();
    const std::vector<Foot> feet = FeetOf(window, [&](const Foot& foot) {
        if (std::fabs(foot.distance) > std::max(m_rules.thickness, m_on))
            return false;
        if (!window.hasSide)
            return true;
        const Vector3 behind = foot.place + outward * (foot.distance - kBesideFace);
        return foot.distance <= m_on && (foot.face->body < 0 || m_bodies.IsInside(behind, foot.face->body));
    });
    return std::any_of(feet.begin(), feet.end(), [&](const Foot& foot) { return m_set.IsProposed(foot.face->entity); });
}

// A body with a face of the project is open without it.
bool SideFinder::IsInsideBefore(const Vector3& place) const {
    const std::vector<std::int32_t> bodies = m_bodies.Around(place);
    return std::any_of(bodies.begin(), bodies.end(),
                       [&](std::int32_t body) { return !m_isBodyProposed[static_cast<std::size_t>(body)]; });
}

void SideFinder::Tell(DrawnWindow& window) {
    Side side = ByFaces(window);
    if (side == Side::Unknown || side == Side::Untellable)
        side = ByFacing(window);
    if (side == Side::Other) {
        window.lowerLeft = window.lowerLeft + window.right * window.width;
        window.right = -window.right;
    }
    window.hasSide = side == Side::Own || side == Side::Other;
    // Beyond the tolerance by which a window on a face may lie behind it.
    const Vector3 before = window.Outward() * std::max(m_rules.offset, 2.0 * m_on);
    window.isInside =
        m_bodies.IsInside(window.Middle() + before) && (window.hasSide || m_bodies.IsInside(window.Middle() - before));
    window.isInsideBefore = window.isInside && IsInsideBefore(window.Middle() + before) &&
                            (window.hasSide || IsInsideBefore(window.Middle() - before));
    window.isProposed = IsProposed(window);
}

}  // namespace

void TellSides(std::vector<DrawnWindow>& windows, const OccluderSet& occluders, const SideRules& rules) {
    SideFinder finder(occluders, rules);
    for (DrawnWindow& window : windows)
        finder.Tell(window);
}
