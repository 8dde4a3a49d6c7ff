// The resource scope, translation of texts, and the module's language key.
#include "frame/Resources.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "avi/OrvoAVIFile.h"
#include "calendar/OrvoDate.h"
#include "calendar/OrvoDegree.h"
#include "platform/base/Language.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/host/ExtensionModule.h"
#include "support/TableSwitch.h"

namespace {

// A switch that answers in its own way and notes what it was asked.
class RecordingSwitch : public TeskLanguageSwitch {
public:
    CString Translate(const wchar_t* text) const override {
        m_resourceSeen = AfxGetModuleState()->m_hCurrentResourceHandle;
        m_langSeen = g_pCurModuleLang;
        return L"<" + CString(text) + L">";
    }
    QcDtDictionary* GetModuleDictionary(const wchar_t* key) override {
        m_keys.emplace_back(key);
        return m_answer;
    }

    mutable HINSTANCE m_resourceSeen = nullptr;
    mutable QcDtDictionary* m_langSeen = nullptr;
    std::vector<CString> m_keys;
    QcDtDictionary* m_answer = nullptr;
};

// The language dictionary, once found, stays for the life of the process; so this one lives as long.
QcDtDictionary& ModuleTable() {
    static QcDtDictionary table(L"table");
    return table;
}

class Resources : public testing::Test {
protected:
    // Sees to it that the module has found its language dictionary, as it has after the first scope under a switch.
    static void FindLanguage() {
        RecordingSwitch language;
        language.m_answer = &ModuleTable();
        g_pTeskLangSwitch = &language;
        SetModuleFileNameForTest(L"C:\\p\\OrvoDataBase.arx");
        LoadModuleLanguage();
        SetModuleFileNameForTest(nullptr);
        g_pTeskLangSwitch = nullptr;
    }
    void TearDown() override {
        g_pTeskLangSwitch = nullptr;
        g_pCurModuleLang = nullptr;
        AfxGetModuleState()->m_hCurrentResourceHandle = nullptr;
        SetModuleFileNameForTest(nullptr);
    }
};

const int kFirstModule = 0;
const int kSecondModule = 0;

}  // namespace

TEST(LanguageKey, IsTheUpperCasedNameWithoutFolderEndingAndFinalDigit) {
    EXPECT_EQ(LanguageKeyOfModuleFile(L"C:\\x\\ORVODATABASE.ARX"), L"ORVODATABASE");
    EXPECT_EQ(LanguageKeyOfModuleFile(L"C:\\x\\ORVODATABASE8.ARX"), L"ORVODATABASE");
    EXPECT_EQ(LanguageKeyOfModuleFile(L"C:\\x\\ORVODATABASE18.ARX"), L"ORVODATABASE1");
    EXPECT_EQ(LanguageKeyOfModuleFile(L"\\usr\\lib\\OrvoDataBase.so"), L"ORVODATABASE");
    EXPECT_EQ(LanguageKeyOfModuleFile(L"\\usr\\OrvoDataBase.so.1.2"), L"ORVODATABASE");
    EXPECT_EQ(LanguageKeyOfModuleFile(L"\\usr.d\\OrvoDataBase.so"), L"ORVODATABASE");
}

TEST(LanguageKey, LosesEveryDecimalDigitAndNothingElse) {
    for (const wchar_t digit : {L'0', L'1', L'2', L'3', L'4', L'5', L'6', L'7', L'8', L'9'})
        EXPECT_EQ(LanguageKeyOfModuleFile(CString(L"C:\\x\\A") + digit + L".ARX"), L"A");
    // The neighbours of the digits, and a digit of another script.
    for (const wchar_t* name : {L"A/", L"A:", L"A８"})
        EXPECT_EQ(LanguageKeyOfModuleFile(CString(L"C:\\x\\") + name + L".ARX"), name);
}

TEST(LanguageKey, IsMissingForANameWithoutFolderOrPoint) {
    EXPECT_EQ(LanguageKeyOfModuleFile(L"ORVODATABASE.ARX"), std::nullopt);
    EXPECT_EQ(LanguageKeyOfModuleFile(L"\\ORVODATABASE.ARX"), std::nullopt);
    EXPECT_EQ(LanguageKeyOfModuleFile(L"C:\\x\\ORVODATABASE"), std::nullopt);
    EXPECT_EQ(LanguageKeyOfModuleFile(L"C:\\x.y\\ORVODATABASE"), std::nullopt);
    EXPECT_EQ(LanguageKeyOfModuleFile(L"C:\\x\\.ARX"), std::nullopt);
    EXPECT_EQ(LanguageKeyOfModuleFile(L"C:\\x\\"), std::nullopt);
    EXPECT_EQ(LanguageKeyOfModuleFile(L"C:\\x.arx\\"), std::nullopt);
    EXPECT_EQ(LanguageKeyOfModuleFile(L""), std::nullopt);
    EXPECT_EQ(LanguageKeyOfModuleFile(nullptr), std::nullopt);
}

