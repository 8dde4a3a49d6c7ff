// How many days of points an analysis gives in a second, beside rays: a fan of 480 one-minute suns for each point, cast
// by Embree as one coherent stream and one by one, on the same towns, with the same points, on one core.
#include <benchmark/benchmark.h>
#include <embree3/rtcore.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "MedianReporter.h"
#include "Town.h"
#include "analysis/ShadowCaster.h"
#include "analysis/SharedWork.h"

namespace {

constexpr std::size_t kPoints = 400;
constexpr int kSuns = 480;
constexpr SunPeriod kSpan{8.0, 16.0};
constexpr double kLatitude = 39.92;
constexpr double kDeclination = -23.43;
constexpr double kWindowWidth = 1500.0;
constexpr double kWindowHeight = 1500.0;
constexpr std::size_t kTowns[] = {100, 1000, 10000};
constexpr std::size_t kBetween[] = {300, 3000, 30000};  // for how the cost of a window grows

struct Case {
    explicit Case(std::size_t houses, std::size_t points = kPoints)
        : town(MakeTown(houses, points)),
          path(kDeclination, kLatitude, 0.0),
          caster(town.occluders, path, kSpan, 1.0) {}

    HourSpans Wanted(const WallPoint& point) const { return path.HoursBefore(point.outward, 0.0, kSpan); }

    Town town;
    SunPath path;
    ShadowCaster caster;
};

SunTarget TargetOf(const WallPoint& point, double halfWidth, double halfHeight) {
    return {point.place, point.right, {0.0, 0.0, 1.0}, point.outward, halfWidth, halfHeight};
}

const Case& CaseOf(std::size_t houses) {
    static std::map<std::size_t, std::unique_ptr<Case>> cases;
    std::unique_ptr<Case>& made = cases[houses];
    if (!made)
        made = std::make_unique<Case>(houses);
    return *made;
}

// The same town for rays, in metres.
class Rays {
public:
    explicit Rays(const Case& of) : m_device(rtcNewDevice("threads=1,set_affinity=0")), m_scene(rtcNewScene(m_device)) {
        rtcSetSceneBuildQuality(m_scene, RTC_BUILD_QUALITY_HIGH);
        Fill(of.town.occluders.faces);
        for (int i = 0; i < kSuns; ++i)
            m_suns.push_back(of.path.DirectionAt(kSpan.start + (i + 0.5) / 60.0));
    }
    ~Rays() {
        rtcReleaseScene(m_scene);
        rtcReleaseDevice(m_device);
    }
    Rays(const Rays&) = delete;
    Rays& operator=(const Rays&) = delete;

    RTCScene Scene() const { return m_scene; }
    void Make(const WallPoint& point, std::vector<RTCRay>& rays) const {
        rays.resize(kSuns);
        for (std::size_t i = 0; i < m_suns.size(); ++i) {
            RTCRay& ray = rays[i];
            ray = RTCRay();
            ray.org_x = Metres(point.place.x);
            ray.org_y = Metres(point.place.y);
            ray.org_z = Metres(point.place.z);
            ray.dir_x = static_cast<float>(m_suns[i].x);
            ray.dir_y = static_cast<float>(m_suns[i].y);
            ray.dir_z = static_cast<float>(m_suns[i].z);
            ray.tfar = 1e9F;
            ray.mask = ~0U;
        }
    }

private:
    static float Metres(double millimetres) { return static_cast<float>(millimetres / 1000.0); }

    void Fill(const std::vector<Occluder>& faces) {
        RTCGeometry geometry = rtcNewGeometry(m_device, RTC_GEOMETRY_TYPE_QUAD);
        auto* corner = static_cast<float*>(rtcSetNewGeometryBuffer(
            geometry, RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3, 3 * sizeof(float), 4 * faces.size()));
        auto* const indices = static_cast<unsigned*>(rtcSetNewGeometryBuffer(
            geometry, RTC_BUFFER_TYPE_INDEX, 0, RTC_FORMAT_UINT4, 4 * sizeof(unsigned), faces.size()));
        for (const Occluder& face : faces)
            for (const Vector3& place : face.corners) {
                *corner++ = Metres(place.x);
                *corner++ = Metres(place.y);
                *corner++ = Metres(place.z);
            }
        for (unsigned i = 0; i < 4 * faces.size(); ++i)
            indices[i] = i;
        rtcCommitGeometry(geometry);
        rtcAttachGeometry(m_scene, geometry);
        rtcReleaseGeometry(geometry);
        rtcCommitScene(m_scene);
    }

    RTCDevice m_device;
    RTCScene m_scene;
    std::vector<Vector3> m_suns;
};

const Rays& RaysOf(std::size_t houses) {
    static std::map<std::size_t, std::unique_ptr<Rays>> rays;
    std::unique_ptr<Rays>& made = rays[houses];
    if (!made)
        made = std::make_unique<Rays>(CaseOf(houses));
    return *made;
}

void Targets(benchmark::State& state, std::size_t houses, double halfWidth, double halfHeight) {
    const Case& each = CaseOf(houses);
    for (auto _ : state)
        for (const WallPoint& point : each.town.points)
            benchmark::DoNotOptimize(
                each.caster.HiddenHours(TargetOf(point, halfWidth, halfHeight), each.Wanted(point)));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kPoints));
}

