// Run-length coded pictures: pairs of bytes that are a run of one colour, or an order when the first one is 0.
#pragma once

#include <span>

#include "platform/base/FrameworkTypes.h"

class QImage;

// Decodes pixels of `bits` bits (8 or 4), rows from the bottom up, into the picture. `palette` holds 256 colours.
// Nothing outside of `coded` is read, and runs end with their row. Pixels that are skipped stay as they are, and so
// does what comes after the end of `coded`.
void DecodeRunLengths(std::span<const BYTE> coded, int bits, std::span<const DWORD, 256> palette, QImage& picture);
