// Device contexts: what bitmaps are made for and read through. There is one kind of device here, a screen of true
// colours, so a context carries nothing but its existence.
#pragma once

#include <cstddef>

#include "platform/base/Api.h"
#include "platform/base/FrameworkTypes.h"

// The screen's context; give it back with ReleaseDC. The window plays no part.
ORVO_API HDC GetDC(HWND window);
// 1 when the context was one of GetDC's, else 0.
ORVO_API int ReleaseDC(HWND window, HDC context);
// A memory context like the given one, or like the screen for null; null when the given one does not exist.
ORVO_API HDC CreateCompatibleDC(HDC context);
// Frees a context of CreateCompatibleDC. False for another one.
ORVO_API BOOL DeleteDC(HDC context);
// Whether a handle names a context, of either kind.
ORVO_API bool IsDeviceContext(HDC context);

// How many contexts have not been given back: for tests that look for leaks.
ORVO_API std::size_t LiveDeviceContexts();
