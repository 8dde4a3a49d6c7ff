// Makes bitmaps from device-independent ones. What a header says is checked as a whole before anything is read, and
// the caller's structures are copied first: they may stand anywhere in a file's bytes.
#include <QImage>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>

#include "platform/media/BitmapTable.h"
#include "platform/media/DeviceContext.h"
#include "platform/media/Dib.h"
#include "platform/media/RunLength.h"

namespace {

// All 256, so that an index beyond the caller's table finds black.
using Palette = std::array<DWORD, 256>;

// The bits of a pixel that make up one of its channels.
class Channel {
public:
    explicit Channel(DWORD mask)
        : m_mask(mask), m_shift(mask == 0 ? 0 : std::countr_zero(mask)), m_most(mask >> m_shift) {}

    // From 0 to 255, rounded; 0 when there are no bits.
    DWORD Of(DWORD pixel) const {
        const DWORD value = (pixel & m_mask) >> m_shift;
        if (m_most == 0 || m_most == 255)
            return value;
        return static_cast<DWORD>((std::uint64_t{value} * 255 + m_most / 2) / m_most);
    }

private:
    DWORD m_mask;
    int m_shift;
    DWORD m_most;
};

struct Masks {
    Channel red;
    Channel green;
    Channel blue;

    DWORD Colour(DWORD pixel) const { return red.Of(pixel) << 16 | green.Of(pixel) << 8 | blue.Of(pixel); }
};

bool IsReadableForm(const BITMAPINFOHEADER& header) {
    const WORD bits = header.biBitCount;
    switch (header.biCompression) {
        case BI_RGB:
            return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
        case BI_BITFIELDS:
            return bits == 16 || bits == 32;
        case BI_RLE8:
        case BI_RLE4:  // rows can only run from the bottom up, and only biSizeImage tells where the bytes end
            return bits == (header.biCompression == BI_RLE8 ? 8 : 4) && header.biHeight > 0 && header.biSizeImage > 0;
        default:
            return false;
    }
}

std::int64_t Rows(const BITMAPINFOHEADER& header) {
    return std::abs(std::int64_t{header.biHeight});
}

// What stands right behind the header: the colour table, up to 8 bits.
Palette ReadPalette(const BITMAPINFOHEADER& header, const BYTE* table) {
    Palette palette{};
    const DWORD most = DWORD{1} << header.biBitCount;
    const DWORD count = header.biClrUsed == 0 ? most : std::min(header.biClrUsed, most);
    for (DWORD i = 0; i < count; ++i) {
        const BYTE* entry = table + std::size_t{4} * i;
        palette[i] = static_cast<DWORD>(entry[2] << 16 | entry[1] << 8 | entry[0]);
    }
    return palette;
}

// ... or the three masks, with bit fields. Without them 16 bits are five for each channel.
Masks ReadMasks(const BITMAPINFOHEADER& header, const BYTE* table) {
    DWORD masks[3] = {0xFF0000, 0x00FF00, 0x0000FF};
    if (header.biCompression == BI_BITFIELDS)
        std::memcpy(masks, table, sizeof masks);
    else if (header.biBitCount == 16)
        return {Channel(0x7C00), Channel(0x03E0), Channel(0x001F)};
    return {Channel(masks[0]), Channel(masks[1]), Channel(masks[2])};
}

// Indexes of less than a byte stand from a byte's highest bits down.
void ReadIndexes(const BYTE* row, std::size_t bits, const Palette& palette, std::span<DWORD> pixels) {
    const std::size_t inByte = 8 / bits;
    const int mask = (1 << bits) - 1;
    for (std::size_t x = 0; x < pixels.size(); ++x) {
        const std::size_t shift = 8 - bits - x % inByte * bits;
        pixels[x] = palette[static_cast<std::size_t>(row[x / inByte] >> shift & mask)];
    }
}

// Pixels of 2, 3 or 4 bytes, the lowest one first.
void ReadWholeBytes(const BYTE* row, std::size_t bytes, const Masks& masks, std::span<DWORD> pixels) {
    for (std::size_t x = 0; x < pixels.size(); ++x) {
        DWORD pixel = 0;
        for (std::size_t i = 0; i < bytes; ++i)
            pixel |= DWORD{row[bytes * x + i]} << 8 * i;
        pixels[x] = masks.Colour(pixel);
    }
}

void ReadRows(const BITMAPINFOHEADER& header, const BYTE* table, const BYTE* bits, QImage& picture) {
    const std::size_t depth = header.biBitCount;
    const std::size_t width = static_cast<std::size_t>(header.biWidth);
    const std::size_t rowBytes = (width * depth + 31) / 32 * 4;
    const bool isIndexed = depth <= 8;
    const Palette palette = isIndexed ? ReadPalette(header, table) : Palette{};
    const Masks masks = ReadMasks(header, isIndexed ? nullptr : table);
    const int height = picture.height();
    for (int line = 0; line < height; ++line, bits += rowBytes) {
        const int y = header.biHeight > 0 ? height - 1 - line : line;
        const std::span<DWORD> pixels(reinterpret_cast<DWORD*>(picture.scanLine(y)), width);
        if (isIndexed)
            ReadIndexes(bits, depth, palette, pixels);
        else
            ReadWholeBytes(bits, depth / 8, masks, pixels);
    }
}

// A picture of that size from the caller's bytes; null when their description is refused.
std::shared_ptr<QImage> ReadPicture(const BITMAPINFOHEADER& size, const void* bits, const void* info) {
    if (bits == nullptr || info == nullptr)
        return nullptr;
    BITMAPINFOHEADER header;
    std::memcpy(&header, info, sizeof header);
    if (header.biPlanes != 1 || header.biWidth != size.biWidth || Rows(header) != Rows(size) || !IsReadableForm(header))
        return nullptr;
    std::shared_ptr<QImage> picture = NewPicture(header.biWidth, Rows(header));
    if (!picture)
        return nullptr;
    const BYTE* table = static_cast<const BYTE*>(info) + sizeof header;
    const BYTE* from = static_cast<const BYTE*>(bits);
    if (header.biCompression == BI_RLE8 || header.biCompression == BI_RLE4)
        DecodeRunLengths({from, header.biSizeImage}, header.biBitCount, ReadPalette(header, table), *picture);
    else
        ReadRows(header, table, from, *picture);
    return picture;
}

}  // namespace

HBITMAP CreateDIBitmap(HDC context, const BITMAPINFOHEADER* header, DWORD init, const void* bits,
                       const BITMAPINFO* info, UINT usage) {
    if (!IsDeviceContext(context) || header == nullptr || usage != DIB_RGB_COLORS)
        return nullptr;
    BITMAPINFOHEADER size;
    std::memcpy(&size, static_cast<const void*>(header), sizeof size);
    return AddPicture(init == CBM_INIT ? ReadPicture(size, bits, info) : NewPicture(size.biWidth, Rows(size)));
}
