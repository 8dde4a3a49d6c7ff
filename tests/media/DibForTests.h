// What the tests of device-independent bitmaps share: a screen, bitmaps from pixels, headers with room for a table.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <functional>
#include <vector>

#include "platform/media/CBitmap.h"
#include "platform/media/DeviceContext.h"
#include "platform/media/Dib.h"

class ScreenForTests {
public:
    ScreenForTests() : m_context(GetDC(nullptr)) {}
    ~ScreenForTests() { ReleaseDC(nullptr, m_context); }
    ScreenForTests(const ScreenForTests&) = delete;
    ScreenForTests& operator=(const ScreenForTests&) = delete;
    operator HDC() const { return m_context; }

private:
    HDC m_context;
};

// A header that has to be refused: what is wrong with it, and how a sound one gets it.
struct Refusal {
    const char* what;
    std::function<void(BITMAPINFOHEADER&)> change;
};

// A header, and behind it exactly as many table bytes as it is made with, so that the sanitizer sees a step beyond.
class DibInfo {
public:
    DibInfo(int width, int height, int bits, DWORD compression = BI_RGB, std::size_t entries = 256)
        : m_bytes(sizeof(BITMAPINFOHEADER) + entries * sizeof(RGBQUAD), 0) {
        Header().biSize = sizeof(BITMAPINFOHEADER);
        Header().biWidth = width;
        Header().biHeight = height;
        Header().biPlanes = 1;
        Header().biBitCount = static_cast<WORD>(bits);
        Header().biCompression = compression;
    }
    BITMAPINFOHEADER& Header() { return *reinterpret_cast<BITMAPINFOHEADER*>(m_bytes.data()); }
    BITMAPINFO* Get() { return reinterpret_cast<BITMAPINFO*>(m_bytes.data()); }
    std::vector<BYTE>& Bytes() { return m_bytes; }

    // Entries of the table (or masks), 0x00RRGGBB, which is the order of the bytes in memory from the lowest up.
    DWORD Entry(std::size_t index) const {
        DWORD entry = 0;
        for (std::size_t i = 4; i-- > 0;)
            entry = entry << 8 | m_bytes.at(sizeof(BITMAPINFOHEADER) + 4 * index + i);
        return entry;
    }
    void SetEntry(std::size_t index, DWORD entry) {
        for (std::size_t i = 0; i < 4; ++i)
            m_bytes.at(sizeof(BITMAPINFOHEADER) + 4 * index + i) = static_cast<BYTE>(entry >> 8 * i);
    }
    void SetEntries(const std::vector<DWORD>& entries) {
        for (std::size_t i = 0; i < entries.size(); ++i)
            SetEntry(i, entries[i]);
    }

private:
    std::vector<BYTE> m_bytes;
};
