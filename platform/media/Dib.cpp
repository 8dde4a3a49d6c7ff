// Writes bitmaps as device-independent ones: the fixed colour tables and the rows, packed.
#include "platform/media/Dib.h"

#include <QImage>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>

#include "platform/media/BitmapTable.h"
#include "platform/media/DeviceContext.h"
#include "platform/media/FixedPalette.h"

namespace {

using Pixels = std::span<const DWORD>;

// Packs a row of indexes of `bits` bits, the first one in a byte's highest bits. The row is zero so far.
template <int bits, class Nearest>
void PackIndexes(Pixels pixels, BYTE* row, Nearest nearest) {
    constexpr std::size_t kInByte = 8 / bits;
    for (std::size_t x = 0; x < pixels.size(); ++x) {
        const std::size_t shift = 8 - bits - x % kInByte * bits;
        row[x / kInByte] = static_cast<BYTE>(row[x / kInByte] | nearest(pixels[x]) << shift);
    }
}

DWORD ToFiveBits(DWORD channel) {
    return ((channel & 0xFF) * 31 + 127) / 255;
}

void Pack16(Pixels pixels, BYTE* row) {
    for (std::size_t x = 0; x < pixels.size(); ++x) {
        const DWORD pixel = pixels[x];
        const DWORD packed = ToFiveBits(pixel >> 16) << 10 | ToFiveBits(pixel >> 8) << 5 | ToFiveBits(pixel);
        row[2 * x] = static_cast<BYTE>(packed);
        row[2 * x + 1] = static_cast<BYTE>(packed >> 8);
    }
}

// Whole bytes: blue, green, red, and with four of them a zero that is there already.
template <std::size_t bytes>
void PackBytes(Pixels pixels, BYTE* row) {
    for (std::size_t x = 0; x < pixels.size(); ++x) {
        row[bytes * x] = static_cast<BYTE>(pixels[x]);
        row[bytes * x + 1] = static_cast<BYTE>(pixels[x] >> 8);
        row[bytes * x + 2] = static_cast<BYTE>(pixels[x] >> 16);
    }
}

void PackRow(Pixels pixels, int bits, BYTE* row) {
    switch (bits) {
        case 1:
            return PackIndexes<1>(pixels, row, NearestOfTwo);
        case 4:
            return PackIndexes<4>(pixels, row, NearestOfSixteen);
        case 8:
            return PackIndexes<8>(pixels, row, NearestOf256);
        case 16:
            return Pack16(pixels, row);
        case 24:
            return PackBytes<3>(pixels, row);
        default:
            return PackBytes<4>(pixels, row);
    }
}

bool IsWritable(const BITMAPINFOHEADER& header, const QImage& picture) {
    constexpr WORD kDepths[] = {1, 4, 8, 16, 24, 32};
    const std::int64_t height = header.biHeight;
    return header.biSize == sizeof(BITMAPINFOHEADER) && header.biPlanes == 1 && header.biCompression == BI_RGB &&
           std::find(std::begin(kDepths), std::end(kDepths), header.biBitCount) != std::end(kDepths) &&
           header.biWidth == picture.width() && (height == picture.height() || height == -picture.height());
}

void WriteColourTable(int bits, BYTE* table) {
    for (const DWORD colour : FixedPalette(bits)) {
        const RGBQUAD entry = {static_cast<BYTE>(colour), static_cast<BYTE>(colour >> 8),
                               static_cast<BYTE>(colour >> 16), 0};
        std::memcpy(table, &entry, sizeof entry);
        table += sizeof entry;
    }
}

}  // namespace

int GetDIBits(HDC context, HBITMAP bitmap, UINT start, UINT lines, void* bits, BITMAPINFO* info, UINT usage) {
    const std::shared_ptr<const QImage> picture = FindPicture(bitmap);
    if (!picture || !IsDeviceContext(context) || info == nullptr || usage != DIB_RGB_COLORS)
        return 0;
    // The caller's structure may stand anywhere in a file's bytes, and its table is longer than the type says.
    BITMAPINFOHEADER header;
    std::memcpy(&header, static_cast<const void*>(info), sizeof header);
    if (!IsWritable(header, *picture))
        return 0;
    const auto height = static_cast<UINT>(picture->height());
    const UINT count = start < height ? std::min(lines, height - start) : 0;
    if (bits != nullptr && count == 0)
        return 0;

    const std::size_t rowBytes = (static_cast<std::size_t>(header.biWidth) * header.biBitCount + 31) / 32 * 4;
    header.biSizeImage = static_cast<DWORD>(rowBytes * height);
    header.biClrUsed = 0;
    std::memcpy(static_cast<void*>(info), &header, sizeof header);
    WriteColourTable(header.biBitCount, reinterpret_cast<BYTE*>(info) + sizeof header);
    if (bits == nullptr)
        return 1;

    auto* row = static_cast<BYTE*>(bits);
    for (UINT line = start; line < start + count; ++line, row += rowBytes) {
        const UINT y = header.biHeight > 0 ? height - 1 - line : line;
        const auto* pixels = reinterpret_cast<const DWORD*>(picture->constScanLine(static_cast<int>(y)));
        std::memset(row, 0, rowBytes);
        PackRow({pixels, static_cast<std::size_t>(header.biWidth)}, header.biBitCount, row);
    }
    return static_cast<int>(count);
}
