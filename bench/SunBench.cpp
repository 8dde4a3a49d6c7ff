// How many days of points an analysis gives in a second, beside rays: a fan of 480 one-minute suns for each point, cast
// by Embree as one coherent stream and one by one, on the same towns, with the same points, on one core.
#include <benchmark/benchmark.h>
#include <embree3/rtcore.h>

#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "MedianReporter.h"
#include "Town.h"
#include "analysis/ShadowCaster.h"

namespace {

constexpr std::size_t kPoints = 400;
constexpr int kSuns = 480;
constexpr SunPeriod kSpan{8.0, 16.0};
constexpr double kLatitude = 39.92;
constexpr double kDeclination = -23.43;
constexpr double kWindowWidth = 1500.0;
constexpr double kWindowHeight = 1500.0;
constexpr std::size_t kTowns[] = {100, 1000, 10000};

SunPath Path() {
    return SunPath(kDeclination, kLatitude, 0.0);
}

struct Case {
    explicit Case(std::size_t houses)
        : town(MakeTown(houses, kPoints)), path(Path()), caster(town.occluders, path, kSpan, 1.0) {
        device = rtcNewDevice("threads=1,set_affinity=0");
        scene = rtcNewScene(device);
        rtcSetSceneBuildQuality(scene, RTC_BUILD_QUALITY_HIGH);
        RTCGeometry geometry = rtcNewGeometry(device, RTC_GEOMETRY_TYPE_QUAD);
        const std::size_t count = town.occluders.faces.size();
        auto* const vertices = static_cast<float*>(rtcSetNewGeometryBuffer(
            geometry, RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3, 3 * sizeof(float), 4 * count));
        auto* const indices = static_cast<unsigned*>(
            rtcSetNewGeometryBuffer(geometry, RTC_BUFFER_TYPE_INDEX, 0, RTC_FORMAT_UINT4, 4 * sizeof(unsigned), count));
        for (std::size_t i = 0; i < count; ++i)
            for (std::size_t k = 0; k < 4; ++k) {
                const Vector3& corner = town.occluders.faces[i].corners[k];
                vertices[3 * (4 * i + k)] = static_cast<float>(corner.x / 1000.0);
                vertices[3 * (4 * i + k) + 1] = static_cast<float>(corner.y / 1000.0);
                vertices[3 * (4 * i + k) + 2] = static_cast<float>(corner.z / 1000.0);
                indices[4 * i + k] = static_cast<unsigned>(4 * i + k);
            }
        rtcCommitGeometry(geometry);
        rtcAttachGeometry(scene, geometry);
        rtcReleaseGeometry(geometry);
        rtcCommitScene(scene);
        for (int i = 0; i < kSuns; ++i)
            suns.push_back(path.DirectionAt(kSpan.start + (i + 0.5) / 60.0));
    }
    ~Case() {
        rtcReleaseScene(scene);
        rtcReleaseDevice(device);
    }
    Case(const Case&) = delete;
    Case& operator=(const Case&) = delete;

    HourSpans Wanted(const WallPoint& point) const { return path.HoursBefore(point.outward, 0.0, kSpan); }
    static SunTarget TargetOf(const WallPoint& point, double halfWidth, double halfHeight) {
        return {point.place, point.right, {0.0, 0.0, 1.0}, point.outward, halfWidth, halfHeight};
    }
    void FillRays(const WallPoint& point, std::vector<RTCRay>& rays) const {
        rays.resize(kSuns);
        for (int i = 0; i < kSuns; ++i) {
            RTCRay& ray = rays[static_cast<std::size_t>(i)];
            const Vector3& sun = suns[static_cast<std::size_t>(i)];
            ray = RTCRay();
            ray.org_x = static_cast<float>(point.place.x / 1000.0);
            ray.org_y = static_cast<float>(point.place.y / 1000.0);
            ray.org_z = static_cast<float>(point.place.z / 1000.0);
            ray.dir_x = static_cast<float>(sun.x);
            ray.dir_y = static_cast<float>(sun.y);
            ray.dir_z = static_cast<float>(sun.z);
            ray.tnear = 0.0F;
            ray.tfar = 1e9F;
            ray.mask = ~0U;
        }
    }

