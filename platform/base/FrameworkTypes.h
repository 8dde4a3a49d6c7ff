// The plain types in which the framework's interfaces are written.
#pragma once

#include <cstdint>

using BOOL = int;  // 0 is false, anything else true
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using HANDLE = void*;
// 0 and above is success, below 0 a failure.
using HRESULT = std::int32_t;

inline constexpr BOOL TRUE = 1;
inline constexpr BOOL FALSE = 0;

// Handles of windows, bitmaps and device contexts: names of objects, never addresses to look behind.
using HWND = struct OrvoWindowHandle*;
using HBITMAP = struct OrvoBitmapHandle*;
using HDC = struct OrvoDeviceContextHandle*;

// Right and bottom are the first column and row outside.
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
