// How a tree of places is shown in the grid's rows.
#include <gtest/gtest.h>

#include "platform/base/QcDtDictionary.h"
#include "zone/OrvoZoneWDGrid.h"

namespace {

class ZoneGridFill : public testing::Test {
protected:
    void SetUp() override { m_grid.Setup(); }

    static QcDtDictItem& Append(QcDtDictionary& parent, int kind, const wchar_t* name) {
        QcDtDictItem* item = QcDtDictItem::Create(kind, name);
        EXPECT_TRUE(parent.AppendItem(item));
        return *item;
    }
    static QcDtDictionary& Province(QcDtDictionary& parent, const wchar_t* name) {
        return static_cast<QcDtDictionary&>(Append(parent, 0, name));
    }
    static QcDtDictItem& City(QcDtDictionary& parent, const wchar_t* name, const wchar_t* longitude,
                              const wchar_t* latitude, const wchar_t* comment) {
        QcDtDictItem& city = Append(parent, 5, name);
        city.SetAttributeValue(L"longitude", longitude);
        city.SetAttributeValue(L"latitude", latitude);
        city.SetAttributeValue(L"comment", comment);
        return city;
    }
    std::string Line(int row) const {
        std::string line;
        for (int column = 0; column < m_grid.GetColumnCount(); ++column)
            line += (column > 0 ? "|" : "") + ToUtf8(m_grid.GetRow(row)->GetItemText(column).View());
        return line;
    }
    // The text of a city's longitude.
    std::string Shown(const wchar_t* longitude) {
        QcDtDictionary zones;
        City(zones, L"X", longitude, L"0", L"");
        m_grid.Fill(zones);
        return ToUtf8(m_grid.GetRow(0)->GetItemText(2).View());
    }

    OrvoZoneWDGrid m_grid;
};

}  // namespace

TEST_F(ZoneGridFill, HasFiveColumnsOfTheirWidths) {
    ASSERT_EQ(m_grid.GetColumnCount(), 5);
    const wchar_t* const titles[] = {L"省份", L"城市", L"经度", L"纬度", L"附注"};
    const int widths[] = {80, 80, 80, 80, 200};
    for (int column = 0; column < 5; ++column) {
        EXPECT_EQ(m_grid.GetColumnTitle(column), titles[column]) << column;
        EXPECT_EQ(m_grid.GetColumnWidth(column), widths[column]) << column;
    }
}

TEST_F(ZoneGridFill, SetsTheFourOptionsAndNoOthers) {
    EXPECT_EQ(m_grid.GetOption(), 0x4U | 0x80U | 0x800U | 0x4000U);
    m_grid.SetOption(0x1);
    m_grid.AppendRow();
    m_grid.Setup();
    EXPECT_EQ(m_grid.GetOption(), 0x4U | 0x80U | 0x800U | 0x4000U) << "set up anew";
    EXPECT_EQ(m_grid.GetColumnCount(), 5);
    EXPECT_EQ(m_grid.GetRowCount(), 0);
}

TEST_F(ZoneGridFill, ShowsProvincesWithTheirCitiesInTheirOrder) {
    QcDtDictionary zones;
    QcDtDictionary& one = Province(zones, L"乙");
    City(one, L"b", L"116.4666666667", L" 39.9000000000", L"note b");
    City(one, L"a", L"121.5", L"31.25", L"note a");
    City(Province(zones, L"甲"), L"c", L"1", L"2", L"");
    m_grid.Fill(zones);
    ASSERT_EQ(m_grid.GetRowCount(), 5);
    EXPECT_EQ(Line(0), "乙||||");
    EXPECT_EQ(Line(1), "乙|b|116度28分00秒|039度54分00秒|note b");
    EXPECT_EQ(Line(2), "乙|a|121度30分00秒|031度15分00秒|note a");
    EXPECT_EQ(Line(3), "甲||||");
    EXPECT_EQ(Line(4), "甲|c|001度00分00秒|002度00分00秒|");
    EXPECT_TRUE(m_grid.GetRow(0)->IsParentRow());
    EXPECT_EQ(m_grid.GetRow(1)->GetParent(), m_grid.GetRow(0));
    EXPECT_EQ(m_grid.GetRow(4)->GetParent(), m_grid.GetRow(3));
}

TEST_F(ZoneGridFill, ShowsACityAtTheTopWithoutAProvince) {
    QcDtDictionary zones;
    City(zones, L"X", L"1.5", L"2.25", L"note");
    Province(zones, L"甲");
    m_grid.Fill(zones);
    EXPECT_EQ(Line(0), "|X|001度30分00秒|002度15分00秒|note");
    EXPECT_FALSE(m_grid.GetRow(0)->IsParentRow());
    EXPECT_FALSE(m_grid.GetRow(0)->IsChildRow());
}

