// Records pictures with the module's recorder: make-recording FILE BITS WIDTH HEIGHT COUNT RATE [sparse|die].
//
// Picture k shows the eight pure colours in turn, pixel i having colour (i + k) mod 8, with red, green and blue in its
// bits 0, 1 and 2. A sparse picture is black but for its lowest row. With "die" the program ends without closing.
#include <cstdlib>
#include <cstring>
#include <vector>

#include "avi/OrvoAVIFile.h"

bool g_isSparse = false;

namespace {

DWORD ColourOf(std::size_t number) {
    return (number & 1 ? 0xFF0000U : 0U) | (number & 2 ? 0xFF00U : 0U) | (number & 4 ? 0xFFU : 0U);
}

bool Record(OrvoAVIFile& recorder, int width, int height, int picture) {
    std::vector<DWORD> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const std::size_t first = g_isSparse ? pixels.size() - static_cast<std::size_t>(width) : 0;
    for (std::size_t i = first; i < pixels.size(); ++i)
        pixels[i] = ColourOf(i + static_cast<std::size_t>(picture));
    CBitmap bitmap;
    return bitmap.CreateBitmap(width, height, 1, 32, pixels.data()) && recorder.AddFrame(bitmap);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 7)
        return 2;
    const int count = std::atoi(argv[5]);
    const char* const mode = argc > 7 ? argv[7] : "";
    g_isSparse = std::strcmp(mode, "sparse") == 0;
    OrvoAVIFile recorder(FromUtf8(argv[1]), -1, -1, std::atoi(argv[6]));
    recorder.SetColorNum(static_cast<UINT>(std::atoi(argv[2])));
    for (int picture = 0; picture < count; ++picture)
        if (!Record(recorder, std::atoi(argv[3]), std::atoi(argv[4]), picture))
            return 1;
    if (std::strcmp(mode, "die") == 0)
        std::_Exit(0);
    return 0;
}
