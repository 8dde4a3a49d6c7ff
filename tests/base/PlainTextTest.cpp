// Characters of texts, and texts made safe to show.
#include "platform/base/PlainText.h"

#include <gtest/gtest.h>

#include <set>

namespace {

// The characters that a terminal or the direction of writing obeys, by Unicode's lists: controls (category Cc), the
// separators of lines and paragraphs (Zl, Zp), the bidirectional controls (property Bidi_Control), the byte order mark
// and the tag characters.
std::set<char32_t> SteeringCharacters() {
    std::set<char32_t> steering = {0x061C, 0x200E, 0x200F, 0x2028, 0x2029, 0xFEFF};
    const std::pair<char32_t, char32_t> ranges[] = {
        {0x00, 0x1F}, {0x7F, 0x9F}, {0x202A, 0x202E}, {0x2066, 0x2069}, {0xE0000, 0xE007F}};
    for (const auto& [first, last] : ranges)
        for (char32_t character = first; character <= last; ++character)
            steering.insert(character);
    return steering;
}

}  // namespace

TEST(CharactersOfAText, AreOneEachHoweverFarBeyondTheFirstPlane) {
    EXPECT_EQ(CodePoints(L""), U"");
    EXPECT_EQ(CodePoints(L"a甲\x1b"), U"a甲\x1b");
    EXPECT_EQ(CodePoints(L"\U0001F600\U00020000"), U"\U0001F600\U00020000");
    EXPECT_EQ(CodePoints(L"\U0001F600").size(), 1U);
}

TEST(PrintableTexts, HaveAReplacementForEachSteeringCharacterAndNoOther) {
    const std::set<char32_t> steering = SteeringCharacters();
    for (char32_t character = 1; character <= 0x10FFFF; ++character) {
        if (character >= 0xD800 && character <= 0xDFFF)
            continue;  // no characters
        const wchar_t text[] = {L'a', static_cast<wchar_t>(character), L'b', 0};
        const std::u32string shown = CodePoints(Printable(text));
        ASSERT_EQ(shown.size(), 3U) << std::hex << static_cast<unsigned>(character);
        ASSERT_EQ(shown[1], steering.contains(character) ? U'\xFFFD' : character)
            << std::hex << static_cast<unsigned>(character);
    }
}

TEST(PrintableTexts, KeepEverythingElse) {
    EXPECT_EQ(Printable(L""), L"");
    EXPECT_EQ(Printable(L"上海 标准 (1)é"), L"上海 标准 (1)é");
    EXPECT_EQ(Printable(L"\x1b[31m红\r\n\t"), L"\xFFFD[31m红\xFFFD\xFFFD\xFFFD");
    CString original(L"a\nb");
    EXPECT_EQ(Printable(original),
              L"a\xFFFD"
              L"b");
    EXPECT_EQ(original, L"a\nb") << "the text itself stays";
}
