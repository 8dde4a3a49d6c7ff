// The camera's geometry: its axes from two angles, and places in the picture by similar triangles.
#include "workbench/view/ViewCamera.h"

#include <algorithm>
#include <cmath>

#include "facts/Angles.h"
#include "geometry/DotProduct.h"

namespace {

// Half the height of what is seen, one unit away from the eye.
constexpr double kNarrowestTangent = 1e-6;
constexpr double kWidestTangent = 1e6;
constexpr double kMargin = 0.95;
constexpr double kSteepest = 89.0;
constexpr double kSmallestRadius = 1e-6;
constexpr double kFarthestAround = 100.0;  // in radii of the box
// Distances from the target, in radii of the box.
constexpr double kNearestDistance = 1e-6;
constexpr double kFarthestDistance = 1e6;

double Cut(double coordinate) {
    return std::isfinite(coordinate) ? std::clamp(coordinate, -kFarthestCoordinate, kFarthestCoordinate) : 0.0;
}

std::array<QcGePoint, 8> CornersOf(const QcGePoint& min, const QcGePoint& max) {
    std::array<QcGePoint, 8> corners;
    for (unsigned i = 0; i < 8; ++i)
        corners[i] = {(i & 1U) ? max.x : min.x, (i & 2U) ? max.y : min.y, (i & 4U) ? max.z : min.z};
    return corners;
}

double Middle(double a, double b) {
    return a + (b - a) / 2.0;
}

// Points as the picture sees them, from the box's middle: across one direction of the picture, and away.
struct SeenPoints {
    std::vector<double> across;
    std::vector<double> forward;
};

// The smallest distance from which all points fit between the two ends of a direction, wherever its middle is then:
// for each point |across - shift| <= (distance + forward) * tangent, `tangent` being that of half the field of view.
double FitDistance(const SeenPoints& points, double tangent, bool parallel) {
    double high = -INFINITY;
    double low = -INFINITY;
    for (std::size_t i = 0; i < points.across.size(); ++i) {
        const double room = parallel ? 0.0 : points.forward[i] * tangent;
        high = std::max(high, points.across[i] - room);
        low = std::max(low, -points.across[i] - room);
    }
    return (high + low) / (2.0 * tangent);
}

// How far the picture's middle has to be from the box's middle, so that the outermost points are as far from both
// ends. By halving: the further the shift, the further is everything towards one end.
double CenterShift(const SeenPoints& points, double distance, bool parallel) {
    double low = *std::min_element(points.across.begin(), points.across.end());
    double high = *std::max_element(points.across.begin(), points.across.end());
    for (int step = 0; step < 100; ++step) {
        const double shift = Middle(low, high);
        double most = -INFINITY;
        double least = INFINITY;
        for (std::size_t i = 0; i < points.across.size(); ++i) {
            const double seen = (points.across[i] - shift) / (parallel ? 1.0 : distance + points.forward[i]);
            most = std::max(most, seen);
            least = std::min(least, seen);
        }
        (most + least > 0.0 ? low : high) = shift;
    }
    return Middle(low, high);
}

}  // namespace

ViewCamera::ViewCamera() {
    SetBox({{-0.5, -0.5, -0.5}, {0.5, 0.5, 0.5}});
}

void ViewCamera::SetBox(const ViewBox& box) {
    const QcGePoint a(Cut(box.least.x), Cut(box.least.y), Cut(box.least.z));
    const QcGePoint b(Cut(box.most.x), Cut(box.most.y), Cut(box.most.z));
    m_least = {std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)};
    m_most = {std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z)};
    const double radius = (m_most - m_least).Length() / 2.0;
    // A radius that the coordinates' own digits can still tell from nothing.
    const double reach = std::max(m_least.Length3d(), m_most.Length3d());
    m_radius = radius > 0.0 ? std::max({radius, kSmallestRadius, reach * 1e-12}) : std::max(1.0, reach * 1e-9);
    m_around = {m_least, m_most};
    SetDistance(m_distance);
}

