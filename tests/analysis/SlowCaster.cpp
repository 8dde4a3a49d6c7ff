// Rays from a grid, and shadows cut out of the window's plane; everything as the textbooks have it.
#include "SlowCaster.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kRadians = 3.14159265358979323846 / 180.0;
constexpr double kNear = 1e-6;   // millimetres: a ray does not meet what it begins on
constexpr double kTouch = 1e-3;  // millimetres
constexpr double kLeastArea = 1e-9;

SlowPoint Less(const SlowPoint& a, const SlowPoint& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

SlowPoint Along(const SlowPoint& from, const SlowPoint& way, double length) {
    return {from.x + way.x * length, from.y + way.y * length, from.z + way.z * length};
}

double Inner(const SlowPoint& a, const SlowPoint& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

SlowPoint Outer(const SlowPoint& a, const SlowPoint& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

using Flat = std::pair<double, double>;

// The part of a polygon in which a u + b v <= c.
std::vector<Flat> Cut(const std::vector<Flat>& polygon, double a, double b, double c) {
    std::vector<Flat> kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Flat& here = polygon[i];
        const Flat& next = polygon[(i + 1) % polygon.size()];
        const double atHere = a * here.first + b * here.second - c;
        const double atNext = a * next.first + b * next.second - c;
        if (atHere <= 0.0)
            kept.push_back(here);
        if ((atHere < 0.0 && atNext > 0.0) || (atHere > 0.0 && atNext < 0.0)) {
            const double part = atHere / (atHere - atNext);
            kept.emplace_back(here.first + part * (next.first - here.first),
                              here.second + part * (next.second - here.second));
        }
    }
    return kept;
}

std::vector<Flat> CutToRectangle(std::vector<Flat> polygon, double width, double height, double margin) {
    polygon = Cut(polygon, -1.0, 0.0, margin);
    polygon = Cut(polygon, 1.0, 0.0, width + margin);
    polygon = Cut(polygon, 0.0, -1.0, margin);
    return Cut(polygon, 0.0, 1.0, height + margin);
}

double AreaOf(const std::vector<Flat>& polygon) {
    double twice = 0.0;
    for (std::size_t i = 1; i + 1 < polygon.size(); ++i)
        twice += (polygon[i].first - polygon[0].first) * (polygon[i + 1].second - polygon[0].second) -
                 (polygon[i + 1].first - polygon[0].first) * (polygon[i].second - polygon[0].second);
    return std::fabs(twice) / 2.0;
}

}  // namespace

// Moeller and Trumbore's test, from both sides.
bool MeetsTriangle(const SlowPoint& from, const SlowPoint& way, const SlowPoint& a, const SlowPoint& b,
                   const SlowPoint& c) {
    const SlowPoint ab = Less(b, a);
    const SlowPoint ac = Less(c, a);
    const SlowPoint p = Outer(way, ac);
    const double det = Inner(ab, p);
    if (det == 0.0)
        return false;
    const SlowPoint s = Less(from, a);
    const double u = Inner(s, p) / det;
    if (u < 0.0 || u > 1.0)
        return false;
    const SlowPoint q = Outer(s, ab);
    const double v = Inner(way, q) / det;
    return v >= 0.0 && u + v <= 1.0 && Inner(ac, q) / det > kNear;
}

std::vector<SlowPoint> GridOn(const SlowTarget& target, double step) {
    const SlowPoint right = {-std::sin(target.facing * kRadians), std::cos(target.facing * kRadians), 0.0};
    const int across = static_cast<int>(std::ceil(target.width / step));
    const int upwards = static_cast<int>(std::ceil(target.height / step));
    std::vector<SlowPoint> grid;
    for (int i = 0; i <= across; ++i)
        for (int j = 0; j <= upwards; ++j) {
            SlowPoint point = Along(target.lowerLeft, right, across == 0 ? 0.0 : target.width * i / across);
            point.z += upwards == 0 ? 0.0 : target.height * j / upwards;
            grid.push_back(point);
        }
    return grid;
}

SlowCaster::SlowCaster(std::vector<SlowFace> faces, const SlowSky& sky, const SlowTarget& target, double step)
    : m_faces(std::move(faces)), m_sky(sky), m_target(target), m_grid(GridOn(target, step)) {
    m_outward = {std::cos(target.facing * kRadians), std::sin(target.facing * kRadians), 0.0};
    m_right = {-m_outward.y, m_outward.x, 0.0};
}

// From declination, latitude and hour angle to east, north and up, then turned by how far north is turned.
SlowPoint SlowCaster::SunAt(double hours) const {
    const double angle = (hours - 12.0) * 15.0 * kRadians;
    const double sinD = std::sin(m_sky.declination * kRadians), cosD = std::cos(m_sky.declination * kRadians);
    const double sinP = std::sin(m_sky.latitude * kRadians), cosP = std::cos(m_sky.latitude * kRadians);
    const double sinN = std::sin(m_sky.north * kRadians), cosN = std::cos(m_sky.north * kRadians);
    const double east = -cosD * std::sin(angle);
    const double north = cosP * sinD - sinP * cosD * std::cos(angle);
    return {east * cosN - north * sinN, east * sinN + north * cosN, sinP * sinD + cosP * cosD * std::cos(angle)};
}

double SlowCaster::AltitudeAt(double hours) const {
    return std::asin(SunAt(hours).z) / kRadians;
}

bool SlowCaster::IsBeforeWindow(double hours) const {
    return Inner(SunAt(hours), m_outward) > 0.0;
}

bool SlowCaster::IsInWindowsPlane(double hours) const {
    return std::fabs(Inner(SunAt(hours), m_outward)) < 1e-12;
}

double SlowCaster::AngleToWall(double hours) const {
    const SlowPoint sun = SunAt(hours);
    return std::atan2(Inner(sun, m_outward), std::fabs(Inner(sun, m_right))) / kRadians;
}

bool SlowCaster::IsStopped(const SlowPoint& from, const SlowPoint& sun, const SlowFace& face) const {
    for (std::size_t i = 1; i + 1 < face.corners.size(); ++i)
        if (MeetsTriangle(from, sun, face.corners[0], face.corners[i], face.corners[i + 1]))
            return true;
    return false;
}

bool SlowCaster::IsAnyRayStopped(double hours) const {
    const SlowPoint sun = SunAt(hours);
    for (const SlowFace& face : m_faces)
        for (const SlowPoint& point : m_grid)
            if (IsStopped(point, sun, face))
                return true;
    return false;
}

std::set<std::uint64_t> SlowCaster::StoppedBy(double hours) const {
    const SlowPoint sun = SunAt(hours);
    std::set<std::uint64_t> handles;
    for (const SlowFace& face : m_faces)
        for (const SlowPoint& point : m_grid)
            if (handles.count(face.handle) == 0 && IsStopped(point, sun, face))
                handles.insert(face.handle);
    return handles;
}

// The part of the face in front of the target's plane, moved along the sun's ray to that plane, cut to the target.
Shade SlowCaster::ShadeOf(const SlowFace& face, const SlowPoint& sun) const {
    const double fall = Inner(sun, m_outward);
    if (fall <= 0.0)
        return Shade::None;
    std::vector<Flat> shadow;
    const auto add = [&](const SlowPoint& point, double before) {
        const SlowPoint at = Less(Along(point, sun, -before / fall), m_target.lowerLeft);
        shadow.emplace_back(Inner(at, m_right), at.z);
    };
    for (std::size_t i = 0; i < face.corners.size(); ++i) {
        const SlowPoint& here = face.corners[i];
        const SlowPoint& next = face.corners[(i + 1) % face.corners.size()];
        const double atHere = Inner(Less(here, m_target.lowerLeft), m_outward);
        const double atNext = Inner(Less(next, m_target.lowerLeft), m_outward);
        if (atHere >= 0.0)
            add(here, atHere);
        if ((atHere > 0.0 && atNext < 0.0) || (atHere < 0.0 && atNext > 0.0))
            add(Along(here, Less(next, here), atHere / (atHere - atNext)), 0.0);
    }
    if (CutToRectangle(shadow, m_target.width, m_target.height, kTouch).empty())
        return Shade::None;
    const std::vector<Flat> inside = CutToRectangle(shadow, m_target.width, m_target.height, -kTouch);
    return AreaOf(inside) > kLeastArea ? Shade::Some : Shade::Unsure;
}

Shade SlowCaster::ShadeAt(double hours) const {
    const SlowPoint sun = SunAt(hours);
    Shade most = Shade::None;
    for (const SlowFace& face : m_faces)
        most = std::max(most, ShadeOf(face, sun));
    return most;
}

Shade SlowCaster::ShadeOf(std::uint64_t handle, double hours) const {
    const SlowPoint sun = SunAt(hours);
    Shade most = Shade::None;
    for (const SlowFace& face : m_faces)
        if (face.handle == handle)
            most = std::max(most, ShadeOf(face, sun));
    return most;
}
