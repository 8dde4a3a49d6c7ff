// Bitmaps in the colours of the screen: named by handles, and the framework's class that owns one.
#pragma once

#include <cstddef>

#include "platform/base/Api.h"
#include "platform/base/FrameworkTypes.h"
#include "platform/media/CObject.h"

// What GetObject tells of a bitmap.
struct BITMAP {
    LONG bmType;        // 0
    LONG bmWidth;       // pixels
    LONG bmHeight;      // pixels
    LONG bmWidthBytes;  // of one row: 4 a pixel
    WORD bmPlanes;      // 1
    WORD bmBitsPixel;   // 32
    void* bmBits;       // null: the pixels are not to be seen
};

// A bitmap from pixels of 32 bits (0x00RRGGBB), rows from top to bottom without gaps; black for null pixels. Null when
// the size is not positive, there is no memory, or planes and bits are not 1 and 32. The pixels are copied.
ORVO_API HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bits, const void* pixels);
// Fills in a BITMAP and gives its size; 0, with nothing written, when the handle names no bitmap or `bytes` are too
// few.
ORVO_API int GetObject(HBITMAP bitmap, int bytes, void* out);
// Frees a bitmap. False when the handle names none.
ORVO_API BOOL DeleteObject(HBITMAP bitmap);
// The pixels, as CreateBitmap takes them, into room for width * height of them. False when the handle names no bitmap.
ORVO_API bool ReadBitmapPixels(HBITMAP bitmap, DWORD* pixels);

// How many bitmaps there are: for tests that look for leaks.
ORVO_API std::size_t LiveBitmaps();

// Owns a bitmap, or none.
class ORVO_API CBitmap : public CObject {
public:
    // The class itself.
    static const CRuntimeClass classCBitmap;

    CBitmap() = default;
    ~CBitmap() override;
    const CRuntimeClass* GetRuntimeClass() const override;

    // Makes a bitmap and owns it, as the function CreateBitmap. False when there is one already, or none can be made.
    BOOL CreateBitmap(int width, int height, UINT planes, UINT bits, const void* pixels);
    // Takes over a bitmap. False, and nothing is taken, for null or when there is one already.
    BOOL Attach(HBITMAP bitmap);
    // Gives the bitmap up to the caller; null when there is none.
    HBITMAP Detach();
    // Frees the bitmap. False when there is none.
    BOOL DeleteObject();
    // The handle, which stays this object's; null when there is none.
    HBITMAP GetSafeHandle() const { return m_bitmap; }
    operator HBITMAP() const { return m_bitmap; }
    // As the function GetObject gives it; 0 when there is none.
    int GetBitmap(BITMAP* out) const;

private:
    HBITMAP m_bitmap = nullptr;
};
