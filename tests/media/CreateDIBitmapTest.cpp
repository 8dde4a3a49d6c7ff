// Making bitmaps from device-independent ones: every uncompressed form, tables and masks, and what is refused.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <memory>

#include "media/DibForTests.h"

namespace {

using Bytes = std::vector<BYTE>;
using Colours = std::vector<DWORD>;

HBITMAP Create(DibInfo& info, const Bytes& bytes) {
    // A copy of just that many bytes, so that the sanitizer sees a step beyond.
    const std::unique_ptr<BYTE[]> exact(new BYTE[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), exact.get());
    const ScreenForTests screen;
    return CreateDIBitmap(screen, &info.Header(), CBM_INIT, exact.get(), info.Get(), DIB_RGB_COLORS);
}

// The pixels from top to bottom; none when there is no bitmap.
Colours Read(DibInfo& info, const Bytes& bytes) {
    CBitmap bitmap;
    BITMAP size;
    if (!bitmap.Attach(Create(info, bytes)) || bitmap.GetBitmap(&size) == 0)
        return {};
    EXPECT_EQ(size.bmWidth, info.Header().biWidth);
    EXPECT_EQ(size.bmHeight, std::abs(info.Header().biHeight));
    Colours pixels(static_cast<std::size_t>(size.bmWidth) * static_cast<std::size_t>(size.bmHeight), 0xDEADBEEF);
    EXPECT_TRUE(ReadBitmapPixels(bitmap, pixels.data()));
    return pixels;
}

TEST(CreateDIBitmap, ReadsRowsFromTheBottomUp) {
    DibInfo info(1, 2, 24, BI_RGB, 0);
    EXPECT_EQ(Read(info, {1, 2, 3, 0xEE, 4, 5, 6, 0xEE}), (Colours{0x060504, 0x030201}));
}

TEST(CreateDIBitmap, ReadsRowsFromTheTopDownForANegativeHeight) {
    DibInfo info(1, -2, 24, BI_RGB, 0);
    EXPECT_EQ(Read(info, {1, 2, 3, 0xEE, 4, 5, 6, 0xEE}), (Colours{0x030201, 0x060504}));
}

TEST(CreateDIBitmap, ReadsOneBit) {
    DibInfo info(10, 1, 1, BI_RGB, 2);
    info.SetEntries({0x112233, 0x445566});
    const DWORD o = 0x112233;
    const DWORD i = 0x445566;
    EXPECT_EQ(Read(info, {0xA1, 0x7F, 0xFF, 0xFF}), (Colours{i, o, i, o, o, o, o, i, o, i}));
}

TEST(CreateDIBitmap, ReadsFourBits) {
    DibInfo info(3, 1, 4, BI_RGB, 16);
    for (DWORD i = 0; i < 16; ++i)
        info.SetEntry(i, 0x010203 * i);
    EXPECT_EQ(Read(info, {0x2F, 0x73, 0xFF, 0xFF}), (Colours{0x010203 * 2, 0x010203 * 15, 0x010203 * 7}));
}

TEST(CreateDIBitmap, ReadsEightBits) {
    DibInfo info(5, 1, 8, BI_RGB, 256);
    for (DWORD i = 0; i < 256; ++i)
        info.SetEntry(i, 0x010000 * i + 0x000001 * (255 - i));
    EXPECT_EQ(Read(info, {0, 1, 128, 254, 255, 9, 9, 9}), (Colours{0x0000FF, 0x0100FE, 0x80007F, 0xFE0001, 0xFF0000}));
}

TEST(CreateDIBitmap, IgnoresTheReservedByteOfATable) {
    DibInfo info(1, 1, 8, BI_RGB, 256);
    info.SetEntry(3, 0xFF123456);
    EXPECT_EQ(Read(info, {3, 0, 0, 0}), (Colours{0x123456}));
}

TEST(CreateDIBitmap, TakesIndexesBeyondTheTableForBlack) {
    DibInfo info(4, 1, 8, BI_RGB, 2);
    info.Header().biClrUsed = 2;
    info.SetEntries({0x111111, 0x222222});
    EXPECT_EQ(Read(info, {1, 2, 255, 0}), (Colours{0x222222, 0, 0, 0x111111}));
    DibInfo four(2, 1, 4, BI_RGB, 1);
    four.Header().biClrUsed = 1;
    four.SetEntry(0, 0x333333);
    EXPECT_EQ(Read(four, {0x0F, 0, 0, 0}), (Colours{0x333333, 0}));
}

TEST(CreateDIBitmap, ReadsNoMoreOfATableThanThereCanBe) {
    for (const int bits : {1, 4, 8}) {
        const std::size_t full = std::size_t{1} << bits;
        DibInfo info(1, 1, bits, BI_RGB, full);
        info.SetEntry(full - 1, 0x123456);
        for (const DWORD used : {static_cast<DWORD>(full), static_cast<DWORD>(full) + 1, DWORD{0xFFFFFFFF}}) {
            info.Header().biClrUsed = used;
            EXPECT_EQ(Read(info, {0xFF, 0, 0, 0}), (Colours{0x123456})) << bits;
        }
    }
}

TEST(CreateDIBitmap, NeedsNoTableAboveEightBits) {
    for (const int bits : {16, 24, 32}) {
        DibInfo info(1, 1, bits, BI_RGB, 0);
        info.Header().biClrUsed = 1000;
        EXPECT_EQ(Read(info, {0, 0, 0, 0}), (Colours{0})) << bits;
    }
}

TEST(CreateDIBitmap, Reads16BitsAsFiveAChannel) {
    std::vector<DWORD> expected;
    Bytes bytes;
    for (DWORD v = 0; v < 32; ++v) {
        const DWORD packed = v << 10 | (31 - v) << 5 | v | 0x8000;  // the top bit means nothing
        bytes.push_back(static_cast<BYTE>(packed));
        bytes.push_back(static_cast<BYTE>(packed >> 8));
        const auto wide = [](DWORD five) { return static_cast<DWORD>(five * 255.0 / 31.0 + 0.5); };
        expected.push_back(wide(v) << 16 | wide(31 - v) << 8 | wide(v));
    }
    DibInfo info(32, 1, 16, BI_RGB, 0);
    EXPECT_EQ(Read(info, bytes), expected);
}

TEST(CreateDIBitmap, Reads32BitsWithoutTheFourthByte) {
    DibInfo info(2, 1, 32, BI_RGB, 0);
    EXPECT_EQ(Read(info, {0x56, 0x34, 0x12, 0xFF, 1, 2, 3, 4}), (Colours{0x123456, 0x030201}));
}

TEST(CreateDIBitmap, ReadsBitFieldsOf16Bits) {
    DibInfo info(4, 1, 16, BI_BITFIELDS, 3);
    info.SetEntries({0xF800, 0x07E0, 0x001F});
    // Full red, full green, full blue; green 32 of 63 is 129.52.
    EXPECT_EQ(Read(info, {0x00, 0xF8, 0xE0, 0x07, 0x1F, 0x00, 0x00, 0x04}),
              (Colours{0xFF0000, 0x00FF00, 0x0000FF, 130 << 8}));
}

TEST(CreateDIBitmap, ReadsBitFieldsOf32BitsInAnyOrder) {
    DibInfo info(1, 1, 32, BI_BITFIELDS, 3);
    info.SetEntries({0x0000FF00, 0x00FF0000, 0xFF000000});
    EXPECT_EQ(Read(info, {0x99, 0x12, 0x34, 0x56}), (Colours{0x123456}));
}

TEST(CreateDIBitmap, ReadsBitFieldsOfAnyWidth) {
    DibInfo info(2, 1, 32, BI_BITFIELDS, 3);
    // Red of ten bits at the top, green of one bit, blue of twenty bits.
    info.SetEntries({0xFFC00000, 0x00100000, 0x000FFFFF});
    // Red 512 of 1023 is 127.62, blue 524288 of 1048575 is 127.50006.
    EXPECT_EQ(Read(info, {0x00, 0x00, 0x08, 0x80, 0x00, 0x00, 0x10, 0x00}), (Colours{0x800080, 0x00FF00}));
}

TEST(CreateDIBitmap, ReadsABitFieldOfAllBits) {
    DibInfo info(3, 1, 32, BI_BITFIELDS, 3);
    info.SetEntries({0xFFFFFFFF, 0, 0});
    EXPECT_EQ(Read(info, {0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0x80, 0, 0, 0, 0}), (Colours{0xFF0000, 0x800000, 0}));
}

TEST(CreateDIBitmap, TakesAChannelWithoutBitsForZero) {
    DibInfo info(1, 1, 16, BI_BITFIELDS, 3);
    info.SetEntries({0, 0x00FF, 0});
    EXPECT_EQ(Read(info, {0xAB, 0xFF, 0, 0}), (Colours{0x00AB00}));
    info.SetEntries({0, 0, 0});
    EXPECT_EQ(Read(info, {0xAB, 0xFF, 0, 0}), (Colours{0}));
}

TEST(CreateDIBitmap, SurvivesMasksWithHolesAndBitsBeyondThePixel) {
    DibInfo info(1, 1, 16, BI_BITFIELDS, 3);
    info.SetEntries({0x80000001, 0xFFFF0000, 0x00000101});
    // Blue has both its bits, which is the most that its mask lets through.
    EXPECT_EQ(Read(info, {0x01, 0x01, 0, 0}).at(0) & 0x00FFFF, 0x0000FFu);
}

TEST(CreateDIBitmap, GivesBackWhatWasWritten) {
    Colours pixels;
    for (DWORD i = 0; i < 7 * 5; ++i)
        pixels.push_back(i * 7'777'777 & 0xFFFFFF);
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(7, 5, 1, 32, pixels.data()));
    const ScreenForTests screen;
    for (const int bits : {24, 32}) {
        for (const int height : {5, -5}) {
            DibInfo info(7, height, bits, BI_RGB, 0);
            Bytes bytes(bits == 24 ? 24 * 5 : 28 * 5);
            ASSERT_EQ(GetDIBits(screen, bitmap, 0, 5, bytes.data(), info.Get(), DIB_RGB_COLORS), 5);
            EXPECT_EQ(Read(info, bytes), pixels) << bits << " " << height;
        }
    }
}

