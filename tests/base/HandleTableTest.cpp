// Handles: what they name, how long, and that a stale one finds nothing.
#include "platform/base/HandleTable.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <thread>
#include <vector>

namespace {

using Handle = struct NobodysHandle*;
using Table = HandleTable<int, Handle>;

TEST(HandleTable, FindsWhatWasAdded) {
    Table table;
    const Handle one = table.Add(std::make_shared<int>(1));
    const Handle two = table.Add(std::make_shared<int>(2));
    ASSERT_NE(one, nullptr);
    ASSERT_NE(two, nullptr);
    EXPECT_NE(one, two);
    EXPECT_EQ(*table.Find(one), 1);
    EXPECT_EQ(*table.Find(two), 2);
    EXPECT_EQ(table.Count(), 2u);
}

TEST(HandleTable, GivesNullForNoObject) {
    Table table;
    EXPECT_EQ(table.Add(nullptr), nullptr);
    EXPECT_EQ(table.Count(), 0u);
}

TEST(HandleTable, FindsNothingUnderStrangeHandles) {
    Table table;
    const Handle handle = table.Add(std::make_shared<int>(1));
    EXPECT_EQ(table.Find(nullptr), nullptr);
    EXPECT_EQ(table.Remove(nullptr), nullptr);
    for (const std::uintptr_t away : {std::uintptr_t{1}, std::uintptr_t{16}, ~std::uintptr_t{0}}) {
        const auto strange = reinterpret_cast<Handle>(reinterpret_cast<std::uintptr_t>(handle) + away);
        EXPECT_EQ(table.Find(strange), nullptr);
        EXPECT_EQ(table.Remove(strange), nullptr);
    }
    EXPECT_EQ(table.Count(), 1u);
}

TEST(HandleTable, ForgetsWhatWasRemoved) {
    Table table;
    const Handle handle = table.Add(std::make_shared<int>(7));
    const std::shared_ptr<int> removed = table.Remove(handle);
    ASSERT_NE(removed, nullptr);
    EXPECT_EQ(*removed, 7);
    EXPECT_EQ(table.Find(handle), nullptr);
    EXPECT_EQ(table.Remove(handle), nullptr);
    EXPECT_EQ(table.Count(), 0u);
}

TEST(HandleTable, NeverGivesAHandleTwice) {
    Table table;
    std::set<Handle> given;
    for (int i = 0; i < 1000; ++i) {
        const Handle handle = table.Add(std::make_shared<int>(i));
        EXPECT_TRUE(given.insert(handle).second);
        if (i % 3 != 0)
            table.Remove(handle);
    }
}

TEST(HandleTable, KeepsAnObjectAliveForItsFinder) {
    Table table;
    const Handle handle = table.Add(std::make_shared<int>(7));
    const std::shared_ptr<int> found = table.Find(handle);
    const std::weak_ptr<int> watched = found;
    table.Remove(handle);
    EXPECT_FALSE(watched.expired());
    EXPECT_EQ(*found, 7);
}

TEST(HandleTable, ReleasesAnObjectThatNobodyHolds) {
    Table table;
    auto object = std::make_shared<int>(7);
    const std::weak_ptr<int> watched = object;
    const Handle handle = table.Add(std::move(object));
    EXPECT_FALSE(watched.expired());
    table.Remove(handle);
    EXPECT_TRUE(watched.expired());
}

TEST(HandleTable, GivesARemovedObjectToOneThreadOnly) {
    Table table;
    constexpr int kObjects = 2000;
    std::vector<Handle> handles;
    for (int i = 0; i < kObjects; ++i)
        handles.push_back(table.Add(std::make_shared<int>(i)));
    const auto removeAll = [&](int& count) {
        for (const Handle handle : handles)
            count += table.Remove(handle) != nullptr ? 1 : 0;
    };
    int counts[2] = {0, 0};
    std::thread other([&] { removeAll(counts[0]); });
    removeAll(counts[1]);
    other.join();
    EXPECT_EQ(counts[0] + counts[1], kObjects);
    EXPECT_EQ(table.Count(), 0u);
}

}  // namespace
