// The language switch: its tables, what it does with bad ones, and the look-up in them.
#include "platform/base/Language.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/base/Message.h"
#include "platform/base/QcDtDictionary.h"
#include "support/Environment.h"
#include "support/FileTree.h"
#include "support/Recorder.h"

namespace {

// One entry of a table as a person writes it.
std::string Entry(const std::string& text, const std::string& translation) {
    return "<text dt:name=\"" + text + "\">" + translation + "</text>\n";
}

class Language : public testing::Test {
protected:
    void SetUp() override {
        SetMessageSink(Recorder::Take, &m_messages);
        g_pTeskLangSwitch = &m_switch;
    }
    void TearDown() override {
        SetMessageSink(nullptr, nullptr);
        g_pTeskLangSwitch = nullptr;
        g_pCurModuleLang = nullptr;
        g_strCurLanguage = L"Chs";
    }

    std::string WriteTable(const std::string& language, const std::string& modules) const {
        return m_folder.Write("languages/" + language + ".xml",
                              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<language "
                              "xmlns:dt=\"urn:orvo:dictionary\">\n" +
                                  modules + "</language>\n");
    }
    std::string Show(const wchar_t* text) const { return ToUtf8(m_switch.Translate(text).View()); }

    FileTree m_folder;
    EnvironmentVariable m_path{"ORVO_SUPPORT_PATH", m_folder.Path().string()};
    EnvironmentVariable m_config{"XDG_CONFIG_HOME", (m_folder / "config").string()};
    Recorder m_messages;
    TeskLanguageSwitch m_switch;
};

TEST_F(Language, ShowsBuiltInTextsAtFirst) {
    EXPECT_EQ(Show(L"年"), "年");
    EXPECT_EQ(m_switch.GetModuleDictionary(L"MODULE"), nullptr);
}

TEST_F(Language, TranslatesFromTheTable) {
    WriteTable("en", "<MODULE>" + Entry("大寒日", "Greater Cold") + "</MODULE>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    EXPECT_EQ(g_strCurLanguage, L"Enu");
    EXPECT_EQ(Show(L"大寒日"), "Greater Cold");
    EXPECT_TRUE(m_messages.texts.empty());
}

TEST_F(Language, NeverLosesAText) {
    WriteTable("en", "<MODULE>" + Entry("空", "") + Entry("大寒日", "Greater Cold") + "</MODULE>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    EXPECT_EQ(Show(L"冬至日"), "冬至日");
    EXPECT_EQ(Show(L"空"), "空");
    EXPECT_EQ(Show(L""), "");
    EXPECT_EQ(Show(nullptr), "");
}

TEST_F(Language, LooksInTheCurrentModuleFirstThenInFileOrder) {
    WriteTable("en", "<ONE>" + Entry("度", "one") + Entry("分", "minute one") + "</ONE><TWO>" + Entry("度", "two") +
                         Entry("分", "minute two") + Entry("秒", "second two") + "</TWO>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    EXPECT_EQ(Show(L"度"), "one");
    EXPECT_EQ(Show(L"秒"), "second two");
    g_pCurModuleLang = m_switch.GetModuleDictionary(L"TWO");
    ASSERT_NE(g_pCurModuleLang, nullptr);
    EXPECT_EQ(Show(L"度"), "two");
    QcDtDictionary own(L"own");
    own.FindOrAddItem(L"度", QcDtKindString)->SetStringValue(L"own");
    own.FindOrAddItem(L"分", QcDtKindInteger)->SetIntValue(5);
    g_pCurModuleLang = &own;
    EXPECT_EQ(Show(L"度"), "own");
    EXPECT_EQ(Show(L"分"), "minute one");  // an item that is no text translates nothing
}

TEST_F(Language, FindsModulesByKeyWithoutCase) {
    WriteTable("en", "<Module>" + Entry("度", "degree") + "</Module>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    QcDtDictionary* texts = m_switch.GetModuleDictionary(L"MODULE");
    ASSERT_NE(texts, nullptr);
    ASSERT_NE(texts->FindItem(L"度"), nullptr);
    EXPECT_EQ(texts->FindItem(L"度")->GetStringValue(), L"degree");
    EXPECT_EQ(m_switch.GetModuleDictionary(L"MODUL"), nullptr);
    EXPECT_EQ(m_switch.GetModuleDictionary(L""), nullptr);
    EXPECT_EQ(m_switch.GetModuleDictionary(nullptr), nullptr);
}

TEST_F(Language, FlattensOneLevelOfGroups) {
    WriteTable("en", "<MODULE><kept>" + Entry("年", "年") + "<deeper>" + Entry("月", "month") + "</deeper></kept>" +
                         Entry("日", "day") + "</MODULE>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    const QcDtDictionary* texts = m_switch.GetModuleDictionary(L"MODULE");
    ASSERT_NE(texts, nullptr);
    EXPECT_EQ(texts->GetCount(), 2);
    ASSERT_NE(texts->FindItem(L"年"), nullptr);
    EXPECT_EQ(texts->FindItem(L"年")->GetStringValue(), L"年");
    EXPECT_EQ(Show(L"日"), "day");
    EXPECT_EQ(Show(L"月"), "月");  // too deep
}

TEST_F(Language, LetsTheFirstOfSeveralEntriesCount) {
    WriteTable("en", "<MODULE>" + Entry("日", "day") + "<group>" + Entry("日", "sun") + "</group></MODULE><MODULE>" +
                         Entry("日", "date") + Entry("月", "month") + "</MODULE>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    EXPECT_EQ(Show(L"日"), "day");
    EXPECT_EQ(Show(L"月"), "month");
    EXPECT_EQ(m_switch.GetModuleDictionary(L"MODULE")->GetCount(), 2);
}

TEST_F(Language, PassesOverEverythingThatIsNoText) {
    WriteTable("en", "<text dt:name=\"日\">no module</text><MODULE><n dt:kind=\"3\" dt:name=\"月\">3</n>" +
                         Entry("年", "year") + "</MODULE>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    EXPECT_EQ(Show(L"日"), "日");
    EXPECT_EQ(Show(L"月"), "月");
    EXPECT_EQ(Show(L"年"), "year");
    EXPECT_TRUE(m_messages.texts.empty());
}

TEST_F(Language, DropsATranslationWhoseConversionsDifferAndSaysSo) {
    const std::string path = WriteTable("en", "<MODULE>" + Entry("第%d天", "day %s") + Entry("%d月%d日", "%d/%d") +
                                                  Entry("%s度", "degrees") + Entry("年", "%d") + "<group>" +
                                                  Entry("秒%lf", "%d") + "</group></MODULE>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    EXPECT_EQ(Show(L"第%d天"), "第%d天");
    EXPECT_EQ(Show(L"%d月%d日"), "%d/%d");
    EXPECT_EQ(Show(L"%s度"), "%s度");
    EXPECT_EQ(Show(L"年"), "年");
    EXPECT_EQ(Show(L"秒%lf"), "秒%lf");
    ASSERT_EQ(m_messages.texts.size(), 4U);
    const char* dropped[] = {"第%d天", "%s度", "年", "秒%lf"};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NE(m_messages.texts[i].find(dropped[i]), std::string::npos) << m_messages.texts[i];
        EXPECT_NE(m_messages.texts[i].find(path), std::string::npos) << m_messages.texts[i];
    }
}

TEST_F(Language, LetsALaterEntryReplaceADroppedOne) {
    WriteTable("en", "<MODULE>" + Entry("第%d天", "day") + Entry("第%d天", "day %d") + "</MODULE>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    EXPECT_EQ(Show(L"第%d天"), "day %d");
}

TEST_F(Language, LetsALaterEntryReplaceAnEmptyOne) {
    WriteTable("en", "<MODULE>" + Entry("日", "") + Entry("日", "day") + "</MODULE>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    EXPECT_EQ(Show(L"日"), "day");
    EXPECT_TRUE(m_messages.texts.empty());
}

TEST_F(Language, KeepsDictionariesAtTheirAddressAndRefillsThem) {
    WriteTable("en", "<MODULE>" + Entry("日", "day") + "</MODULE>");
    WriteTable("fr", "<OTHER>" + Entry("月", "mois") + "</OTHER><MODULE>" + Entry("日", "jour") + "</MODULE>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    QcDtDictionary* const texts = m_switch.GetModuleDictionary(L"MODULE");
    EXPECT_EQ(m_switch.GetModuleDictionary(L"OTHER"), nullptr);
    ASSERT_TRUE(m_switch.SetLanguage(L"fr"));
    EXPECT_EQ(g_strCurLanguage, L"fr");
    EXPECT_EQ(m_switch.GetModuleDictionary(L"MODULE"), texts);
    EXPECT_NE(m_switch.GetModuleDictionary(L"OTHER"), nullptr);
    EXPECT_EQ(Show(L"日"), "jour");
    ASSERT_TRUE(m_switch.SetLanguage(L"zh"));
    EXPECT_EQ(g_strCurLanguage, L"Chs");
    EXPECT_EQ(m_switch.GetModuleDictionary(L"MODULE"), texts);
    EXPECT_EQ(texts->GetCount(), 0);
    EXPECT_EQ(Show(L"日"), "日");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    EXPECT_EQ(m_switch.GetModuleDictionary(L"MODULE"), texts);
    EXPECT_EQ(m_switch.GetModuleDictionary(L"OTHER")->GetCount(), 0);
    EXPECT_EQ(Show(L"月"), "月");
}

TEST_F(Language, ReadsNoTableForChinese) {
    WriteTable("zh", "<MODULE>" + Entry("日", "changed") + "</MODULE>");
    EXPECT_TRUE(m_switch.SetLanguage(L"zh"));
    EXPECT_EQ(Show(L"日"), "日");
}

TEST_F(Language, GoesBackToBuiltInTextsWithoutATable) {
    WriteTable("en", "<MODULE>" + Entry("日", "day") + "</MODULE>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    EXPECT_FALSE(m_switch.SetLanguage(L"xx"));
    EXPECT_EQ(g_strCurLanguage, L"Chs");
    EXPECT_EQ(Show(L"日"), "日");
    ASSERT_EQ(m_messages.texts.size(), 1U);
    EXPECT_NE(m_messages.texts[0].find("languages/xx.xml"), std::string::npos) << m_messages.texts[0];
}

TEST_F(Language, GoesBackToBuiltInTextsWithARefusedTable) {
    const std::string path = m_folder.Write("languages/en.xml", "<language><MODULE>");
    EXPECT_FALSE(m_switch.SetLanguage(L"en"));
    EXPECT_EQ(g_strCurLanguage, L"Chs");
    ASSERT_EQ(m_messages.texts.size(), 1U);
    EXPECT_NE(m_messages.texts[0].find(path), std::string::npos) << m_messages.texts[0];
}

TEST_F(Language, RefusesWhatIsNoLanguageName) {
    m_folder.Write("en.xml", "<language/>");
    for (const wchar_t* name : {L"../en", L"languages/en", L"en.xml", L"e n", L"", L"en\\", L"英"}) {
        m_messages.texts.clear();
        EXPECT_FALSE(m_switch.SetLanguage(name)) << ToUtf8(name);
        EXPECT_EQ(m_messages.texts.size(), 1U);
    }
    m_messages.texts.clear();
    EXPECT_FALSE(m_switch.SetLanguage(nullptr));
    EXPECT_EQ(m_messages.texts.size(), 1U);
    EXPECT_EQ(g_strCurLanguage, L"Chs");
}

TEST_F(Language, TakesTheUsersTableBeforeTheShippedOne) {
    m_path.Set(nullptr);
    m_folder.Write("config/orvo/languages/en.xml",
                   "<l xmlns:dt=\"urn:orvo:dictionary\"><MODULE>" + Entry("日", "my day") + "</MODULE></l>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    EXPECT_EQ(Show(L"日"), "my day");
}

TEST_F(Language, TranslatesThePlatformsOwnTexts) {
    WriteTable("en", "<ORVOPLATFORM>" + Entry("日", "day") + "</ORVOPLATFORM>");
    ASSERT_TRUE(m_switch.SetLanguage(L"en"));
    EXPECT_EQ(PlatformText(L"日"), L"day");
    g_pTeskLangSwitch = nullptr;
    EXPECT_EQ(PlatformText(L"日"), L"日");
    EXPECT_EQ(PlatformText(nullptr), L"");
}

TEST(LanguageSwitch, LeavesNoPointerToItselfBehind) {
    const FileTree folder;
    folder.Write("languages/en.xml", "<language><MODULE><a>b</a></MODULE></language>");
    const EnvironmentVariable path("ORVO_SUPPORT_PATH", folder.Path().string());
    {
        TeskLanguageSwitch language;
        g_pTeskLangSwitch = &language;
        ASSERT_TRUE(language.SetLanguage(L"en"));
        g_pCurModuleLang = language.GetModuleDictionary(L"MODULE");
        ASSERT_NE(g_pCurModuleLang, nullptr);
    }
    EXPECT_EQ(g_pTeskLangSwitch, nullptr);
    EXPECT_EQ(g_pCurModuleLang, nullptr);
    g_strCurLanguage = L"Chs";
}

TEST(LanguageSwitch, LeavesPointersToOthersAlone) {
    TeskLanguageSwitch kept;
    QcDtDictionary texts;
    g_pTeskLangSwitch = &kept;
    g_pCurModuleLang = &texts;
    { const TeskLanguageSwitch other; }
    EXPECT_EQ(g_pTeskLangSwitch, &kept);
    EXPECT_EQ(g_pCurModuleLang, &texts);
    g_pTeskLangSwitch = nullptr;
    g_pCurModuleLang = nullptr;
}

}  // namespace