TEST(CreateDIBitmap, GivesBackThePaletteItWrote) {
    const ScreenForTests screen;
    for (const int bits : {1, 4, 8}) {
        const int size = 1 << bits;
        DibInfo table(1, 1, bits);
        CBitmap dot;
        ASSERT_TRUE(dot.CreateBitmap(1, 1, 1, 32, nullptr));
        ASSERT_EQ(GetDIBits(screen, dot, 0, 1, nullptr, table.Get(), DIB_RGB_COLORS), 1);
        Colours colours;
        for (int i = 0; i < size; ++i)
            colours.push_back(table.Entry(static_cast<std::size_t>(i)));
        CBitmap bitmap;
        ASSERT_TRUE(bitmap.CreateBitmap(size, 1, 1, 32, colours.data()));
        DibInfo info(size, 1, bits);
        Bytes bytes(256);
        ASSERT_EQ(GetDIBits(screen, bitmap, 0, 1, bytes.data(), info.Get(), DIB_RGB_COLORS), 1);
        EXPECT_EQ(Read(info, bytes), colours) << bits;
    }
}

TEST(CreateDIBitmap, IsBlackWithoutInit) {
    const ScreenForTests screen;
    DibInfo info(3, -2, 24, BI_RGB, 0);
    const Bytes bytes(24, 0xFF);
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.Attach(CreateDIBitmap(screen, &info.Header(), 0, bytes.data(), info.Get(), DIB_RGB_COLORS)));
    Colours pixels(6, 1);
    EXPECT_TRUE(ReadBitmapPixels(bitmap, pixels.data()));
    EXPECT_EQ(pixels, Colours(6, 0));
    CBitmap other;
    EXPECT_TRUE(other.Attach(CreateDIBitmap(screen, &info.Header(), 0, nullptr, nullptr, DIB_RGB_COLORS)));
}

