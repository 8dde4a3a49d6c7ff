// The plain types in which the framework's interfaces are written.
#pragma once

#include <cstdint>

using BOOL = int;  // 0 is false, anything else true
// Whole numbers of 8, 16 and 32 bits, as files hold them.
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
// At least 32 bits: numbers, flags, ids.
using UINT = unsigned int;
// 32 bits, signed.
using LONG = std::int32_t;
// Names an object of the system; null for none.
using HANDLE = void*;
// 0 and above is success, below 0 a failure.
using HRESULT = std::int32_t;

// The values of BOOL that are given; of those that are taken anything but 0 is true.
inline constexpr BOOL TRUE = 1;
inline constexpr BOOL FALSE = 0;

// Handles of windows, bitmaps and device contexts: names of objects, never addresses to look behind.
using HWND = struct OrvoWindowHandle*;
using HBITMAP = struct OrvoBitmapHandle*;
using HDC = struct OrvoDeviceContextHandle*;

// Pixels, y downwards. Right and bottom are the first column and row outside.
struct RECT {
    LONG left;    // first column
    LONG top;     // first row
    LONG right;   // behind the last column
    LONG bottom;  // below the last row
};
