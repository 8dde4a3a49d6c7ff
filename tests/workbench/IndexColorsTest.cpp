// The numbered colours.
#include "workbench/view/IndexColors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

// By the textbook formula for hue, saturation and value, in floating point.
int RgbOfHsv(double hue, double saturation, double value) {
    int rgb = 0;
    for (const double n : {5.0, 3.0, 1.0}) {
        const double k = std::fmod(n + hue / 60.0, 6.0);
        const double part = value - value * saturation * std::max(0.0, std::min({k, 4.0 - k, 1.0}));
        rgb = rgb * 256 + static_cast<int>(std::floor(part + 1e-6));
    }
    return rgb;
}

}  // namespace

TEST(IndexColors, BeginWithThePureColoursAndTwoGreys) {
    EXPECT_EQ(RgbOfColorIndex(1), 0xFF0000);
    EXPECT_EQ(RgbOfColorIndex(2), 0xFFFF00);
    EXPECT_EQ(RgbOfColorIndex(3), 0x00FF00);
    EXPECT_EQ(RgbOfColorIndex(4), 0x00FFFF);
    EXPECT_EQ(RgbOfColorIndex(5), 0x0000FF);
    EXPECT_EQ(RgbOfColorIndex(6), 0xFF00FF);
    EXPECT_EQ(RgbOfColorIndex(8), 0x808080);
    EXPECT_EQ(RgbOfColorIndex(9), 0xC0C0C0);
}

TEST(IndexColors, ShowSevenAsALightGreyOnTheLightBackground) {
    const int rgb = RgbOfColorIndex(7);
    EXPECT_EQ(rgb >> 16, rgb & 255);
    EXPECT_EQ(rgb >> 16, rgb >> 8 & 255);
    EXPECT_GT(rgb & 255, RgbOfColorIndex(9) & 255);
    EXPECT_LT(rgb & 255, 255);
}

TEST(IndexColors, GoRoundTheWheelInStepsOfFifteenDegrees) {
    const int values[] = {255, 204, 153, 127, 76};
    for (int index = 10; index < 250; ++index) {
        const double hue = (index / 10 - 1) * 15.0;
        EXPECT_EQ(RgbOfColorIndex(index), RgbOfHsv(hue, index % 2 ? 0.5 : 1.0, values[index % 10 / 2])) << index;
    }
}

TEST(IndexColors, HoldTheKnownRows) {
    EXPECT_EQ(RgbOfColorIndex(10), 0xFF0000);
    EXPECT_EQ(RgbOfColorIndex(11), 0xFF7F7F);
    EXPECT_EQ(RgbOfColorIndex(20), 0xFF3F00);
    EXPECT_EQ(RgbOfColorIndex(30), 0xFF7F00);
    EXPECT_EQ(RgbOfColorIndex(32), 0xCC6600);
    EXPECT_EQ(RgbOfColorIndex(94), 0x009900);
    EXPECT_EQ(RgbOfColorIndex(140), 0x00BFFF);
    EXPECT_EQ(RgbOfColorIndex(176), 0x00007F);
    EXPECT_EQ(RgbOfColorIndex(249), 0x4C262F);
}

TEST(IndexColors, EndWithSixGreys) {
    const int greys[] = {51, 91, 132, 173, 214, 255};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(RgbOfColorIndex(250 + i), greys[i] * 0x010101);
}

TEST(IndexColors, CountEveryOtherNumberAsSeven) {
    for (const int index : {0, -1, 256, 257, 2147483647, -2147483647 - 1})
        EXPECT_EQ(RgbOfColorIndex(index), RgbOfColorIndex(7));
}