void ViewCamera::SetSurroundings(const ViewBox& box) {
    const double reach = kFarthestAround * m_radius;
    for (double QcGePoint::*const axis : {&QcGePoint::x, &QcGePoint::y, &QcGePoint::z}) {
        const double a = Cut(box.least.*axis);
        const double b = Cut(box.most.*axis);
        m_around.least.*axis = std::clamp(std::min(a, b), m_least.*axis - reach, m_least.*axis);
        m_around.most.*axis = std::clamp(std::max(a, b), m_most.*axis, m_most.*axis + reach);
    }
}

void ViewCamera::SetParallel(bool isParallel) {
    m_isAlwaysParallel = isParallel;
    m_isParallel = isParallel || m_altitude > kSteepest;
}

void ViewCamera::SetViewport(int width, int height) {
    m_width = std::max(width, 1);
    m_height = std::max(height, 1);
}

void ViewCamera::Look(double azimuth, double altitude) {
    if (!std::isfinite(azimuth) || !std::isfinite(altitude))
        return;
    azimuth = std::fmod(azimuth, 360.0);
    if (azimuth < 0.0)
        azimuth += 360.0;
    m_azimuth = azimuth < 360.0 ? azimuth : 0.0;  // adding 360 to a hair less than 0 gives 360
    m_altitude = std::clamp(altitude, -kSteepest, kSteepest);
    m_isParallel = m_isAlwaysParallel;
}

void ViewCamera::Look(StandardView view) {
    constexpr double kIsometric = 35.264389682754654;  // that of a cube's diagonal
    switch (view) {
        case StandardView::Top:
            Look(180.0, 0.0);
            m_altitude = 90.0;
            m_isParallel = true;
            return;
        case StandardView::South:
            return Look(180.0, 0.0);
        case StandardView::East:
            return Look(90.0, 0.0);
        case StandardView::North:
            return Look(0.0, 0.0);
        case StandardView::West:
            return Look(270.0, 0.0);
        case StandardView::SouthEast:
            return Look(135.0, kIsometric);
        case StandardView::SouthWest:
            return Look(225.0, kIsometric);
    }
}

void ViewCamera::Orbit(double azimuth, double altitude) {
    Look(m_azimuth + azimuth, m_altitude + altitude);
}

void ViewCamera::Pan(double dx, double dy) {
    const double unitsPerPixel = GetUnitsPerPixel(m_distance);
    MoveTarget(-dx * unitsPerPixel, dy * unitsPerPixel, 0.0);
}

void ViewCamera::Zoom(double factor, double x, double y) {
    if (!std::isfinite(factor) || factor <= 0.0 || !std::isfinite(x) || !std::isfinite(y))
        return;
    const double before = GetUnitsPerPixel(m_distance);
    SetDistance(m_distance / factor);
    const double change = before - GetUnitsPerPixel(m_distance);
    MoveTarget((x - m_width / 2.0) * change, (m_height / 2.0 - y) * change, 0.0);
}

void ViewCamera::Magnify(double factor) {
    if (std::isfinite(factor) && factor > 0.0)
        m_halfFieldTangent = std::clamp(m_halfFieldTangent / factor, kNarrowestTangent, kWidestTangent);
}

void ViewCamera::Fit(const std::vector<QcGePoint>& besides) {
    m_target = {Middle(m_least.x, m_most.x), Middle(m_least.y, m_most.y), Middle(m_least.z, m_most.z)};
    SeenPoints wide;
    SeenPoints high;
    const auto take = [&](const QcGePoint& point) {
        const QcGeVector3d fromMiddle = point - m_target;
        wide.across.push_back(Dot(fromMiddle, GetRight()));
        high.across.push_back(Dot(fromMiddle, GetUp()));
        wide.forward.push_back(Dot(fromMiddle, GetForward()));
    };
    for (const QcGePoint& corner : CornersOf(m_least, m_most))
        take(corner);
    for (const QcGePoint& point : besides)
        take({Cut(point.x), Cut(point.y), Cut(point.z)});
    high.forward = wide.forward;
    const double tangent = m_halfFieldTangent * kMargin;
    const double nearest = *std::min_element(wide.forward.begin(), wide.forward.end());
    SetDistance(std::max({FitDistance(wide, tangent * m_width / m_height, m_isParallel),
                          FitDistance(high, tangent, m_isParallel), m_radius * 0.1 - nearest}));
    MoveTarget(CenterShift(wide, m_distance, m_isParallel), CenterShift(high, m_distance, m_isParallel), 0.0);
}

