// Handles as texts.
#include "platform/host/HandleText.h"

#include <gtest/gtest.h>

namespace {

TEST(HandleText, IsCapitalHexadecimal) {
    EXPECT_EQ(HandleText(0x1F), L"1F");
    EXPECT_EQ(HandleText(0xABCDEF), L"ABCDEF");
    EXPECT_EQ(HandleText(0xFFFFFFFFFFFFFFFF), L"FFFFFFFFFFFFFFFF");
    EXPECT_EQ(HandleText(0), L"0");
}

}  // namespace
