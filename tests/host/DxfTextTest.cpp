// The texts of a drawing in every kind of code page, both ways.
#include <gtest/gtest.h>

#include <random>

#include "DrawingText.h"

namespace {

// A database whose texts are in the code page of this name.
class TextsIn {
public:
    explicit TextsIn(std::string_view page, std::string_view version = "AC1015")
        : m_drawing(DrawingOf(Section("HEADER", "  9\n$ACADVER\n  1\n" + std::string(version) +
                                                    "\n  9\n$DWGCODEPAGE\n  3\n" + std::string(page) + "\n"))) {}

    std::string Decode(std::string_view bytes) const { return ToUtf8(m_drawing.database.Decode(bytes).View()); }
    CString Wide(std::string_view bytes) const { return m_drawing.database.Decode(bytes); }
    std::string Encode(const char* utf8) const { return EncodeWide(FromUtf8(utf8)); }
    std::string EncodeWide(const CString& text) const {
        std::string bytes;
        EXPECT_TRUE(m_drawing.database.Encode(text, bytes));
        return bytes;
    }
    const AcDbDatabase& Database() const { return m_drawing.database; }

private:
    OpenDrawing m_drawing;
};

void ExpectBothWays(const char* page, std::string_view bytes, const char* text) {
    const TextsIn texts(page);
    EXPECT_EQ(texts.Decode(bytes), text) << page;
    EXPECT_EQ(texts.Encode(text), bytes) << page;
}

}  // namespace

TEST(DxfText, IsReadAndWrittenInTheDrawingsCodePage) {
    // The characters whose second byte is a backslash are there on purpose.
    ExpectBothWays("ANSI_936", "wall \xB1\xB1\xBE\xA9\xD5\x5C end", "wall 北京誠 end");
    ExpectBothWays("gb2312", "\xB1\xB1", "北");
    ExpectBothWays("ANSI_950", "\xA5\x5F\xA8\xCA\xA5\x5C", "北京功");
    ExpectBothWays("big5", "\xA5\x5F", "北");
    ExpectBothWays("ANSI_932", "\x93\xFA\x96\x7B\x83\x5C", "日本ソ");
    ExpectBothWays("dos932", "\x93\xFA", "日");
    ExpectBothWays("ANSI_949", "\xC7\xD1\xB1\xB9", "한국");
    ExpectBothWays("ksc5601", "\xC7\xD1", "한");
    ExpectBothWays("johab", "\xD0\x65\x8A\x82", "한국");
    ExpectBothWays("ANSI_1361", "\xD0\x65", "한");
    ExpectBothWays("ANSI_874", "\xE4\xB7\xC2", "ไทย");
    ExpectBothWays("ANSI_1250", "\xA3\xF3\x64\x9F", "Łódź");
    ExpectBothWays("ANSI_1251", "\xC6\xF3\xEA", "Жук");
    ExpectBothWays("ansi_1252", "\xE9\x80", "é€");
    ExpectBothWays("ANSI_1253", "\xD9\xF9", "Ωω");
    ExpectBothWays("ANSI_1254", "\xDD\xFE", "İş");
    ExpectBothWays("ANSI_1255", "\xF9\xEC\xE5\xED", "שלום");
    ExpectBothWays("ANSI_1256", "\xD4\xE3\xD3", "شمس");
    ExpectBothWays("ANSI_1257", "\xFE\xE0\x73", "žąs");
    ExpectBothWays("ANSI_1258", "\xF0\xF5", "đơ");
    ExpectBothWays("dos437", "\x82\xE3", "éπ");
    ExpectBothWays("DOS850", "\x82\x9B", "éø");
    ExpectBothWays("dos866", "\x86\xE3\xAA", "Жук");
    ExpectBothWays("mac-roman", "\x8E\xA7", "éß");
    ExpectBothWays("iso8859-2", "\xA3\xBC", "Łź");
    ExpectBothWays("iso_8859-2", "\xA3", "Ł");
    ExpectBothWays("UTF-8", "\xC3\xA9", "é");
}

TEST(DxfText, IsUtf8FromVersionAC1021On) {
    for (const char* version : {"AC1021", "AC1024", "AC1027", "AC1032", "AC1032 "}) {
        const TextsIn texts("ANSI_936", version);
        EXPECT_EQ(texts.Decode("\xE5\x8C\x97 \xF0\x9F\x98\x80"), "北 😀") << version;
        EXPECT_EQ(texts.Encode("北 😀"), "\xE5\x8C\x97 \xF0\x9F\x98\x80") << version;
    }
    for (const char* version : {"AC1009", "AC1012", "AC1014", "AC1015", "AC1018"})
        EXPECT_EQ(TextsIn("ANSI_936", version).Decode("\xB1\xB1"), "北") << version;
}

TEST(DxfText, IsUtf8BehindAByteOrderMark) {
    const OpenDrawing drawing("\xEF\xBB\xBF" + SmallDrawing());
    EXPECT_EQ(ToUtf8(drawing.database.Decode("\xE5\x8C\x97").View()), "北");
}

TEST(DxfText, IsByteForByteWithoutAKnownCodePage) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '\n' && byte != '\r')
            all.push_back(static_cast<char>(byte));
    for (const char* page : {"", "ansi_none", "ANSI_", "ANSI_99999", "ANSI_1252/../x", "martian"}) {
        const TextsIn texts(page);
        EXPECT_EQ(texts.Decode("\xE9\x80"), "\xC3\xA9\xC2\x80") << page;
        EXPECT_EQ(texts.EncodeWide(texts.Wide(all)), all) << page;
        EXPECT_EQ(texts.Encode("北"), "\\U+5317") << page;
    }
    const AcDbDatabase empty;
    std::string bytes;
    EXPECT_EQ(ToUtf8(empty.Decode("\xE9").View()), "é");
    EXPECT_TRUE(empty.Encode(L"\x00E9", bytes));
    EXPECT_EQ(bytes, "\xE9");
    const OpenDrawing headless(DrawingOf(""));
    EXPECT_EQ(ToUtf8(headless.database.Decode("\xE9").View()), "é");
}

