// Templates and default texts in other languages: characters are found by their index, so none may move.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "controls/EditDialog.h"
#include "controls/OrvoDateEdit.h"
#include "controls/OrvoDegreeEdit.h"
#include "controls/OrvoTimeEdit.h"
#include "support/Environment.h"
#include "support/Folders.h"
#include "support/TableSwitch.h"

namespace {

void ExpectSamePlaces(const CString& grammar, const CString& builtIn, const CString& defaultText) {
    ASSERT_EQ(grammar.GetLength(), builtIn.GetLength());
    EXPECT_EQ(defaultText.GetLength(), builtIn.GetLength());
    for (int index = 0; index < builtIn.GetLength(); ++index)
        EXPECT_EQ(grammar.GetAt(index) == L'_', builtIn.GetAt(index) == L'_') << index;
}

}  // namespace

TEST(MaskTranslations, OfTheShippedLanguagesKeepEveryPlace) {
    // The module keeps the dictionary that it once got from a switch.
    static const auto language = std::make_unique<TeskLanguageSwitch>();
    const EnvironmentVariable data("ORVO_SUPPORT_PATH", SourceFolder() + "/data");
    int count = 0;
    for (const auto& file : std::filesystem::directory_iterator(SourceFolder() + "/data/languages")) {
        if (file.path().extension() != ".xml")
            continue;
        SCOPED_TRACE(file.path().filename().string());
        ASSERT_TRUE(language->SetLanguage(file.path().stem().wstring().c_str()));
        g_pTeskLangSwitch = language.get();
        const OrvoDateEdit date;
        const OrvoDegreeEdit degree(nullptr);
        g_pTeskLangSwitch = nullptr;
        ExpectSamePlaces(date.m_strGrammar, L"__月__日", date.m_strDefault);
        ExpectSamePlaces(degree.m_strGrammar, L"___度__分__秒", degree.m_strDefault);
        ++count;
    }
    EXPECT_GE(count, 1);
}

TEST(MaskTranslations, AreTakenForDatesAndDegreesAlone) {
    const TableSwitch language{{L"__月__日", L"__/__."},
                               {L"01月01日", L"01/01."},
                               {L"___度__分__秒", L"___d__m__s"},
                               {L"   度  分00秒", L"   d  m00s"},
                               {L"__:__", L"__h__"},
                               {L"00:00", L"00h00"},
                               {L"0123456789", L"abc"}};
    const OrvoDateEdit date;
    EXPECT_EQ(date.m_strGrammar, L"__/__.");
    EXPECT_EQ(date.m_strDefault, L"01/01.");
    EXPECT_EQ(date.m_strValidChars, L"0123456789");
    const OrvoDegreeEdit degree(nullptr);
    EXPECT_EQ(degree.m_strGrammar, L"___d__m__s");
    EXPECT_EQ(degree.m_strDefault, L"   d  m00s");
    EXPECT_EQ(degree.m_strValidChars, L"0123456789");
    const OrvoTimeEdit time;
    EXPECT_EQ(time.m_strGrammar, L"__:__");
    EXPECT_EQ(time.m_strDefault, L"00:00");
    EXPECT_EQ(time.m_strValidChars, L"0123456789");
}

TEST(MaskTranslations, ThatAreBadDoNoHarm) {
    const TableSwitch language{{L"__月__日", L"month and day"}, {L"01月01日", L"1"}};
    OrvoDateEdit date;
    RunWith(date, [&](EditDialog&) {
        date.SendMessage(WM_CHAR, L'7', 1);
        date.SendMessage(WM_KEYDOWN, VK_BACK, 1);
        date.SendMessage(WM_KEYDOWN, VK_LEFT, 1);
        EXPECT_TRUE(date.SetDate(3, 7));
        EXPECT_EQ(date.GetMonth(), 7);
    });
}
