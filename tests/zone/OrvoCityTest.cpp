// Names of places and their order.
#include "zone/OrvoCity.h"

#include <gtest/gtest.h>

TEST(OrvoCity, BeginsWithoutAName) {
    EXPECT_TRUE(OrvoCity().m_strName.IsEmpty());
}

TEST(OrvoCity, TakesAndCopiesAName) {
    const OrvoCity city(CString(L"杭州"));
    OrvoCity assigned;
    assigned = city;
    EXPECT_EQ(OrvoCity(city).m_strName, L"杭州");
    EXPECT_EQ(assigned.m_strName, L"杭州");
}

TEST(OrvoCity, ComparesOrdinallyAndWithRegardToCase) {
    const OrvoCity upper(CString(L"B"));
    const OrvoCity lower(CString(L"a"));
    EXPECT_TRUE(upper == OrvoCity(CString(L"B")));
    EXPECT_FALSE(upper == OrvoCity(CString(L"b")));
    EXPECT_TRUE(upper != OrvoCity(CString(L"b")));
    EXPECT_FALSE(upper != OrvoCity(CString(L"B")));
    EXPECT_TRUE(upper < lower);
    EXPECT_FALSE(lower < upper);
    EXPECT_TRUE(lower > upper);
    EXPECT_FALSE(upper > lower);
    EXPECT_FALSE(upper < upper);
    EXPECT_FALSE(upper > upper);
}
