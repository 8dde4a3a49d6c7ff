// Writing bitmaps as device-independent ones: every depth, the rows asked for, the colour tables, and what is refused.
#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <map>
#include <random>
#include <set>

#include "media/DibForTests.h"

namespace {

using Bytes = std::vector<BYTE>;
constexpr BYTE kUntouched = 0xA5;

int Distance(DWORD a, DWORD b) {
    int sum = 0;
    for (const int shift : {0, 8, 16}) {
        const int away = static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF);
        sum += away * away;
    }
    return sum;
}

void Make(CBitmap& bitmap, int width, int height, const std::vector<DWORD>& pixels) {
    ASSERT_EQ(pixels.size(), static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    ASSERT_TRUE(bitmap.CreateBitmap(width, height, 1, 32, pixels.data()));
}

// All rows, with one untouched byte before and behind them that stays so.
Bytes Written(HBITMAP bitmap, DibInfo& info, std::size_t size, UINT start = 0, UINT lines = UINT_MAX) {
    const ScreenForTests screen;
    Bytes bytes(size + 2, kUntouched);
    EXPECT_GT(GetDIBits(screen, bitmap, start, lines, bytes.data() + 1, info.Get(), DIB_RGB_COLORS), 0);
    EXPECT_EQ(bytes.front(), kUntouched);
    EXPECT_EQ(bytes.back(), kUntouched);
    return Bytes(bytes.begin() + 1, bytes.end() - 1);
}

TEST(GetDIBits, WritesRowsFromTheBottomUp) {
    CBitmap bitmap;
    Make(bitmap, 1, 3, {0x010203, 0x111213, 0x212223});
    DibInfo info(1, 3, 24, BI_RGB, 0);
    EXPECT_EQ(Written(bitmap, info, 12), (Bytes{0x23, 0x22, 0x21, 0, 0x13, 0x12, 0x11, 0, 0x03, 0x02, 0x01, 0}));
}

TEST(GetDIBits, WritesRowsFromTheTopDownForANegativeHeight) {
    CBitmap bitmap;
    Make(bitmap, 1, 3, {0x010203, 0x111213, 0x212223});
    DibInfo info(1, -3, 24, BI_RGB, 0);
    EXPECT_EQ(Written(bitmap, info, 12), (Bytes{0x03, 0x02, 0x01, 0, 0x13, 0x12, 0x11, 0, 0x23, 0x22, 0x21, 0}));
}

TEST(GetDIBits, WritesOnlyTheRowsAskedFor) {
    CBitmap bitmap;
    Make(bitmap, 1, 4, {0x10, 0x20, 0x30, 0x40});
    DibInfo up(1, 4, 32, BI_RGB, 0);
    EXPECT_EQ(Written(bitmap, up, 8, 1, 2), (Bytes{0x30, 0, 0, 0, 0x20, 0, 0, 0}));
    DibInfo down(1, -4, 32, BI_RGB, 0);
    EXPECT_EQ(Written(bitmap, down, 8, 1, 2), (Bytes{0x20, 0, 0, 0, 0x30, 0, 0, 0}));
}

TEST(GetDIBits, GivesTheNumberOfRowsThereAre) {
    const ScreenForTests screen;
    CBitmap bitmap;
    Make(bitmap, 1, 4, {0x10, 0x20, 0x30, 0x40});
    DibInfo info(1, 4, 32, BI_RGB, 0);
    Bytes bytes(16);
    const auto rows = [&](UINT start, UINT lines) {
        return GetDIBits(screen, bitmap, start, lines, bytes.data(), info.Get(), DIB_RGB_COLORS);
    };
    EXPECT_EQ(rows(0, 4), 4);
    EXPECT_EQ(rows(0, 3), 3);
    EXPECT_EQ(rows(0, 5), 4);
    EXPECT_EQ(rows(3, 5), 1);
    EXPECT_EQ(rows(2, UINT_MAX), 2);
    EXPECT_EQ(rows(0, 0), 0);
    EXPECT_EQ(rows(4, 1), 0);
    EXPECT_EQ(rows(UINT_MAX, UINT_MAX), 0);
}

TEST(GetDIBits, SetsTheSizeOfThePicturesBytesAndTheFullTable) {
    CBitmap bitmap;
    Make(bitmap, 5, 3, std::vector<DWORD>(15, 0));
    // Rows of 5 pixels: 5, 20, 40, 80, 120 and 160 bits, in whole units of 32.
    const std::map<int, std::size_t> rowBytes = {{1, 4}, {4, 4}, {8, 8}, {16, 12}, {24, 16}, {32, 20}};
    for (const auto& [bits, bytes] : rowBytes) {
        DibInfo info(5, 3, bits);
        info.Header().biClrUsed = 77;
        info.Header().biSizeImage = 77;
        info.Header().biXPelsPerMeter = 11;
        info.Header().biYPelsPerMeter = 12;
        info.Header().biClrImportant = 13;
        Written(bitmap, info, bytes * 3, 0, 3);
        EXPECT_EQ(info.Header().biSizeImage, bytes * 3) << bits;
        EXPECT_EQ(info.Header().biClrUsed, 0u) << bits;
        EXPECT_EQ(info.Header().biWidth, 5);
        EXPECT_EQ(info.Header().biHeight, 3);
        EXPECT_EQ(info.Header().biBitCount, bits);
        EXPECT_EQ(info.Header().biXPelsPerMeter, 11);
        EXPECT_EQ(info.Header().biYPelsPerMeter, 12);
        EXPECT_EQ(info.Header().biClrImportant, 13u);
    }
}

TEST(GetDIBits, FillsPaddingWithZeros) {
    CBitmap bitmap;
    Make(bitmap, 1, 1, {0xFFFFFF});
    const std::map<int, Bytes> rows = {{1, {0x80, 0, 0, 0}},     {4, {0xF0, 0, 0, 0}},        {8, {215, 0, 0, 0}},
                                       {16, {0xFF, 0x7F, 0, 0}}, {24, {0xFF, 0xFF, 0xFF, 0}}, {32, {255, 255, 255, 0}}};
    for (const auto& [bits, row] : rows) {
        DibInfo info(1, 1, bits);
        EXPECT_EQ(Written(bitmap, info, 4), row) << bits;
    }
}

TEST(GetDIBits, PacksEightPixelsOfOneBitFromTheHighestDown) {
    CBitmap bitmap;
    const DWORD w = 0xFFFFFF;
    Make(bitmap, 11, 1, {w, 0, 0, w, 0, w, w, 0, 0, w, w});
    DibInfo info(11, 1, 1, BI_RGB, 2);
    EXPECT_EQ(Written(bitmap, info, 4), (Bytes{0x96, 0x60, 0, 0}));
    EXPECT_EQ(info.Entry(0), 0x000000u);
    EXPECT_EQ(info.Entry(1), 0xFFFFFFu);
}

TEST(GetDIBits, PacksTwoPixelsOfFourBitsTheHigherFirst) {
    CBitmap bitmap;
    Make(bitmap, 3, 1, {0xFF0000, 0x0000FF, 0xC0C0C0});
    DibInfo info(3, 1, 4, BI_RGB, 16);
    EXPECT_EQ(Written(bitmap, info, 4), (Bytes{0x9C, 0x70, 0, 0}));
}

TEST(GetDIBits, WritesTheSixteenStandardColours) {
    CBitmap bitmap;
    Make(bitmap, 1, 1, {0});
    DibInfo info(1, 1, 4, BI_RGB, 16);
    Written(bitmap, info, 4);
    const DWORD expected[] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
                              0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_EQ(info.Entry(i), expected[i]) << i;
}

TEST(GetDIBits, WritesACubeAndGreysFor256Colours) {
    CBitmap bitmap;
    Make(bitmap, 1, 1, {0});
    DibInfo info(1, 1, 8, BI_RGB, 256);
    Written(bitmap, info, 4);
    std::size_t index = 0;
    for (DWORD r = 0; r <= 255; r += 51)
        for (DWORD g = 0; g <= 255; g += 51)
            for (DWORD b = 0; b <= 255; b += 51)
                EXPECT_EQ(info.Entry(index++), r << 16 | g << 8 | b);
    // What divides the distance of 51 into nine: 5.67, 11.33, 17, 22.67, 28.33, 34, 39.67, 45.33.
    for (DWORD base = 0; base < 255; base += 51)
        for (const DWORD step : {6u, 11u, 17u, 23u, 28u, 34u, 40u, 45u})
            EXPECT_EQ(info.Entry(index++), (base + step) * 0x010101);
    EXPECT_EQ(index, 256u);
    std::set<DWORD> all;
    for (std::size_t i = 0; i < 256; ++i)
        EXPECT_TRUE(all.insert(info.Entry(i)).second) << i;
}

// Colours of all kinds: anywhere, near the diagonal of greys, on and beside the entries, and half-way between them.
std::vector<DWORD> ManyColours(const std::vector<DWORD>& entries) {
    std::mt19937 random(20240621);
    const auto upTo = [&](DWORD most) { return static_cast<DWORD>(random() % (most + 1)); };
    std::vector<DWORD> colours;
    for (int i = 0; i < 30000; ++i)
        colours.push_back(upTo(0xFFFFFF));
    for (int i = 0; i < 30000; ++i) {
        const DWORD grey = upTo(239);
        colours.push_back((grey + upTo(16)) << 16 | (grey + upTo(16)) << 8 | (grey + upTo(16)));
    }
    for (DWORD grey = 0; grey < 256; ++grey)
        colours.push_back(grey * 0x010101);
    for (const DWORD a : entries) {
        colours.push_back(a);
        for (int i = 0; i < 60; ++i) {
            const DWORD b = entries[upTo(static_cast<DWORD>(entries.size()) - 1)];
            DWORD middle = 0;
            for (const int shift : {0, 8, 16})
                middle |= ((a >> shift & 0xFF) + (b >> shift & 0xFF) + upTo(1)) / 2 << shift;
            colours.push_back(middle);
        }
    }
    for (const DWORD r : {0u, 63u, 64u, 65u, 96u, 127u, 128u, 160u, 191u, 192u, 223u, 224u, 255u})
        for (const DWORD g : {0u, 63u, 64u, 65u, 96u, 127u, 128u, 160u, 191u, 192u, 223u, 224u, 255u})
            for (const DWORD b : {0u, 63u, 64u, 65u, 96u, 127u, 128u, 160u, 191u, 192u, 223u, 224u, 255u})
                colours.push_back(r << 16 | g << 8 | b);
    return colours;
}

void ExpectNearestEntries(int bits) {
    const ScreenForTests screen;
    const std::size_t size = std::size_t{1} << bits;
    DibInfo info(1, 1, bits, BI_RGB, size);
    CBitmap dot;
    Make(dot, 1, 1, {0});
    ASSERT_EQ(GetDIBits(screen, dot, 0, 1, nullptr, info.Get(), DIB_RGB_COLORS), 1);
    std::vector<DWORD> entries;
    for (std::size_t i = 0; i < size; ++i)
        entries.push_back(info.Entry(i));

    const std::vector<DWORD> colours = ManyColours(entries);
    CBitmap bitmap;
    Make(bitmap, 1, static_cast<int>(colours.size()), colours);
    info.Header().biHeight = -static_cast<LONG>(colours.size());
    const Bytes rows = Written(bitmap, info, colours.size() * 4);
    int wrong = 0;
    for (std::size_t i = 0; i < colours.size() && wrong < 5; ++i) {
        std::size_t nearest = 0;
        for (std::size_t entry = 1; entry < size; ++entry)
            if (Distance(colours[i], entries[entry]) < Distance(colours[i], entries[nearest]))
                nearest = entry;
        const std::size_t written = static_cast<std::size_t>(rows[4 * i] >> (8 - bits));
        EXPECT_EQ(written, nearest) << std::hex << colours[i];
        wrong += written != nearest ? 1 : 0;
    }
}

TEST(GetDIBits, TakesTheNearestOfTwoColours) {
    ExpectNearestEntries(1);
}

TEST(GetDIBits, TakesTheNearestOfSixteenColours) {
    ExpectNearestEntries(4);
}

TEST(GetDIBits, TakesTheNearestOf256Colours) {
    ExpectNearestEntries(8);
}

TEST(GetDIBits, TurnsWhiteWhenTheChannelsMakeHalfOfWhite) {
    CBitmap bitmap;
    // 382 is less than half of three times 255, 383 is more.
    Make(bitmap, 4, 1, {0xFF7F00, 0xFF8000, 0x007FFF, 0x0080FF});
    DibInfo info(4, 1, 1, BI_RGB, 2);
    EXPECT_EQ(Written(bitmap, info, 4), (Bytes{0x50, 0, 0, 0}));
}

TEST(GetDIBits, HoldsThePureColoursExactly) {
    const std::vector<DWORD> pure = {0x000000, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
    CBitmap bitmap;
    Make(bitmap, 1, 8, pure);
    for (const int bits : {4, 8}) {
        DibInfo info(1, -8, bits);
        const Bytes rows = Written(bitmap, info, 32);
        for (std::size_t i = 0; i < 8; ++i)
            EXPECT_EQ(info.Entry(static_cast<std::size_t>(rows[4 * i] >> (8 - bits))), pure[i]) << bits;
    }
}

TEST(GetDIBits, RoundsToFiveBitsAChannel) {
    std::vector<DWORD> pixels;
    for (DWORD level = 0; level < 256; ++level)
        pixels.push_back(level << 16 | (255 - level) << 8 | level);
    CBitmap bitmap;
    Make(bitmap, 1, 256, pixels);
    DibInfo info(1, -256, 16, BI_RGB, 0);
    const Bytes rows = Written(bitmap, info, 1024);
    // The level whose 255/31 parts come nearest.
    const auto five = [](int level) {
        int nearest = 0;
        for (int i = 1; i < 32; ++i)
            if (std::abs(i * 255 - level * 31) < std::abs(nearest * 255 - level * 31))
                nearest = i;
        return nearest;
    };
    for (std::size_t i = 0; i < 256; ++i) {
        const int level = static_cast<int>(i);
        EXPECT_EQ(rows[4 * i] | rows[4 * i + 1] << 8, five(level) << 10 | five(255 - level) << 5 | five(level)) << i;
    }
}

TEST(GetDIBits, FillsHeaderAndTableWithoutBits) {
    const ScreenForTests screen;
    CBitmap bitmap;
    Make(bitmap, 3, 2, std::vector<DWORD>(6, 0xFFFFFF));
    for (const UINT start : {0u, 1u, 2u, UINT_MAX}) {
        DibInfo info(3, 2, 1, BI_RGB, 2);
        EXPECT_EQ(GetDIBits(screen, bitmap, start, 0, nullptr, info.Get(), DIB_RGB_COLORS), 1);
        EXPECT_EQ(info.Header().biSizeImage, 8u);
        EXPECT_EQ(info.Entry(1), 0xFFFFFFu);
    }
}

TEST(GetDIBits, WorksWithAMemoryContext) {
    const HDC memory = CreateCompatibleDC(nullptr);
    CBitmap bitmap;
    Make(bitmap, 1, 1, {0x123456});
    DibInfo info(1, 1, 32, BI_RGB, 0);
    Bytes row(4);
    EXPECT_EQ(GetDIBits(memory, bitmap, 0, 1, row.data(), info.Get(), DIB_RGB_COLORS), 1);
    EXPECT_EQ(row, (Bytes{0x56, 0x34, 0x12, 0}));
    DeleteDC(memory);
}

TEST(GetDIBits, FindsItsStructureAnywhere) {
    const ScreenForTests screen;
    CBitmap bitmap;
    Make(bitmap, 1, 1, {0xFFFFFF});
    DibInfo aligned(1, 1, 1, BI_RGB, 2);
    Bytes bytes(aligned.Bytes().size() + 1 + 5);
    std::memcpy(bytes.data() + 1, aligned.Get(), aligned.Bytes().size());
    BYTE* row = bytes.data() + 1 + aligned.Bytes().size() + 1;
    void* info = bytes.data() + 1;
    EXPECT_EQ(GetDIBits(screen, bitmap, 0, 1, row, static_cast<BITMAPINFO*>(info), DIB_RGB_COLORS), 1);
    EXPECT_EQ(row[0], 0x80);
}

TEST(GetDIBits, RefusesOtherFormsAndSizesAndWritesNothing) {
    const Refusal refusals[] = {
        {"size of the header below", [](auto& header) { header.biSize = 12; }},
        {"size of the header above", [](auto& header) { header.biSize = 124; }},
        {"narrower", [](auto& header) { header.biWidth = 2; }},
        {"wider", [](auto& header) { header.biWidth = 4; }},
        {"negative width", [](auto& header) { header.biWidth = -3; }},
        {"lower", [](auto& header) { header.biHeight = 1; }},
        {"higher", [](auto& header) { header.biHeight = 3; }},
        {"higher, from the top", [](auto& header) { header.biHeight = -3; }},
        {"no height", [](auto& header) { header.biHeight = 0; }},
        {"least height", [](auto& header) { header.biHeight = INT_MIN; }},
        {"no planes", [](auto& header) { header.biPlanes = 0; }},
        {"two planes", [](auto& header) { header.biPlanes = 2; }},
        {"no bits", [](auto& header) { header.biBitCount = 0; }},
        {"two bits", [](auto& header) { header.biBitCount = 2; }},
        {"15 bits", [](auto& header) { header.biBitCount = 15; }},
        {"64 bits", [](auto& header) { header.biBitCount = 64; }},
        {"run lengths", [](auto& header) { header.biCompression = BI_RLE8; }},
        {"bit fields", [](auto& header) { header.biCompression = BI_BITFIELDS; }},
    };
    const ScreenForTests screen;
    CBitmap bitmap;
    Make(bitmap, 3, 2, std::vector<DWORD>(6, 0xFFFFFF));
    for (const Refusal& refusal : refusals) {
        DibInfo info(3, 2, 8);
        refusal.change(info.Header());
        const Bytes before = info.Bytes();
        Bytes bits(64, kUntouched);
        EXPECT_EQ(GetDIBits(screen, bitmap, 0, 2, bits.data(), info.Get(), DIB_RGB_COLORS), 0) << refusal.what;
        EXPECT_EQ(GetDIBits(screen, bitmap, 0, 2, nullptr, info.Get(), DIB_RGB_COLORS), 0) << refusal.what;
        EXPECT_EQ(info.Bytes(), before) << refusal.what;
        EXPECT_EQ(bits, Bytes(64, kUntouched)) << refusal.what;
    }
}

TEST(GetDIBits, RefusesWhatDoesNotExistAndWritesNothing) {
    const HDC gone = GetDC(nullptr);
    ReleaseDC(nullptr, gone);
    const ScreenForTests screen;
    CBitmap bitmap;
    Make(bitmap, 3, 2, std::vector<DWORD>(6, 0xFFFFFF));
    const HBITMAP deleted = CreateBitmap(3, 2, 1, 32, nullptr);
    DeleteObject(deleted);
    DibInfo info(3, 2, 8);
    const Bytes before = info.Bytes();
    Bytes bits(64, kUntouched);
    EXPECT_EQ(GetDIBits(gone, bitmap, 0, 2, bits.data(), info.Get(), DIB_RGB_COLORS), 0);
    EXPECT_EQ(GetDIBits(nullptr, bitmap, 0, 2, bits.data(), info.Get(), DIB_RGB_COLORS), 0);
    EXPECT_EQ(GetDIBits(screen, deleted, 0, 2, bits.data(), info.Get(), DIB_RGB_COLORS), 0);
    EXPECT_EQ(GetDIBits(screen, nullptr, 0, 2, bits.data(), info.Get(), DIB_RGB_COLORS), 0);
    EXPECT_EQ(GetDIBits(screen, bitmap, 0, 2, bits.data(), nullptr, DIB_RGB_COLORS), 0);
    EXPECT_EQ(GetDIBits(screen, bitmap, 0, 2, bits.data(), info.Get(), DIB_RGB_COLORS + 1), 0);
    EXPECT_EQ(GetDIBits(screen, bitmap, 2, 1, bits.data(), info.Get(), DIB_RGB_COLORS), 0);
    EXPECT_EQ(GetDIBits(screen, bitmap, 0, 0, bits.data(), info.Get(), DIB_RGB_COLORS), 0);
    EXPECT_EQ(info.Bytes(), before);
    EXPECT_EQ(bits, Bytes(64, kUntouched));
}

}  // namespace
