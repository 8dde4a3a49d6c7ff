// Windows as faces, the camera of a request, and the sun of one.
#include "workbench/film/FilmScene.h"

#include <algorithm>
#include <cmath>

#include "facts/SunDay.h"
#include "workbench/view/ViewSun.h"

namespace {

constexpr double kMillimetresPerMetre = 1000.0;
constexpr double kBefore = 10.0;  // millimetres

// At right angles to the window, level, and so long.
QcGeVector3d OutwardOf(const WindowResult& window, double length) {
    const QcGeVector3d right = window.corners[1] - window.corners[0];
    const double width = std::hypot(right.x, right.y);
    return width > 0.0 ? QcGeVector3d(right.y / width * length, -right.x / width * length, 0.0) : QcGeVector3d();
}

void AddFace(Scene& scene, const WindowResult& window, const QcGeVector3d& shift, double unitsPerMetre) {
    QcGePoint corners[4];
    for (std::size_t i = 0; i < 4; ++i)
        corners[i] = {window.corners[i].x * unitsPerMetre + shift.x, window.corners[i].y * unitsPerMetre + shift.y,
                      window.corners[i].z * unitsPerMetre + shift.z};
    scene.faces.emplace_back(corners, 4, true);
    scene.faces.back().GetNormal();
}

ViewBox BoxOf(const Scene& scene, const Scene& marks) {
    ViewBox box{scene.least, scene.most};
    bool isFirst = scene.faces.empty();
    for (const QcGeFace3dEX& face : marks.faces)
        for (int i = 0; i < 4; ++i) {
            const QcGePoint& at = face.m_pt[i];
            if (isFirst)
                box = {at, at};
            isFirst = false;
            box.least = {std::min(box.least.x, at.x), std::min(box.least.y, at.y), std::min(box.least.z, at.z)};
            box.most = {std::max(box.most.x, at.x), std::max(box.most.y, at.y), std::max(box.most.z, at.z)};
        }
    return box;
}

}  // namespace

Scene WindowMarks(const std::vector<WindowResult>& windows, double millimetres) {
    const double unitsPerMetre = kMillimetresPerMetre / millimetres;
    Scene marks;
    for (const WindowResult& window : windows) {
        SceneEntity entity;
        entity.firstFace = marks.faces.size();
        entity.colorIndex = window.color;
        const QcGeVector3d outward = OutwardOf(window, kBefore / millimetres);
        AddFace(marks, window, outward, unitsPerMetre);
        if (!window.facing) {
            entity.trueColor = kNoSideColor;
            AddFace(marks, window, {-outward.x, -outward.y, 0.0}, unitsPerMetre);
        }
        entity.faceCount = marks.faces.size() - entity.firstFace;
        marks.entities.push_back(entity);
    }
    return marks;
}

ViewCamera FilmCameraOf(const FilmRequest& request, const Scene& scene, const Scene& marks, double north) {
    ViewCamera camera;
    camera.SetViewport(request.width, request.height);
    camera.SetBox(BoxOf(scene, marks));
    camera.Look(request.view);
    if (request.camera)
        camera.Look(request.camera->azimuth - north, request.camera->altitude);
    else if (request.view != StandardView::Top)
        camera.Orbit(-north, 0.0);
    camera.Fit();
    camera.Magnify(request.zoom);
    return camera;
}

SceneSun SunOfDrawing(const DayRequest& request, double trueSolarTime) {
    return SunInDrawing(ComputeSunDay(request.terms, *request.settings.place), request.north, trueSolarTime);
}
