// Run-time formats: that they fill as C's printf does, and that a bad one does no harm.
#include "platform/base/TextFormat.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>

#include "platform/base/CString.h"

namespace {

template <class... Args>
CString Filled(const wchar_t* format, const Args&... args) {
    CString text;
    text.Format(format, args...);
    return text;
}

}  // namespace

TEST(TextFormat, FillsTheModulesOwnFormats) {
    EXPECT_EQ(Filled(L"%s%.2d:%.2d'%.2d\"", L"-", 8, 30, 0), L"-08:30'00\"");
    EXPECT_EQ(Filled(L"%s%.3d度%.2d分%.2d秒", L"", 121, 30, 0), L"121度30分00秒");
    EXPECT_EQ(Filled(L"%4d年%2d月%2d日", 2010, 6, 2), L"2010年 6月 2日");
    EXPECT_EQ(Filled(L"%14.10f", 39.9), L" 39.9000000000");
    EXPECT_EQ(Filled(L"%d-%lf", 1, -0.5), L"1--0.500000");
    EXPECT_EQ(Filled(L"%3d度%2d分", 0, 0), L"  0度 0分");
    EXPECT_EQ(Filled(L"100%%"), L"100%");
    EXPECT_EQ(Filled(L"%s", CString(L"中")), L"中");
    EXPECT_EQ(Filled(L"%s", static_cast<const wchar_t*>(nullptr)), L"");
}

TEST(TextFormat, WritesNumbersAsTheCLibraryDoes) {
    std::mt19937 random(11);
    std::uniform_int_distribution<int> whole(-100000, 100000);
    for (const char* format : {"%d", "%5d", "%-5d|", "%05d", "%+d", "% d", "%.3d", "%x", "%i"}) {
        for (int i = 0; i < 200; ++i) {
            const int value = whole(random);
            char expected[64];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
            std::snprintf(expected, sizeof expected, format, value);
#pragma GCC diagnostic pop
            EXPECT_EQ(ToUtf8(Filled(FromUtf8(format), value).View()), expected) << format << ' ' << value;
        }
    }
}

TEST(TextFormat, RefusesAFormatThatDoesNotFitItsArguments) {
    std::wstring out = L"before";
    const TextArgument number[] = {TextArgument(1)};
    for (const wchar_t* format : {L"%s", L"%f", L"%d%d", L"none", L"%", L"%d%", L"%q", L"%n", L"%ls", L"%*d", L"%1$d",
                                  L"%100d", L"%.100d", L"%2000000000d", L"%.", L"%l"}) {
        EXPECT_FALSE(FormatText(out, format, number, 1)) << format;
        EXPECT_EQ(out, L"before");
    }
    EXPECT_FALSE(FormatText(out, nullptr, number, 1));
    EXPECT_TRUE(FormatText(out, L"%99d", number, 1));
    EXPECT_EQ(out.size(), 99U);
}

TEST(TextFormat, LeavesABadFormatUnfilled) {
    EXPECT_EQ(Filled(L"%d of %d", 1), L"%d of %d");
    EXPECT_EQ(Filled(nullptr, 1), L"");
}

TEST(SameConversions, AreOfTheSameKindsInTheSameOrder) {
    EXPECT_TRUE(HasSameConversions(L"%s: %d", L"[%s] %5d"));
    EXPECT_TRUE(HasSameConversions(L"%lf", L"%.2f"));
    EXPECT_TRUE(HasSameConversions(L"plain", L"also plain"));
    EXPECT_TRUE(HasSameConversions(L"plain", L"100%%"));
    EXPECT_FALSE(HasSameConversions(L"%s: %d", L"%d: %s"));
    EXPECT_FALSE(HasSameConversions(L"%s", L"%s%s"));
    EXPECT_FALSE(HasSameConversions(L"%s", L"none"));
    EXPECT_FALSE(HasSameConversions(L"plain", L"%s"));
    EXPECT_FALSE(HasSameConversions(L"%d", L"%d %"));
    EXPECT_FALSE(HasSameConversions(nullptr, L""));
    EXPECT_FALSE(HasSameConversions(L"", nullptr));
}

TEST(SameConversions, TakeATextThatIsNoFormatAsItStands) {
    EXPECT_TRUE(HasSameConversions(L"50% 阴影", L"50% shadow"));
}
