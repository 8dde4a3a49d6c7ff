// Pictures of a town in the sun, against plain pictures of the same town.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "MedianReporter.h"
#include "Town.h"
#include "facts/Angles.h"
#include "workbench/view/ScenePainter.h"

namespace {

constexpr std::size_t kFacesPerHouse = 6;
constexpr std::size_t kFaces = 5000;
constexpr int kTurns = 9;

QcGePoint PointOf(const Vector3& place) {
    return {place.x, place.y, place.z};
}

Scene MakeScene(std::size_t faces) {
    const Town town = MakeTown(faces / kFacesPerHouse, 0);
    Scene scene;
    scene.least = scene.most = PointOf(town.occluders.faces[0].corners[0]);
    for (const Occluder& face : town.occluders.faces) {
        QcGePoint corners[4];
        for (int i = 0; i < 4; ++i) {
            const QcGePoint at = corners[i] = PointOf(face.corners[i]);
            scene.least = {std::min(scene.least.x, at.x), std::min(scene.least.y, at.y), std::min(scene.least.z, at.z)};
            scene.most = {std::max(scene.most.x, at.x), std::max(scene.most.y, at.y), std::max(scene.most.z, at.z)};
        }
        scene.faces.emplace_back(corners, 4, true);
        scene.faces.back().GetNormal();
    }
    SceneEntity entity;
    entity.faceCount = scene.faces.size();
    scene.entities.push_back(entity);
    return scene;
}

SceneSun SunAt(double azimuth, double altitude) {
    const double a = azimuth * kRadiansPerDegree;
    const double h = altitude * kRadiansPerDegree;
    return {{std::sin(a) * std::cos(h), std::cos(a) * std::cos(h), std::sin(h)}};
}

struct Stage {
    std::unique_ptr<ScenePainter> painter;
    Scene scene;
};

ViewCamera CameraOf(const Scene& scene, int width, int height) {
    ViewCamera camera;
    camera.SetViewport(width, height);
    camera.SetBox({scene.least, scene.most});
    camera.Look(StandardView::SouthEast);
    camera.Fit();
    return camera;
}

struct Kind {
    const char* name;
    int width, height;
    PaintEffort effort;
};

// As films, the window while its slider moves, and the window at rest ask for pictures.
constexpr Kind kKinds[] = {
    {"quick", 1280, 720, {false, false}},
    {"quick with edges", 1280, 720, {true, false}},
    {"smooth", 1280, 720, {true, true}},
    {"smooth", 3840, 2160, {true, true}},
};

void Paint(benchmark::State& state, Stage& stage, const Kind& kind, double altitude) {
    const ViewCamera camera = CameraOf(stage.scene, kind.width, kind.height);
    GlPicture picture;
    for (auto _ : state) {
        const bool isDrawn = altitude > 0.0
                                 ? stage.painter->PaintInSun(camera, SunAt(150.0, altitude), kind.effort, picture)
                                 : stage.painter->Paint(camera, kind.effort, picture);
        if (!isDrawn)
            state.SkipWithError("nothing was drawn");
    }
}

std::string NameOf(const Kind& kind, int altitude) {
    return std::to_string(kind.width) + "/" + kind.name + "/" + std::to_string(altitude);
}

}  // namespace

int main(int argc, char** argv) {
    InitializeForMedians(argc, argv);
    CString reason;
    Stage stage{ScenePainter::Open(reason), MakeScene(kFaces)};
    if (!stage.painter || !stage.painter->SetScene(stage.scene)) {
        std::fprintf(stderr, "Nothing can be drawn here. %ls\n", reason.GetString());
        return 1;
    }
    for (const Kind& kind : kKinds)
        for (const int altitude : {0, 8, 30})
            benchmark::RegisterBenchmark(
                NameOf(kind, altitude).c_str(),
                [&stage, kind, altitude](benchmark::State& state) { Paint(state, stage, kind, altitude); })
                ->Iterations(1)
                ->Repetitions(kTurns)
                ->MeasureProcessCPUTime()
                ->Unit(benchmark::kMillisecond);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const Kind& kind : kKinds)
        for (const int altitude : {8, 30}) {
            const double plain = reporter.cpuSeconds[NameOf(kind, 0)];
            const double sunny = reporter.cpuSeconds[NameOf(kind, altitude)];
            if (plain > 0.0 && sunny > 0.0)
                std::printf(
                    "%zu faces, %d x %d, %s, sun %d degrees high: %.0f ms (%.0f by the clock), plain %.0f ms, ratio "
                    "%.1f\n",
                    stage.scene.faces.size(), kind.width, kind.height, kind.name, altitude, sunny * 1e3,
                    reporter.realSeconds[NameOf(kind, altitude)] * 1e3, plain * 1e3, sunny / plain);
        }
    return 0;
}
