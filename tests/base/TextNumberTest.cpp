// Texts to numbers: the lenient rules, and that no locale changes them.
#include "platform/base/TextNumber.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>

#include "platform/base/CString.h"
#include "support/GermanLocale.h"

TEST(WideToInt, SkipsWhiteSpaceAndTakesTheLeadingDigits) {
    EXPECT_EQ(_wtoi(L"12"), 12);
    EXPECT_EQ(_wtoi(L" \t\n\u300012月"), 12);
    EXPECT_EQ(_wtoi(L"-7x"), -7);
    EXPECT_EQ(_wtoi(L"+7"), 7);
    EXPECT_EQ(_wtoi(L"7:"), 7);
    EXPECT_EQ(_wtoi(L"007"), 7);
}

TEST(WideToInt, GivesZeroWithoutDigits) {
    EXPECT_EQ(_wtoi(L""), 0);
    EXPECT_EQ(_wtoi(nullptr), 0);
    EXPECT_EQ(_wtoi(L"x1"), 0);
    EXPECT_EQ(_wtoi(L"- 1"), 0);
    EXPECT_EQ(_wtoi(L"--1"), 0);
}

TEST(WideToInt, SaturatesBeyondInt) {
    EXPECT_EQ(_wtoi(L"2147483647"), INT_MAX);
    EXPECT_EQ(_wtoi(L"2147483648"), INT_MAX);
    EXPECT_EQ(_wtoi(L"-2147483648"), INT_MIN);
    EXPECT_EQ(_wtoi(L"-2147483649"), INT_MIN);
    EXPECT_EQ(_wtoi(L"99999999999999999999999999999999"), INT_MAX);
    EXPECT_EQ(_wtoi(L"-99999999999999999999999999999999"), INT_MIN);
}

TEST(WideToDouble, TakesTheLongestDecimalPrefix) {
    EXPECT_EQ(_wtof(L"   39.9000000000"), 39.9);
    EXPECT_EQ(_wtof(L"-0.5度"), -0.5);
    EXPECT_EQ(_wtof(L"+2"), 2.0);
    EXPECT_EQ(_wtof(L".5"), 0.5);
    EXPECT_EQ(_wtof(L"5."), 5.0);
    EXPECT_EQ(_wtof(L"1.5.5"), 1.5);
    EXPECT_EQ(_wtof(L"1e3"), 1000.0);
    EXPECT_EQ(_wtof(L"1E+3x"), 1000.0);
    EXPECT_EQ(_wtof(L"1e-3"), 0.001);
    EXPECT_EQ(_wtof(L"1e"), 1.0);
    EXPECT_EQ(_wtof(L"1e+"), 1.0);
}

TEST(WideToDouble, GivesZeroWithoutANumber) {
    EXPECT_EQ(_wtof(nullptr), 0.0);
    EXPECT_EQ(_wtof(L""), 0.0);
    EXPECT_EQ(_wtof(L"."), 0.0);
    EXPECT_EQ(_wtof(L"e5"), 0.0);
    EXPECT_EQ(_wtof(L"inf"), 0.0);
    EXPECT_EQ(_wtof(L"nan"), 0.0);
    EXPECT_EQ(_wtof(L"0x10"), 0.0);
    EXPECT_EQ(_wtof(L"- 5"), 0.0);
}

TEST(WideToDouble, GivesAnInfinityOrAZeroOutOfRange) {
    EXPECT_EQ(_wtof(L"1e999"), INFINITY);
    EXPECT_EQ(_wtof(L"-1e999"), -INFINITY);
    EXPECT_EQ(_wtof(L"1e99999999999999999999"), INFINITY);
    EXPECT_EQ(_wtof(L"1e-99999999999999999999"), 0.0);
    EXPECT_EQ(_wtof(L"1e-999"), 0.0);
    EXPECT_TRUE(std::signbit(_wtof(L"-1e-999")));
    EXPECT_EQ(_wtof(L"0e999"), 0.0);
    EXPECT_EQ(_wtof(CString(L'9', 400)), INFINITY);
    EXPECT_EQ(_wtof(L"0." + CString(L'0', 400) + L"1"), 0.0);
    EXPECT_EQ(_wtof(L"0." + CString(L'0', 400) + L"1e401"), 1.0);
    EXPECT_EQ(_wtof(L"0." + CString(L'0', 400) + L"1e999"), INFINITY);
    EXPECT_EQ(_wtof(L"0." + CString(L'0', 900) + L"1e400"), 0.0);
    EXPECT_EQ(_wtof(L"1.7976931348623157e308"), DBL_MAX);
    EXPECT_EQ(_wtof(L"4.9406564584124654e-324"), DBL_TRUE_MIN);
}

TEST(DoubleToText, ReadsBackToTheSameBits) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        double value = 0;
        static_assert(sizeof value == sizeof bits);
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value))
            EXPECT_EQ(_wtof(DoubleToText(value)), value) << value;
    }
    EXPECT_EQ(DoubleToText(0.1), L"0.1");
    EXPECT_EQ(DoubleToText(-0.0), L"-0");
    EXPECT_EQ(DoubleToText(2400.0), L"2400");
}

TEST(IntToText, WritesTheWholeRange) {
    EXPECT_EQ(IntToText(INT_MIN), L"-2147483648");
    EXPECT_EQ(IntToText(INT_MAX), L"2147483647");
    EXPECT_EQ(IntToText(0), L"0");
}

TEST(TextNumbers, DoNotDependOnTheLocale) {
    const GermanLocale german;
    EXPECT_EQ(_wtof(L"39.9"), 39.9);
    EXPECT_EQ(_wtof(L"39,9"), 39.0);
    EXPECT_EQ(_wtoi(L"1.234"), 1);
    EXPECT_EQ(DoubleToText(0.5), L"0.5");
    CString text;
    text.Format(L"%lf", 1.5);
    EXPECT_EQ(text, L"1.500000");
}
