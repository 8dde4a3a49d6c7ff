// What stands in the file is the picture: each depth and many widths, decoded here by the rules of the format alone.
#include <cstdlib>
#include <limits>

#include "Recording.h"

namespace {

// The pixels of one sample as 0xRRGGBB from top to bottom.
std::vector<DWORD> Decode(const std::string& format, const std::string& sample) {
    BITMAPINFOHEADER header;
    std::memcpy(&header, format.data(), sizeof header);
    const std::size_t bits = header.biBitCount;
    const auto width = static_cast<std::size_t>(header.biWidth);
    const auto height = static_cast<std::size_t>(header.biHeight);
    const std::size_t row = (width * bits + 31) / 32 * 4;
    const auto byte = [&](std::size_t at) { return static_cast<DWORD>(static_cast<BYTE>(sample.at(at))); };
    std::vector<DWORD> pixels;
    for (std::size_t y = height; y-- > 0;) {
        for (std::size_t x = 0; x < width; ++x) {
            const std::size_t at = y * row + x * bits / 8;
            if (bits <= 8) {
                const std::size_t shift = 8 - bits - x * bits % 8;
                const std::size_t entry = byte(at) >> shift & ((1U << bits) - 1);
                DWORD colour = 0;
                std::memcpy(&colour, format.data() + 40 + 4 * entry, sizeof colour);
                pixels.push_back(colour);
            } else if (bits == 16) {
                const DWORD value = byte(at) | byte(at + 1) << 8;
                const auto channel = [&](DWORD shift) { return (value >> shift & 31) * 255 / 31; };
                pixels.push_back(channel(10) << 16 | channel(5) << 8 | channel(0));
            } else {
                pixels.push_back(byte(at) | byte(at + 1) << 8 | byte(at + 2) << 16);
            }
        }
    }
    return pixels;
}

struct Recorded {
    std::vector<DWORD> original;
    std::vector<DWORD> pixels;
    std::string format;
};

Recorded Record(const std::vector<DWORD>& original, int width, UINT bits) {
    const FileTree tree;
    {
        OrvoAVIFile recorder(tree.File("a.avi"), -1, -1, 1);
        recorder.SetColorNum(bits);
        CBitmap picture;
        const int height = static_cast<int>(original.size()) / width;
        EXPECT_TRUE(picture.CreateBitmap(width, height, 1, 32, original.data()));
        EXPECT_EQ(recorder.AddFrame(picture), 1);
    }
    const AviReader avi(tree / "a.avi");
    EXPECT_EQ(avi.Samples().size(), 1U);
    return {original, Decode(avi.Format(), avi.Samples().at(0)), avi.Format()};
}

std::vector<DWORD> PureColours(int width, int height) {
    std::vector<DWORD> pixels(static_cast<std::size_t>(width * height));
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = (i & 1 ? 0xFF0000U : 0U) | (i & 2 ? 0xFF00U : 0U) | (i & 4 ? 0xFFU : 0U);
    return pixels;
}

TEST(FramePixels, PureColoursStayAsTheyAreInEachDepthAndWidth) {
    for (const UINT bits : {4U, 8U, 16U, 24U, 32U}) {
        for (int width = 1; width <= 9; ++width) {
            const Recorded recorded = Record(PureColours(width, 5), width, bits);
            EXPECT_EQ(recorded.pixels, recorded.original) << bits << ' ' << width;
        }
    }
}

TEST(FramePixels, BlackAndWhiteStayAsTheyAreWithOneBit) {
    for (int width = 1; width <= 35; ++width) {
        std::vector<DWORD> original(static_cast<std::size_t>(width) * 3);
        for (std::size_t i = 0; i < original.size(); ++i)
            original[i] = i % 3 == 0 || i % 7 == 1 ? 0xFFFFFF : 0;
        EXPECT_EQ(Record(original, width, 1).pixels, original) << width;
    }
}

TEST(FramePixels, AnyColourStaysAsItIsInTrueColour) {
    std::vector<DWORD> original;
    for (DWORD i = 0; i < 7 * 11; ++i)
        original.push_back(i * 0x01234567U & 0xFFFFFFU);
    for (const UINT bits : {24U, 32U})
        EXPECT_EQ(Record(original, 7, bits).pixels, original) << bits;
}

// With a table each pixel gets an entry that no other one is nearer than.
TEST(FramePixels, OtherColoursGetTheNearestEntry) {
    const auto distance = [](DWORD a, DWORD b) {
        int sum = 0;
        for (const DWORD shift : {0U, 8U, 16U}) {
            const int difference = static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255);
            sum += difference * difference;
        }
        return sum;
    };
    std::vector<DWORD> original;
    for (DWORD i = 0; i < 19 * 17; ++i)
        original.push_back(i * 0x00A1B2C7U & 0xFFFFFFU);
    for (const UINT bits : {1U, 4U, 8U}) {
        const Recorded recorded = Record(original, 19, bits);
        ASSERT_EQ(recorded.pixels.size(), original.size());
        for (std::size_t i = 0; i < original.size(); ++i) {
            int nearest = std::numeric_limits<int>::max();
            for (std::size_t entry = 0; entry < std::size_t{1} << bits; ++entry) {
                DWORD colour = 0;
                std::memcpy(&colour, recorded.format.data() + 40 + 4 * entry, sizeof colour);
                nearest = std::min(nearest, distance(colour, original[i]));
            }
            EXPECT_EQ(distance(recorded.pixels[i], original[i]), nearest) << bits << ' ' << i;
        }
    }
}

}  // namespace