TEST(LanguageKey, NeedsTheFolderMarkBehindTheFirstCharacter) {
    EXPECT_EQ(LanguageKeyOfModuleFile(L"C\\A.ARX"), L"A");
    EXPECT_EQ(LanguageKeyOfModuleFile(L"\\A.ARX"), std::nullopt);
}

TEST(LanguageKey, IsEmptyWhenTheNameIsOneDigit) {
    EXPECT_EQ(LanguageKeyOfModuleFile(L"C:\\x\\8.ARX"), L"");
    EXPECT_EQ(LanguageKeyOfModuleFile(L"C:\\x\\88.ARX"), L"8");
}

TEST_F(Resources, ShowTextsAsBuiltInWithoutASwitch) {
    EXPECT_EQ(TranslateText(L"冬至"), L"冬至");
    EXPECT_EQ(TranslateText(L""), L"");
    EXPECT_EQ(TranslateText(nullptr), L"");
    EXPECT_EQ(LoadModuleLanguage(), L"");
}

// Stands before the tests that let the module find its language, which it then has for the rest of the process.
TEST_F(Resources, AskForTheLanguageInEachScopeUntilItIsThere) {
    RecordingSwitch language;
    g_pTeskLangSwitch = &language;
    SetModuleFileNameForTest(L"C:\\p\\NoPoint");
    { const QcUtPushResource scope(&kFirstModule); }
    EXPECT_TRUE(language.m_keys.empty());
    EXPECT_EQ(LoadModuleLanguage(), L"");

    SetModuleFileNameForTest(L"C:\\p\\OrvoDataBase8.arx");
    g_pCurModuleLang = &ModuleTable();
    {
        const QcUtPushResource scope(&kFirstModule);
        EXPECT_EQ(g_pCurModuleLang, nullptr);  // no dictionary: null stands in for the one before
    }
    EXPECT_EQ(g_pCurModuleLang, &ModuleTable());
    { const QcUtPushResource scope(&kFirstModule); }
    ASSERT_EQ(language.m_keys.size(), 2U);
    EXPECT_EQ(language.m_keys[0], L"ORVODATABASE");

    SetModuleFileNameForTest(L"C:\\p\\8.ARX");
    { const QcUtPushResource scope(&kFirstModule); }
    ASSERT_EQ(language.m_keys.size(), 3U) << "an empty key is a key";
    EXPECT_EQ(language.m_keys[2], L"");

    SetModuleFileNameForTest(L"C:\\p\\OrvoDataBase8.arx");
    language.m_answer = &ModuleTable();
    EXPECT_EQ(LoadModuleLanguage(), L"ORVODATABASE");
    EXPECT_EQ(language.m_keys.size(), 4U);
    { const QcUtPushResource scope(&kFirstModule); }
    { const QcUtPushResource scope(&kFirstModule); }
    EXPECT_EQ(language.m_keys.size(), 4U);
}

// Behind a key that is empty there may be a dictionary too, and where there is none the module has none.
TEST_F(Resources, AskTheSwitchForAnEmptyKey) {
    FindLanguage();
    RecordingSwitch language;
    g_pTeskLangSwitch = &language;
    SetModuleFileNameForTest(L"C:\\p\\8.ARX");
    QcDtDictionary answer(L"answer");
    language.m_answer = &answer;
    EXPECT_EQ(LoadModuleLanguage(), L"");
    EXPECT_EQ(language.m_keys, std::vector<CString>{L""});
    {
        const QcUtPushResource scope(&kFirstModule);
        EXPECT_EQ(g_pCurModuleLang, &answer);
    }
    language.m_answer = nullptr;
    EXPECT_EQ(LoadModuleLanguage(), L"");
    const QcUtPushResource scope(&kFirstModule);
    EXPECT_EQ(g_pCurModuleLang, nullptr);
}

TEST_F(Resources, KeepTheLanguageWhenTheNameHoldsNoKey) {
    FindLanguage();
    RecordingSwitch language;
    g_pTeskLangSwitch = &language;
    SetModuleFileNameForTest(L"nothing");
    EXPECT_EQ(LoadModuleLanguage(), L"");
    { const QcUtPushResource scope(&kFirstModule); }
    EXPECT_TRUE(language.m_keys.empty());
    const QcUtPushResource scope(&kFirstModule);
    EXPECT_EQ(g_pCurModuleLang, &ModuleTable());
}

