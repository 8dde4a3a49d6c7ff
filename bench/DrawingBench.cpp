// Opening a large drawing beside the least that it could cost: reading the same file whole and counting its lines.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>

#include "MedianReporter.h"
#include "platform/base/CString.h"
#include "platform/host/AcDbDatabase.h"

namespace {

constexpr std::size_t kFileBytes = 100'000'000;
constexpr int kRounds = 7;

std::string g_path;
std::size_t g_bytes = 0;
std::size_t g_entities = 0;

// Lines, texts and polylines as drawing programs write them, until the file is large enough.
void WriteDrawing() {
    std::ofstream file(g_path, std::ios::binary);
    file << "  0\r\nSECTION\r\n  2\r\nHEADER\r\n  9\r\n$ACADVER\r\n  1\r\nAC1015\r\n  9\r\n$INSUNITS\r\n 70\r\n     "
            "4\r\n"
            "  0\r\nENDSEC\r\n  0\r\nSECTION\r\n  2\r\nENTITIES\r\n";
    std::mt19937 random(1);
    std::uint64_t handle = 0x100;
    char text[64];
    const auto number = [&](int code) {
        std::snprintf(text, sizeof text, "%3d\r\n%.6f\r\n", code, static_cast<double>(random()) / 1e4);
        file << text;
    };
    while (static_cast<std::size_t>(file.tellp()) < kFileBytes) {
        const char* const types[] = {"LINE", "TEXT", "LWPOLYLINE"};
        const std::size_t kind = random() % 3;
        std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(handle++));
        file << "  0\r\n"
             << types[kind] << "\r\n  5\r\n"
             << text << "\r\n330\r\n1F\r\n100\r\nAcDbEntity\r\n  8\r\nWALL\r\n";
        for (std::size_t point = kind == 2 ? 4 + random() % 8 : 2; point > 0; --point) {
            number(10);
            number(20);
        }
        file << " 40\r\n2.5\r\n";
        ++g_entities;
    }
    file << "  0\r\nENDSEC\r\n  0\r\nEOF\r\n";
    g_bytes = static_cast<std::size_t>(file.tellp());
}

void ReadAndCountLines(benchmark::State& state) {
    for (auto unused : state) {
        std::FILE* const file = std::fopen(g_path.c_str(), "rb");
        const auto bytes = std::make_unique_for_overwrite<char[]>(g_bytes);
        if (!file || std::fread(bytes.get(), 1, g_bytes, file) != g_bytes)
            std::abort();
        std::fclose(file);
        benchmark::DoNotOptimize(std::count(bytes.get(), bytes.get() + g_bytes, '\n'));
    }
}

void OpenDrawing(benchmark::State& state) {
    const CString path = FromUtf8(g_path);
    for (auto unused : state) {
        AcDbDatabase database;
        if (database.dxfIn(path) != Acad::eOk || database.GetEntityCount() != g_entities)
            std::abort();
    }
}

void FindEveryHandle(benchmark::State& state) {
    AcDbDatabase database;
    if (database.dxfIn(FromUtf8(g_path)) != Acad::eOk)
        std::abort();
    for (auto unused : state) {
        for (std::size_t i = 0; i < g_entities; ++i)
            if (database.FindHandle(0x100 + i).isNull())
                std::abort();
    }
}

long PeakKilobytes() {
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

}  // namespace

BENCHMARK(ReadAndCountLines)->Iterations(1)->Repetitions(kRounds)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenDrawing)->Iterations(1)->Repetitions(kRounds)->Unit(benchmark::kMillisecond);
BENCHMARK(FindEveryHandle)->Iterations(1)->Repetitions(kRounds)->Unit(benchmark::kMillisecond);

// ORVO_BENCH_FOLDER names the folder for the drawing; the current one without.
int main(int argc, char** argv) {
    const char* const wanted = std::getenv("ORVO_BENCH_FOLDER");
    g_path = std::string(wanted ? wanted : ".") + "/drawing-bench-" + std::to_string(getpid()) + ".dxf";
    WriteDrawing();
    const long before = PeakKilobytes();
    {
        AcDbDatabase database;
        if (database.dxfIn(FromUtf8(g_path)) != Acad::eOk)
            std::abort();
    }
    const long peak = PeakKilobytes() - before;

    InitializeForMedians(argc, argv);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::filesystem::remove(g_path);

    const double plain = reporter.realSeconds["ReadAndCountLines"];
    const double open = reporter.realSeconds["OpenDrawing"];
    const double find = reporter.realSeconds["FindEveryHandle"];
    std::printf("A drawing of %.0f MB with %zu entities; opening takes %.2f bytes of memory a byte\n",
                static_cast<double>(g_bytes) / 1e6, g_entities,
                static_cast<double>(peak) * 1024 / static_cast<double>(g_bytes));
    if (plain > 0 && open > 0)
        std::printf("Opening: %.0f ms (at most 3000), reading and counting lines: %.0f ms, ratio %.2f (at most 3)\n",
                    open * 1e3, plain * 1e3, open / plain);
    if (find > 0)
        std::printf("Finding a handle: %.0f ns\n", find * 1e9 / static_cast<double>(g_entities));
    return 0;
}
