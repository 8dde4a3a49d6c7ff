// What the numbered colours of drawings look like.
#pragma once

// The red, green and blue of a colour number from 1 to 255, as 0xRRGGBB; any other number counts as 7.
//
// The numbers are built up like this. 1 to 6 are the pure colours of the wheel (red, yellow, green, cyan, blue,
// magenta), 7 is the paper's opposite, 8 and 9 are greys. From 10 on, each ten is a hue 15 degrees further on the
// wheel, which begins with red; within a ten each two numbers have a brightness of 255, 204, 153, 127 and 76, the first
// at full, the second at half saturation; fractions are dropped. 250 to 255 go from dark grey to white.
//
// 7 is a light grey here: on our light background it stands for faces that have no colour of their own, whose shading
// has to be seen and whose darker edges draw them.
int RgbOfColorIndex(int index);

// The colour of a line on our pale background: of the true colour (-1 for none), or else of the number; what would be
// too pale to be seen there is darkened, and 7 is a dark grey.
int RgbOfLine(int index, int trueColor);
