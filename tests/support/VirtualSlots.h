// The places of virtual operations in their class's table.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

// A pointer to a virtual operation holds its place in the table of operations, in bytes and one more.
template <class Operation>
std::size_t SlotOf(Operation operation) {
    std::ptrdiff_t place = 0;
    std::memcpy(&place, &operation, sizeof place);
    EXPECT_EQ(place % 8, 1) << "not virtual";
    return static_cast<std::size_t>(place) / 8;
}
