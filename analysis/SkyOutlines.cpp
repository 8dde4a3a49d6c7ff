// Cuts faces at the horizon and at the wall, and bends their sides.
#include "analysis/SkyOutlines.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "analysis/BodyInside.h"
#include "facts/Angles.h"

namespace {

constexpr double kBend = 0.01;    // degrees
constexpr double kLongest = 3.0;  // degrees between two points of a side
constexpr int kMostHalvings = 14;
constexpr double kBeforeWall = 1e-6;  // millimetres: straight in the wall there is no side to be on

bool IsBefore(const Vector3& a, const Vector3& b) {
    return a.x != b.x ? a.x < b.x : a.y != b.y ? a.y < b.y : a.z < b.z;
}

// Where a side meets a plane, the same whichever way it runs.
Vector3 Crossing(const Vector3& from, const Vector3& to, const Vector3& normal, double depth) {
    const bool isForward = IsBefore(from, to);
    const Vector3& a = isForward ? from : to;
    const Vector3& b = isForward ? to : from;
    const double before = Dot(normal, a) - depth;
    const double after = Dot(normal, b) - depth;
    return a + (b - a) * (before / (before - after));
}

std::vector<Vector3> CutOff(const std::vector<Vector3>& polygon, const Vector3& normal, double depth) {
    std::vector<Vector3> kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Vector3& from = polygon[i];
        const Vector3& to = polygon[(i + 1) % polygon.size()];
        const bool isIn = Dot(normal, from) >= depth;
        if (isIn)
            kept.push_back(from);
        if (isIn != (Dot(normal, to) >= depth))
            kept.push_back(Crossing(from, to, normal, depth));
    }
    return kept;
}

class Bender {
public:
    explicit Bender(const SkyEye& eye) : m_eye(eye) {}

    // The points from one end of a side to the other, without the last.
    void Add(const Vector3& from, const Vector3& to, std::vector<SkyPoint>& points) {
        const bool isForward = IsBefore(from, to);
        m_points.clear();
        const Vector3& a = isForward ? from : to;
        const Vector3& b = isForward ? to : from;
        const SkyPoint first = SkyPointOf(m_eye, a);
        const SkyPoint last = SkyPointOf(m_eye, b);
        m_points.push_back(first);
        Divide(a, first, b, last, kMostHalvings);
        m_points.push_back(last);
        if (isForward)
            points.insert(points.end(), m_points.begin(), m_points.end() - 1);
        else
            points.insert(points.end(), m_points.rbegin(), m_points.rend() - 1);
    }

private:
    void Divide(const Vector3& a, const SkyPoint& from, const Vector3& b, const SkyPoint& to, int halvings) {
        const Vector3 between = (a + b) * 0.5;
        const SkyPoint middle = SkyPointOf(m_eye, between);
        // The middle of the side is not that of the curve, unless both ends are as far away.
        const double length = std::hypot(to.direction - from.direction, to.altitude - from.altitude);
        const double off = length > 0.0
                               ? std::abs((to.direction - from.direction) * (middle.altitude - from.altitude) -
                                          (to.altitude - from.altitude) * (middle.direction - from.direction)) /
                                     length
                               : std::hypot(middle.direction - from.direction, middle.altitude - from.altitude);
        if (halvings == 0 || (off < kBend && length < kLongest))
            return;
        Divide(a, from, between, middle, halvings - 1);
        m_points.push_back(middle);
        Divide(between, middle, b, to, halvings - 1);
    }

    const SkyEye& m_eye;
    std::vector<SkyPoint> m_points;
};

// The far side of a body, which its near side covers for who is outside of it.
bool LooksAway(const Occluder& face, const SkyEye& eye) {
    const double depth = Dot(face.Normal(), eye.place - face.corners[0]);
    return (face.outside == Occluder::Outside::Before && depth < 0.0) ||
           (face.outside == Occluder::Outside::Behind && depth > 0.0);
}

}  // namespace

SkyPoint SkyPointOf(const SkyEye& eye, const Vector3& way) {
    const double out = way.x * eye.outward.x + way.y * eye.outward.y;
    const double right = way.x * eye.outward.y - way.y * eye.outward.x;
    return {std::atan2(right, out) / kRadiansPerDegree,
            std::atan2(way.z, std::hypot(way.x, way.y)) / kRadiansPerDegree};
}

std::vector<SkyOutline> FindSkyOutlines(const OccluderSet& set, const SkyEye& eye, bool withProject) {
    std::vector<SkyOutline> outlines;
    Bender bender(eye);
    const std::vector<std::int32_t> around = BodyInside(set).Around(eye.place);
    for (const Occluder& face : set.faces) {
        const bool isAround = std::find(around.begin(), around.end(), face.body) != around.end();
        if ((!withProject && set.IsProposed(face.entity)) || (!isAround && LooksAway(face, eye)))
            continue;
        std::vector<Vector3> corners;
        for (int i = 0; i < face.count; ++i)
            corners.push_back(face.corners[i] - eye.place);
        const Vector3 normal = face.Normal();
        const double length = Length(normal);
        if (!(std::abs(Dot(normal, corners[0])) > eye.precision * length))
            continue;
        corners = CutOff(CutOff(corners, {0.0, 0.0, 1.0}, 0.0), eye.outward, kBeforeWall);
        if (corners.size() < 3)
            continue;
        SkyOutline outline;
        outline.entity = face.entity;
        outline.distance = Length(corners[0]);
        for (std::size_t i = 0; i < corners.size(); ++i) {
            outline.distance = std::min(outline.distance, Length(corners[i]));
            bender.Add(corners[i], corners[(i + 1) % corners.size()], outline.corners);
        }
        outlines.push_back(std::move(outline));
    }
    return outlines;
}
