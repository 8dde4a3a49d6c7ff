// The colour tables that bitmaps of 1, 4 and 8 bits are written with, and the search for a colour's nearest entry.
//
// 1 bit: black, white.
// 4 bits: the sixteen colours of old screens. 0 to 6 are black, dark red, dark green, dark yellow, dark blue, dark
//   magenta and dark cyan (128 in the channels that are lit), 7 light grey (192), 8 dark grey (128), 9 to 15 red,
//   green, yellow, blue, magenta, cyan and white (255).
// 8 bits: 36 r + 6 g + b for the levels 0 to 5 of the channels (51 a level), then forty greys from dark to light. With
//   the cube's own six they are 46 even steps from black to white: 255 n / 45, rounded.
//
// The nearest entry is the one with the smallest sum of squared differences in red, green and blue; of equally near
// ones the first.
// Why: docs/decisions/media.md
#pragma once

#include <span>

#include "platform/base/FrameworkTypes.h"

// Colours are 0x00RRGGBB. Empty for other depths.
std::span<const DWORD> FixedPalette(int bits);

BYTE NearestOfTwo(DWORD colour);
BYTE NearestOfSixteen(DWORD colour);
BYTE NearestOf256(DWORD colour);
