// Reading run-length coded bitmaps: runs, pixels as they are, the orders, and codes that lead outside.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

#include "media/DibForTests.h"

namespace {

using Bytes = std::vector<BYTE>;
using Indexes = std::vector<int>;

// The picture's indexes from top to bottom; none when it is refused. Index i has the colour i + 1, so that 0 is a pixel
// that was skipped, and is told as -1.
Indexes Decode(int bits, int width, int height, const Bytes& coded) {
    DibInfo info(width, height, bits, bits == 8 ? BI_RLE8 : BI_RLE4, std::size_t{1} << bits);
    for (DWORD i = 0; i < DWORD{1} << bits; ++i)
        info.SetEntry(i, i + 1);
    info.Header().biSizeImage = static_cast<DWORD>(coded.size());
    const std::unique_ptr<BYTE[]> exact(new BYTE[coded.size() + 1]);
    std::copy(coded.begin(), coded.end(), exact.get() + 1);
    const ScreenForTests screen;
    CBitmap bitmap;
    if (!bitmap.Attach(CreateDIBitmap(screen, &info.Header(), CBM_INIT, exact.get() + 1, info.Get(), DIB_RGB_COLORS)))
        return {};
    std::vector<DWORD> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    EXPECT_TRUE(ReadBitmapPixels(bitmap, pixels.data()));
    Indexes indexes;
    for (const DWORD pixel : pixels)
        indexes.push_back(static_cast<int>(pixel) - 1);
    return indexes;
}

TEST(RunLength, DrawsRunsAndEndsRowsFromTheBottomUp) {
    EXPECT_EQ(Decode(8, 4, 2, {3, 7, 1, 9, 0, 0, 4, 5, 0, 1}), (Indexes{5, 5, 5, 5, 7, 7, 7, 9}));
}

TEST(RunLength, AlternatesTheTwoColoursOfARunOfFourBits) {
    EXPECT_EQ(Decode(4, 5, 1, {5, 0x2E, 0, 1}), (Indexes{2, 14, 2, 14, 2}));
    EXPECT_EQ(Decode(4, 5, 1, {3, 0x2E, 2, 0x15, 0, 1}), (Indexes{2, 14, 2, 1, 5}));
}

TEST(RunLength, CopiesPixelsAsTheyAreUpToAnEvenByte) {
    EXPECT_EQ(Decode(8, 5, 1, {0, 3, 1, 2, 3, 0xEE, 2, 9, 0, 1}), (Indexes{1, 2, 3, 9, 9}));
    EXPECT_EQ(Decode(8, 6, 1, {0, 4, 1, 2, 3, 4, 2, 9, 0, 1}), (Indexes{1, 2, 3, 4, 9, 9}));
    // Five pixels of four bits are three bytes and one to fill up; three pixels are two bytes.
    EXPECT_EQ(Decode(4, 6, 1, {0, 5, 0x12, 0x34, 0x5E, 0xEE, 1, 0x90, 0, 1}), (Indexes{1, 2, 3, 4, 5, 9}));
    EXPECT_EQ(Decode(4, 4, 1, {0, 3, 0x12, 0x3E, 1, 0x90, 0, 1}), (Indexes{1, 2, 3, 9}));
}

TEST(RunLength, MovesAndLeavesWhatItSkips) {
    EXPECT_EQ(Decode(8, 4, 3, {1, 5, 0, 2, 1, 2, 2, 6, 0, 1}), (Indexes{-1, -1, 6, 6, -1, -1, -1, -1, 5, -1, -1, -1}));
    EXPECT_EQ(Decode(4, 3, 2, {0, 2, 2, 0, 1, 0x70, 0, 0, 1, 0x80, 0, 1}), (Indexes{8, -1, -1, -1, -1, 7}));
}

TEST(RunLength, LeavesTheRestAfterTheEndOfThePicture) {
    EXPECT_EQ(Decode(8, 2, 2, {2, 5, 0, 1, 0, 0, 2, 6}), (Indexes{-1, -1, 5, 5}));
}

TEST(RunLength, EndsRunsWithTheirRow) {
    EXPECT_EQ(Decode(8, 3, 2, {255, 5, 9, 6, 0, 0, 1, 7, 0, 1}), (Indexes{7, -1, -1, 5, 5, 5}));
    EXPECT_EQ(Decode(8, 2, 2, {0, 4, 1, 2, 3, 4, 0, 0, 1, 7, 0, 1}), (Indexes{7, -1, 1, 2}));
    EXPECT_EQ(Decode(4, 3, 2, {255, 0x12, 0, 0, 1, 0x70, 0, 1}), (Indexes{7, -1, -1, 1, 2, 1}));
}

TEST(RunLength, StopsAboveThePicture) {
    EXPECT_EQ(Decode(8, 1, 1, {1, 5, 0, 0, 1, 6, 0, 0, 1, 7}), (Indexes{5}));
    EXPECT_EQ(Decode(8, 1, 2, {0, 2, 0, 255, 1, 6, 0, 1}), (Indexes{-1, -1}));
}

TEST(RunLength, DrawsNothingBesideThePicture) {
    EXPECT_EQ(Decode(8, 2, 2, {0, 2, 255, 0, 0, 2, 255, 0, 5, 6, 0, 0, 1, 7, 0, 1}), (Indexes{7, -1, -1, -1}));
}

TEST(RunLength, ReadsNothingBehindItsBytes) {
    EXPECT_EQ(Decode(8, 3, 1, {2, 5}), (Indexes{5, 5, -1}));
    EXPECT_EQ(Decode(8, 3, 1, {1, 5, 2}), (Indexes{5, -1, -1}));
    EXPECT_EQ(Decode(8, 3, 1, {1, 5, 0}), (Indexes{5, -1, -1}));
    EXPECT_EQ(Decode(8, 3, 1, {1, 5, 0, 2}), (Indexes{5, -1, -1}));
    EXPECT_EQ(Decode(8, 3, 1, {1, 5, 0, 2, 1}), (Indexes{5, -1, -1}));
    EXPECT_EQ(Decode(8, 5, 1, {0, 5, 1, 2}), (Indexes{1, 2, -1, -1, -1}));
    EXPECT_EQ(Decode(8, 3, 1, {0, 3, 1, 2, 3}), (Indexes{1, 2, 3}));
    EXPECT_EQ(Decode(4, 5, 1, {0, 5, 0x12}), (Indexes{1, 2, -1, -1, -1}));
    EXPECT_EQ(Decode(8, 1, 1, {1}), (Indexes{-1}));
}

TEST(RunLength, RefusesPicturesThatDoNotTellTheirBytes) {
    EXPECT_EQ(Decode(8, 1, 1, {}), Indexes{});
    EXPECT_EQ(Decode(4, 1, 1, {}), Indexes{});
}

TEST(RunLength, RefusesRowsFromTheTopDown) {
    const ScreenForTests screen;
    const Bytes coded = {1, 5, 0, 1};
    for (const int bits : {8, 4}) {
        DibInfo info(1, -1, bits, bits == 8 ? BI_RLE8 : BI_RLE4);
        info.Header().biSizeImage = 4;
        EXPECT_EQ(CreateDIBitmap(screen, &info.Header(), CBM_INIT, coded.data(), info.Get(), DIB_RGB_COLORS), nullptr);
    }
}

TEST(RunLength, TakesIndexesBeyondTheTableForBlack) {
    const ScreenForTests screen;
    const Bytes coded = {1, 0, 1, 200, 0, 1};
    DibInfo info(2, 1, 8, BI_RLE8, 1);
    info.Header().biClrUsed = 1;
    info.Header().biSizeImage = static_cast<DWORD>(coded.size());
    info.SetEntry(0, 0x123456);
    CBitmap bitmap;
    ASSERT_TRUE(
        bitmap.Attach(CreateDIBitmap(screen, &info.Header(), CBM_INIT, coded.data(), info.Get(), DIB_RGB_COLORS)));
    DWORD pixels[2] = {1, 1};
    EXPECT_TRUE(ReadBitmapPixels(bitmap, pixels));
    EXPECT_EQ(pixels[0], 0x123456u);
    EXPECT_EQ(pixels[1], 0u);
}

// Whatever the bytes are, all pixels come from the table or were skipped; the sanitizer sees the rest.
TEST(RunLength, SurvivesAnyBytes) {
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        const int bits = round % 2 == 0 ? 8 : 4;
        Bytes coded(1 + random() % 60);
        for (BYTE& byte : coded)
            byte = static_cast<BYTE>(random() % 3 == 0 ? random() % 4 : random());
        const int width = 1 + static_cast<int>(random() % 20);
        const int height = 1 + static_cast<int>(random() % 20);
        const Indexes indexes = Decode(bits, width, height, coded);
        ASSERT_EQ(indexes.size(), static_cast<std::size_t>(width * height));
        ASSERT_TRUE(std::all_of(indexes.begin(), indexes.end(),
                                [bits](int index) { return index >= -1 && index < 1 << bits; }));
    }
}

}  // namespace
