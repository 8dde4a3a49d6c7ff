// Names in Latin letters: every shipped place's reading, what may be typed for it, and hostile texts.
#include "platform/base/LatinNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>

#include "platform/base/QcDtDictionary.h"
#include "support/Folders.h"

namespace {

std::string Folded(const wchar_t* text) {
    return ToUtf8(FoldLatin(text).View());
}

std::vector<std::string> NamesOf(const CString& name) {
    std::vector<std::string> names;
    for (const CString& each : LatinNames(name))
        names.push_back(ToUtf8(each.View()));
    return names;
}

// How the shipped places are read; each line was looked at by hand.
std::map<std::string, std::string> CheckedReadings() {
    std::map<std::string, std::string> readings;
    std::ifstream file(SourceFolder() + "/tests/base/data/place-readings.txt");
    for (std::string name, reading; file >> name >> reading;)
        readings[name] = reading;
    return readings;
}

// Provinces and cities, each as often as it stands there.
std::vector<CString> ShippedNames() {
    QcDtDictionary zones;
    EXPECT_TRUE(zones.ReadFromXML(FromUtf8(SourceFolder() + "/data/zone.xml")));
    std::vector<CString> names;
    for (int i = 0; i < zones.GetCount(); ++i) {
        const auto& province = dynamic_cast<const QcDtDictionary&>(*zones.GetItem(i));
        names.push_back(province.GetName());
        for (int j = 0; j < province.GetCount(); ++j)
            names.push_back(province.GetItem(j)->GetName());
    }
    return names;
}

using Names = std::vector<std::string>;

}  // namespace

TEST(LatinNames, ReadEveryShippedPlaceAsItIsRead) {
    const std::map<std::string, std::string> readings = CheckedReadings();
    const std::vector<CString> shipped = ShippedNames();
    EXPECT_GT(shipped.size(), 500U);
    for (const CString& name : shipped) {
        const std::string chinese = ToUtf8(name.View());
        const auto checked = readings.find(chinese);
        ASSERT_NE(checked, readings.end()) << chinese << " is not in place-readings.txt";
        const Names names = NamesOf(name);
        ASSERT_FALSE(names.empty()) << chinese;
        EXPECT_EQ(names.front(), checked->second) << chinese;
    }
}

TEST(LatinNames, CharactersWithSeveralReadingsAreReadAsInPlaces) {
    EXPECT_EQ(NamesOf(L"重庆").front(), "chongqing");
    EXPECT_EQ(NamesOf(L"厦门").front(), "xiamen");
    EXPECT_EQ(NamesOf(L"长葛").front(), "changge");
    EXPECT_EQ(NamesOf(L"长子县").front(), "zhangzixian") << "the longer word counts";
    EXPECT_EQ(NamesOf(L"都江堰").front(), "dujiangyan");
    EXPECT_EQ(NamesOf(L"什邡").front(), "shifang");
    EXPECT_EQ(NamesOf(L"乐清").front(), "yueqing");
    EXPECT_EQ(NamesOf(L"乐山").front(), "leshan");
}

TEST(LatinNames, UmlautsHaveThreeSpellings) {
    EXPECT_EQ(NamesOf(L"吕梁"), (Names{"lvliang", "luliang", "lyuliang"}));
}

TEST(LatinNames, SpellingsOfOtherMapsFollow) {
    EXPECT_EQ(NamesOf(L"哈尔滨"), (Names{"haerbin", "harbin"}));
    EXPECT_EQ(NamesOf(L"澳门"), (Names{"aomen", "macau", "macao"}));
    EXPECT_EQ(NamesOf(L"喀什地区"), (Names{"kashidiqu", "kashgardiqu"})) << "they stand for the beginning";
    EXPECT_EQ(NamesOf(L"新哈尔滨"), (Names{"xinhaerbin"})) << "and for nothing else";
}

TEST(LatinNames, LatinLettersStandForThemselves) {
    EXPECT_EQ(NamesOf(L"Zürich 2号"), (Names{"zvrich2hao", "zurich2hao", "zyurich2hao"}));
    EXPECT_EQ(NamesOf(L""), Names());
    EXPECT_EQ(NamesOf(L"東京/品川"), Names()) << "a stroke belongs to no name";
    EXPECT_EQ(NamesOf(L"Москва"), Names());
    EXPECT_EQ(NamesOf(L"\xFFFD"), Names());
}

TEST(LatinNames, WhatIsTypedIsFolded) {
    EXPECT_EQ(Folded(L"Xi'an"), "xian");
    EXPECT_EQ(Folded(L" Xī’Ān "), "xian");
    EXPECT_EQ(Folded(L"LÜ-LIANG"), "lvliang");
    EXPECT_EQ(Folded(L"lǚliáng"), "lvliang") << "a tone over the two points";
    EXPECT_EQ(Folded(L"No. 7"), "no7");
    EXPECT_EQ(Folded(L""), "");
    EXPECT_EQ(Folded(L"上海"), "") << "Chinese is no Latin text";
    EXPECT_EQ(Folded(L"shang海"), "");
    EXPECT_EQ(Folded(L"a/b"), "");
    EXPECT_EQ(Folded(L"\x308"), "") << "points over nothing";
}

TEST(LatinNames, BeginningsAreFound) {
    EXPECT_TRUE(BeginsInLatin(L"陕西", L"shan"));
    EXPECT_TRUE(BeginsInLatin(L"陕西", L"shaan"));
    EXPECT_TRUE(BeginsInLatin(L"陕西", L"shaanxi"));
    EXPECT_FALSE(BeginsInLatin(L"陕西", L"xi"));
    EXPECT_FALSE(BeginsInLatin(L"陕西", L"shanxin"));
    EXPECT_FALSE(BeginsInLatin(L"", L"a"));
}

TEST(LatinNames, LongTextsAreReadToTheirEnd) {
    const CString many(L'京', 20000);
    const Names names = NamesOf(many);
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(names[0].size(), 80000U);
    EXPECT_EQ(std::count(names[0].begin(), names[0].end(), 'j'), 20000);
}
