// The colour tables, computed by the compiler. Nothing is searched for a pixel: the entries fall into groups in which
// the nearest one is found channel by channel (or, for greys, from the sum of the channels), and the best of the
// groups' winners wins.
#include "platform/media/FixedPalette.h"

#include <array>
#include <cstddef>

namespace {

constexpr int Red(DWORD colour) {
    return static_cast<int>(colour >> 16 & 0xFF);
}
constexpr int Green(DWORD colour) {
    return static_cast<int>(colour >> 8 & 0xFF);
}
constexpr int Blue(DWORD colour) {
    return static_cast<int>(colour & 0xFF);
}
constexpr DWORD Grey(int level) {
    return static_cast<DWORD>(level) * 0x010101;
}

constexpr std::array<DWORD, 2> kTwo = {0x000000, 0xFFFFFF};
constexpr std::array<DWORD, 16> kSixteen = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080,
                                            0x008080, 0xC0C0C0, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00,
                                            0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
// Which entries of the sixteen have which channels lit (1 red, 2 green, 4 blue), darkly and brightly.
constexpr std::array<BYTE, 8> kDark = {0, 1, 2, 3, 4, 5, 6, 8};
constexpr std::array<BYTE, 8> kBright = {0, 9, 10, 11, 12, 13, 14, 15};
constexpr int kLightGrey = 7;

constexpr int kLevels = 6;
constexpr int kLevelStep = 51;
constexpr int kCube = kLevels * kLevels * kLevels;
constexpr int kGreys = 40;

// The greys between the cube's own, which are every ninth of 46.
constexpr std::array<int, kGreys> MakeGreys() {
    std::array<int, kGreys> greys{};
    std::size_t count = 0;
    for (int i = 0; i <= 45; ++i)
        if (i % 9 != 0)
            greys[count++] = (i * 255 * 2 + 45) / 90;
    return greys;
}
constexpr std::array<int, kGreys> kGreyLevels = MakeGreys();

constexpr std::array<DWORD, 256> Make256() {
    std::array<DWORD, 256> colours{};
    for (int i = 0; i < kCube; ++i) {
        const int level[3] = {i / 36, i / 6 % 6, i % 6};
        colours[static_cast<std::size_t>(i)] =
            static_cast<DWORD>((level[0] << 16 | level[1] << 8 | level[2]) * kLevelStep);
    }
    for (int i = 0; i < kGreys; ++i)
        colours[static_cast<std::size_t>(kCube) + static_cast<std::size_t>(i)] =
            Grey(kGreyLevels[static_cast<std::size_t>(i)]);
    return colours;
}
constexpr std::array<DWORD, 256> k256 = Make256();

// By a channel's value, the nearest level of the cube. Levels are an odd number apart, so none are equally near.
constexpr std::array<BYTE, 256> MakeNearestLevels() {
    std::array<BYTE, 256> levels{};
    for (int value = 0; value < 256; ++value)
        levels[static_cast<std::size_t>(value)] = static_cast<BYTE>((value + kLevelStep / 2) / kLevelStep);
    return levels;
}
constexpr std::array<BYTE, 256> kNearestLevel = MakeNearestLevels();

// By the sum of the three channels, the nearest grey between the cube's: a colour's squared distance to the grey v is
// 3 (v - sum / 3)^2 and something that is the same for all greys.
constexpr std::array<BYTE, 3 * 255 + 1> MakeNearestGreys() {
    std::array<BYTE, 3 * 255 + 1> greys{};
    for (int sum = 0; sum <= 3 * 255; ++sum) {
        int best = 0;
        int bestAway = 3 * 255 + 1;
        for (int i = 0; i < kGreys; ++i) {
            const int difference = 3 * kGreyLevels[static_cast<std::size_t>(i)] - sum;
            const int away = difference < 0 ? -difference : difference;
            if (away < bestAway) {
                best = i;
                bestAway = away;
            }
        }
        greys[static_cast<std::size_t>(sum)] = static_cast<BYTE>(kCube + best);
    }
    return greys;
}
constexpr std::array<BYTE, 3 * 255 + 1> kNearestGrey = MakeNearestGreys();

constexpr int SquaredDistance(DWORD a, DWORD b) {
    const int red = Red(a) - Red(b);
    const int green = Green(a) - Green(b);
    const int blue = Blue(a) - Blue(b);
    return red * red + green * green + blue * blue;
}

// Which channels are above a threshold, as the index into kDark and kBright.
constexpr std::size_t Lit(DWORD colour, int threshold) {
    return static_cast<std::size_t>((Red(colour) > threshold ? 1 : 0) | (Green(colour) > threshold ? 2 : 0) |
                                    (Blue(colour) > threshold ? 4 : 0));
}

}  // namespace

std::span<const DWORD> FixedPalette(int bits) {
    switch (bits) {
        case 1:
            return kTwo;
        case 4:
            return kSixteen;
        case 8:
            return k256;
        default:
            return {};
    }
}

BYTE NearestOfTwo(DWORD colour) {
    return Red(colour) + Green(colour) + Blue(colour) > 3 * 255 / 2 ? 1 : 0;
}

BYTE NearestOfSixteen(DWORD colour) {
    // Half-way values (64 between 0 and 128) go down, which is also to the lower entry.
    const int candidates[] = {kDark[Lit(colour, 64)], kBright[Lit(colour, 127)], kLightGrey};
    int best = 16;
    int bestDistance = 3 * 256 * 256;
    for (const int candidate : candidates) {
        const int distance = SquaredDistance(colour, kSixteen[static_cast<std::size_t>(candidate)]);
        if (distance < bestDistance || (distance == bestDistance && candidate < best)) {
            best = candidate;
            bestDistance = distance;
        }
    }
    return static_cast<BYTE>(best);
}

BYTE NearestOf256(DWORD colour) {
    const auto red = static_cast<std::size_t>(Red(colour));
    const auto green = static_cast<std::size_t>(Green(colour));
    const auto blue = static_cast<std::size_t>(Blue(colour));
    const int inCube = kNearestLevel[red] * 36 + kNearestLevel[green] * 6 + kNearestLevel[blue];
    const BYTE grey = kNearestGrey[red + green + blue];
    const bool isGrey =
        SquaredDistance(colour, k256[grey]) < SquaredDistance(colour, k256[static_cast<std::size_t>(inCube)]);
    return isGrey ? grey : static_cast<BYTE>(inCube);
}
