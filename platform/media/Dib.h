// Device-independent bitmaps: their headers as they stand in BMP and AVI files, and the way between them and bitmaps.
//
// A row of w pixels of n bits takes (w n + 31) / 32 * 4 bytes. Rows run from the bottom up, from the top down when the
// height is negative. Colours stand as blue, green, red, in 16 bits as 5 bits each (0RRRRRGGGGGBBBBB).
#pragma once

#include "platform/base/Api.h"
#include "platform/base/FrameworkTypes.h"

inline constexpr DWORD BI_RGB = 0;
inline constexpr DWORD BI_RLE8 = 1;
inline constexpr DWORD BI_RLE4 = 2;
inline constexpr DWORD BI_BITFIELDS = 3;
inline constexpr UINT DIB_RGB_COLORS = 0;
inline constexpr DWORD CBM_INIT = 4;

struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};
static_assert(sizeof(BITMAPINFOHEADER) == 40);

struct RGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};

// The colour table follows: as many entries as the header says.
struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};

#pragma pack(push, 1)
// How a BMP file begins; the info header follows.
struct BITMAPFILEHEADER {
    WORD bfType;  // 0x4D42, "BM"
    DWORD bfSize;
    WORD bfReserved1;
    WORD bfReserved2;
    DWORD bfOffBits;
};
#pragma pack(pop)
static_assert(sizeof(BITMAPFILEHEADER) == 14);

// Writes `lines` rows of the bitmap, the first one counted `start` rows from where the rows begin, in the format that
// info's header asks for: 1, 4, 8, 16, 24 or 32 bits, BI_RGB, the bitmap's own width, and its height or the negative of
// it. Up to 8 bits the colour table (1 << bits entries behind the header) is filled too: a fixed one for each depth,
// which holds the eight pure colours exactly (black and white for 1 bit), and each pixel takes the nearest entry. The
// header's biSizeImage is set and its biClrUsed becomes 0, which stands for the full table. With bits null only header
// and table are filled in. Gives the number of rows written (for null bits 1), 0 when something is refused: nothing is
// written then.
ORVO_API int GetDIBits(HDC context, HBITMAP bitmap, UINT start, UINT lines, void* bits, BITMAPINFO* info, UINT usage);

// A bitmap of the size in `header`, for the screen; its pixels come from `bits` as `info` describes them when `init` is
// CBM_INIT, and are black otherwise. All of BMP's forms are read: 1, 4, 8, 16, 24 and 32 bits, bit fields, run-length
// coding. The caller answers for the length of `bits`: biSizeImage bytes with run-length coding, else what the rows
// take (which is also the most that is ever read). Null when something is refused. The bitmap is freed by DeleteObject.
ORVO_API HBITMAP CreateDIBitmap(HDC context, const BITMAPINFOHEADER* header, DWORD init, const void* bits,
                                const BITMAPINFO* info, UINT usage);
