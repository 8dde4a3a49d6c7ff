// Which texts of the calendar pass through the language switch, and which must not.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

#include "calendar/OrvoColorTable.h"
#include "calendar/OrvoDate.h"
#include "platform/base/Language.h"
#include "platform/base/QcDtDictionary.h"

namespace {

using Words = std::map<std::wstring, CString>;

// A switch with translations of its own, in force for as long as it lives.
class OtherWords : public TeskLanguageSwitch {
public:
    explicit OtherWords(Words words) : m_words(std::move(words)), m_before(g_pTeskLangSwitch) {
        g_pTeskLangSwitch = this;
    }
    ~OtherWords() override { g_pTeskLangSwitch = m_before; }

    CString Translate(const wchar_t* text) const override {
        const auto found = m_words.find(text);
        return found == m_words.end() ? CString(L"?") : found->second;
    }

private:
    Words m_words;
    TeskLanguageSwitch* m_before;
};

}  // namespace

TEST(CalendarWords, OfAnAngleAreTranslated) {
    const OtherWords words(
        {{L"%s%.3d度%.2d分%.2d秒", L"%s%d deg %d min %d s"}, {L"%s%.3d度%.2d分", L"%s%d deg %d min"}});
    EXPECT_EQ(OrvoDegree(-8.5).Format(true), L"-8 deg 30 min 0 s");
    EXPECT_EQ(OrvoDegree(121.5).Format(false), L"121 deg 30 min");
}

TEST(CalendarWords, OfADateAreTranslated) {
    const OtherWords words(Words{{L"%4d年%2d月%2d日", L"%d/%d/%d"}});
    EXPECT_EQ(OrvoDate(2010, 6, 2).GetDateString(), L"2010/6/2");
}

TEST(CalendarWords, KeepTheBuiltInFormatWhenATranslationDoesNotFit) {
    const OtherWords words(Words{{L"%4d年%2d月%2d日", L"%s"}, {L"%s%.3d度%.2d分", L"%s%d%d%d"}});
    EXPECT_EQ(OrvoDate(2010, 6, 2).GetDateString(), L"2010年 6月 2日");
    EXPECT_EQ(OrvoDegree(121.5).Format(false), L"121度30分");
}

TEST(CalendarWords, OfFilesAreNotTranslated) {
    const OtherWords words(Words{});
    EXPECT_EQ(OrvoDate(2010, 6, 2).GetDateXmlString(), L"2010- 6- 2");
    EXPECT_TRUE(OrvoDate(L"2010年6月2日") == OrvoDate(2010, 6, 2));
    EXPECT_EQ(OrvoDegree(8.5).TimeFormat(false), L"08:30");
    OrvoDate date(2011, 6, 22);
    bool exact = false;
    EXPECT_EQ(date.GetSTermIndex(exact), 12);
    EXPECT_TRUE(exact);
    EXPECT_EQ(date.GetTerm(12)->m_strName, L"夏至");
    QcDtDictionary dict;
    EXPECT_TRUE(date.SaveTermDatatoDict(&dict));
    EXPECT_NE(dict.FindDict(L"常年节气"), nullptr);
    EXPECT_TRUE(OrvoColorTable().SaveToXml(&dict));
    EXPECT_NE(dict.FindItem(L"SUN_COLORMAP"), nullptr);
}
