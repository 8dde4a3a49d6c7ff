// How the grid's rows become a tree of places.
#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>

#include "platform/base/QcDtDictionary.h"
#include "support/GermanLocale.h"
#include "zone/OrvoZoneWDGrid.h"

namespace {

class ZoneGridWrite : public testing::Test {
protected:
    void SetUp() override { m_grid.Setup(); }

    static QcUiGridTreeRow& Set(QcUiGridTreeRow& row, std::initializer_list<const wchar_t*> texts) {
        int column = 0;
        for (const wchar_t* text : texts)
            row.SetItemText(column++, text);
        return row;
    }
    QcUiGridTreeRow& Province(const wchar_t* name) { return Set(*m_grid.AppendRow(), {name}); }
    static QcUiGridTreeRow& City(QcUiGridTreeRow& province, const wchar_t* name) {
        return Set(*province.AppendChild(), {L"", name, L"1", L"2", L""});
    }
    const QcDtDictionary& Written() {
        m_written = std::make_unique<QcDtDictionary>();
        m_grid.Write(*m_written);
        return *m_written;
    }
    // What becomes of a city's longitude.
    std::string Stored(const wchar_t* longitude) {
        m_grid.Reset();
        m_grid.Setup();
        Set(*m_grid.AppendRow(), {L"", L"X", longitude});
        return ToUtf8(Written().GetItem(0)->GetAttributeValue(L"longitude").View());
    }

    OrvoZoneWDGrid m_grid;

private:
    std::unique_ptr<QcDtDictionary> m_written;
};

std::vector<std::string> Attributes(const QcDtDictItem& item) {
    std::vector<std::string> attributes;
    for (int index = 0; index < item.GetAttributeCount(); ++index)
        attributes.push_back(ToUtf8(item.GetAttributeName(index).View()) + "=" +
                             ToUtf8(item.GetAttributeText(index).View()));
    return attributes;
}

using Texts = std::vector<std::string>;

}  // namespace

TEST_F(ZoneGridWrite, GivesAProvinceItsNameAsTagAndItsType) {
    City(Province(L"甲"), L"A");
    const QcDtDictionary& zones = Written();
    ASSERT_EQ(zones.GetCount(), 1);
    const QcDtDictItem& province = *zones.GetItem(0);
    EXPECT_EQ(province.GetType(), 0);
    EXPECT_EQ(province.GetName(), L"甲");
    EXPECT_EQ(province.GetTag(), L"甲");
    EXPECT_EQ(Attributes(province), (Texts{"type=PROVINCE"}));
}

TEST_F(ZoneGridWrite, GivesACityItsAttributesInOrderAndNoValue) {
    Set(*Province(L"甲").AppendChild(), {L"甲", L"A", L" 116度28分00秒 ", L"\t39度54分00秒\n", L"  note  "});
    const auto& province = static_cast<const QcDtDictionary&>(*Written().GetItem(0));
    ASSERT_EQ(province.GetCount(), 1);
    const QcDtDictItem& city = *province.GetItem(0);
    EXPECT_EQ(city.GetType(), 5);
    EXPECT_EQ(city.GetName(), L"A");
    EXPECT_EQ(city.GetTag(), L"A");
    EXPECT_EQ(city.GetStringValue(), L"");
    EXPECT_EQ(Attributes(city),
              (Texts{"type=CITY", "longitude=116.4666666667", "latitude= 39.9000000000", "comment=  note  "}))
        << "positions are trimmed, comments are not";
}

TEST_F(ZoneGridWrite, PutsCitiesWithoutAProvinceAtTheTop) {
    Set(*m_grid.AppendRow(), {L"ignored", L"X", L"1", L"2", L""});
    City(Province(L"甲"), L"A");
    const QcDtDictionary& zones = Written();
    ASSERT_EQ(zones.GetCount(), 2);
    EXPECT_EQ(zones.GetItem(0)->GetType(), 5);
    EXPECT_EQ(zones.GetItem(0)->GetName(), L"X");
    EXPECT_EQ(zones.GetItem(1)->GetName(), L"甲");
}

TEST_F(ZoneGridWrite, SkipsProvincesWithoutANameWithAllThatIsInThem) {
    City(Province(L"甲"), L"A");
    QcUiGridTreeRow& nameless = Province(L"");
    City(nameless, L"B");
    City(Set(*nameless.AppendChild(), {L"里"}), L"C");
    City(Province(L"丙"), L"D");
    const QcDtDictionary& zones = Written();
    ASSERT_EQ(zones.GetCount(), 2);
    EXPECT_EQ(zones.GetItem(0)->GetName(), L"甲");
    EXPECT_EQ(zones.GetItem(1)->GetName(), L"丙");
    EXPECT_EQ(static_cast<const QcDtDictionary*>(zones.GetItem(1))->GetCount(), 1);
}