TEST_F(ZoneGridFill, GivesAProvinceWithoutCitiesOneEmptyRow) {
    QcDtDictionary zones;
    Province(zones, L"甲");
    m_grid.Fill(zones);
    ASSERT_EQ(m_grid.GetRowCount(), 2);
    EXPECT_EQ(Line(0), "甲||||");
    EXPECT_TRUE(m_grid.GetRow(0)->IsParentRow());
    EXPECT_EQ(Line(1), "||||");
}

TEST_F(ZoneGridFill, ShowsNestedProvinces) {
    QcDtDictionary zones;
    QcDtDictionary& outer = Province(zones, L"外");
    City(outer, L"a", L"1", L"1", L"");
    QcDtDictionary& inner = Province(outer, L"内");
    City(inner, L"b", L"2", L"2", L"");
    Province(outer, L"空");
    m_grid.Fill(zones);
    ASSERT_EQ(m_grid.GetRowCount(), 6);
    EXPECT_EQ(Line(1), "外|a|001度00分00秒|001度00分00秒|");
    EXPECT_EQ(Line(2), "内||||");
    EXPECT_EQ(Line(3), "内|b|002度00分00秒|002度00分00秒|") << "the province that it is in";
    EXPECT_EQ(m_grid.GetRow(3)->GetParent(), m_grid.GetRow(2));
    EXPECT_EQ(m_grid.GetRow(2)->GetParent(), m_grid.GetRow(0));
    EXPECT_EQ(Line(4), "空||||");
    EXPECT_EQ(Line(5), "||||");
}

TEST_F(ZoneGridFill, KeepsARowForItemsThatAreNoPlaces) {
    QcDtDictionary zones;
    QcDtDictionary& province = Province(zones, L"甲");
    Append(province, 3, L"number").SetIntValue(5);
    Append(zones, 4, L"数").SetDoubleValue(1.5);
    m_grid.Fill(zones);
    ASSERT_EQ(m_grid.GetRowCount(), 4);
    EXPECT_TRUE(m_grid.GetRow(0)->IsParentRow()) << "a province stays one, whatever is in it";
    EXPECT_EQ(Line(1), "||||");
    EXPECT_EQ(Line(2), "数||||");
    EXPECT_TRUE(m_grid.GetRow(2)->IsParentRow());
}

TEST_F(ZoneGridFill, ReplacesTheRowsThatThereWere) {
    QcDtDictionary zones;
    Province(zones, L"甲");
    m_grid.Fill(zones);
    m_grid.Fill(zones);
    EXPECT_EQ(m_grid.GetRowCount(), 2);
    m_grid.Fill(QcDtDictionary());
    EXPECT_EQ(m_grid.GetRowCount(), 0);
}

TEST_F(ZoneGridFill, ReadsPositionsAsNumbersWithBlanksAroundThem) {
    EXPECT_EQ(Shown(L"  39.9000000000 "), "039度54分00秒");
    EXPECT_EQ(Shown(L"\t7.5\n"), "007度30分00秒");
    EXPECT_EQ(Shown(L""), "000度00分00秒");
    EXPECT_EQ(Shown(L"nowhere"), "000度00分00秒");
    EXPECT_EQ(Shown(L"度  分  秒"), "000度00分00秒") << "a position that nobody entered";
    EXPECT_EQ(Shown(L"12.5 east"), "012度30分00秒");
    EXPECT_EQ(Shown(L"-0.5"), "-000度30分00秒");
    EXPECT_EQ(Shown(L"29.99999"), "029度60分00秒") << "an angle carries only its seconds";
    EXPECT_EQ(Shown(L"181.0166666667"), "181度01分00秒");
}

TEST_F(ZoneGridFill, SurvivesPositionsBeyondAllNumbers) {
    for (const wchar_t* position : {L"1e308", L"-1e308", L"1e999", L"99999999999999999999", L"1e-320"})
        EXPECT_FALSE(Shown(position).empty()) << ToUtf8(position);
    EXPECT_FALSE(Shown(CString(std::wstring(10000, L'9').c_str())).empty());
}

TEST_F(ZoneGridFill, ShowsTextsOfAnyLengthAndKind) {
    std::wstring longName(10000, L'长');
    QcDtDictionary zones;
    QcDtDictionary& province = Province(zones, longName.c_str());
    City(province, L"😀\n\t\"<&>", L"1", L"1", longName.c_str());
    m_grid.Fill(zones);
    EXPECT_EQ(m_grid.GetRow(0)->GetItemText(0), longName.c_str());
    EXPECT_EQ(m_grid.GetRow(1)->GetItemText(0), longName.c_str());
    EXPECT_EQ(m_grid.GetRow(1)->GetItemText(1), L"😀\n\t\"<&>");
    EXPECT_EQ(m_grid.GetRow(1)->GetItemText(4), longName.c_str());
}
