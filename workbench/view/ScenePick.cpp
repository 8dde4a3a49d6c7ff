// Finds the nearest triangle that a ray meets, by the ray's place in each triangle's own coordinates, and the lines
// that pass close to a pixel.
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

double MeetFace(const ViewRay& ray, const QcGeFace3dEX& face) {
    const QcGePoint* const pt = face.m_pt;
    const double first = MeetTriangle(ray, pt[0], pt[1], pt[2]);
    const double second = face.IsTriangle() ? -1.0 : MeetTriangle(ray, pt[2], pt[3], pt[0]);
    double nearest = INFINITY;
    for (const double distance : {first, second})
        if (distance > 0.0)
            nearest = std::min(nearest, distance);
    return nearest;
}

QcGePoint PointAlong(const ViewRay& ray, double distance) {
    const QcGeVector3d& way = ray.direction;
    return {ray.start.x + way.x * distance, ray.start.y + way.y * distance, ray.start.z + way.z * distance};
}

// A line as the picture shows it: what lies before the eye of it.
struct SeenLine {
    ViewPixel from, to;
};

std::optional<SeenLine> Seen(const SceneSegment& segment, const ViewCamera& camera, double nearest) {
    const QcGePoint eye = camera.GetEye();
    const QcGeVector3d forward = camera.GetForward();
    QcGePoint ends[] = {segment.from, segment.to};
    if (!camera.IsParallel()) {
        const double depths[] = {Dot(ends[0] - eye, forward), Dot(ends[1] - eye, forward)};
        if (!(std::max(depths[0], depths[1]) > nearest))
            return std::nullopt;
        for (int i = 0; i < 2; ++i) {
            if (depths[i] >= nearest)
                continue;
            const double share = (nearest - depths[i]) / (depths[1 - i] - depths[i]);
            const QcGeVector3d way = ends[1 - i] - ends[i];
            ends[i] = {ends[i].x + way.x * share, ends[i].y + way.y * share, ends[i].z + way.z * share};
        }
    }
    const auto from = camera.Project(ends[0]);
    const auto to = camera.Project(ends[1]);
    if (!from || !to)
        return std::nullopt;
    return SeenLine{*from, *to};
}

// How far from a pixel the line passes, and at which depth it does.
struct Passing {
    double pixels = INFINITY;
    double depth = INFINITY;
};

Passing PassingOf(const SeenLine& line, double x, double y, bool isParallel) {
    const double dx = line.to.x - line.from.x;
    const double dy = line.to.y - line.from.y;
    const double square = dx * dx + dy * dy;
    const double along = ((x - line.from.x) * dx + (y - line.from.y) * dy) / square;
    const double share = square > 0.0 ? std::clamp(along, 0.0, 1.0) : 0.0;
    const double a = line.from.depth;
    const double b = line.to.depth;
    // In perspective it is the inverse of the depth that changes evenly along the line.
    const double depth = isParallel ? a + (b - a) * share : a * b / (b + (a - b) * share);
    return {std::hypot(line.from.x + dx * share - x, line.from.y + dy * share - y), depth};
}

}  // namespace

std::optional<QcGePoint> PickScene(const Scene& scene, const ViewRay& ray) {
    double nearest = INFINITY;
    for (const QcGeFace3dEX& face : scene.faces)
        nearest = std::min(nearest, MeetFace(ray, face));
    if (!std::isfinite(nearest))
        return std::nullopt;
    return PointAlong(ray, nearest);
}

MetFace MeetScene(const Scene& scene, const HiddenLayers& hidden, const ViewRay& ray) {
    MetFace met;
    for (const SceneEntity& entity : scene.entities)
        for (std::size_t i = 0; i < entity.faceCount && !IsHidden(hidden, entity.layer); ++i)
            if (const double distance = MeetFace(ray, scene.faces[entity.firstFace + i]); distance < met.distance) {
                met.distance = distance;
                met.entity = entity.id;
                met.face = entity.firstFace + i;
            }
    return met;
}

double MeetQuad(const ViewRay& ray, const std::array<QcGePoint, 4>& corners) {
    double nearest = INFINITY;
    for (const double distance :
         {MeetTriangle(ray, corners[0], corners[1], corners[2]), MeetTriangle(ray, corners[2], corners[3], corners[0])})
        if (distance > 0.0)
            nearest = std::min(nearest, distance);
    return nearest;
}

AcDbObjectId PickEntity(const Scene& scene, const HiddenLayers& hidden, const ViewCamera& camera, double x, double y) {
    constexpr double kMostPixels = 4.0;
    constexpr double kBehind = 1e-3;  // a line on a face is in it, whichever the rounding puts before the other
    const ViewRay ray = camera.GetRayAt(x, y);
    const MetFace met = MeetScene(scene, hidden, ray);
    const double nearest = met.distance;
    AcDbObjectId found = met.entity;
    double least = 0.0;
    double most = 0.0;
    camera.GetDepths(least, most);
    const double depth =
        std::isfinite(nearest) ? Dot(PointAlong(ray, nearest) - camera.GetEye(), camera.GetForward()) : INFINITY;
    double closest = kMostPixels;
    for (const SceneLineRun& run : scene.lines.runs)
        for (std::size_t i = 0; i < run.count && !IsHidden(hidden, run.layer); ++i)
            if (const auto line = Seen(scene.lines.segments[run.first + i], camera, least)) {
                const Passing passing = PassingOf(*line, x, y, camera.IsParallel());
                if (passing.pixels < closest && passing.depth <= depth + std::fabs(depth) * kBehind) {
                    closest = passing.pixels;
                    found = run.id;
                }
            }
    return found;
}
