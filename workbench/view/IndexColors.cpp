// Computes the numbered colours: a few fixed ones, and the hues of a wheel in shades.
#include "workbench/view/IndexColors.h"

#include <array>

namespace {

constexpr int kFirstHue = 10;
constexpr int kFirstGrey = 250;
constexpr int kLast = 255;
constexpr int kPaperOpposite = 7;

constexpr std::array kFixed = {0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF,
                               0xFF00FF, 0xDCDCDC, 0x808080, 0xC0C0C0};
constexpr std::array kValues = {255, 204, 153, 127, 76};
constexpr std::array kGreys = {51, 91, 132, 173, 214, 255};

// One of the three parts of a fully saturated hue, in quarters. The wheel has 24 steps; a part stays at its most for 8
// of them, falls for 4, is absent for 8, and rises for 4. `step` counts from the middle of its most.
int QuartersAt(int step) {
    step = (step % 24 + 24) % 24;
    const int away = step <= 12 ? step : 24 - step;
    return away <= 4 ? 4 : away >= 8 ? 0 : 8 - away;
}

int RgbOfHue(int index) {
    const int hue = (index - kFirstHue) / 10;
    const int value = kValues[static_cast<std::size_t>(index % 10 / 2)];
    const bool half = index % 2 == 1;
    int rgb = 0;
    for (const int middle : {0, 8, 16}) {
        const int quarters = QuartersAt(hue - middle);
        rgb = rgb << 8 | (half ? value * (4 + quarters) / 8 : value * quarters / 4);
    }
    return rgb;
}

}  // namespace

int RgbOfColorIndex(int index) {
    if (index < 1 || index > kLast)
        index = kPaperOpposite;
    if (index < kFirstHue)
        return kFixed[static_cast<std::size_t>(index - 1)];
    if (index < kFirstGrey)
        return RgbOfHue(index);
    return kGreys[static_cast<std::size_t>(index - kFirstGrey)] * 0x010101;
}

int RgbOfLine(int index, int trueColor) {
    constexpr int kDarkGrey = 0x404040;
    constexpr int kMostBrightness = 140;  // of 255; the background has 200 to 240
    if (trueColor < 0 && RgbOfColorIndex(index) == RgbOfColorIndex(kPaperOpposite))
        return kDarkGrey;
    const int rgb = trueColor >= 0 ? trueColor & 0xFFFFFF : RgbOfColorIndex(index);
    const int red = rgb >> 16;
    const int green = rgb >> 8 & 255;
    const int blue = rgb & 255;
    // As bright as the eye takes them.
    const int brightness = (299 * red + 587 * green + 114 * blue) / 1000;
    if (brightness <= kMostBrightness)
        return rgb;
    const auto darkened = [&](int part) { return part * kMostBrightness / brightness; };
    return darkened(red) << 16 | darkened(green) << 8 | darkened(blue);
}
