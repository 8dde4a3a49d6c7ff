// Windows: construction, copies and every comparison.
#include "records/SunWinData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "containers/QcList.h"

namespace {

const QcGePoint kLow(1, 2, 3);
const QcGePoint kHigh(1, 2, 4);
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

}  // namespace

TEST(SunWinData, BeginsWithSevenZeros) {
    const SunWinData window;
    EXPECT_EQ(window.m_pt1, QcGePoint(0, 0, 0));
    EXPECT_EQ(window.m_pt2, QcGePoint(0, 0, 0));
    EXPECT_EQ(window.m_dValue, 0.0);
}

TEST(SunWinData, TakesBothPointsWholeAndTheNumber) {
    const SunWinData window(QcGePoint(1, 2, 3), QcGePoint(4, 5, 6), 7.5);
    EXPECT_EQ(window.m_pt1, QcGePoint(1, 2, 3));
    EXPECT_EQ(window.m_pt2, QcGePoint(4, 5, 6));
    EXPECT_EQ(window.m_dValue, 7.5);
}

TEST(SunWinData, CopiesAndAssignsEveryField) {
    const SunWinData window(QcGePoint(1, 2, 3), QcGePoint(4, 5, 6), 7.5);
    const SunWinData copy(window);
    SunWinData assigned;
    assigned = window;
    for (const SunWinData& same : {copy, assigned}) {
        EXPECT_EQ(same.m_pt1, window.m_pt1);
        EXPECT_EQ(same.m_pt2, window.m_pt2);
        EXPECT_EQ(same.m_dValue, 7.5);
    }
}

TEST(SunWinData, IsEqualWhenNumberAndBothPointsAre) {
    const SunWinData window(kLow, kHigh, 1.5);
    EXPECT_TRUE(window == SunWinData(kLow, kHigh, 1.5));
    EXPECT_FALSE(window == SunWinData(kHigh, kHigh, 1.5));
    EXPECT_FALSE(window == SunWinData(kLow, kLow, 1.5));
    EXPECT_FALSE(window == SunWinData(kLow, kHigh, 1.0));
}

TEST(SunWinData, DiffersByTheSmallestPartOfTheNumber) {
    const SunWinData window(kLow, kHigh, 1.5);
    const SunWinData next(kLow, kHigh, std::nextafter(1.5, 2.0));
    EXPECT_FALSE(window == next);
    EXPECT_TRUE(window != next);
}

TEST(SunWinData, IsUnequalExactlyWhenItIsNotEqual) {
    const SunWinData window(kLow, kHigh, 1.5);
    EXPECT_FALSE(window != SunWinData(kLow, kHigh, 1.5));
    EXPECT_TRUE(window != SunWinData(kHigh, kHigh, 1.5));
    EXPECT_TRUE(window != SunWinData(kLow, kLow, 1.5));
    EXPECT_TRUE(window != SunWinData(kLow, kHigh, 1.0));
    const SunWinData nothing(kLow, kHigh, kNaN);
    EXPECT_FALSE(nothing == nothing);
    EXPECT_TRUE(nothing != nothing);
}

TEST(SunWinData, IsOrderedByTheFirstPointAlone) {
    const SunWinData low(kLow, kHigh, 9);
    const SunWinData high(kHigh, kLow, 1);
    EXPECT_TRUE(low < high);
    EXPECT_FALSE(high < low);
    EXPECT_TRUE(high > low);
    EXPECT_FALSE(low > high);
    const SunWinData sameFirst(kLow, kLow, 1);
    EXPECT_FALSE(low < sameFirst || sameFirst < low || low > sameFirst || sameFirst > low);
    EXPECT_TRUE(low != sameFirst);
}

TEST(SunWinData, IsFoundAndSortedInAContainer) {
    QcList<SunWinData> list;
    list.Append(SunWinData(kHigh, kLow, 1));
    list.Append(SunWinData(kLow, kHigh, 2));
    list.Sort(true);
    EXPECT_EQ(list.GetAt(0)->m_dValue, 2);
    EXPECT_EQ(list.GetAt(1)->m_dValue, 1);
}
