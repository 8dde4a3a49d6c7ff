// Packs a bitmap into the device-independent form that stands in files.
#include <cstdint>
#include <limits>

#include "avi/OrvoAVIFile.h"
#include "platform/media/DeviceContext.h"
#include "platform/media/Dib.h"
#include "platform/media/GlobalMemory.h"

namespace {

constexpr UINT kMostTableBits = 8;
constexpr UINT kMostBits = 0xFFFF;  // what the header has room for

struct DibSize {
    std::uint64_t entries;
    std::uint64_t pixelBytes;
    std::uint64_t Total() const { return sizeof(BITMAPINFOHEADER) + sizeof(RGBQUAD) * entries + pixelBytes; }
};

DibSize SizeOf(const BITMAP& bitmap, UINT bits) {
    const std::uint64_t row = (static_cast<std::uint64_t>(bitmap.bmWidth) * bits + 31) / 32 * 4;
    return {bits <= kMostTableBits ? std::uint64_t{1} << bits : 0, row * static_cast<std::uint64_t>(bitmap.bmHeight)};
}

void FillHeader(BITMAPINFOHEADER& header, const BITMAP& bitmap, UINT bits, const DibSize& size) {
    header.biSize = sizeof header;
    header.biWidth = bitmap.bmWidth;
    header.biHeight = bitmap.bmHeight;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(bits);
    header.biCompression = BI_RGB;
    header.biSizeImage = static_cast<DWORD>(size.pixelBytes);
    header.biClrUsed = static_cast<DWORD>(size.entries);
}

}  // namespace

HANDLE OrvoAVIFile::MakeDib(HBITMAP hBitmap, UINT bits) {
    BITMAP bitmap{};
    if (GetObject(hBitmap, sizeof bitmap, &bitmap) == 0 || bits > kMostBits)
        return nullptr;
    const DibSize size = SizeOf(bitmap, bits);
    if (size.pixelBytes == 0 || size.pixelBytes > static_cast<std::uint64_t>(std::numeric_limits<LONG>::max()))
        return nullptr;
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, static_cast<std::size_t>(size.Total()));
    void* const address = block != nullptr ? GlobalLock(block) : nullptr;
    if (address == nullptr)
        return nullptr;
    auto* const info = static_cast<BITMAPINFO*>(address);
    FillHeader(info->bmiHeader, bitmap, bits, size);
    const HDC context = CreateCompatibleDC(nullptr);
    GetDIBits(context, hBitmap, 0, static_cast<UINT>(bitmap.bmHeight), info->bmiColors + size.entries, info,
              DIB_RGB_COLORS);
    info->bmiHeader.biClrUsed = static_cast<DWORD>(size.entries);  // reading the rows resets it
    DeleteDC(context);
    GlobalUnlock(block);
    return block;
}