TEST(CreateDIBitmap, TakesTheHeaderForFortyBytesWhateverItSays) {
    DibInfo info(1, 1, 24, BI_RGB, 0);
    for (const DWORD size : {0u, 12u, 124u, 0xFFFFFFFFu}) {
        info.Header().biSize = size;
        EXPECT_EQ(Read(info, {1, 2, 3, 0}), (Colours{0x030201}));
    }
}

TEST(CreateDIBitmap, FindsItsStructuresAnywhere) {
    const ScreenForTests screen;
    DibInfo info(1, 1, 16, BI_BITFIELDS, 3);
    info.SetEntries({0xF800, 0x07E0, 0x001F});
    Bytes bytes(1, 0);
    bytes.insert(bytes.end(), info.Bytes().begin(), info.Bytes().end());
    bytes.insert(bytes.end(), {0x1F, 0xF8, 0, 0});
    const void* header = bytes.data() + 1;
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.Attach(CreateDIBitmap(screen, static_cast<const BITMAPINFOHEADER*>(header), CBM_INIT,
                                             bytes.data() + 1 + info.Bytes().size(),
                                             static_cast<const BITMAPINFO*>(header), DIB_RGB_COLORS)));
    DWORD pixel = 0;
    EXPECT_TRUE(ReadBitmapPixels(bitmap, &pixel));
    EXPECT_EQ(pixel, 0xFF00FFu);
}

