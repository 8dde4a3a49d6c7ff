// Device contexts: two kinds, each given back in its own way and only once.
#include "platform/media/DeviceContext.h"

#include <gtest/gtest.h>

namespace {

TEST(DeviceContext, OfTheScreenIsReleased) {
    const std::size_t before = LiveDeviceContexts();
    const HDC screen = GetDC(nullptr);
    ASSERT_NE(screen, nullptr);
    EXPECT_TRUE(IsDeviceContext(screen));
    EXPECT_EQ(LiveDeviceContexts(), before + 1);
    EXPECT_EQ(ReleaseDC(nullptr, screen), 1);
    EXPECT_FALSE(IsDeviceContext(screen));
    EXPECT_EQ(LiveDeviceContexts(), before);
    EXPECT_EQ(ReleaseDC(nullptr, screen), 0);
}

TEST(DeviceContext, OfMemoryIsDeleted) {
    const std::size_t before = LiveDeviceContexts();
    const HDC memory = CreateCompatibleDC(nullptr);
    ASSERT_NE(memory, nullptr);
    EXPECT_TRUE(IsDeviceContext(memory));
    EXPECT_EQ(LiveDeviceContexts(), before + 1);
    EXPECT_TRUE(DeleteDC(memory));
    EXPECT_FALSE(IsDeviceContext(memory));
    EXPECT_EQ(LiveDeviceContexts(), before);
    EXPECT_FALSE(DeleteDC(memory));
}

TEST(DeviceContext, OfMemoryIsMadeLikeOneOfEitherKind) {
    const HDC screen = GetDC(nullptr);
    const HDC first = CreateCompatibleDC(screen);
    const HDC second = CreateCompatibleDC(first);
    EXPECT_NE(first, nullptr);
    EXPECT_NE(second, nullptr);
    EXPECT_NE(first, second);
    ReleaseDC(nullptr, screen);
    EXPECT_TRUE(IsDeviceContext(first));
    EXPECT_TRUE(DeleteDC(first));
    EXPECT_TRUE(DeleteDC(second));
}

TEST(DeviceContext, IsNotMadeLikeOneThatIsGone) {
    const HDC screen = GetDC(nullptr);
    ReleaseDC(nullptr, screen);
    const std::size_t before = LiveDeviceContexts();
    EXPECT_EQ(CreateCompatibleDC(screen), nullptr);
    EXPECT_EQ(LiveDeviceContexts(), before);
}

TEST(DeviceContext, IsNotGivenBackInTheOtherKindsWay) {
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(nullptr);
    EXPECT_FALSE(DeleteDC(screen));
    EXPECT_EQ(ReleaseDC(nullptr, memory), 0);
    EXPECT_TRUE(IsDeviceContext(screen));
    EXPECT_TRUE(IsDeviceContext(memory));
    EXPECT_EQ(ReleaseDC(nullptr, screen), 1);
    EXPECT_TRUE(DeleteDC(memory));
}

TEST(DeviceContext, IsNothingUnderStrangeHandles) {
    int nobody = 0;
    for (const HDC handle : {HDC{nullptr}, reinterpret_cast<HDC>(&nobody)}) {
        EXPECT_FALSE(IsDeviceContext(handle));
        EXPECT_EQ(ReleaseDC(nullptr, handle), 0);
        EXPECT_FALSE(DeleteDC(handle));
    }
}

}  // namespace
