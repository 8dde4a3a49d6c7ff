// Device-independent bitmaps: their headers as they stand in BMP and AVI files, and the way between them and bitmaps.
//
// A row of w pixels of n bits takes (w n + 31) / 32 * 4 bytes. Rows run from the bottom up, from the top down when the
// height is negative. Colours stand as blue, green, red, in 16 bits as 5 bits each (0RRRRRGGGGGBBBBB).
#pragma once

#include "platform/base/Api.h"
#include "platform/base/FrameworkTypes.h"

inline constexpr DWORD BI_RGB = 0;        // pixels as they are
inline constexpr DWORD BI_RLE8 = 1;       // run-length coding of 8 bits a pixel
inline constexpr DWORD BI_RLE4 = 2;       // run-length coding of 4 bits a pixel
inline constexpr DWORD BI_BITFIELDS = 3;  // pixels of 16 or 32 bits, with masks behind the header
// The colour table holds colours.
inline constexpr UINT DIB_RGB_COLORS = 0;
// CreateDIBitmap is to read pixels.
inline constexpr DWORD CBM_INIT = 4;

// The info header, as files hold it.
struct BITMAPINFOHEADER {
    DWORD biSize;          // of this header: 40
    LONG biWidth;          // pixels
    LONG biHeight;         // rows; negative: from the top down
    WORD biPlanes;         // 1
    WORD biBitCount;       // of a pixel: 1, 4, 8, 16, 24 or 32
    DWORD biCompression;   // BI_RGB and the others
    DWORD biSizeImage;     // bytes of all rows; 0 for what they take without coding
    LONG biXPelsPerMeter;  // pixels a metre, which nobody looks at
    LONG biYPelsPerMeter;  // likewise
    DWORD biClrUsed;       // entries of the colour table; 0 for all that the bits can name
    DWORD biClrImportant;  // how many of them matter, which nobody looks at
};
static_assert(sizeof(BITMAPINFOHEADER) == 40);

// An entry of a colour table.
struct RGBQUAD {
    BYTE rgbBlue;      // 0 to 255
    BYTE rgbGreen;     // 0 to 255
    BYTE rgbRed;       // 0 to 255
    BYTE rgbReserved;  // 0
};

// An info header with its colour table: as many entries as the header says.
struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;  // says how many entries follow
    RGBQUAD bmiColors[1];        // the first one
};

#pragma pack(push, 1)
// How a BMP file begins; the info header follows.
struct BITMAPFILEHEADER {
    WORD bfType;       // 0x4D42, "BM"
    DWORD bfSize;      // of the file, in bytes
    WORD bfReserved1;  // 0
    WORD bfReserved2;  // 0
    DWORD bfOffBits;   // where the pixels begin, in bytes from the start of the file
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
