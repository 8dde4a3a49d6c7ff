// Numbers that a user types.
#include "facts/NumberText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "platform/base/TextNumber.h"
#include "support/GermanLocale.h"

TEST(TypedWholeNumbers, AreThoseOfTheirRange) {
    for (int value = -5; value <= 1005; ++value) {
        const CString text = IntToText(value);
        EXPECT_EQ(ParseWhole(text, 3, 999).has_value(), value >= 3 && value <= 999) << value;
    }
    EXPECT_EQ(ParseWhole(L"007", 0, 9), 7);
    EXPECT_EQ(ParseWhole(L"999999", 0, 999999), 999999);
    EXPECT_EQ(ParseWhole(L"000060", 1, 60), 60);
    EXPECT_EQ(ParseWhole(L"0", 0, 0), 0);
}

TEST(TypedWholeNumbers, AreReadStrictly) {
    for (const wchar_t* text : {L"", L" ", L" 1", L"1 ", L"+1", L"-1", L"1.0", L"1e1", L"0x1", L"１", L"٣", L"一",
                                L"1,000", L"1000000", L"0000001", L"4294967297", L"1\n"})
        EXPECT_FALSE(ParseWhole(text, -10, std::numeric_limits<int>::max())) << ToUtf8(text);
}

TEST(TypedDecimalNumbers, AreReadInEveryWayOfWritingThem) {
    const std::pair<const wchar_t*, double> texts[] = {{L"0", 0.0},         {L"-0", -0.0},
                                                       {L"12", 12.0},       {L"+1.5", 1.5},
                                                       {L"-1.5", -1.5},     {L".5", 0.5},
                                                       {L"5.", 5.0},        {L"1e3", 1000.0},
                                                       {L"1E+3", 1000.0},   {L"-2.5e-1", -0.25},
                                                       {L" 7 ", 7.0},       {L"\t7\x3000", 7.0},
                                                       {L"00012.50", 12.5}, {L"1e-999999999999999999999", 0.0},
                                                       {L"1e308", 1e308},   {L"0e999999999999999999999", 0.0}};
    for (const auto& [text, value] : texts) {
        const std::optional<double> parsed = ParseDecimal(text);
        ASSERT_TRUE(parsed) << ToUtf8(text);
        EXPECT_EQ(*parsed, value) << ToUtf8(text);
        EXPECT_EQ(std::signbit(*parsed), std::signbit(value)) << ToUtf8(text);
    }
}

TEST(TypedDecimalNumbers, AreReadStrictly) {
    for (const wchar_t* text : {L"",      L" ",     L".",   L"+",    L"-",     L"+.",     L"--1",
                                L"+-1",   L"1.2.3", L"1,5", L"1 5",  L"e5",    L"1e",     L"1e+",
                                L"1e5.0", L"1e5x",  L"1x",  L"inf",  L"-inf",  L"nan",    L"infinity",
                                L"0x10",  L"0x1p3", L"１",  L"1．5", L"1e309", L"-1e309", L"1e99999999999999999999",
                                L"121°"})
        EXPECT_FALSE(ParseDecimal(text)) << ToUtf8(text);
    EXPECT_FALSE(ParseDecimal((L"1" + std::wstring(400, L'0')).c_str())) << "beyond the range";
    EXPECT_EQ(ParseDecimal((L"0." + std::wstring(4000, L'0') + L"1").c_str()), 0.0) << "too small for it";
}

TEST(TypedDecimalNumbers, AreTheSameAfterWritingAndReading) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 1000; ++i) {
        // Up to 2^63 times 2^900, and down to 2^-1000.
        const double value = std::ldexp(static_cast<double>(random()) - 9e18, static_cast<int>(random() % 1900) - 1000);
        EXPECT_EQ(ParseDecimal(DoubleToText(value)), value) << value;
    }
}

TEST(TypedDecimalNumbers, HaveAPointInEveryLocale) {
    const GermanLocale german;
    EXPECT_EQ(ParseDecimal(L"1.5"), 1.5);
    EXPECT_FALSE(ParseDecimal(L"1,5"));
}
