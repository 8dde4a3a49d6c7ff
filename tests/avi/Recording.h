// What the tests of the recorder share: pictures, files, and answers to its question.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "avi/OrvoAVIFile.h"
#include "platform/media/Dib.h"
#include "platform/media/GlobalMemory.h"
#include "platform/window/ModalDriver.h"
#include "support/AviReader.h"
#include "support/FileTree.h"

// Makes a bitmap of the eight pure colours in turn; `seed` says which comes first.
inline void MakePicture(CBitmap& bitmap, int width = 4, int height = 3, int seed = 0) {
    std::vector<DWORD> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const auto bits = static_cast<DWORD>(i + static_cast<std::size_t>(seed));
        pixels[i] = (bits & 1 ? 0xFF0000U : 0U) | (bits & 2 ? 0xFF00U : 0U) | (bits & 4 ? 0xFFU : 0U);
    }
    ASSERT_TRUE(bitmap.CreateBitmap(width, height, 1, 32, pixels.data()));
}

// Bytes of a BMP file.
template <class Struct>
std::string BytesOf(const Struct& value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

inline std::string BmpFile(const BITMAPINFOHEADER& header, const std::string& behind) {
    const auto size = static_cast<DWORD>(54 + behind.size());
    return BytesOf(BITMAPFILEHEADER{0x4D42, size, 0, 0, 54}) + BytesOf(header) + behind;
}

// 24 bits, every byte of the pixels counted up.
inline std::string SmallBmp(LONG width = 4, LONG height = 3) {
    std::string pixels;
    for (int i = 0; i < (width * 3 + 3) / 4 * 4 * height; ++i)
        pixels += static_cast<char>(i);
    return BmpFile({40, width, height, 1, 24, 0, 0, 0, 0, 0, 0}, pixels);
}
