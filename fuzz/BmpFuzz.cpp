// Any bytes as a BMP file: refused, or a bitmap in proportion to the file, which can be recorded in every depth.
#include <cstddef>
#include <cstdint>

#include "avi/OrvoAVIFile.h"
#include "fuzz/MemoryFile.h"
#include "platform/media/DeviceContext.h"
#include "platform/media/GlobalMemory.h"

namespace {

// The most bytes of a picture in memory for each in the file: 256 with run-length coding, 32 with one bit a pixel.
constexpr std::uint64_t kMostExpansion = 256;

void TryFile(OrvoAVIFile& recorder, const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    CBitmap bitmap;
    if (!recorder.LoadBMPImage(file.Path(), bitmap)) {
        Require(bitmap.GetSafeHandle() == nullptr);
        return;
    }
    BITMAP information{};
    Require(bitmap.GetBitmap(&information) != 0 && information.bmWidth > 0 && information.bmHeight > 0);
    const auto pixels =
        static_cast<std::uint64_t>(information.bmWidth) * static_cast<std::uint64_t>(information.bmHeight);
    Require(4 * pixels <= kMostExpansion * size);
    for (const UINT bits : {1U, 4U, 8U, 16U, 24U, 32U}) {
        const HANDLE dib = recorder.MakeDib(bitmap, bits);
        Require(dib != nullptr && GlobalFree(dib) == nullptr);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    OrvoAVIFile recorder;
    TryFile(recorder, data, size);
    Require(LiveGlobalBlocks() == 0 && LiveBitmaps() == 0 && LiveDeviceContexts() == 0);
    return 0;
}
