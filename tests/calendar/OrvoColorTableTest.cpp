// The colour table: look-up, copying and its dictionary form.
#include "calendar/OrvoColorTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/base/QcDtDictionary.h"
#include "platform/geometry/Tolerance.h"
#include "support/GermanLocale.h"

namespace {

// A table with nothing in it.
OrvoColorTable Bare() {
    OrvoColorTable table;
    table.Reset();
    table.m_listType.Reset();
    return table;
}

struct Form {
    Form(const wchar_t* rows, const wchar_t* types) {
        dict.FindOrAddItem(L"SUN_COLORMAP", 5)->SetStringValue(rows);
        dict.FindOrAddItem(L"SUN_TYPECOLOR", 5)->SetStringValue(types);
    }
    QcDtDictionary dict{L"SUNCOLORTABLE"};
};

CString TextIn(QcDtDictionary& dict, const wchar_t* name) {
    const QcDtDictItem* item = dict.FindItem(name);
    return item ? item->GetStringValue() : CString(L"(missing)");
}

OrvoColorMap RowAt(const OrvoColorTable& table, int index) {
    OrvoColorMap* const* slot = table.GetAt(index);
    return slot && *slot ? **slot : OrvoColorMap(-1, -1);
}

}  // namespace

TEST(OrvoColorTable, HasEightRowsAndFiveTypeColorsByDefault) {
    const OrvoColorTable table;
    ASSERT_EQ(table.GetLength(), 8);
    for (int index = 0; index < 8; ++index) {
        EXPECT_EQ(RowAt(table, index).m_dValue, index);
        EXPECT_EQ(RowAt(table, index).m_nColor, index + 1);
    }
    ASSERT_EQ(table.m_listType.GetLength(), 5);
    for (int type = 0; type < 5; ++type)
        EXPECT_EQ(table.GetTypeColor(type), type + 1);
}

TEST(OrvoColorTable, GivesTheColorOfTheHighestBoundReached) {
    const OrvoColorTable table;
    for (int hour = 0; hour < 8; ++hour) {
        EXPECT_EQ(table.GetTimeColor(hour), hour + 1);
        EXPECT_EQ(table.GetTimeColor(hour + 0.5), hour + 1);
        EXPECT_EQ(table.GetTimeColor(hour + 0.999), hour + 1);
    }
    EXPECT_EQ(table.GetTimeColor(24.0), 8);
    EXPECT_EQ(table.GetTimeColor(std::numeric_limits<double>::infinity()), 8);
}

TEST(OrvoColorTable, AnswersByLayerBelowTheFirstBound) {
    const OrvoColorTable table;
    EXPECT_EQ(table.GetTimeColor(-0.5), 256);
    EXPECT_EQ(table.GetTimeColor(std::numeric_limits<double>::quiet_NaN()), 256);
    EXPECT_EQ(Bare().GetTimeColor(5.0), 256);
}

TEST(OrvoColorTable, ReachesABoundWithinTheTolerance) {
    const OrvoColorTable table;
    EXPECT_EQ(table.GetTimeColor(3.0 - 0.5 * g_fZero), 4);
    EXPECT_EQ(table.GetTimeColor(3.0 - 1.5 * g_fZero), 3);
    EXPECT_EQ(table.GetTimeColor(-g_fZero), 1);
    EXPECT_EQ(table.GetTimeColor(-1.5 * g_fZero), 256);
}

TEST(OrvoColorTable, WalksFromTheLastRowWhateverTheOrder) {
    OrvoColorTable table = Bare();
    table.Append(new OrvoColorMap(3.0, 30));
    table.Append(new OrvoColorMap(1.0, 10));
    EXPECT_EQ(table.GetTimeColor(5.0), 10);
    EXPECT_EQ(table.GetTimeColor(0.5), 256);
}

TEST(OrvoColorTable, PassesOverNullRows) {
    OrvoColorTable table = Bare();
    table.Append(nullptr);
    table.Append(new OrvoColorMap(1.0, 10));
    table.Append(nullptr);
    EXPECT_EQ(table.GetTimeColor(5.0), 10);
    EXPECT_EQ(table.GetTimeColor(0.0), 256);
}

TEST(OrvoColorTable, AnswersByLayerForTypesItDoesNotKnow) {
    const OrvoColorTable table;
    EXPECT_EQ(table.GetTypeColor(-1), 256);
    EXPECT_EQ(table.GetTypeColor(5), 256);
    EXPECT_EQ(table.GetTypeColor(std::numeric_limits<int>::min()), 256);
    EXPECT_EQ(table.GetTypeColor(std::numeric_limits<int>::max()), 256);
    EXPECT_EQ(Bare().GetTypeColor(0), 256);
}

