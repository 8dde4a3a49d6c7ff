// What the face's questions cost beside the same arithmetic on plain structs: sides of points, sunlight, the plane's
// equation with a normal that is ready, and the sieve of 10,000 occluders through one prism of light.
#if defined(__GNUC__) && !defined(__clang__)
// A loop around a call of 4 ns gains or loses a tenth and more by its place; none shall be judged by that.
#pragma GCC optimize("align-loops=64")
#endif
#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "MedianReporter.h"
#include "flatgeometry/FlatGeometry.h"
#include "geometry/Cylinder.h"
#include "geometry/QcGeFace3dEX.h"

namespace {

constexpr int kFaces = 64;  // few enough to stay in the cache: what counts is the work
constexpr int kOccluders = 10000;

class Numbers {
public:
    explicit Numbers(unsigned seed) : m_engine(seed) {}
    double Next(double size) { return std::uniform_real_distribution<double>(-size, size)(m_engine); }
    QcGePoint Point(double size) {
        const double x = Next(size);
        const double y = Next(size);
        return {x, y, Next(size)};
    }

private:
    std::mt19937 m_engine;
};

flat::Vector ToFlat(const QcGePoint& p) {
    return {p.x, p.y, p.z};
}

flat::Face ToFlat(QcGeFace3dEX& face) {
    flat::Face other{};
    for (int i = 0; i < 4; ++i)
        other.corner[i] = ToFlat(face.m_pt[i]);
    other.count = face.GetPointNum();
    other.normal = ToFlat(face.GetNormal());
    return other;
}

// Faces with ready normals, points and lights, and the same for the peer.
struct Scene {
    Scene() {
        Numbers numbers(3);
        for (int i = 0; i < kFaces; ++i) {
            const QcGePoint corners[] = {numbers.Point(50), numbers.Point(50), numbers.Point(50), numbers.Point(50)};
            faces.emplace_back(corners, 3 + i % 2, true);
            flatFaces.push_back(ToFlat(faces.back()));
            points.push_back(numbers.Point(80));
            flatPoints.push_back(ToFlat(points.back()));
        }
        // A square on the ground, and small faces above it, of which the sun finds some and passes by most.
        caster.GetNormal();
        flatCaster = ToFlat(caster);
        for (int i = 0; i < kOccluders; ++i) {
            QcGePoint corners[4];
            const QcGePoint middle = numbers.Point(60);
            for (QcGePoint& corner : corners) {
                const QcGePoint off = numbers.Point(3);
                corner = {middle.x + off.x, middle.y + off.y, middle.z + 30 + off.z};
            }
            occluders.emplace_back(corners, 3 + i % 2, true);
            flatOccluders.push_back(ToFlat(occluders.back()));
        }
    }