void ViewCamera::Aim(const QcGePoint& point) {
    if (std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z))
        m_target = {Cut(point.x), Cut(point.y), Cut(point.z)};
}

void ViewCamera::TakeDepthOf(const QcGePoint& point) {
    const double depth = DepthOf(point);
    if (!std::isfinite(depth) || (!m_isParallel && depth <= 0.0))
        return;
    const double before = m_distance;
    // In a parallel view the distance is the scale, and the eye goes along.
    if (!m_isParallel)
        SetDistance(depth);
    MoveTarget(0.0, 0.0, (m_isParallel ? depth : m_distance) - before);
}

QcGePoint ViewCamera::GetEye() const {
    const QcGeVector3d forward = GetForward();
    return {m_target.x - forward.x * m_distance, m_target.y - forward.y * m_distance,
            m_target.z - forward.z * m_distance};
}

QcGeVector3d ViewCamera::GetRight() const {
    const double azimuth = m_azimuth * kRadiansPerDegree;
    return {-std::cos(azimuth), std::sin(azimuth), 0.0};
}

QcGeVector3d ViewCamera::GetUp() const {
    return GetRight() * GetForward();
}

QcGeVector3d ViewCamera::GetForward() const {
    const double azimuth = m_azimuth * kRadiansPerDegree;
    const double altitude = m_altitude * kRadiansPerDegree;
    return {-std::cos(altitude) * std::sin(azimuth), -std::cos(altitude) * std::cos(azimuth), -std::sin(altitude)};
}

void ViewCamera::GetDepths(double& nearest, double& farthest) const {
    nearest = INFINITY;
    farthest = -INFINITY;
    for (const QcGePoint& corner : CornersOf(m_around.least, m_around.most)) {
        nearest = std::min(nearest, DepthOf(corner));
        farthest = std::max(farthest, DepthOf(corner));
    }
    const double room = m_radius * 0.01 + std::max(std::fabs(nearest), std::fabs(farthest)) * 1e-6;
    nearest -= room;
    farthest += room;
    if (m_isParallel)
        return;
    // The depth buffer has 24 bits, most of which a nearest plane close to the eye would use up for nothing. Yet what
    // is about the target has to be seen also when the eye is amidst the box and quite close to it.
    farthest = std::max(farthest, m_distance * 1.01);
    nearest = std::max({nearest, std::min(farthest * 1e-4, m_distance * 0.2), farthest * 1e-7});
}

std::array<double, 16> ViewCamera::GetViewMatrix(const QcGePoint& origin) const {
    const QcGeVector3d right = GetRight();
    const QcGeVector3d up = GetUp();
    const QcGeVector3d forward = GetForward();
    const QcGeVector3d target = m_target - QcGePoint(Cut(origin.x), Cut(origin.y), Cut(origin.z));
    return {right.x,
            up.x,
            -forward.x,
            0.0,
            right.y,
            up.y,
            -forward.y,
            0.0,
            right.z,
            up.z,
            -forward.z,
            0.0,
            -Dot(right, target),
            -Dot(up, target),
            Dot(forward, target) - m_distance,
            1.0};
}