TEST(DxfText, HasEscapesForWhatTheCodePageLacks) {
    const TextsIn texts("ANSI_1252");
    EXPECT_EQ(texts.Decode("a\\U+5317b\\U+4eAc"), "a北b京");
    EXPECT_EQ(texts.Encode("a北b"), "a\\U+5317b");
    EXPECT_EQ(texts.Encode("😀"), "\\U+D83D\\U+DE00");
    EXPECT_EQ(texts.Decode("\\U+D83D\\U+DE00"), "😀");
    EXPECT_EQ(TextsIn("ANSI_936").Encode("北é😀ไ"), "\xB1\xB1\xA8\xA6\\U+D83D\\U+DE00\\U+0E44");
    EXPECT_EQ(TextsIn("x", "AC1032").Decode("\\U+5317"), "北") << "also in UTF-8";
}

TEST(DxfText, HasEscapesForOtherMultibytePages) {
    const TextsIn texts("ANSI_1252");
    EXPECT_EQ(texts.Decode("\\M+193FA\\M+2A55F\\M+3C7D1\\M+4D065\\M+5B1B1."), "日北한한北.");
    EXPECT_EQ(texts.Decode("\\M+0B1B1\\M+6B1B1\\M+50041\\M+5FFFF\\M+5B1"),
              "\\M+0B1B1\\M+6B1B1\\M+50041\\M+5FFFF\\M+5B1");
}

TEST(DxfText, KeepsWhatIsNoEscape) {
    const TextsIn texts("ANSI_1252");
    for (const char* text : {"\\", "\\U", "\\U+", "\\U+53", "\\U+531", "\\U+53G7", "\\u+5317", "\\U-5317", "\\P\\pxl;",
                             "\\\\U", "\\U+000A", "\\U+0000", "\\U+001F", "%%c100"}) {
        EXPECT_EQ(texts.Decode(text), text);
        EXPECT_EQ(texts.Encode(text), text);
    }
}

TEST(DxfText, ThatLooksLikeAnEscapeSurvives) {
    const TextsIn texts("ANSI_1252");
    for (const char* text : {"\\U+5317", "\\M+5B1B1", "\\\\U+5317", "x\\U+005CU+5317", "\\U+D83D"}) {
        const std::string bytes = texts.Encode(text);
        EXPECT_NE(bytes, text);
        EXPECT_EQ(texts.Decode(bytes), text);
    }
    EXPECT_EQ(texts.Encode("\\U+5317"), "\\U+005CU+5317");
}

TEST(DxfText, KeepsBytesThatAreNoCharacters) {
    // A lone first byte, a byte that begins nothing, a pair that is not assigned; and cut UTF-8.
    for (const char* bytes : {"a\x81", "\xFF\xB1\xB1", "\xB1 \xB1", "\xFE\xFE"}) {
        const TextsIn texts("ANSI_936");
        EXPECT_EQ(texts.EncodeWide(texts.Wide(bytes)), bytes);
    }
    const TextsIn utf8("", "AC1032");
    for (const char* bytes : {"\xE5\x8C", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\x80\xE5\x8C\x97\xFF"})
        EXPECT_EQ(utf8.EncodeWide(utf8.Wide(bytes)), bytes);
    EXPECT_EQ(utf8.Wide("\x80").GetAt(0), static_cast<wchar_t>(0xDC80));
}

TEST(DxfText, DoesNotJoinBytesThatWereNoCharacter) {
    const TextsIn texts("ANSI_936");
    CString text = texts.Wide("\x81 ");
    text.SetAt(1, L'A');  // 81 41 would be a character
    const std::string bytes = texts.EncodeWide(text);
    EXPECT_EQ(texts.Wide(bytes), text);
    EXPECT_EQ(bytes, "\\U+DC81A");
}

TEST(DxfText, RefusesWhatALineCannotHold) {
    const TextsIn texts("ANSI_936");
    std::string bytes = "before";
    for (const CString& text : {CString(L"a\nb"), CString(L"\r"), CString(L'\0', 1) + L"a"}) {
        EXPECT_FALSE(texts.Database().Encode(text, bytes));
        EXPECT_TRUE(bytes.empty());
    }
    EXPECT_TRUE(texts.Database().Encode(CString(), bytes));
    EXPECT_TRUE(bytes.empty());
}

TEST(DxfText, ComesBackFromAnyBytesInAnyCodePage) {
    std::mt19937 random(3);
    for (const char* page : {"ANSI_936", "ANSI_950", "ANSI_932", "ANSI_949", "johab", "ANSI_874", "ANSI_1250",
                             "ANSI_1252", "ANSI_1255", "ANSI_1258", "dos437", "UTF-8", "none"}) {
        const TextsIn texts(page);
        for (int round = 0; round < 300; ++round) {
            std::string bytes(random() % 12, ' ');
            for (char& c : bytes) {
                c = static_cast<char>(1 + random() % 255);
                c = c == '\n' || c == '\r' ? '\\' : c;
            }
            const CString text = texts.Wide(bytes);
            EXPECT_EQ(texts.Wide(texts.EncodeWide(text)), text) << page;
        }
    }
}
