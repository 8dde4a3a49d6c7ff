// Finds the nearest triangle that a ray meets, by the ray's place in each triangle's own coordinates.
#include "workbench/view/ScenePick.h"

#include <algorithm>
#include <cmath>

#include "geometry/DotProduct.h"

namespace {

// How far along the ray it meets the triangle; a negative number or none at all when it does not.
double MeetTriangle(const ViewRay& ray, const QcGePoint& a, const QcGePoint& b, const QcGePoint& c) {
    const QcGeVector3d first = b - a;
    const QcGeVector3d second = c - a;
    const QcGeVector3d across = ray.direction * second;
    const double volume = Dot(first, across);
    const QcGeVector3d toStart = ray.start - a;
    const double u = Dot(toStart, across) / volume;
    const QcGeVector3d turned = toStart * first;
    const double v = Dot(ray.direction, turned) / volume;
    // Written so that what is not a number, in a face seen on its edge, misses.
    if (!(u >= 0.0 && v >= 0.0 && u + v <= 1.0))
        return -1.0;
    return Dot(second, turned) / volume;
}

}  // namespace

std::optional<QcGePoint> PickScene(const Scene& scene, const ViewRay& ray) {
    double nearest = INFINITY;
    for (const QcGeFace3dEX& face : scene.faces) {
        const QcGePoint* const pt = face.m_pt;
        const double first = MeetTriangle(ray, pt[0], pt[1], pt[2]);
        const double second = face.IsTriangle() ? -1.0 : MeetTriangle(ray, pt[2], pt[3], pt[0]);
        for (const double distance : {first, second})
            if (distance > 0.0)
                nearest = std::min(nearest, distance);
    }
    if (!std::isfinite(nearest))
        return std::nullopt;
    const QcGeVector3d& way = ray.direction;
    return QcGePoint(ray.start.x + way.x * nearest, ray.start.y + way.y * nearest, ray.start.z + way.z * nearest);
}
