// One threshold row: comparisons and its own dictionary form.
#include "calendar/OrvoColorMap.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/base/QcDtDictionary.h"

TEST(OrvoColorMap, IsZeroByDefault) {
    const OrvoColorMap row;
    EXPECT_EQ(row.m_dValue, 0.0);
    EXPECT_EQ(row.m_nColor, 0);
}

TEST(OrvoColorMap, ComparesByValueAlone) {
    const OrvoColorMap low(1.0, 9);
    const OrvoColorMap high(2.0, 3);
    EXPECT_TRUE(low < high);
    EXPECT_FALSE(high < low);
    EXPECT_TRUE(high > low);
    EXPECT_FALSE(low > high);
    EXPECT_TRUE(low != high);
    EXPECT_FALSE(low == high);
    EXPECT_TRUE(low == OrvoColorMap(1.0, 4));
    EXPECT_FALSE(low != OrvoColorMap(1.0, 4));
    EXPECT_FALSE(low < OrvoColorMap(1.0, 4));
    EXPECT_FALSE(low > OrvoColorMap(1.0, 4));
}

TEST(OrvoColorMap, DiffersFromEverythingWhenItsValueIsNoNumber) {
    const OrvoColorMap row(std::numeric_limits<double>::quiet_NaN(), 1);
    const OrvoColorMap other(1.0, 1);
    EXPECT_FALSE(row == row);
    EXPECT_TRUE(row != row);
    EXPECT_FALSE(row == other);
    EXPECT_TRUE(other != row);
    EXPECT_FALSE(row < other);
    EXPECT_FALSE(row > other);
}

TEST(OrvoColorMap, WritesAnItemOfItsTypeAndStillGivesFalse) {
    QcDtDictDoubleItem item(L"row");
    item.SetAttributeValue(L"type", L"ColorMap");
    EXPECT_FALSE(OrvoColorMap(2.5, 7).SaveToXml(&item));
    EXPECT_EQ(item.GetDoubleValue(), 2.5);
    EXPECT_EQ(item.GetAttributeInt(L"name"), 7);
    OrvoColorMap read;
    EXPECT_FALSE(read.ReadFromXml(&item));
    EXPECT_EQ(read.m_dValue, 2.5);
    EXPECT_EQ(read.m_nColor, 7);
}

TEST(OrvoColorMap, LeavesItemsOfOtherTypesAlone) {
    QcDtDictDoubleItem item(L"row");
    item.SetDoubleValue(1.5);
    OrvoColorMap row(2.5, 7);
    EXPECT_FALSE(row.SaveToXml(&item));
    EXPECT_FALSE(row.SaveToXml(nullptr));
    EXPECT_FALSE(row.ReadFromXml(nullptr));
    EXPECT_EQ(item.GetDoubleValue(), 1.5);
    EXPECT_EQ(item.GetAttributeCount(), 0);
    item.SetAttributeValue(L"type", L"colormaps");
    item.SetAttributeInt(L"name", 3);
    EXPECT_FALSE(row.ReadFromXml(&item));
    EXPECT_EQ(row.m_dValue, 2.5);
    EXPECT_EQ(row.m_nColor, 7);
}