void Stream(benchmark::State& state, std::size_t houses) {
    const Case& each = CaseOf(houses);
    const Rays& of = RaysOf(houses);
    std::vector<RTCRay> rays;
    RTCIntersectContext context;
    rtcInitIntersectContext(&context);
    context.flags = RTC_INTERSECT_CONTEXT_FLAG_COHERENT;
    for (auto _ : state)
        for (const WallPoint& point : each.town.points) {
            of.Make(point, rays);
            rtcOccluded1M(of.Scene(), &context, rays.data(), kSuns, sizeof(RTCRay));
            benchmark::DoNotOptimize(rays.data());
        }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kPoints));
}

void Single(benchmark::State& state, std::size_t houses) {
    const Case& each = CaseOf(houses);
    const Rays& of = RaysOf(houses);
    std::vector<RTCRay> rays;
    RTCIntersectContext context;
    rtcInitIntersectContext(&context);
    for (auto _ : state)
        for (const WallPoint& point : each.town.points) {
            of.Make(point, rays);
            for (RTCRay& ray : rays)
                rtcOccluded1(of.Scene(), &context, &ray);
            benchmark::DoNotOptimize(rays.data());
        }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kPoints));
}

// How much of the day rays and analysis see alike, so that nobody compares the times of different answers.
void Compare(std::size_t houses) {
    const Case& each = CaseOf(houses);
    const Rays& of = RaysOf(houses);
    std::vector<RTCRay> rays;
    RTCIntersectContext context;
    rtcInitIntersectContext(&context);
    std::size_t differ = 0;
    for (const WallPoint& point : each.town.points) {
        of.Make(point, rays);
        rtcOccluded1M(of.Scene(), &context, rays.data(), kSuns, sizeof(RTCRay));
        const HourSpans wanted = each.Wanted(point);
        const HourSpans lit = Difference(wanted, each.caster.HiddenHours(TargetOf(point, 0.0, 0.0), wanted));
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

void RegisterTargets(std::size_t houses) {
    benchmark::RegisterBenchmark(NameOf("Point", houses).c_str(), Targets, houses, 0.0, 0.0);
    benchmark::RegisterBenchmark(NameOf("Window", houses).c_str(), Targets, houses, kWindowWidth / 2,
                                 kWindowHeight / 2);
}

// One line for each town that was measured: faces, microseconds for a point and for a window.
void PrintGrowth(std::map<std::string, double>& times) {
    std::vector<std::size_t> towns(std::begin(kTowns), std::end(kTowns));
    towns.insert(towns.end(), std::begin(kBetween), std::end(kBetween));
    std::sort(towns.begin(), towns.end());
    constexpr double kMicroseconds = 1e6 / kPoints;
    std::printf("faces,point,window\n");
    for (const std::size_t houses : towns)
        std::printf("%zu,%.3f,%.3f\n", CaseOf(houses).town.occluders.faces.size(),
                    times[NameOf("Point", houses)] * kMicroseconds, times[NameOf("Window", houses)] * kMicroseconds);
}

// The least time that so many threads take for the windows of a town; others may be busy on the machine meanwhile.
double SecondsWith(unsigned threads, const Case& each) {
    constexpr int kTurns = 25;
    double least = std::numeric_limits<double>::infinity();
    for (int turn = 0; turn < kTurns; ++turn) {
        const auto start = std::chrono::steady_clock::now();
        ShareWork(
            each.town.points.size(), threads,
            [&](std::size_t i) {
                const WallPoint& point = each.town.points[i];
                benchmark::DoNotOptimize(
                    each.caster.HiddenHours(TargetOf(point, kWindowWidth / 2, kWindowHeight / 2), each.Wanted(point)));
            },
            [](std::size_t) { return true; });
        least = std::min(least, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return least;
}

void PrintThreads() {
    const Case town(1000, 40'000);
    std::printf("two threads do %.2f times what one does\n", SecondsWith(1, town) / SecondsWith(2, town));
}

}  // namespace

int main(int argc, char** argv) {
    InitializeForMedians(argc, argv, {"--benchmark_repetitions=9", "--benchmark_min_time=0.05"});
    for (const std::size_t houses : kTowns) {
        RegisterTargets(houses);
        benchmark::RegisterBenchmark(NameOf("Stream", houses).c_str(), Stream, houses);
        benchmark::RegisterBenchmark(NameOf("Single", houses).c_str(), Single, houses);
        Compare(houses);
    }
    for (const std::size_t houses : kBetween)
        RegisterTargets(houses);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::map<std::string, double>& times = reporter.cpuSeconds;
    for (const std::size_t houses : kTowns)
        std::printf(
            "%zu houses: point-days a second %.0f; %.2f of the stream, %.2f of single rays; a window costs %.2f "
            "points\n",
            houses, kPoints / times[NameOf("Point", houses)],
            times[NameOf("Stream", houses)] / times[NameOf("Point", houses)],
            times[NameOf("Single", houses)] / times[NameOf("Point", houses)],
            times[NameOf("Window", houses)] / times[NameOf("Point", houses)]);
    PrintGrowth(times);
    PrintThreads();
    return 0;
}
