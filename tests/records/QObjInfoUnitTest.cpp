// Pairs of texts: construction, copies and every comparison, also where two of them disagree.
#include "records/QObjInfoUnit.h"

#include <gtest/gtest.h>

namespace {

QObjInfoUnit Pair(const wchar_t* key, const wchar_t* value) {
    return QObjInfoUnit(key, value);
}

}  // namespace

TEST(QObjInfoUnit, BeginsEmpty) {
    const QObjInfoUnit pair;
    EXPECT_EQ(pair.m_strKey, L"");
    EXPECT_EQ(pair.m_strValue, L"");
}

TEST(QObjInfoUnit, TakesKeyAndValue) {
    const CString key(L"层高");
    const CString value(L"3000");
    const QObjInfoUnit pair(key, value);
    EXPECT_EQ(pair.m_strKey, L"层高");
    EXPECT_EQ(pair.m_strValue, L"3000");
}

TEST(QObjInfoUnit, CopiesAndAssignsBothTexts) {
    const QObjInfoUnit pair(L"k", L"v");
    const QObjInfoUnit copy(pair);
    QObjInfoUnit assigned;
    assigned = pair;
    for (const QObjInfoUnit& same : {copy, assigned}) {
        EXPECT_EQ(same.m_strKey, L"k");
        EXPECT_EQ(same.m_strValue, L"v");
    }
}

TEST(QObjInfoUnit, IsEqualWhenBothTextsAre) {
    EXPECT_TRUE(Pair(L"k", L"v") == Pair(L"k", L"v"));
    EXPECT_FALSE(Pair(L"k", L"v") == Pair(L"x", L"v"));
    EXPECT_FALSE(Pair(L"k", L"v") == Pair(L"k", L"x"));
    EXPECT_FALSE(Pair(L"k", L"v") == Pair(L"K", L"v"));
    EXPECT_FALSE(Pair(L"k", L"v") == Pair(L"k", L"V"));
}

TEST(QObjInfoUnit, IsUnequalWhenTheKeysDifferAndOnlyThen) {
    EXPECT_TRUE(Pair(L"k", L"v") != Pair(L"x", L"v"));
    EXPECT_TRUE(Pair(L"k", L"v") != Pair(L"K", L"v"));
    EXPECT_FALSE(Pair(L"k", L"v") != Pair(L"k", L"x"));
    EXPECT_FALSE(Pair(L"k", L"v") != Pair(L"k", L"v"));
}

TEST(QObjInfoUnit, IsNeitherEqualNorUnequalWhenOnlyTheValueDiffers) {
    EXPECT_FALSE(Pair(L"k", L"v") == Pair(L"k", L"x"));
    EXPECT_FALSE(Pair(L"k", L"v") != Pair(L"k", L"x"));
}

TEST(QObjInfoUnit, IsOrderedByTheKeyUnitByUnit) {
    EXPECT_TRUE(Pair(L"a", L"z") < Pair(L"b", L"a"));
    EXPECT_FALSE(Pair(L"b", L"a") < Pair(L"a", L"z"));
    EXPECT_TRUE(Pair(L"b", L"a") > Pair(L"a", L"z"));
    EXPECT_FALSE(Pair(L"a", L"z") > Pair(L"b", L"a"));
    EXPECT_FALSE(Pair(L"a", L"a") < Pair(L"a", L"z"));
    EXPECT_FALSE(Pair(L"a", L"z") > Pair(L"a", L"a"));
    EXPECT_TRUE(Pair(L"B", L"") < Pair(L"a", L""));
    EXPECT_TRUE(Pair(L"a", L"") > Pair(L"B", L""));
    EXPECT_TRUE(Pair(L"a", L"") < Pair(L"ab", L""));
}