TEST(OrvoColorTable, CopiesBothLists) {
    OrvoColorTable table = Bare();
    table.Append(new OrvoColorMap(2.0, 20));
    table.m_listType.Append(77);
    const OrvoColorTable copy(table);
    OrvoColorTable assigned;
    EXPECT_EQ(&(assigned = table), &assigned);
    (*table.GetAt(0))->m_nColor = 99;
    table.m_listType.Append(78);
    for (const OrvoColorTable* other : {&copy, static_cast<const OrvoColorTable*>(&assigned)}) {
        EXPECT_EQ(other->GetLength(), 1);
        EXPECT_EQ(other->GetTimeColor(2.0), 20);
        EXPECT_EQ(other->m_listType.GetLength(), 1);
        EXPECT_EQ(other->GetTypeColor(0), 77);
        EXPECT_NE(*other->GetAt(0), *table.GetAt(0)) << "rows are shared";
    }
}

TEST(OrvoColorTable, SurvivesAssignmentToItself) {
    OrvoColorTable table;
    const OrvoColorTable& same = table;
    table = same;
    EXPECT_EQ(table.GetLength(), 8);
    EXPECT_EQ(table.GetTimeColor(7.0), 8);
    EXPECT_EQ(table.GetTypeColor(4), 5);
}

TEST(OrvoColorTable, WritesTwoTexts) {
    QcDtDictionary dict(L"SUNCOLORTABLE");
    dict.FindOrAddItem(L"stale", 5);
    EXPECT_TRUE(OrvoColorTable().SaveToXml(&dict));
    ASSERT_EQ(dict.GetCount(), 2);
    EXPECT_EQ(dict.GetItem(0)->GetName(), L"SUN_COLORMAP");
    EXPECT_EQ(dict.GetItem(0)->GetType(), 5);
    EXPECT_EQ(dict.GetItem(0)->GetStringValue(),
              L"1-0.000000;2-1.000000;3-2.000000;4-3.000000;5-4.000000;6-5.000000;7-6.000000;8-7.000000");
    EXPECT_EQ(dict.GetItem(1)->GetName(), L"SUN_TYPECOLOR");
    EXPECT_EQ(dict.GetItem(1)->GetType(), 5);
    EXPECT_EQ(dict.GetItem(1)->GetStringValue(), L"1;2;3;4;5");
}

TEST(OrvoColorTable, WritesEmptyTextsForEmptyLists) {
    QcDtDictionary dict;
    EXPECT_TRUE(Bare().SaveToXml(&dict));
    EXPECT_EQ(TextIn(dict, L"SUN_COLORMAP"), L"");
    EXPECT_EQ(TextIn(dict, L"SUN_TYPECOLOR"), L"");
}

TEST(OrvoColorTable, WritesNothingForNullRowsButLeavesASeparatorBeforeANullLastOne) {
    OrvoColorTable table = Bare();
    table.Append(nullptr);
    table.Append(new OrvoColorMap(1.0, 1));
    table.Append(nullptr);
    table.Append(new OrvoColorMap(-0.5, 2));
    QcDtDictionary dict;
    EXPECT_TRUE(table.SaveToXml(&dict));
    EXPECT_EQ(TextIn(dict, L"SUN_COLORMAP"), L"1-1.000000;2--0.500000");
    table.Append(nullptr);
    EXPECT_TRUE(table.SaveToXml(&dict));
    EXPECT_EQ(TextIn(dict, L"SUN_COLORMAP"), L"1-1.000000;2--0.500000;");
    OrvoColorTable read;
    EXPECT_TRUE(read.ReadFromXml(&dict));
    EXPECT_EQ(read.GetLength(), 2);
}

TEST(OrvoColorTable, KeepsSixDecimalsOfItsBounds) {
    OrvoColorTable table = Bare();
    table.Append(new OrvoColorMap(1.23456789, -3));
    table.m_listType.Append(-4);
    QcDtDictionary dict;
    EXPECT_TRUE(table.SaveToXml(&dict));
    EXPECT_EQ(TextIn(dict, L"SUN_COLORMAP"), L"-3-1.234568");
    EXPECT_EQ(TextIn(dict, L"SUN_TYPECOLOR"), L"-4");
    table = Bare();
    table.Append(new OrvoColorMap(1.23456789, 3));
    EXPECT_TRUE(table.SaveToXml(&dict));
    OrvoColorTable read;
    EXPECT_TRUE(read.ReadFromXml(&dict));
    EXPECT_EQ(RowAt(read, 0).m_dValue, 1.234568);
    EXPECT_EQ(RowAt(read, 0).m_nColor, 3);
}

TEST(OrvoColorTable, ReadsBackWhatItWrote) {
    QcDtDictionary dict;
    EXPECT_TRUE(OrvoColorTable().SaveToXml(&dict));
    OrvoColorTable table = Bare();
    EXPECT_TRUE(table.ReadFromXml(&dict));
    ASSERT_EQ(table.GetLength(), 8);
    for (int index = 0; index < 8; ++index) {
        EXPECT_EQ(RowAt(table, index).m_dValue, index);
        EXPECT_EQ(RowAt(table, index).m_nColor, index + 1);
    }
    EXPECT_EQ(table.m_listType.GetLength(), 5);
    EXPECT_EQ(table.GetTypeColor(4), 5);
}