TEST_F(Resources, NestScopesAndRestoreInReverse) {
    FindLanguage();
    QcDtDictionary outside(L"outside");
    AfxGetModuleState()->m_hCurrentResourceHandle = &outside;
    g_pCurModuleLang = &outside;
    {
        const QcUtPushResource outer(&kFirstModule);
        EXPECT_EQ(AfxGetModuleState()->m_hCurrentResourceHandle, &kFirstModule);
        EXPECT_EQ(g_pCurModuleLang, &ModuleTable());
        g_pCurModuleLang = nullptr;
        {
            const QcUtPushResource inner(&kSecondModule);
            EXPECT_EQ(AfxGetModuleState()->m_hCurrentResourceHandle, &kSecondModule);
            EXPECT_EQ(g_pCurModuleLang, &ModuleTable());
        }
        EXPECT_EQ(AfxGetModuleState()->m_hCurrentResourceHandle, &kFirstModule);
        EXPECT_EQ(g_pCurModuleLang, nullptr);
    }
    EXPECT_EQ(AfxGetModuleState()->m_hCurrentResourceHandle, &outside);
    EXPECT_EQ(g_pCurModuleLang, &outside);
}

TEST_F(Resources, AreCurrentWhileATextIsLookedUp) {
    FindLanguage();
    RecordingSwitch language;
    g_pTeskLangSwitch = &language;
    QcDtDictionary outside(L"outside");
    AfxGetModuleState()->m_hCurrentResourceHandle = &outside;
    g_pCurModuleLang = &outside;
    EXPECT_EQ(TranslateText(L"text"), L"<text>");
    EXPECT_EQ(language.m_resourceSeen, GetModuleResourceHandle());
    EXPECT_EQ(language.m_langSeen, &ModuleTable());
    EXPECT_EQ(AfxGetModuleState()->m_hCurrentResourceHandle, &outside);
    EXPECT_EQ(g_pCurModuleLang, &outside);
}

// Formats are translated wherever the module fills one; a date's asks for three whole numbers.
TEST_F(Resources, FillATranslatedFormat) {
    for (const auto& [format, text] :
         {std::pair(L"%d/%d/%d", L"2001/2/3"), std::pair(L"%5i|%-3d|%.2u", L" 2001|2  |03"),
          std::pair(L"100%% %ld %x %o", L"100% 2001 2 3")}) {
        const TableSwitch language({{L"%4d年%2d月%2d日", format}});
        EXPECT_EQ(OrvoDate(2001, 2, 3).GetDateString(), text);
    }
}

TEST_F(Resources, PassOverATranslatedFormatThatAsksForOtherArguments) {
    for (const wchar_t* format :
         {L"%d/%d", L"%d/%d/%d/%d", L"%d/%s/%d", L"%s/%d/%d", L"%d/%d/%f", L"%d/%d/%lld", L"%d/%d/%ls", L"%d/%d/%n",
          L"%d/%d/%*d", L"%100d/%d/%d", L"%d/%d/%.100d", L"%d/%d/%d %", L"%d/%d/%-", L"%d/%d/%3.", L"", L"date"}) {
        const TableSwitch language({{L"%4d年%2d月%2d日", format}});
        EXPECT_EQ(OrvoDate(2001, 2, 3).GetDateString(), L"2001年 2月 3日") << ToUtf8(format);
    }
}

// The order counts, too: here the built-in format asks for a text and two whole numbers.
TEST_F(Resources, PassOverATranslatedFormatInAnotherOrder) {
    const OrvoDegree degree(-1.5);
    {
        const TableSwitch language({{L"%s%.3d度%.2d分", L"%d %d %s"}});
        EXPECT_EQ(degree.Format(false), L"-001度30分");
    }
    const TableSwitch language({{L"%s%.3d度%.2d分", L"%s%d d %d"}});
    EXPECT_EQ(degree.Format(false), L"-1 d 30");
}

TEST(ModuleState, HasAVirtualScopeAndTheDefaultAnimationPath) {
    EXPECT_TRUE(std::has_virtual_destructor_v<QcUtPushResource>);
    EXPECT_EQ(g_sRecordFile, L"c:\\sun.avi");
}

TEST_F(Resources, TakeAModuleFileNameOfUpTo1023Characters) {
    RecordingSwitch language;
    language.m_answer = &ModuleTable();
    g_pTeskLangSwitch = &language;
    const CString folder(std::wstring(1015, L'd').c_str());
    SetModuleFileNameForTest(L"C\\" + folder + L"\\AB.C");  // 1022 characters, with its point inside
    EXPECT_EQ(LoadModuleLanguage(), L"AB");
    SetModuleFileNameForTest(L"C\\" + folder + L"\\ABC.D");  // 1023, of which the last counts
    EXPECT_EQ(LoadModuleLanguage(), L"ABC");
    SetModuleFileNameForTest(L"C\\" + folder + L"\\ABCD.E");  // the point is the 1023rd
    EXPECT_EQ(LoadModuleLanguage(), L"ABCD");
    SetModuleFileNameForTest(L"C\\" + folder + L"\\ABCDE.F");  // cut off in front of the point
    EXPECT_EQ(LoadModuleLanguage(), L"");
}
