// Tries places until one will do.
#include "workbench/view/Lookout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "facts/Angles.h"

namespace {

constexpr double QcGePoint::*kAxes[] = {&QcGePoint::x, &QcGePoint::y, &QcGePoint::z};

void Take(std::optional<ViewBox>& box, const QcGePoint& point) {
    if (!box)
        box = ViewBox{point, point};
    for (double QcGePoint::*const axis : kAxes) {
        box->least.*axis = std::min(box->least.*axis, point.*axis);
        box->most.*axis = std::max(box->most.*axis, point.*axis);
    }
}

QcGePoint MiddleOf(const ViewBox& box) {
    QcGePoint middle;
    for (double QcGePoint::*const axis : kAxes)
        middle.*axis = box.least.*axis + (box.most.*axis - box.least.*axis) / 2.0;
    return middle;
}

// Calls this with each edge of its faces, and each of its lines, until it is true.
template <class Test>
bool AnyEdge(const Scene& scene, const HiddenLayers& hidden, AcDbObjectId id, const Test& test) {
    for (const SceneEntity& entity : scene.entities) {
        if (entity.id != id || IsHidden(hidden, entity.layer))
            continue;
        for (std::size_t i = entity.firstFace; i < entity.firstFace + entity.faceCount; ++i) {
            const QcGeFace3dEX& face = scene.faces[i];
            const int count = face.GetPointNum();
            for (int k = 0; k < count; ++k)
                if (test(face.m_pt[k], face.m_pt[(k + 1) % count]))
                    return true;
        }
    }
    for (const SceneLineRun& run : scene.lines.runs) {
        if (run.id != id || IsHidden(hidden, run.layer))
            continue;
        for (std::size_t i = run.first; i < run.first + run.count; ++i)
            if (test(scene.lines.segments[i].from, scene.lines.segments[i].to))
                return true;
    }
    return false;
}

bool IsInPicture(const QcGePoint& point, const ViewCamera& camera) {
    const auto pixel = camera.Project(point);
    return pixel && pixel->x >= 0.0 && pixel->x < camera.GetWidth() && pixel->y >= 0.0 && pixel->y < camera.GetHeight();
}

// Clockwise from north, as the camera has it; from the left corner to the right one, seen from outside, it is a quarter
// turn ahead.
double AzimuthOutwards(const ResultQuad& quad) {
    const QcGePoint& left = quad.corners[0];
    const QcGePoint& right = quad.corners[1];
    return std::atan2(right.y - left.y, left.x - right.x) / kRadiansPerDegree;
}

// The part of fitting that leaves the camera its own box.
void FitTo(ViewCamera& camera, const ViewBox& box) {
    ViewCamera trial = camera;
    trial.SetBox(box);
    trial.Fit();
    camera.Aim(trial.GetTarget());
    camera.Zoom(camera.GetDistance() / trial.GetDistance(), camera.GetWidth() / 2.0, camera.GetHeight() / 2.0);
}

}  // namespace

std::optional<ViewBox> BoxOfEntity(const Scene& scene, const HiddenLayers& hidden, AcDbObjectId id) {
    std::optional<ViewBox> box;
    AnyEdge(scene, hidden, id, [&](const QcGePoint& from, const QcGePoint& to) {
        Take(box, from);
        Take(box, to);
        return false;
    });
    return box;
}

bool IsInPicture(const Scene& scene, const HiddenLayers& hidden, AcDbObjectId id, const ViewCamera& camera) {
    constexpr int kParts = 8;  // of an edge: its ends may both be beside the picture
    return AnyEdge(scene, hidden, id, [&](const QcGePoint& from, const QcGePoint& to) {
        for (int i = 0; i <= kParts; ++i) {
            QcGePoint point;
            for (double QcGePoint::*const axis : kAxes)
                point.*axis = from.*axis + (to.*axis - from.*axis) * i / kParts;
            if (IsInPicture(point, camera))
                return true;
        }
        return false;
    });
}

void LookAtWindow(ViewCamera& camera, const ResultQuad& quad, const Scene& scene, const HiddenLayers& hidden) {
    constexpr double kAltitude = 15.0;
    constexpr double kDistances[] = {16.0, 8.0};  // in sizes of the window
    const double size = (quad.corners[2] - quad.corners[0]).Length();
    camera.Look(AzimuthOutwards(quad), kAltitude);
    camera.Aim(MiddleOf(quad));
    for (const double distance : kDistances) {
        if (!(size > 0.0))
            return;
        camera.Zoom(camera.GetDistance() / (distance * size), camera.GetWidth() / 2.0, camera.GetHeight() / 2.0);
        if (IsInSight(quad, scene, hidden, camera))
            return;
    }
}

void LookAtBox(ViewCamera& camera, const ViewBox& box) {
    const double around = (box.most - box.least).Length() / 2.0;
    ViewBox larger = box;
    for (double QcGePoint::*const axis : kAxes) {
        larger.least.*axis -= around;
        larger.most.*axis += around;
    }
    FitTo(camera, larger);
}

bool LookAtBoth(ViewCamera& camera, const ViewBox& box, const ResultQuad& quad, const Scene& scene,
                const HiddenLayers& hidden) {
    constexpr double kAltitudes[] = {35.0, 55.0, 20.0};
    constexpr double kBeside[] = {60.0, 75.0, 45.0, 90.0, 30.0};  // degrees from the way from the window to the box
    std::optional<ViewBox> both = box;
    for (const QcGePoint& corner : quad.corners)
        Take(both, corner);
    const QcGeVector3d way = MiddleOf(box) - MiddleOf(quad);
    const double there = std::atan2(way.x, way.y) / kRadiansPerDegree;
    // First to the side where the eye is now.
    const double sideNow = std::sin((camera.GetAzimuth() - there) * kRadiansPerDegree) < 0.0 ? -1.0 : 1.0;
    for (const double altitude : kAltitudes)
        for (const double beside : kBeside)
            for (const double side : {sideNow, -sideNow}) {
                ViewCamera trial = camera;
                trial.Look(there + side * beside, altitude);
                FitTo(trial, *both);
                if (!IsInSight(quad, scene, hidden, trial))
                    continue;
                camera = trial;
                return true;
            }
    return false;
}