TEST(OrvoColorTable, RefusesWhatIsNoDictionaryAndStaysAsItWas) {
    QcDtDictStringItem text(L"SUNCOLORTABLE");
    text.SetStringValue(L"kept");
    OrvoColorTable table;
    EXPECT_FALSE(table.SaveToXml(nullptr));
    EXPECT_FALSE(table.SaveToXml(&text));
    EXPECT_EQ(text.GetStringValue(), L"kept");
    EXPECT_FALSE(table.ReadFromXml(nullptr));
    EXPECT_FALSE(table.ReadFromXml(&text));
    QcDtDictionary empty;
    EXPECT_FALSE(table.ReadFromXml(&empty));
    EXPECT_EQ(table.GetLength(), 8);
    EXPECT_EQ(table.m_listType.GetLength(), 5);
}

TEST(OrvoColorTable, RefusesAFormWithAMissingOrForeignText) {
    OrvoColorTable table;
    QcDtDictionary onlyRows;
    onlyRows.FindOrAddItem(L"SUN_COLORMAP", 5)->SetStringValue(L"9-1.0");
    EXPECT_FALSE(table.ReadFromXml(&onlyRows));
    QcDtDictionary onlyTypes;
    onlyTypes.FindOrAddItem(L"SUN_TYPECOLOR", 5)->SetStringValue(L"9");
    EXPECT_FALSE(table.ReadFromXml(&onlyTypes));
    onlyTypes.FindOrAddItem(L"SUN_COLORMAP", 4)->SetDoubleValue(1.0);
    EXPECT_FALSE(table.ReadFromXml(&onlyTypes));
    onlyRows.FindOrAddDict(L"SUN_TYPECOLOR");
    EXPECT_FALSE(table.ReadFromXml(&onlyRows));
    EXPECT_EQ(table.GetLength(), 8);
    EXPECT_EQ(table.GetTimeColor(1.0), 2);
    EXPECT_EQ(table.GetTypeColor(0), 1);
}

TEST(OrvoColorTable, HasNoTypeColorsAfterAnEmptyText) {
    Form form(L"1-0.0", L"");
    OrvoColorTable table;
    EXPECT_TRUE(table.ReadFromXml(&form.dict));
    EXPECT_EQ(table.m_listType.GetLength(), 0);
    for (int type = -1; type < 7; ++type)
        EXPECT_EQ(table.GetTypeColor(type), 256);
}

TEST(OrvoColorTable, PassesOverPiecesOfTwoCharactersAndFewer) {
    Form form(L";1-;-;1;2-5;;77", L"3");
    OrvoColorTable table;
    EXPECT_TRUE(table.ReadFromXml(&form.dict));
    ASSERT_EQ(table.GetLength(), 1);
    EXPECT_EQ(RowAt(table, 0).m_nColor, 2);
    EXPECT_EQ(RowAt(table, 0).m_dValue, 5.0);
}

TEST(OrvoColorTable, SplitsAPieceAtItsFirstDash) {
    Form form(L"1--0.5; 2 -1e1x;abc-def;-3-4;123.5;4-", L"");
    OrvoColorTable table;
    EXPECT_TRUE(table.ReadFromXml(&form.dict));
    ASSERT_EQ(table.GetLength(), 5);
    const OrvoColorMap expected[] = {{-0.5, 1}, {10.0, 2}, {0.0, 0}, {3.0, 0}, {123.5, 0}};
    for (int index = 0; index < 5; ++index) {
        EXPECT_EQ(RowAt(table, index).m_dValue, expected[index].m_dValue) << index;
        EXPECT_EQ(RowAt(table, index).m_nColor, expected[index].m_nColor) << index;
    }
}

TEST(OrvoColorTable, ReadsEveryTypeColorPiece) {
    Form form(L"", L"7;; 8;x;-9;");
    OrvoColorTable table;
    EXPECT_TRUE(table.ReadFromXml(&form.dict));
    EXPECT_EQ(table.GetLength(), 0);
    ASSERT_EQ(table.m_listType.GetLength(), 6);
    const int expected[] = {7, 0, 8, 0, -9, 0};
    for (int type = 0; type < 6; ++type)
        EXPECT_EQ(table.GetTypeColor(type), expected[type]) << type;
}

TEST(OrvoColorTable, ReadsAndWritesTheSameInEveryLocale) {
    const GermanLocale german;
    OrvoColorTable table = Bare();
    table.Append(new OrvoColorMap(1.5, 1));
    QcDtDictionary dict;
    EXPECT_TRUE(table.SaveToXml(&dict));
    EXPECT_EQ(TextIn(dict, L"SUN_COLORMAP"), L"1-1.500000");
    OrvoColorTable read;
    EXPECT_TRUE(read.ReadFromXml(&dict));
    EXPECT_EQ(RowAt(read, 0).m_dValue, 1.5);
}