    Town town;
    SunPath path;
    ShadowCaster caster;
    RTCDevice device = nullptr;
    RTCScene scene = nullptr;
    std::vector<Vector3> suns;
};

const Case& CaseOf(std::size_t houses) {
    static std::map<std::size_t, std::unique_ptr<Case>> cases;
    std::unique_ptr<Case>& made = cases[houses];
    if (!made)
        made = std::make_unique<Case>(houses);
    return *made;
}

void Targets(benchmark::State& state, std::size_t houses, double halfWidth, double halfHeight) {
    const Case& each = CaseOf(houses);
    for (auto _ : state)
        for (const WallPoint& point : each.town.points)
            benchmark::DoNotOptimize(
                each.caster.HiddenHours(Case::TargetOf(point, halfWidth, halfHeight), each.Wanted(point)));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kPoints));
}

void Stream(benchmark::State& state, std::size_t houses) {
    const Case& each = CaseOf(houses);
    std::vector<RTCRay> rays;
    RTCIntersectContext context;
    rtcInitIntersectContext(&context);
    context.flags = RTC_INTERSECT_CONTEXT_FLAG_COHERENT;
    for (auto _ : state)
        for (const WallPoint& point : each.town.points) {
            each.FillRays(point, rays);
            rtcOccluded1M(each.scene, &context, rays.data(), kSuns, sizeof(RTCRay));
            benchmark::DoNotOptimize(rays.data());
        }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kPoints));
}

void Single(benchmark::State& state, std::size_t houses) {
    const Case& each = CaseOf(houses);
    std::vector<RTCRay> rays;
    RTCIntersectContext context;
    rtcInitIntersectContext(&context);
    for (auto _ : state)
        for (const WallPoint& point : each.town.points) {
            each.FillRays(point, rays);
            for (RTCRay& ray : rays)
                rtcOccluded1(each.scene, &context, &ray);
            benchmark::DoNotOptimize(rays.data());
        }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kPoints));
}

// How much of the day rays and analysis see alike, so that nobody compares the times of different answers.
void Compare(std::size_t houses) {
    const Case& each = CaseOf(houses);
    std::vector<RTCRay> rays;
    RTCIntersectContext context;
    rtcInitIntersectContext(&context);
    std::size_t differ = 0;
    for (const WallPoint& point : each.town.points) {
        each.FillRays(point, rays);
        rtcOccluded1M(each.scene, &context, rays.data(), kSuns, sizeof(RTCRay));
        const HourSpans wanted = each.Wanted(point);
        const HourSpans lit = Difference(wanted, each.caster.HiddenHours(Case::TargetOf(point, 0.0, 0.0), wanted));
        for (int i = 0; i < kSuns; ++i) {
            const double hour = kSpan.start + (i + 0.5) / 60.0;
            const bool isLit = lit.Meets({hour - 1e-9, hour + 1e-9});
            differ += isLit != (rays[static_cast<std::size_t>(i)].tfar > 0.0F);
        }
    }
    std::printf("%zu houses: %zu of %zu suns differ\n", houses, differ, kPoints * kSuns);
}

// Of a benchmark of one town.
std::string NameOf(const char* what, std::size_t houses) {
    std::string name = what;
    name += '/';
    return name += std::to_string(houses);
}

}  // namespace

int main(int argc, char** argv) {
    InitializeForMedians(argc, argv, {"--benchmark_repetitions=5", "--benchmark_min_time=0.1"});
    for (const std::size_t houses : kTowns) {
        benchmark::RegisterBenchmark(NameOf("Point", houses).c_str(), Targets, houses, 0.0, 0.0);
        benchmark::RegisterBenchmark(NameOf("Window", houses).c_str(), Targets, houses, kWindowWidth / 2,
                                     kWindowHeight / 2);
        benchmark::RegisterBenchmark(NameOf("Stream", houses).c_str(), Stream, houses);
        benchmark::RegisterBenchmark(NameOf("Single", houses).c_str(), Single, houses);
        Compare(houses);
    }
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::map<std::string, double>& times = reporter.cpuSeconds;
    for (const std::size_t houses : kTowns) {
        std::printf(
            "%zu houses: point-days a second %.0f; %.2f of the stream, %.2f of single rays; a window costs %.2f "
            "points\n",
            houses, kPoints / times[NameOf("Point", houses)],
            times[NameOf("Stream", houses)] / times[NameOf("Point", houses)],
            times[NameOf("Single", houses)] / times[NameOf("Point", houses)],
            times[NameOf("Window", houses)] / times[NameOf("Point", houses)]);
    }
    return 0;
}