std::array<double, 16> ViewCamera::GetProjectionMatrix() const {
    double nearest = 0.0;
    double farthest = 0.0;
    GetDepths(nearest, farthest);
    const double depth = farthest - nearest;
    const double shape = static_cast<double>(m_height) / m_width;
    std::array<double, 16> matrix{};
    if (m_isParallel) {
        const double scale = 1.0 / (m_halfFieldTangent * m_distance);
        matrix[0] = scale * shape;
        matrix[5] = scale;
        matrix[10] = -2.0 / depth;
        matrix[14] = -(farthest + nearest) / depth;
        matrix[15] = 1.0;
        return matrix;
    }
    matrix[0] = shape / m_halfFieldTangent;
    matrix[5] = 1.0 / m_halfFieldTangent;
    matrix[10] = -(farthest + nearest) / depth;
    matrix[11] = -1.0;
    matrix[14] = -2.0 * farthest * nearest / depth;
    return matrix;
}

std::optional<ViewPixel> ViewCamera::Project(const QcGePoint& point) const {
    const QcGeVector3d fromTarget = point - m_target;
    const double depth = DepthOf(point);
    if (!m_isParallel && !(depth > 0.0))
        return std::nullopt;
    const double unitsPerPixel = GetUnitsPerPixel(depth);
    const ViewPixel pixel{m_width / 2.0 + Dot(fromTarget, GetRight()) / unitsPerPixel,
                          m_height / 2.0 - Dot(fromTarget, GetUp()) / unitsPerPixel, depth};
    if (!std::isfinite(pixel.x) || !std::isfinite(pixel.y) || !std::isfinite(depth))
        return std::nullopt;
    return pixel;
}

QcGePoint ViewCamera::GetPointAt(const ViewPixel& pixel) const {
    const double x = Cut(pixel.x);
    const double y = Cut(pixel.y);
    const double depth = Cut(pixel.depth);
    const double unitsPerPixel = GetUnitsPerPixel(depth);
    ViewCamera moved = *this;
    moved.MoveTarget((x - m_width / 2.0) * unitsPerPixel, (m_height / 2.0 - y) * unitsPerPixel, depth - m_distance);
    return moved.m_target;
}

ViewRay ViewCamera::GetRayAt(double x, double y) const {
    if (m_isParallel) {
        double nearest = 0.0;
        double farthest = 0.0;
        GetDepths(nearest, farthest);
        return {GetPointAt({x, y, nearest}), GetForward()};
    }
    const QcGeVector3d right = GetRight();
    const QcGeVector3d up = GetUp();
    const QcGeVector3d forward = GetForward();
    const double across = (Cut(x) - m_width / 2.0) * GetUnitsPerPixel(1.0);
    const double above = (m_height / 2.0 - Cut(y)) * GetUnitsPerPixel(1.0);
    const QcGeVector3d way(forward.x + right.x * across + up.x * above, forward.y + right.y * across + up.y * above,
                           forward.z + right.z * across + up.z * above);
    const double length = way.Length();
    return {GetEye(), {way.x / length, way.y / length, way.z / length}};
}

double ViewCamera::GetUnitsPerPixel(double depth) const {
    return 2.0 * m_halfFieldTangent * (m_isParallel ? m_distance : depth) / m_height;
}

double ViewCamera::DepthOf(const QcGePoint& point) const {
    return m_distance + Dot(point - m_target, GetForward());
}

void ViewCamera::MoveTarget(double right, double up, double forward) {
    const QcGeVector3d r = GetRight();
    const QcGeVector3d u = GetUp();
    const QcGeVector3d f = GetForward();
    const QcGePoint moved(m_target.x + r.x * right + u.x * up + f.x * forward,
                          m_target.y + r.y * right + u.y * up + f.y * forward,
                          m_target.z + r.z * right + u.z * up + f.z * forward);
    if (std::isfinite(moved.x) && std::isfinite(moved.y) && std::isfinite(moved.z))
        m_target = {Cut(moved.x), Cut(moved.y), Cut(moved.z)};
}

void ViewCamera::SetDistance(double distance) {
    if (std::isfinite(distance))
        m_distance = std::clamp(distance, m_radius * kNearestDistance, m_radius * kFarthestDistance);
}
