// The texts of a library: which table they come from, and which translations of formats are passed over.
#include "platform/base/LibraryTexts.h"

#include <gtest/gtest.h>

#include "platform/base/Language.h"
#include "platform/base/QcDtDictionary.h"
#include "support/Environment.h"
#include "support/FileTree.h"

namespace {

class TextsOfALibrary : public testing::Test {
protected:
    TextsOfALibrary() {
        m_folder.Write("languages/en.xml",
                       "<language xmlns:dt=\"urn:orvo:dictionary\">"
                       "<FIRST><t dt:name=\"共\">first</t><t dt:name=\"甲\">only first</t></FIRST>"
                       "<SECOND><t dt:name=\"共\">second</t><t dt:name=\"%d米\">%d m</t></SECOND>"
                       "</language>");
        g_pTeskLangSwitch = &m_switch;
        EXPECT_TRUE(m_switch.SetLanguage(L"en"));
    }
    ~TextsOfALibrary() override {
        g_pTeskLangSwitch = nullptr;
        g_pCurModuleLang = nullptr;
        g_strCurLanguage = L"Chs";
    }

    // Puts a translation there that no file could bring.
    void Translate(const wchar_t* text, const wchar_t* translation) {
        m_switch.GetModuleDictionary(L"SECOND")->FindOrAddItem(text, QcDtKindString)->SetStringValue(translation);
    }

    FileTree m_folder;
    EnvironmentVariable m_path{"ORVO_SUPPORT_PATH", m_folder.Path().string()};
    EnvironmentVariable m_config{"XDG_CONFIG_HOME", (m_folder / "config").string()};
    TeskLanguageSwitch m_switch;
};

}  // namespace

TEST_F(TextsOfALibrary, ComeFromItsOwnTableFirst) {
    EXPECT_EQ(TranslateFor(L"FIRST", L"共"), L"first");
    EXPECT_EQ(TranslateFor(L"SECOND", L"共"), L"second");
    EXPECT_EQ(TranslateFor(L"second", L"共"), L"second") << "keys go without case";
}

TEST_F(TextsOfALibrary, ComeFromTheOthersNext) {
    EXPECT_EQ(TranslateFor(L"SECOND", L"甲"), L"only first");
    EXPECT_EQ(TranslateFor(L"THIRD", L"共"), L"first") << "in the order of the file";
    EXPECT_EQ(TranslateFor(nullptr, L"共"), L"first");
    EXPECT_EQ(TranslateFor(L"FIRST", L"乙"), L"乙") << "no table has it";
}

TEST_F(TextsOfALibrary, LeaveTheCurrentTableAsItWas) {
    QcDtDictionary current(L"CURRENT");
    current.FindOrAddItem(L"共", QcDtKindString)->SetStringValue(L"current");
    for (QcDtDictionary* outer : {&current, static_cast<QcDtDictionary*>(nullptr)}) {
        g_pCurModuleLang = outer;
        EXPECT_EQ(TranslateFor(L"SECOND", L"共"), L"second");
        EXPECT_EQ(TranslateFor(L"THIRD", L"共"), L"first") << "not the one that happens to be current";
        EXPECT_EQ(g_pCurModuleLang, outer);
    }
}

TEST_F(TextsOfALibrary, AreTheBuiltInOnesWithoutASwitch) {
    g_pTeskLangSwitch = nullptr;
    EXPECT_EQ(TranslateFor(L"FIRST", L"共"), L"共");
    EXPECT_EQ(TranslateFor(L"FIRST", nullptr), L"");
    EXPECT_EQ(FormatFor(L"SECOND", L"%d米", 3), L"3米");
    g_pTeskLangSwitch = &m_switch;
    EXPECT_EQ(TranslateFor(L"FIRST", nullptr), L"");
    EXPECT_EQ(TranslateFor(L"FIRST", L""), L"");
}

TEST_F(TextsOfALibrary, AreFilledAfterTranslating) {
    EXPECT_EQ(FormatFor(L"SECOND", L"%d米", 3), L"3 m");
    EXPECT_EQ(FormatFor(L"FIRST", L"%s到%d", CString(L"甲"), 5), L"甲到5") << "no table has it";
    Translate(L"%s到%d", L"%s (%%) to %05d");
    EXPECT_EQ(FormatFor(L"SECOND", L"%s到%d", CString(L"甲"), 5), L"甲 (%) to 00005");
}

TEST_F(TextsOfALibrary, HaveSingularsWhereALanguageHasThem) {
    Translate(L"%d天", L"%d {day|days}");
    EXPECT_EQ(FormatFor(L"SECOND", L"%d天", 1), L"1 day");
    EXPECT_EQ(FormatFor(L"SECOND", L"%d天", 2), L"2 days");
}

TEST_F(TextsOfALibrary, PassOverATranslationThatAsksForOtherArguments) {
    for (const wchar_t* wrong : {L"%s m", L"m", L"%d %d", L"%f m", L"%d m %", L"%n", L"%*d"}) {
        Translate(L"%d米", wrong);
        EXPECT_EQ(FormatFor(L"SECOND", L"%d米", 3), L"3米") << ToUtf8(wrong);
    }
    Translate(L"%d米", L"%x m");  // a whole number, too
    EXPECT_EQ(FormatFor(L"SECOND", L"%d米", 10), L"a m");
}
