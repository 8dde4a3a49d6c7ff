// Blocks of memory under handles: both kinds, locks, sizes, and handles that name nothing.
#include "platform/media/GlobalMemory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace {

bool IsZero(const void* memory, std::size_t bytes) {
    const BYTE* from = static_cast<const BYTE*>(memory);
    return std::all_of(from, from + bytes, [](BYTE byte) { return byte == 0; });
}

TEST(GlobalMemory, NamesAFixedBlockByItsAddress) {
    const HGLOBAL block = GlobalAlloc(GMEM_FIXED, 100);
    ASSERT_NE(block, nullptr);
    std::memset(block, 0xAB, 100);
    EXPECT_EQ(GlobalLock(block), block);
    EXPECT_EQ(GlobalSize(block), 100u);
    EXPECT_EQ(GlobalFree(block), nullptr);
}

TEST(GlobalMemory, NamesAMovableBlockByAHandleOfItsOwn) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 100);
    ASSERT_NE(block, nullptr);
    void* address = GlobalLock(block);
    ASSERT_NE(address, nullptr);
    EXPECT_NE(address, block);
    std::memset(address, 0xAB, 100);
    EXPECT_EQ(GlobalLock(block), address);
    EXPECT_EQ(GlobalSize(block), 100u);
    EXPECT_EQ(GlobalSize(address), 0u);
    EXPECT_EQ(GlobalFree(block), nullptr);
}

TEST(GlobalMemory, ClearsABlockWhenAsked) {
    for (const UINT flags : {GHND, GPTR}) {
        // The allocator likes to give back what was just freed; that would not be zero.
        const HGLOBAL before = GlobalAlloc(GMEM_FIXED, 4000);
        ASSERT_NE(before, nullptr);
        std::memset(before, 0xAB, 4000);
        GlobalFree(before);
        const HGLOBAL block = GlobalAlloc(flags, 4000);
        EXPECT_TRUE(IsZero(GlobalLock(block), 4000));
        GlobalFree(block);
    }
}

TEST(GlobalMemory, CountsTheLocksOfAMovableBlock) {
    const HGLOBAL block = GlobalAlloc(GHND, 8);
    void* address = GlobalLock(block);
    EXPECT_EQ(GlobalLock(block), address);
    EXPECT_EQ(GlobalLock(block), address);
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_FALSE(GlobalUnlock(block));
    EXPECT_FALSE(GlobalUnlock(block));
    // One unlock too many has not been remembered.
    GlobalLock(block);
    GlobalLock(block);
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_FALSE(GlobalUnlock(block));
    GlobalFree(block);
}

TEST(GlobalMemory, TakesAFixedBlockForAlwaysLocked) {
    const HGLOBAL block = GlobalAlloc(GPTR, 8);
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_EQ(GlobalLock(block), block);
    GlobalFree(block);
}

TEST(GlobalMemory, KeepsAMovableBlockWhereItIs) {
    const HGLOBAL block = GlobalAlloc(GHND, 8);
    auto* first = static_cast<int*>(GlobalLock(block));
    *first = 42;
    GlobalUnlock(block);
    const auto* second = static_cast<const int*>(GlobalLock(block));
    EXPECT_EQ(*second, 42);
    GlobalFree(block);
}

TEST(GlobalMemory, FreesABlockThatIsLocked) {
    const std::size_t before = LiveGlobalBlocks();
    const HGLOBAL block = GlobalAlloc(GHND, 8);
    GlobalLock(block);
    EXPECT_EQ(GlobalFree(block), nullptr);
    EXPECT_EQ(LiveGlobalBlocks(), before);
}

TEST(GlobalMemory, GivesEmptyBlocksAHandleEach) {
    const HGLOBAL movable = GlobalAlloc(GMEM_MOVEABLE, 0);
    const HGLOBAL fixed = GlobalAlloc(GMEM_FIXED, 0);
    ASSERT_NE(movable, nullptr);
    ASSERT_NE(fixed, nullptr);
    EXPECT_NE(GlobalLock(movable), nullptr);
    EXPECT_EQ(GlobalSize(movable), 0u);
    EXPECT_EQ(GlobalSize(fixed), 0u);
    EXPECT_EQ(GlobalFree(movable), nullptr);
    EXPECT_EQ(GlobalFree(fixed), nullptr);
}

TEST(GlobalMemory, RefusesMoreThanThereCanBe) {
    const std::size_t before = LiveGlobalBlocks();
    for (const UINT flags : {GMEM_FIXED, GMEM_MOVEABLE, GPTR, GHND}) {
        EXPECT_EQ(GlobalAlloc(flags, std::numeric_limits<std::size_t>::max()), nullptr);
        EXPECT_EQ(GlobalAlloc(flags, std::numeric_limits<std::size_t>::max() / 2 + 1), nullptr);
    }
    EXPECT_EQ(LiveGlobalBlocks(), before);
}

TEST(GlobalMemory, SurvivesHandlesThatNameNothing) {
    const HGLOBAL freed = GlobalAlloc(GHND, 8);
    ASSERT_EQ(GlobalFree(freed), nullptr);
    int nobody = 0;
    for (const HGLOBAL handle : {HGLOBAL{nullptr}, freed, HGLOBAL{&nobody}}) {
        EXPECT_EQ(GlobalLock(handle), nullptr);
        EXPECT_FALSE(GlobalUnlock(handle));
        EXPECT_EQ(GlobalSize(handle), 0u);
        EXPECT_EQ(GlobalFree(handle), handle);
    }
}

TEST(GlobalMemory, NeverGivesAMovableBlocksHandleAgain) {
    const HGLOBAL freed = GlobalAlloc(GHND, 8);
    GlobalFree(freed);
    for (int i = 0; i < 100; ++i) {
        const HGLOBAL block = GlobalAlloc(GHND, 8);
        EXPECT_NE(block, freed);
        GlobalFree(block);
    }
}

TEST(GlobalMemory, CountsTheBlocksOfBothKinds) {
    const std::size_t before = LiveGlobalBlocks();
    const HGLOBAL movable = GlobalAlloc(GHND, 8);
    const HGLOBAL fixed = GlobalAlloc(GPTR, 8);
    EXPECT_EQ(LiveGlobalBlocks(), before + 2);
    GlobalFree(movable);
    EXPECT_EQ(LiveGlobalBlocks(), before + 1);
    GlobalFree(fixed);
    EXPECT_EQ(LiveGlobalBlocks(), before);
}

}  // namespace
