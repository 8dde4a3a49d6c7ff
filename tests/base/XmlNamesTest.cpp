// Names and escapes of XML.
#include "platform/base/XmlNames.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(XmlNames, AreWhatXmlAllowsWithoutAColon) {
    for (const auto name : {L"a"sv, L"_"sv, L"ORVO_ZONEDATA"sv, L"北京"sv, L"a-b.c9"sv, L"é"sv, L"a·b"sv})
        EXPECT_TRUE(IsXmlName(name)) << ToUtf8(name);
    for (const auto name : {L""sv, L"9a"sv, L"-a"sv, L".a"sv, L"a b"sv, L"a:b"sv, L"a<b"sv, L"a\0b"sv, L"×"sv,
                            L"\u3000"sv, L"·a"sv, L"a/b"sv, L" a"sv, L"a\n"sv})
        EXPECT_FALSE(IsXmlName(name)) << ToUtf8(name);
}

TEST(XmlNames, MayHoldCharactersBeyondTheBasicPlane) {
    EXPECT_TRUE(IsXmlName(L"𠀀"));
    EXPECT_FALSE(IsXmlName(L"\U000F0000"));
}

TEST(XmlNames, OfAttributesEscapeWhatMayNotStandThere) {
    EXPECT_EQ(EscapeXmlName(L"longitude"), "longitude");
    EXPECT_EQ(EscapeXmlName(L"经度"), "经度");
    EXPECT_EQ(EscapeXmlName(L"a b"), "a_x0020_b");
    EXPECT_EQ(EscapeXmlName(L"9"), "_x0039_");
    EXPECT_EQ(EscapeXmlName(L"a9"), "a9");
    EXPECT_EQ(EscapeXmlName(L"dt:kind"), "dt_x003A_kind");
    EXPECT_EQ(EscapeXmlName(L"xmlns"), "_x0078_mlns");
    EXPECT_EQ(EscapeXmlName(L"xmlnsx"), "xmlnsx");
    EXPECT_EQ(EscapeXmlName(L"_x0041_"), "_x005F_x0041_");
    EXPECT_EQ(EscapeXmlName(L"_x004_"), "_x004_");
    EXPECT_EQ(EscapeXmlName(L"\U000F0000"), "_x000F0000_");
}

TEST(XmlNames, TextsWithForbiddenCharactersAreKnown) {
    EXPECT_FALSE(HasForbiddenCharacters(L"a\t\n\r]]><&\"' \x7F\x85\uFFFD𠀀😀"));
    for (const int unit : {0, 1, 8, 0xB, 0xC, 0xE, 0x1F, 0xD800, 0xDFFF, 0xFFFE, 0xFFFF})
        EXPECT_TRUE(HasForbiddenCharacters(std::wstring(1, static_cast<wchar_t>(unit)))) << unit;
}

TEST(XmlNames, EscapesOfTextsAreHexadecimalUnitsInCapitals) {
    EXPECT_EQ(EscapeXmlText(L"a\0b"sv), "a_x0000_b");
    EXPECT_EQ(EscapeXmlText(L"\x1F"), "_x001F_");
    EXPECT_EQ(EscapeXmlText(std::wstring(1, static_cast<wchar_t>(0xD83D))), "_xD83D_");
    EXPECT_EQ(EscapeXmlText(L"北京 😀"), "北京 😀");
    EXPECT_EQ(EscapeXmlText(L"_x0041_"), "_x005F_x0041_");
    EXPECT_EQ(EscapeXmlText(L"_xabcd_"), "_x005F_xabcd_");
    EXPECT_EQ(EscapeXmlText(L"_X0041_ _x041_ _x0041 _xGGGG_"), "_X0041_ _x041_ _x0041 _xGGGG_");
}

TEST(XmlNames, ATextThatOnlyBecomesAnEscapeByWhatFollowsIsEscapedToo) {
    EXPECT_EQ(EscapeXmlText(L"_x0041\x01"), "_x005F_x0041_x0001_");
    EXPECT_EQ(UnescapeXml(L"_x005F_x0041_x0001_"), L"_x0041\x01");
}

TEST(XmlNames, WhatIsNoEscapeStaysWhenEscapesAreRead) {
    EXPECT_EQ(UnescapeXml(L"_x0041_"), L"A");
    EXPECT_EQ(UnescapeXml(L"_x0041__x0042_"), L"AB");
    EXPECT_EQ(UnescapeXml(L"__x0041_"), L"_A");
    EXPECT_EQ(UnescapeXml(L"_x00e9_"), L"é");
    EXPECT_EQ(UnescapeXml(L"_x0041"), L"_x0041");
    EXPECT_EQ(UnescapeXml(L"_x00411_"), L"_x00411_");
    EXPECT_EQ(UnescapeXml(L"_xG041_"), L"_xG041_");
    EXPECT_EQ(UnescapeXml(L"_"), L"_");
    EXPECT_EQ(UnescapeXml(L""), L"");
    EXPECT_EQ(UnescapeXml(L"_x0000_").GetLength(), 1);
}

TEST(XmlNames, EveryTextComesBackFromItsEscapes) {
    std::mt19937 random(7);
    const std::wstring pieces[] = {L"_",
                                   L"x",
                                   L"0041",
                                   L"D800",
                                   L"_x",
                                   L"_x005F_",
                                   L"_x0001",
                                   L"\x01",
                                   L" ",
                                   L":",
                                   L"a",
                                   L"北",
                                   L"😀",
                                   L"F",
                                   L"000F0000",
                                   L"\U000F0000",
                                   std::wstring(1, static_cast<wchar_t>(0xDC00)),
                                   std::wstring(1, static_cast<wchar_t>(0xD83D)),
                                   std::wstring(1, L'\0')};
    for (int i = 0; i < 20000; ++i) {
        std::wstring text;
        for (unsigned n = random() % 8; n > 0; --n)
            text += pieces[random() % std::size(pieces)];
        const CString escapedText = FromUtf8(EscapeXmlText(text));
        const CString escapedName = FromUtf8(EscapeXmlName(text));
        ASSERT_EQ(UnescapeXml(escapedText.View()).View(), std::wstring_view(text)) << ToUtf8(escapedText.View());
        ASSERT_EQ(UnescapeXml(escapedName.View()).View(), std::wstring_view(text)) << ToUtf8(escapedName.View());
        ASSERT_FALSE(HasForbiddenCharacters(escapedText.View()));
        ASSERT_TRUE(text.empty() || IsXmlName(escapedName.View())) << ToUtf8(escapedName.View());
    }
}

}  // namespace
