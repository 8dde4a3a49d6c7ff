// Bitmaps under handles, and the class that owns one.
#include "platform/media/CBitmap.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <vector>

namespace {

std::vector<DWORD> PixelsOf(HBITMAP bitmap, std::size_t count) {
    std::vector<DWORD> pixels(count, 0xDEADBEEF);
    EXPECT_TRUE(ReadBitmapPixels(bitmap, pixels.data()));
    return pixels;
}

TEST(Bitmap, KeepsACopyOfItsPixels) {
    const std::vector<DWORD> pixels = {0xFF0000, 0x00FF00, 0x0000FF, 0x123456, 0x000000, 0xFFFFFF};
    std::vector<DWORD> given = pixels;
    const HBITMAP bitmap = CreateBitmap(3, 2, 1, 32, given.data());
    ASSERT_NE(bitmap, nullptr);
    given.assign(given.size(), 0x777777);
    EXPECT_EQ(PixelsOf(bitmap, 6), pixels);
    DeleteObject(bitmap);
}

TEST(Bitmap, IgnoresTheTopByteOfAPixel) {
    const DWORD pixels[] = {0xFF123456, 0x80FFFFFF};
    const HBITMAP bitmap = CreateBitmap(2, 1, 1, 32, pixels);
    EXPECT_EQ(PixelsOf(bitmap, 2), (std::vector<DWORD>{0x123456, 0xFFFFFF}));
    DeleteObject(bitmap);
}

TEST(Bitmap, IsBlackWithoutPixels) {
    const HBITMAP bitmap = CreateBitmap(5, 4, 1, 32, nullptr);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(PixelsOf(bitmap, 20), std::vector<DWORD>(20, 0));
    DeleteObject(bitmap);
}

TEST(Bitmap, TellsItsSize) {
    const HBITMAP bitmap = CreateBitmap(7, 3, 1, 32, nullptr);
    BITMAP told;
    std::memset(&told, 0xAB, sizeof told);
    EXPECT_EQ(GetObject(bitmap, sizeof told, &told), static_cast<int>(sizeof told));
    EXPECT_EQ(told.bmType, 0);
    EXPECT_EQ(told.bmWidth, 7);
    EXPECT_EQ(told.bmHeight, 3);
    EXPECT_EQ(told.bmWidthBytes, 28);
    EXPECT_EQ(told.bmPlanes, 1);
    EXPECT_EQ(told.bmBitsPixel, 32);
    EXPECT_EQ(told.bmBits, nullptr);
    EXPECT_EQ(GetObject(bitmap, sizeof told + 100, &told), static_cast<int>(sizeof told));
    DeleteObject(bitmap);
}

TEST(Bitmap, TellsNothingWithoutRoomForIt) {
    const HBITMAP bitmap = CreateBitmap(7, 3, 1, 32, nullptr);
    BITMAP told;
    std::memset(&told, 0xAB, sizeof told);
    BITMAP untouched;
    std::memset(&untouched, 0xAB, sizeof untouched);
    for (const int bytes : {static_cast<int>(sizeof told) - 1, 0, -1, INT_MIN})
        EXPECT_EQ(GetObject(bitmap, bytes, &told), 0);
    EXPECT_EQ(std::memcmp(&told, &untouched, sizeof told), 0);
    EXPECT_EQ(GetObject(bitmap, sizeof told, nullptr), 0);
    DeleteObject(bitmap);
}

TEST(Bitmap, RefusesSizesThatAreNotPositive) {
    const std::size_t before = LiveBitmaps();
    for (const int bad : {0, -1, INT_MIN}) {
        EXPECT_EQ(CreateBitmap(bad, 1, 1, 32, nullptr), nullptr);
        EXPECT_EQ(CreateBitmap(1, bad, 1, 32, nullptr), nullptr);
    }
    EXPECT_EQ(LiveBitmaps(), before);
}

TEST(Bitmap, RefusesSizesThatAreTooMuch) {
    const std::size_t before = LiveBitmaps();
    EXPECT_EQ(CreateBitmap(INT_MAX, INT_MAX, 1, 32, nullptr), nullptr);
    EXPECT_EQ(CreateBitmap(INT_MAX, 1, 1, 32, nullptr), nullptr);
    EXPECT_EQ(CreateBitmap(1, INT_MAX, 1, 32, nullptr), nullptr);
    EXPECT_EQ(CreateBitmap(32768, 16385, 1, 32, nullptr), nullptr);  // one row above 2^31 bytes
    EXPECT_EQ(CreateBitmap(500'000'000, 1, 1, 32, nullptr), nullptr);
    EXPECT_EQ(LiveBitmaps(), before);
}

TEST(Bitmap, RefusesOtherForms) {
    for (const UINT planes : {0u, 2u, 4u})
        EXPECT_EQ(CreateBitmap(1, 1, planes, 32, nullptr), nullptr);
    for (const UINT bits : {0u, 1u, 8u, 24u, 33u, 64u})
        EXPECT_EQ(CreateBitmap(1, 1, 1, bits, nullptr), nullptr);
}

TEST(Bitmap, IsGoneOnceDeleted) {
    const std::size_t before = LiveBitmaps();
    const HBITMAP bitmap = CreateBitmap(1, 1, 1, 32, nullptr);
    EXPECT_EQ(LiveBitmaps(), before + 1);
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_EQ(LiveBitmaps(), before);
    EXPECT_FALSE(DeleteObject(bitmap));
    BITMAP told;
    DWORD pixel = 5;
    EXPECT_EQ(GetObject(bitmap, sizeof told, &told), 0);
    EXPECT_FALSE(ReadBitmapPixels(bitmap, &pixel));
    EXPECT_EQ(pixel, 5u);
}

TEST(Bitmap, IsNothingUnderStrangeHandles) {
    int nobody = 0;
    BITMAP told;
    DWORD pixel = 5;
    for (const HBITMAP handle : {HBITMAP{nullptr}, reinterpret_cast<HBITMAP>(&nobody)}) {
        EXPECT_FALSE(DeleteObject(handle));
        EXPECT_EQ(GetObject(handle, sizeof told, &told), 0);
        EXPECT_FALSE(ReadBitmapPixels(handle, &pixel));
    }
    const HBITMAP bitmap = CreateBitmap(1, 1, 1, 32, nullptr);
    EXPECT_FALSE(ReadBitmapPixels(bitmap, nullptr));
    DeleteObject(bitmap);
}

TEST(CBitmap, OwnsNothingAtFirst) {
    CBitmap bitmap;
    BITMAP told;
    EXPECT_EQ(bitmap.GetSafeHandle(), nullptr);
    EXPECT_EQ(static_cast<HBITMAP>(bitmap), nullptr);
    EXPECT_EQ(bitmap.GetBitmap(&told), 0);
    EXPECT_EQ(bitmap.Detach(), nullptr);
    EXPECT_FALSE(bitmap.DeleteObject());
}

TEST(CBitmap, FreesItsBitmapWhenDestroyed) {
    const std::size_t before = LiveBitmaps();
    {
        CBitmap bitmap;
        EXPECT_TRUE(bitmap.CreateBitmap(2, 3, 1, 32, nullptr));
        EXPECT_EQ(LiveBitmaps(), before + 1);
    }
    EXPECT_EQ(LiveBitmaps(), before);
}

TEST(CBitmap, CreatesItsBitmap) {
    const DWORD pixels[] = {0x112233, 0x445566};
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(1, 2, 1, 32, pixels));
    BITMAP told;
    EXPECT_EQ(bitmap.GetBitmap(&told), static_cast<int>(sizeof told));
    EXPECT_EQ(told.bmWidth, 1);
    EXPECT_EQ(told.bmHeight, 2);
    EXPECT_EQ(PixelsOf(bitmap, 2), (std::vector<DWORD>{0x112233, 0x445566}));
    EXPECT_EQ(bitmap.GetBitmap(nullptr), 0);
}