TEST_F(ZoneGridWrite, SkipsNestedProvincesWithoutANameOnly) {
    QcUiGridTreeRow& province = Province(L"甲");
    City(*province.AppendChild(), L"gone");
    City(province, L"A");
    const auto& written = static_cast<const QcDtDictionary&>(*Written().GetItem(0));
    ASSERT_EQ(written.GetCount(), 1);
    EXPECT_EQ(written.GetItem(0)->GetName(), L"A");
}

TEST_F(ZoneGridWrite, KeepsANameOfBlanks) {
    City(Province(L" "), L"A");
    EXPECT_EQ(Written().GetCount(), 1) << "only an empty name is none";
}

TEST_F(ZoneGridWrite, WritesNestedProvinces) {
    QcUiGridTreeRow& outer = Province(L"外");
    City(outer, L"a");
    QcUiGridTreeRow& inner = Set(*outer.AppendChild(), {L"内"});
    City(inner, L"b");
    const auto& province = static_cast<const QcDtDictionary&>(*Written().GetItem(0));
    ASSERT_EQ(province.GetCount(), 2);
    EXPECT_EQ(province.GetItem(0)->GetName(), L"a");
    const QcDtDictItem& nested = *province.GetItem(1);
    EXPECT_EQ(nested.GetType(), 0);
    EXPECT_EQ(nested.GetTag(), L"内");
    EXPECT_EQ(Attributes(nested), (Texts{"type=PROVINCE"}));
    EXPECT_EQ(static_cast<const QcDtDictionary&>(nested).GetItem(0)->GetName(), L"b");
}

TEST_F(ZoneGridWrite, WritesCitiesWithoutANameAsTheyAre) {
    Set(*Province(L"甲").AppendChild(), {L"", L"", L"   度  分  秒", L"", L"note"});
    const auto& province = static_cast<const QcDtDictionary&>(*Written().GetItem(0));
    ASSERT_EQ(province.GetCount(), 1);
    EXPECT_EQ(province.GetItem(0)->GetName(), L"");
    EXPECT_EQ(Attributes(*province.GetItem(0)),
              (Texts{"type=CITY", "longitude=度  分  秒", "latitude=", "comment=note"}));
}

TEST_F(ZoneGridWrite, KeepsTwoProvincesOfOneNameApart) {
    City(Province(L"甲"), L"A");
    City(Province(L"甲"), L"B");
    const QcDtDictionary& zones = Written();
    ASSERT_EQ(zones.GetCount(), 2);
    EXPECT_EQ(static_cast<const QcDtDictionary*>(zones.GetItem(0))->GetItem(0)->GetName(), L"A");
    EXPECT_EQ(static_cast<const QcDtDictionary*>(zones.GetItem(1))->GetItem(0)->GetName(), L"B");
}

TEST_F(ZoneGridWrite, AddsToWhatTheTreeHolds) {
    City(Province(L"甲"), L"A");
    QcDtDictionary zones;
    m_grid.Write(zones);
    m_grid.Write(zones);
    EXPECT_EQ(zones.GetCount(), 2);
}

TEST_F(ZoneGridWrite, ConvertsPositionsInDegreesMinutesAndSeconds) {
    EXPECT_EQ(Stored(L"116度28分00秒"), "116.4666666667");
    EXPECT_EQ(Stored(L"39度54分00秒"), " 39.9000000000");
    EXPECT_EQ(Stored(L"039度54分00秒"), " 39.9000000000");
    EXPECT_EQ(Stored(L"0度0分0秒"), "  0.0000000000");
    EXPECT_EQ(Stored(L"7度 5分 9秒"), "  7.0858333333") << "a blank for a leading zero";
    EXPECT_EQ(Stored(L"12度34分56秒"), " 12.5822222222");
    EXPECT_EQ(Stored(L"   12度34分56秒   "), " 12.5822222222") << "blanks around it do not count";
    EXPECT_EQ(Stored(L"12度34分56秒东经"), " 12.5822222222") << "what follows does not count";
}

TEST_F(ZoneGridWrite, TakesMissingPartsAsNothing) {
    EXPECT_EQ(Stored(L"12度"), " 12.0000000000");
    EXPECT_EQ(Stored(L"12度34"), " 12.0000000000") << "minutes need their word";
    EXPECT_EQ(Stored(L"12度34分"), " 12.5666666667");
    EXPECT_EQ(Stored(L"12度34分56"), " 12.5666666667") << "seconds need their word";
    EXPECT_EQ(Stored(L"12度56秒"), " 12.0000000000") << "seconds stand behind minutes";
    EXPECT_EQ(Stored(L"12度  分30秒"), " 12.0083333333");
    EXPECT_EQ(Stored(L"12度  分  秒"), " 12.0000000000");
}

