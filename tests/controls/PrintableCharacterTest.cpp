// Which characters an edit without valid characters takes, held against another library's tables.
#include <gtest/gtest.h>

#include <QChar>
#include <limits>

#include "controls/QcSunEdit.h"

namespace {

bool IsPrintable(const QChar::Category category) {
    switch (category) {
        case QChar::Other_Control:
        case QChar::Other_Format:
        case QChar::Other_Surrogate:
        case QChar::Other_NotAssigned:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return false;
        default:
            return true;
    }
}

}  // namespace

TEST(PrintableCharacter, IsOneThatIsSeenOrLeavesAGap) {
    QcSunEdit edit;
    int printable = 0;
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        if (code > static_cast<char32_t>(std::numeric_limits<wchar_t>::max()))
            break;
        // What came later than the edit's table is not in it.
        const bool isKnown = QChar::unicodeVersion(code) <= QChar::Unicode_14_0;
        const bool expected = isKnown && IsPrintable(QChar::category(code));
        ASSERT_EQ(edit.IsValidChar(static_cast<wchar_t>(code)), expected) << static_cast<unsigned>(code);
        printable += expected ? 1 : 0;
    }
    EXPECT_GT(printable, 50000);
}

TEST(PrintableCharacter, CanBeOfAnyScriptUnderAnyLocale) {
    QcSunEdit edit;
    for (const wchar_t character : {L'a', L' ', L'_', L'月', L'é', L'\u00a0', L'\u3000', L'\ue000', L'\ufffd'})
        EXPECT_TRUE(edit.IsValidChar(character)) << static_cast<unsigned>(character);
    for (const wchar_t character : {L'\0', L'\b', L'\t', L'\r', L'\n', L'\x1b', L'\x7f', L'\x85', L'\u00ad', L'\u2028',
                                    L'\u200b', L'\u0378', L'\ufeff', L'\uffff'})
        EXPECT_FALSE(edit.IsValidChar(character)) << static_cast<unsigned>(character);
    for (const unsigned lone : {0xD800U, 0xDBFFU, 0xDC00U, 0xDFFFU})
        EXPECT_FALSE(edit.IsValidChar(static_cast<wchar_t>(lone))) << lone;
}

TEST(PrintableCharacter, IsNoNumberBeyondAllCharacters) {
    QcSunEdit edit;
    EXPECT_FALSE(edit.IsValidChar(std::numeric_limits<wchar_t>::max()));
    EXPECT_FALSE(edit.IsValidChar(std::numeric_limits<wchar_t>::min()));
    EXPECT_FALSE(edit.IsValidChar(static_cast<wchar_t>(-2)));
}
