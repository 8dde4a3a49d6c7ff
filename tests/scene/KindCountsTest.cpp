// Counts of kinds as a text.
#include "scene/KindCounts.h"

#include <gtest/gtest.h>

TEST(KindCounts, AreToldInTheirOrder) {
    EXPECT_EQ(KindsText({}), L"");
    EXPECT_EQ(KindsText({{"LINE", 700}, {"INSERT", 11}}), L"700 LINE, 11 INSERT");
    EXPECT_EQ(KindsText({{"\xFF", 1}}), L"1 \xFFFD");
}

TEST(KindCounts, TellTheFirstTen) {
    std::vector<KindCount> kinds;
    for (std::size_t i = 0; i < 10; ++i)
        kinds.push_back({"K", 9 - i});
    EXPECT_EQ(KindsText(kinds), L"9 K, 8 K, 7 K, 6 K, 5 K, 4 K, 3 K, 2 K, 1 K, 0 K");
    kinds.push_back({"K", 0});
    EXPECT_EQ(KindsText(kinds), L"9 K, 8 K, 7 K, 6 K, 5 K, 4 K, 3 K, 2 K, 1 K, 0 K, ...");
}

TEST(KindCounts, KnowTheBodiesThatAreNotRead) {
    for (const char* type : {"3DSOLID", "BODY", "REGION", "SURFACE", "EXTRUDEDSURFACE"})
        EXPECT_TRUE(IsUnreadBody(type)) << type;
    for (const char* type : {"LINE", "INSERT", "", "HATCH", "TEXT"})
        EXPECT_FALSE(IsUnreadBody(type)) << type;
}