TEST(CreateDIBitmap, RefusesHeadersThatMakeNoSense) {
    const Refusal refusals[] = {
        {"no width", [](auto& header) { header.biWidth = 0; }},
        {"negative width", [](auto& header) { header.biWidth = -3; }},
        {"least width", [](auto& header) { header.biWidth = INT_MIN; }},
        {"no height", [](auto& header) { header.biHeight = 0; }},
        {"least height", [](auto& header) { header.biHeight = INT_MIN; }},
        {"most width and height", [](auto& header) { header.biWidth = header.biHeight = INT_MAX; }},
        {"most width", [](auto& header) { header.biWidth = INT_MAX; }},
        {"most height", [](auto& header) { header.biHeight = INT_MAX; }},
        {"a row too many",
         [](auto& header) {
             header.biWidth = 32768;
             header.biHeight = -16385;
         }},
        {"a product that is small in 32 bits",
         [](auto& header) {
             header.biWidth = 65536;
             header.biHeight = 65536;
         }},
        {"no planes", [](auto& header) { header.biPlanes = 0; }},
        {"two planes", [](auto& header) { header.biPlanes = 2; }},
        {"no bits", [](auto& header) { header.biBitCount = 0; }},
        {"two bits", [](auto& header) { header.biBitCount = 2; }},
        {"15 bits", [](auto& header) { header.biBitCount = 15; }},
        {"33 bits", [](auto& header) { header.biBitCount = 33; }},
        {"most bits", [](auto& header) { header.biBitCount = 0xFFFF; }},
        {"bit fields of 8 bits", [](auto& header) { header.biCompression = BI_BITFIELDS; }},
        {"bit fields of 24 bits",
         [](auto& header) {
             header.biCompression = BI_BITFIELDS;
             header.biBitCount = 24;
         }},
        {"run lengths for 4 bits", [](auto& header) { header.biCompression = BI_RLE4; }},
        {"run lengths for 16 bits",
         [](auto& header) {
             header.biCompression = BI_RLE8;
             header.biBitCount = 16;
         }},
        {"a picture of another kind", [](auto& header) { header.biCompression = 4; }},
        {"most compression", [](auto& header) { header.biCompression = 0xFFFFFFFF; }},
    };
    const std::size_t before = LiveBitmaps();
    for (const Refusal& refusal : refusals) {
        DibInfo info(3, 2, 8);
        info.Header().biSizeImage = 8;
        refusal.change(info.Header());
        EXPECT_EQ(Create(info, Bytes(8, 0)), nullptr) << refusal.what;
    }
    EXPECT_EQ(LiveBitmaps(), before);
}

TEST(CreateDIBitmap, RefusesSizesThatMakeNoSenseWithoutInitToo) {
    const ScreenForTests screen;
    const int sizes[][2] = {{0, 1}, {-1, 1}, {1, 0}, {1, INT_MIN}, {INT_MAX, INT_MAX}, {65536, 65536}};
    for (const auto& size : sizes) {
        DibInfo info(size[0], size[1], 24, BI_RGB, 0);
        EXPECT_EQ(CreateDIBitmap(screen, &info.Header(), 0, nullptr, nullptr, DIB_RGB_COLORS), nullptr)
            << size[0] << " " << size[1];
    }
}

TEST(CreateDIBitmap, RefusesPixelsOfAnotherSize) {
    const ScreenForTests screen;
    const Bytes bytes(64, 0);
    DibInfo info(3, 2, 8);
    const int sizes[][2] = {{2, 2}, {4, 2}, {3, 1}, {3, 3}};
    for (const auto& size : sizes) {
        DibInfo wanted(size[0], size[1], 8);
        EXPECT_EQ(CreateDIBitmap(screen, &wanted.Header(), CBM_INIT, bytes.data(), info.Get(), DIB_RGB_COLORS),
                  nullptr);
    }
    // Which way the rows run is the pixels' own affair.
    DibInfo wanted(3, -2, 8);
    CBitmap bitmap;
    EXPECT_TRUE(
        bitmap.Attach(CreateDIBitmap(screen, &wanted.Header(), CBM_INIT, bytes.data(), info.Get(), DIB_RGB_COLORS)));
}

TEST(CreateDIBitmap, RefusesWhatDoesNotExist) {
    const std::size_t before = LiveBitmaps();
    const HDC gone = GetDC(nullptr);
    ReleaseDC(nullptr, gone);
    const ScreenForTests screen;
    DibInfo info(3, 2, 8);
    const BITMAPINFOHEADER* header = &info.Header();
    const Bytes bytes(8, 0);
    EXPECT_EQ(CreateDIBitmap(gone, header, CBM_INIT, bytes.data(), info.Get(), DIB_RGB_COLORS), nullptr);
    EXPECT_EQ(CreateDIBitmap(nullptr, header, CBM_INIT, bytes.data(), info.Get(), DIB_RGB_COLORS), nullptr);
    EXPECT_EQ(CreateDIBitmap(screen, nullptr, CBM_INIT, bytes.data(), info.Get(), DIB_RGB_COLORS), nullptr);
    EXPECT_EQ(CreateDIBitmap(screen, header, CBM_INIT, nullptr, info.Get(), DIB_RGB_COLORS), nullptr);
    EXPECT_EQ(CreateDIBitmap(screen, header, CBM_INIT, bytes.data(), nullptr, DIB_RGB_COLORS), nullptr);
    EXPECT_EQ(CreateDIBitmap(screen, header, CBM_INIT, bytes.data(), info.Get(), DIB_RGB_COLORS + 1), nullptr);
    EXPECT_EQ(LiveBitmaps(), before);
}

}  // namespace
