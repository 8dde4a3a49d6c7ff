// Storage that is given up on purpose. Under the leak checker the blocks below, to which nothing else refers, would
// fail the whole program if they were not known as abandoned.
#include "platform/base/Abandon.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace {

// A block that nobody remembers once this returns.
__attribute__((noinline)) void AbandonBlock() {
    Abandon(new int[12]());  // the leak is the point
}

TEST(Abandon, CountsEveryBlockAcrossTheListsGrowth) {
    const std::size_t before = AbandonedCount();
    for (int i = 0; i < 200; ++i)
        AbandonBlock();
    EXPECT_EQ(AbandonedCount(), before + 200);
}

TEST(Abandon, IgnoresNull) {
    const std::size_t before = AbandonedCount();
    Abandon(nullptr);
    EXPECT_EQ(AbandonedCount(), before);
}

TEST(Abandon, LeavesTheBlockAsItIs) {
    auto* block = new int(5);
    Abandon(block);
    EXPECT_EQ(*block, 5);
}

}  // namespace
