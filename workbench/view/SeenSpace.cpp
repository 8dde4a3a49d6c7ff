// Cuts a box with the planes of the field of view, in the camera's own axes, where all of these go by the axes.
#include "workbench/view/SeenSpace.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geometry/DotProduct.h"

namespace {

// To the right, up and away from the eye.
struct Place {
    double x, y, depth;
};

// What is before it is kept: x * px + y * py + depth * pd + p1 >= 0.
struct Cut {
    double x, y, depth, one;
    double Of(const Place& place) const { return x * place.x + y * place.y + depth * place.depth + one; }
};

using Polygon = std::vector<Place>;

Polygon CutOff(const Polygon& polygon, const Cut& cut) {
    Polygon kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Place& a = polygon[i];
        const Place& b = polygon[(i + 1) % polygon.size()];
        const double atA = cut.Of(a);
        const double atB = cut.Of(b);
        if (atA >= 0.0)
            kept.push_back(a);
        if ((atA < 0.0) != (atB < 0.0)) {
            const double part = atA / (atA - atB);
            kept.push_back({a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part, a.depth + (b.depth - a.depth) * part});
        }
    }
    return kept;
}

// The sides of the field of view, and in perspective what is closer than `nearest`.
std::vector<Cut> CutsOf(const ViewCamera& camera, double nearest) {
    const std::array<double, 16> projection = camera.GetProjectionMatrix();
    const double wide = projection[0];
    const double high = projection[5];
    const double depth = camera.IsParallel() ? 0.0 : 1.0;
    const double one = camera.IsParallel() ? 1.0 : 0.0;
    std::vector<Cut> cuts = {
        {wide, 0.0, depth, one}, {-wide, 0.0, depth, one}, {0.0, high, depth, one}, {0.0, -high, depth, one}};
    if (!camera.IsParallel())
        cuts.push_back({0.0, 0.0, 1.0, -nearest});
    return cuts;
}

std::array<Place, 8> CornersOf(const ViewCamera& camera, const ViewBox& box) {
    std::array<Place, 8> corners;
    for (unsigned i = 0; i < 8; ++i) {
        const QcGePoint corner((i & 1U) ? box.most.x : box.least.x, (i & 2U) ? box.most.y : box.least.y,
                               (i & 4U) ? box.most.z : box.least.z);
        const QcGeVector3d way = corner - camera.GetTarget();
        corners[i] = {Dot(way, camera.GetRight()), Dot(way, camera.GetUp()),
                      Dot(way, camera.GetForward()) + camera.GetDistance()};
    }
    return corners;
}

QcGePoint InWorld(const ViewCamera& camera, const Place& place) {
    const QcGeVector3d r = camera.GetRight();
    const QcGeVector3d u = camera.GetUp();
    const QcGeVector3d f = camera.GetForward();
    const QcGePoint target = camera.GetTarget();
    const double away = place.depth - camera.GetDistance();
    return {target.x + r.x * place.x + u.x * place.y + f.x * away,
            target.y + r.y * place.x + u.y * place.y + f.y * away,
            target.z + r.z * place.x + u.z * place.y + f.z * away};
}

bool IsIn(const QcGePoint& point, const ViewBox& box) {
    return point.x >= box.least.x && point.x <= box.most.x && point.y >= box.least.y && point.y <= box.most.y &&
           point.z >= box.least.z && point.z <= box.most.z;
}

}  // namespace

SeenSpace FindSeenSpace(const ViewCamera& camera, const ViewBox& box) {
    constexpr double kNearest = 1e-5;
    constexpr unsigned kSides[6][4] = {{0, 1, 3, 2}, {4, 5, 7, 6}, {0, 1, 5, 4},
                                       {2, 3, 7, 6}, {0, 2, 6, 4}, {1, 3, 7, 5}};
    const std::array<Place, 8> corners = CornersOf(camera, box);
    double farthest = 0.0;
    for (const Place& corner : corners)
        farthest = std::max(farthest, corner.depth);
    SeenSpace seen;
    seen.nearest = INFINITY;
    seen.farthest = -INFINITY;
    const auto add = [&](const Place& place) {
        seen.corners.push_back(InWorld(camera, place));
        seen.nearest = std::min(seen.nearest, place.depth);
        seen.farthest = std::max(seen.farthest, place.depth);
    };
    const std::vector<Cut> cuts = CutsOf(camera, farthest * kNearest);
    for (const auto& side : kSides) {
        Polygon polygon;
        for (const unsigned corner : side)
            polygon.push_back(corners[corner]);
        for (const Cut& cut : cuts)
            polygon = CutOff(polygon, cut);
        std::for_each(polygon.begin(), polygon.end(), add);
    }
    // An eye amidst the box sees from where it is.
    if (!camera.IsParallel() && farthest > 0.0 && IsIn(camera.GetEye(), box))
        add({0.0, 0.0, farthest * kNearest});
    return seen;
}

SeenSpace JoinSeen(const SeenSpace& one, const SeenSpace& other) {
    if (one.corners.empty() || other.corners.empty())
        return one.corners.empty() ? other : one;
    SeenSpace joint = one;
    joint.corners.insert(joint.corners.end(), other.corners.begin(), other.corners.end());
    joint.nearest = std::min(one.nearest, other.nearest);
    joint.farthest = std::max(one.farthest, other.farthest);
    return joint;
}
