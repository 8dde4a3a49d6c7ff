// Result buffers: making, linking and freeing them. What is not freed is found by the leak checker.
#include "platform/host/ResBuf.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <cstring>

TEST(ResBuf, BeginsEmptyAndUnlinked) {
    for (const int type : {-5, 0, 10, 70, 310, 330, 5005, SHRT_MAX, SHRT_MIN}) {
        resbuf* buffer = acutNewRb(type);
        ASSERT_NE(buffer, nullptr);
        EXPECT_EQ(buffer->restype, type);
        EXPECT_EQ(buffer->rbnext, nullptr);
        const ads_u_val zero{};
        EXPECT_EQ(std::memcmp(&buffer->resval, &zero, sizeof(zero)), 0);
        EXPECT_EQ(acutRelRb(buffer), RTNORM);
    }
}

TEST(ResBuf, IsNotMadeForATypeThatIsNoShortNumber) {
    EXPECT_EQ(acutNewRb(SHRT_MAX + 1), nullptr);
    EXPECT_EQ(acutNewRb(SHRT_MIN - 1), nullptr);
    EXPECT_EQ(acutNewRb(INT_MAX), nullptr);
}

TEST(ResBuf, HoldsPointsAndNamesWhole) {
    EXPECT_EQ(sizeof(ads_point), 24U);
    EXPECT_EQ(sizeof(ads_name), 16U);
    EXPECT_EQ(sizeof(ads_u_val), 24U);
}

TEST(ResBuf, FreesAWholeChainWithItsTextsAndBytes) {
    resbuf* chain = acutNewRb(1);
    ASSERT_EQ(acutNewString(L"first", chain->resval.rstring), RTNORM);
    chain->rbnext = acutNewRb(RTSTR);
    ASSERT_EQ(acutNewString(L"second", chain->rbnext->resval.rstring), RTNORM);
    resbuf* bytes = acutNewRb(310);
    bytes->resval.rbinary.clen = 3;
    bytes->resval.rbinary.buf = static_cast<char*>(std::malloc(3));
    chain->rbnext->rbnext = bytes;
    resbuf* number = acutNewRb(40);
    number->resval.rreal = 1e300;  // would be a wild pointer to whoever takes it for a text
    bytes->rbnext = number;
    EXPECT_EQ(acutRelRb(chain), RTNORM);
}

TEST(ResBuf, FreesNothingAtAll) {
    EXPECT_EQ(acutRelRb(nullptr), RTNORM);
}

TEST(ResBuf, CopiesTexts) {
    const wchar_t original[] = L"日照 window";
    wchar_t* copy = nullptr;
    ASSERT_EQ(acutNewString(original, copy), RTNORM);
    EXPECT_NE(copy, original);
    EXPECT_STREQ(copy, original);
    EXPECT_EQ(acutDelString(copy), RTNORM);
    EXPECT_EQ(copy, nullptr);
    EXPECT_EQ(acutDelString(copy), RTERROR);
}

TEST(ResBuf, CopiesNoTextAsAnEmptyOne) {
    wchar_t* copy = nullptr;
    ASSERT_EQ(acutNewString(nullptr, copy), RTNORM);
    EXPECT_STREQ(copy, L"");
    acutDelString(copy);
}
