// Floors: construction, copies and every comparison, also where two of them disagree.
#include "records/SunFloorData.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

SunFloorData Floor(std::int32_t key, std::int32_t value, std::uint64_t id) {
    SunFloorData floor;
    floor.m_nKey = key;
    floor.m_nValue = value;
    floor.m_id = id;
    return floor;
}

constexpr std::uint64_t kTopBit = 0x8000000000000000;

}  // namespace

TEST(SunFloorData, BeginsWithZeros) {
    const SunFloorData floor;
    EXPECT_EQ(floor.m_nKey, 0);
    EXPECT_EQ(floor.m_nValue, 0);
    EXPECT_EQ(floor.m_id, 0U);
}

TEST(SunFloorData, CopiesAndAssignsEveryField) {
    const SunFloorData floor = Floor(-3, 4, kTopBit + 5);
    const SunFloorData copy(floor);
    SunFloorData assigned;
    assigned = floor;
    for (const SunFloorData& same : {copy, assigned}) {
        EXPECT_EQ(same.m_nKey, -3);
        EXPECT_EQ(same.m_nValue, 4);
        EXPECT_EQ(same.m_id, kTopBit + 5);
    }
}

TEST(SunFloorData, IsEqualWhenAllFieldsAre) {
    EXPECT_TRUE(Floor(1, 2, 3) == Floor(1, 2, 3));
    EXPECT_FALSE(Floor(1, 2, 3) == Floor(9, 2, 3));
    EXPECT_FALSE(Floor(1, 2, 3) == Floor(1, 9, 3));
    EXPECT_FALSE(Floor(1, 2, 3) == Floor(1, 2, 9));
}

TEST(SunFloorData, ComparesTheWordBitForBit) {
    EXPECT_FALSE(Floor(1, 2, 3) == Floor(1, 2, kTopBit + 3));
    EXPECT_FALSE(Floor(1, 2, 0) == Floor(1, 2, 0x100000000));
    EXPECT_TRUE(Floor(1, 2, ~0ULL) == Floor(1, 2, ~0ULL));
}

TEST(SunFloorData, IsUnequalWhenTheKeysDifferAndOnlyThen) {
    EXPECT_TRUE(Floor(1, 2, 3) != Floor(9, 2, 3));
    EXPECT_FALSE(Floor(1, 2, 3) != Floor(1, 9, 3));
    EXPECT_FALSE(Floor(1, 2, 3) != Floor(1, 2, 9));
    EXPECT_FALSE(Floor(1, 2, 3) != Floor(1, 2, 3));
}

TEST(SunFloorData, IsNeitherEqualNorUnequalWhenOnlyTheSecondNumberDiffers) {
    EXPECT_FALSE(Floor(1, 2, 3) == Floor(1, 9, 3));
    EXPECT_FALSE(Floor(1, 2, 3) != Floor(1, 9, 3));
}

TEST(SunFloorData, IsOrderedByTheKeyAlone) {
    EXPECT_TRUE(Floor(-1, 9, 9) < Floor(1, 0, 0));
    EXPECT_FALSE(Floor(1, 0, 0) < Floor(-1, 9, 9));
    EXPECT_FALSE(Floor(1, 0, 0) < Floor(1, 9, 9));
    EXPECT_TRUE(Floor(1, 0, 0) > Floor(-1, 9, 9));
    EXPECT_FALSE(Floor(-1, 9, 9) > Floor(1, 0, 0));
    EXPECT_FALSE(Floor(1, 9, 9) > Floor(1, 0, 0));
    EXPECT_TRUE(Floor(INT_MIN, 0, 0) < Floor(INT_MAX, 0, 0));
    EXPECT_TRUE(Floor(INT_MAX, 0, 0) > Floor(INT_MIN, 0, 0));
}