TEST(CBitmap, StaysEmptyWhenCreatingFails) {
    CBitmap bitmap;
    EXPECT_FALSE(bitmap.CreateBitmap(0, 1, 1, 32, nullptr));
    EXPECT_EQ(bitmap.GetSafeHandle(), nullptr);
}

TEST(CBitmap, KeepsTheBitmapItHas) {
    const std::size_t before = LiveBitmaps();
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(1, 1, 1, 32, nullptr));
    const HBITMAP first = bitmap;
    EXPECT_FALSE(bitmap.CreateBitmap(2, 2, 1, 32, nullptr));
    EXPECT_EQ(LiveBitmaps(), before + 1);
    const HBITMAP other = CreateBitmap(3, 3, 1, 32, nullptr);
    EXPECT_FALSE(bitmap.Attach(other));
    EXPECT_EQ(bitmap.GetSafeHandle(), first);
    EXPECT_TRUE(DeleteObject(other));
}

TEST(CBitmap, TakesABitmapOver) {
    const std::size_t before = LiveBitmaps();
    {
        CBitmap bitmap;
        EXPECT_FALSE(bitmap.Attach(nullptr));
        const HBITMAP handle = CreateBitmap(1, 1, 1, 32, nullptr);
        EXPECT_TRUE(bitmap.Attach(handle));
        EXPECT_EQ(bitmap.GetSafeHandle(), handle);
        EXPECT_EQ(static_cast<HBITMAP>(bitmap), handle);
    }
    EXPECT_EQ(LiveBitmaps(), before);
}

TEST(CBitmap, GivesItsBitmapUp) {
    HBITMAP handle = nullptr;
    {
        CBitmap bitmap;
        ASSERT_TRUE(bitmap.CreateBitmap(1, 1, 1, 32, nullptr));
        handle = bitmap.Detach();
        EXPECT_EQ(bitmap.GetSafeHandle(), nullptr);
    }
    EXPECT_TRUE(DeleteObject(handle));
}

TEST(CBitmap, CanTakeAnotherBitmapAfterDeleting) {
    const std::size_t before = LiveBitmaps();
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(1, 1, 1, 32, nullptr));
    EXPECT_TRUE(bitmap.DeleteObject());
    EXPECT_EQ(bitmap.GetSafeHandle(), nullptr);
    EXPECT_EQ(LiveBitmaps(), before);
    EXPECT_TRUE(bitmap.CreateBitmap(2, 2, 1, 32, nullptr));
}

TEST(CBitmap, SurvivesThatItsBitmapWasDeletedBehindItsBack) {
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(1, 1, 1, 32, nullptr));
    EXPECT_TRUE(DeleteObject(bitmap));
    BITMAP told;
    EXPECT_EQ(bitmap.GetBitmap(&told), 0);
    EXPECT_FALSE(bitmap.DeleteObject());
}

TEST(CBitmap, KnowsItsClass) {
    const CBitmap bitmap;
    const CObject& object = bitmap;
    EXPECT_EQ(object.GetRuntimeClass(), &CBitmap::classCBitmap);
    EXPECT_STREQ(object.GetRuntimeClass()->m_lpszClassName, "CBitmap");
    EXPECT_EQ(object.GetRuntimeClass()->m_nObjectSize, static_cast<int>(sizeof(CBitmap)));
    EXPECT_TRUE(object.IsKindOf(&CObject::classCObject));
}

}  // namespace
