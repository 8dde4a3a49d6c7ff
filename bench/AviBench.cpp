// Recording large frames beside the least that it could cost: plain write() of the same bytes to the same disk, and
// another program writing them as an AVI. And what turning a true-colour frame into 8 bits takes.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "MedianReporter.h"
#include "platform/base/CString.h"
#include "platform/media/AviFile.h"
#include "platform/media/CBitmap.h"
#include "platform/media/DeviceContext.h"
#include "platform/media/Dib.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr int kFrames = 100;
constexpr int kRounds = 7;
constexpr std::size_t kFrameBytes = std::size_t{3} * kWidth * kHeight;

std::vector<char> Frame(unsigned seed) {
    std::vector<char> frame(kFrameBytes);
    std::mt19937 random(seed);
    for (char& byte : frame)
        byte = static_cast<char>(random());
    return frame;
}

double Seconds(Clock::time_point since) {
    return std::chrono::duration<double>(Clock::now() - since).count();
}

double WritePlain(const fs::path& path, const std::vector<std::vector<char>>& frames) {
    const Clock::time_point start = Clock::now();
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    for (int i = 0; i < kFrames; ++i) {
        const std::vector<char>& frame = frames[static_cast<std::size_t>(i) % frames.size()];
        if (write(file, frame.data(), frame.size()) != static_cast<ssize_t>(frame.size()))
            std::abort();
    }
    close(file);
    return Seconds(start);
}

double WriteAvi(const fs::path& path, std::vector<std::vector<char>>& frames) {
    const Clock::time_point start = Clock::now();
    AVISTREAMINFOW info{};
    info.fccType = streamtypeVIDEO;
    info.dwScale = 1;
    info.dwRate = 1;
    info.rcFrame = {0, 0, kWidth, kHeight};
    BITMAPINFOHEADER format = {40, kWidth, kHeight, 1, 24, BI_RGB, kFrameBytes, 0, 0, 0, 0};
    PAVIFILE file = nullptr;
    PAVISTREAM stream = nullptr;
    if (AVIFileOpenW(&file, FromUtf8(path.string()), OF_WRITE | OF_CREATE, nullptr) != AVIERR_OK ||
        AVIFileCreateStreamW(file, &stream, &info) != AVIERR_OK ||
        AVIStreamSetFormat(stream, 0, &format, sizeof format) != AVIERR_OK)
        std::abort();
    for (int i = 0; i < kFrames; ++i) {
        std::vector<char>& frame = frames[static_cast<std::size_t>(i) % frames.size()];
        if (AVIStreamWrite(stream, i, 1, frame.data(), static_cast<LONG>(frame.size()), AVIIF_KEYFRAME, nullptr,
                           nullptr) != AVIERR_OK)
            std::abort();
    }
    AVIStreamRelease(stream);
    AVIFileRelease(file);
    return Seconds(start);
}

// The same frames through ffmpeg, which reads them from a file that is in memory.
double WriteWithFfmpeg(const fs::path& path, const fs::path& raw) {
    const std::string command =
        "ffmpeg -v error -nostdin -y -f rawvideo -pix_fmt bgr24 -s 1920x1080 -framerate 1 -i '" + raw.string() +
        "' -c:v rawvideo '" + path.string() + "'";
    const Clock::time_point start = Clock::now();
    const int status = std::system(command.c_str());
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? Seconds(start) : 0.0;
}