    std::vector<QcGeFace3dEX> faces;
    std::vector<QcGePoint> points;
    std::vector<flat::Face> flatFaces;
    std::vector<flat::Vector> flatPoints;
    QcGeFace3dEX caster{{-20, -20, 0}, {20, -20, 0}, {20, 20, 0}, {-20, 20, 0}, true};
    flat::Face flatCaster{};
    std::vector<QcGeFace3dEX> occluders;
    std::vector<flat::Face> flatOccluders;
    const QcGeVector3dEX light{0.5, 0.8, -0.6};
    const flat::Vector flatLight{0.5, 0.8, -0.6};
};

Scene& TheScene() {
    static Scene scene;
    return scene;
}

void CompareWithPoint(benchmark::State& state) {
    Scene& scene = TheScene();
    for (auto unused : state)
        for (std::size_t i = 0; i < kFaces; ++i)
            benchmark::DoNotOptimize(scene.faces[i].CompareWithPoint(scene.points[i]));
}
void CompareWithPointFlat(benchmark::State& state) {
    const Scene& scene = TheScene();
    for (auto unused : state)
        for (std::size_t i = 0; i < kFaces; ++i)
            benchmark::DoNotOptimize(flat::ComparePoint(scene.flatFaces[i], scene.flatPoints[i]));
}

void IsSunLightOn(benchmark::State& state) {
    Scene& scene = TheScene();
    for (auto unused : state)
        for (std::size_t i = 0; i < kFaces; ++i)
            benchmark::DoNotOptimize(scene.faces[i].IsSunLightOn(scene.light, true));
}
void IsSunLightOnFlat(benchmark::State& state) {
    const Scene& scene = TheScene();
    for (auto unused : state)
        for (std::size_t i = 0; i < kFaces; ++i)
            benchmark::DoNotOptimize(flat::IsSunOn(scene.flatFaces[i], scene.flatLight, true));
}

void GetPlaneEquation(benchmark::State& state) {
    Scene& scene = TheScene();
    for (auto unused : state)
        for (std::size_t i = 0; i < kFaces; ++i) {
            const PlaneEquation equation = scene.faces[i].GetPlaneEquation();
            benchmark::DoNotOptimize(&equation);
        }
}
void GetPlaneEquationFlat(benchmark::State& state) {
    const Scene& scene = TheScene();
    for (auto unused : state)
        for (std::size_t i = 0; i < kFaces; ++i) {
            const flat::Equation equation = flat::PlaneOf(scene.flatFaces[i]);
            benchmark::DoNotOptimize(&equation);
        }
}

int CountInPrism(Scene& scene) {
    Cylinder prism;
    scene.caster.ContructLightHalfCylinder(prism, scene.light);
    int count = 0;
    for (const QcGeFace3dEX& occluder : scene.occluders)
        count += prism.IsSomeFacePointIn(occluder);
    return count;
}
int CountInFlatPrism(const Scene& scene) {
    flat::Prism prism{};
    flat::MakePrism(scene.flatCaster, scene.flatLight, prism);
    int count = 0;
    for (const flat::Face& occluder : scene.flatOccluders)
        count += flat::MayReachIn(prism, occluder);
    return count;
}

void SieveOccluders(benchmark::State& state) {
    for (auto unused : state)
        benchmark::DoNotOptimize(CountInPrism(TheScene()));
}
void SieveOccludersFlat(benchmark::State& state) {
    for (auto unused : state)
        benchmark::DoNotOptimize(CountInFlatPrism(TheScene()));
}

// Each occluder by itself: two counts may be equal by chance. Some have to be in the prism's reach and most not, or the
// sieve would measure one case alone.
bool AgreeOnOccluders(Scene& scene) {
    Cylinder prism;
    scene.caster.ContructLightHalfCylinder(prism, scene.light);
    flat::Prism flatPrism{};
    flat::MakePrism(scene.flatCaster, scene.flatLight, flatPrism);
    int count = 0;
    for (std::size_t i = 0; i < kOccluders; ++i) {
        const bool isIn = prism.IsSomeFacePointIn(scene.occluders[i]);
        if (isIn != flat::MayReachIn(flatPrism, scene.flatOccluders[i]))
            return false;
        count += isIn;
    }
    return count == CountInPrism(scene) && count == CountInFlatPrism(scene) && count > kOccluders / 100 &&
           count < kOccluders / 2;
}

// The peer is only a peer if it gives the same.
bool Agree() {
    Scene& scene = TheScene();
    for (std::size_t i = 0; i < kFaces; ++i) {
        const PlaneEquation ours = scene.faces[i].GetPlaneEquation();
        const flat::Equation theirs = flat::PlaneOf(scene.flatFaces[i]);
        if (scene.faces[i].CompareWithPoint(scene.points[i]) !=
                flat::ComparePoint(scene.flatFaces[i], scene.flatPoints[i]) ||
            scene.faces[i].IsSunLightOn(scene.light, true) !=
                flat::IsSunOn(scene.flatFaces[i], scene.flatLight, true) ||
            ours.a != theirs.a || ours.b != theirs.b || ours.c != theirs.c || ours.d != theirs.d)
            return false;
    }
    return AgreeOnOccluders(scene);
}

void PrintRatio(const MedianReporter& recorder, const std::string& name, int calls, double atMost) {
    const auto ours = recorder.cpuSeconds.find(name);
    const auto peer = recorder.cpuSeconds.find(name + "Flat");
    if (ours == recorder.cpuSeconds.end() || peer == recorder.cpuSeconds.end())
        return;
    std::printf("%s: %.2f ns, flat: %.2f ns, ratio %.2f (at most %.1f)\n", name.c_str(), ours->second * 1e9 / calls,
                peer->second * 1e9 / calls, ours->second / peer->second, atMost);
}

}  // namespace

BENCHMARK(CompareWithPoint);
BENCHMARK(CompareWithPointFlat);
BENCHMARK(IsSunLightOn);
BENCHMARK(IsSunLightOnFlat);
BENCHMARK(GetPlaneEquation);
BENCHMARK(GetPlaneEquationFlat);
BENCHMARK(SieveOccluders);
BENCHMARK(SieveOccludersFlat);

int main(int argc, char** argv) {
    if (!Agree()) {
        std::fputs("the two ways give different results\n", stderr);
        return 1;
    }
    InitializeForMedians(argc, argv, {"--benchmark_repetitions=15"});
    MedianReporter recorder;
    benchmark::RunSpecifiedBenchmarks(&recorder);
    PrintRatio(recorder, "CompareWithPoint", kFaces, 1.3);
    PrintRatio(recorder, "IsSunLightOn", kFaces, 1.3);
    PrintRatio(recorder, "GetPlaneEquation", kFaces, 1.3);
    PrintRatio(recorder, "SieveOccluders", kOccluders, 1.5);
    return 0;
}
