// Which texts of settings and standards are shown, or read, in the user's language.
#include <gtest/gtest.h>

#include "platform/base/QcDtDictionary.h"
#include "settings/OrvoDataSet.h"
#include "support/TableSwitch.h"

TEST(SettingsTexts, TranslateAStandardsDefaultNameAndDate) {
    const TableSwitch language{{L"上海标准", L"Shanghai"}, {L"12月22日", L"3月4日"}};
    const OrvoStdSet standard;
    EXPECT_EQ(standard.m_strName, L"Shanghai");
    EXPECT_EQ(standard.m_date.GetMonth(), 3);
    EXPECT_EQ(standard.m_date.m_nDay, 4);
}

// The units are data and stay as they are in every table that ships; a table could still bring digits of its own.
TEST(SettingsTexts, TranslateTheUnitsThatAreAddedToAStandardsDate) {
    QcDtDictionary dict(L"s");
    dict.SetAttributeValue(L"type", L"SunStd");
    dict.SetAttributeValue(L"date", L"2010-1-");
    OrvoStdSet standard;
    const TableSwitch language{{L"年", L"年1"}, {L"月", L"月2"}, {L"日", L"5日"}};
    EXPECT_TRUE(standard.ReadFromDict(&dict));
    EXPECT_EQ(standard.m_date.GetYear(), 2010);
    EXPECT_EQ(standard.m_date.GetMonth(), 11);
    EXPECT_EQ(standard.m_date.m_nDay, 25);
}

TEST(SettingsTexts, TranslateTheDefaultPlace) {
    const TableSwitch language{{L"北京", L"Peking"}};
    EXPECT_EQ(OrvoDataSet().CurCity(), L"Peking");
}

TEST(SettingsTexts, TranslateTheLocalNamesInTheDictionary) {
    OrvoDataSet settings;
    OrvoStdSet standard;
    standard.m_strName = L"甲";
    settings.NewStd(standard);
    const TableSwitch language{
        {L"当前日照设置数据", L"settings"}, {L"当前城市", L"city"}, {L"当前日照标准", L"current"}, {L"甲", L"first"}};
    QcDtDictionary root;
    ASSERT_TRUE(settings.SaveSunDataSetDict(&root));
    QcDtDictionary* dict = root.FindDict(L"CUR_SUNSETDATA");
    ASSERT_NE(dict, nullptr);
    EXPECT_EQ(dict->GetLocalName(), L"settings");
    EXPECT_EQ(dict->GetAttributeValue(L"localname"), L"settings");
    EXPECT_EQ(dict->FindItem(L"CUR_CITY")->GetAttributeValue(L"localname"), L"city");
    EXPECT_EQ(root.FindItem(L"CUR_SUNSETSTD")->GetAttributeValue(L"localname"), L"current");
    // A standard is shown in the user's language, and is found under its own name.
    ASSERT_NE(root.FindDict(L"甲"), nullptr);
    EXPECT_EQ(root.FindDict(L"甲")->GetAttributeValue(L"localname"), L"first");
    EXPECT_EQ(root.FindItem(L"CUR_SUNSETSTD")->GetStringValue(), L"甲");
}

TEST(SettingsTexts, TranslateBothFormatsOfTheNote) {
    OrvoDataSet settings;
    OrvoStdSet standard;
    standard.m_strName = L"s";
    settings.NewStd(standard);
    settings.m_strCurCity = L"c";
    const TableSwitch language{
        {L"分析标准:%s;地区:%s;时间:%s%s～%s,计算精度:%d分钟", L"day|%s|%s|%s|%s|%s|%d"},
        {L"分析标准:%s;地区:%s;时间:%s(%s)%s～%s,计算精度:%d分钟", L"term|%s|%s|%s|%s|%s|%s|%d"}};
    settings.m_date = OrvoDate(2010, 6, 2);
    EXPECT_EQ(settings.GetNoteString(), L"day|s|c|2010年 6月 2日|09:00|15:00|10");
    settings.m_date = OrvoDate(2010, 12, 22);
    EXPECT_EQ(settings.GetNoteString(), L"term|s|c|2010年12月22日|冬至|09:00|15:00|10");
}