TEST_F(ZoneGridWrite, LooksAtTwoCharactersBehindEachWord) {
    EXPECT_EQ(Stored(L"12度3分"), " 12.0500000000");
    EXPECT_EQ(Stored(L"12度345分"), " 12.5666666667") << "34, whatever stands before the word";
    EXPECT_EQ(Stored(L"12度30 km 分"), " 12.5000000000") << "the word may stand anywhere behind";
    EXPECT_EQ(Stored(L"12度30分456秒"), " 12.5125000000") << "45 seconds";
    EXPECT_EQ(Stored(L"12分秒度30"), " 12.0000000000") << "words before the degrees do not count";
    EXPECT_EQ(Stored(L"12度30秒10分"), " 12.5000000000") << "the seconds' word has to follow the minutes'";
}

TEST_F(ZoneGridWrite, ReadsTheDegreesAsTheIntegerBeforeTheirWord) {
    EXPECT_EQ(Stored(L"12.9度30分"), " 12.5000000000");
    EXPECT_EQ(Stored(L"东经116度30分"), "  0.5000000000") << "no digits first: 0";
    EXPECT_EQ(Stored(L"x度"), "  0.0000000000");
    EXPECT_EQ(Stored(L"1度2度"), "  1.0000000000") << "the first of two words";
}

TEST_F(ZoneGridWrite, TakesTheLimitsThemselves) {
    EXPECT_EQ(Stored(L"180度60分60秒"), "181.0166666667");
    EXPECT_EQ(Stored(L"180度"), "180.0000000000");
    EXPECT_EQ(Stored(L"0度60分"), "  1.0000000000");
    EXPECT_EQ(Stored(L"0度0分60秒"), "  0.0166666667");
}

TEST_F(ZoneGridWrite, KeepsTheTextOfPositionsThatAreBeyondTheLimits) {
    for (const char* text : {"181度", "181度00分00秒", "12度61分", "12度00分61秒", "-1度30分", "12度-1分",
                             "12度00分-5秒", "99999999999度", "4294967297度", "-039度54分00秒"})
        EXPECT_EQ(Stored(FromUtf8(text)), text);
}

TEST_F(ZoneGridWrite, ReadsNegativePositionsByTheLetter) {
    EXPECT_EQ(Stored(L"-000度30分00秒"), "  0.5000000000") << "degrees of minus nothing are 0";
}

TEST_F(ZoneGridWrite, KeepsTextsWithoutDegrees) {
    EXPECT_EQ(Stored(L"116.4666"), "116.4666");
    EXPECT_EQ(Stored(L"  39.9"), "39.9") << "trimmed all the same";
    EXPECT_EQ(Stored(L""), "");
    EXPECT_EQ(Stored(L"30分15秒"), "30分15秒");
    EXPECT_EQ(Stored(L"度30分15秒"), "度30分15秒") << "nothing stands before the word";
    EXPECT_EQ(Stored(L"   度  分  秒"), "度  分  秒") << "the placeholder";
    EXPECT_EQ(Stored(L"😀"), "😀");
}

TEST_F(ZoneGridWrite, WritesNumbersWithAPointWhateverTheLocale) {
    const GermanLocale german;
    EXPECT_EQ(Stored(L"39度54分00秒"), " 39.9000000000");
}

TEST_F(ZoneGridWrite, KeepsTextsOfAnyLengthAndKind) {
    const std::wstring longText(10000, L'长');
    Set(*Province(longText.c_str()).AppendChild(),
        {L"", L"😀\n\t\"<&>", longText.c_str(), (L"12度30分" + longText).c_str(), longText.c_str()});
    const auto& province = static_cast<const QcDtDictionary&>(*Written().GetItem(0));
    EXPECT_EQ(province.GetName(), longText.c_str());
    const QcDtDictItem& city = *province.GetItem(0);
    EXPECT_EQ(city.GetName(), L"😀\n\t\"<&>");
    EXPECT_EQ(city.GetAttributeValue(L"longitude"), longText.c_str());
    EXPECT_EQ(city.GetAttributeValue(L"latitude"), L" 12.5000000000");
    EXPECT_EQ(city.GetAttributeValue(L"comment"), longText.c_str());
}

// What is shown of a position that was saved is what was typed.
TEST_F(ZoneGridWrite, GivesBackWhatItShows) {
    for (const wchar_t* text :
         {L"000度00分01秒", L"059度59分59秒", L"099度09分09秒", L"179度59分59秒", L"180度00分00秒"}) {
        Stored(text);
        const QcDtDictionary& zones = Written();
        m_grid.Fill(zones);
        EXPECT_EQ(m_grid.GetRow(0)->GetItemText(2), text);
    }
}