// One conversion of a frame whose pixels are all different.
void ToEightBits(benchmark::State& state) {
    std::vector<DWORD> pixels(std::size_t{kWidth} * kHeight);
    std::mt19937 random(5);
    for (DWORD& pixel : pixels)
        pixel = static_cast<DWORD>(random()) & 0xFFFFFF;
    CBitmap bitmap;
    bitmap.CreateBitmap(kWidth, kHeight, 1, 32, pixels.data());
    std::vector<char> block(sizeof(BITMAPINFOHEADER) + 1024);
    auto* info = reinterpret_cast<BITMAPINFO*>(block.data());
    std::vector<char> rows(std::size_t{kWidth} * kHeight);
    const HDC context = CreateCompatibleDC(nullptr);
    for (auto unused : state) {
        info->bmiHeader = {40, kWidth, kHeight, 1, 8, BI_RGB, 0, 0, 0, 0, 0};
        if (GetDIBits(context, bitmap, 0, kHeight, rows.data(), info, DIB_RGB_COLORS) != kHeight)
            std::abort();
    }
    DeleteDC(context);
}

// The folder to write to, and what is written.
fs::path g_folder;
std::vector<std::vector<char>>& Frames() {
    static std::vector<std::vector<char>> frames = {Frame(0), Frame(1), Frame(2), Frame(3)};
    return frames;
}

// Each file is gone before the next one is written: old files must be as far from the disk as new ones.
void PlainWrite(benchmark::State& state) {
    for (auto unused : state) {
        state.SetIterationTime(WritePlain(g_folder / "raw", Frames()));
        fs::remove(g_folder / "raw");
    }
}

void AviStreamWrite(benchmark::State& state) {
    for (auto unused : state) {
        state.SetIterationTime(WriteAvi(g_folder / "ours.avi", Frames()));
        fs::remove(g_folder / "ours.avi");
    }
}

void FfmpegRawVideo(benchmark::State& state) {
    WritePlain(g_folder / "raw", Frames());
    for (auto unused : state) {
        state.SetIterationTime(WriteWithFfmpeg(g_folder / "other.avi", g_folder / "raw"));
        fs::remove(g_folder / "other.avi");
    }
    fs::remove(g_folder / "raw");
}

}  // namespace

BENCHMARK(PlainWrite)->UseManualTime()->Iterations(1)->Repetitions(kRounds)->Unit(benchmark::kMillisecond);
BENCHMARK(AviStreamWrite)->UseManualTime()->Iterations(1)->Repetitions(kRounds)->Unit(benchmark::kMillisecond);
BENCHMARK(FfmpegRawVideo)->UseManualTime()->Iterations(1)->Repetitions(kRounds)->Unit(benchmark::kMillisecond);
BENCHMARK(ToEightBits)->Iterations(5)->Repetitions(kRounds)->Unit(benchmark::kMillisecond);

// ORVO_BENCH_FOLDER names the folder to write to; the current one without.
int main(int argc, char** argv) {
    const char* const wanted = std::getenv("ORVO_BENCH_FOLDER");
    g_folder = fs::path(wanted ? wanted : ".") / ("avi-bench-" + std::to_string(getpid()));
    fs::create_directories(g_folder);
    AVIFileInit();
    InitializeForMedians(argc, argv);
    MedianReporter recorder;
    benchmark::RunSpecifiedBenchmarks(&recorder);
    AVIFileExit();
    fs::remove_all(g_folder);

    const double megabytes = static_cast<double>(kFrameBytes) * kFrames / 1e6;
    const double plain = recorder.realSeconds["PlainWrite"];
    const double avi = recorder.realSeconds["AviStreamWrite"];
    const double other = recorder.realSeconds["FfmpegRawVideo"];
    if (plain > 0 && avi > 0)
        std::printf("AVIStreamWrite: %.0f MB/s, plain write(): %.0f MB/s, ratio %.2f (at least 0.8)\n", megabytes / avi,
                    megabytes / plain, plain / avi);
    if (other > 0 && avi > 0)
        std::printf("ffmpeg's rawvideo AVI: %.0f MB/s; ours is %.2f times as fast (at least 1)\n", megabytes / other,
                    other / avi);
    if (recorder.realSeconds["ToEightBits"] > 0)
        std::printf("1920x1080 to 8 bits: %.1f ms (at most 30)\n", recorder.realSeconds["ToEightBits"] * 1e3);
    return 0;
}
