// Reads numbers from texts and writes them, without the locale.
#include "platform/base/TextNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "platform/base/CString.h"
#include "platform/base/Characters.h"
#include "platform/base/TextSpace.h"

namespace {

const wchar_t* SkipSpace(const wchar_t* text) {
    while (IsTextSpace(*text))
        ++text;
    return text;
}

// Moves the digits at `text` to the end of `out`; says whether there were any.
bool TakeDigits(const wchar_t*& text, std::string& out) {
    const std::size_t before = out.size();
    for (; IsDigit(*text); ++text)
        out.push_back(static_cast<char>('0' + (*text - L'0')));
    return out.size() > before;
}

// An exponent counts only when digits follow it.
void TakeExponent(const wchar_t* text, std::string& out) {
    if (*text != L'e' && *text != L'E')
        return;
    std::string exponent = "e";
    ++text;
    if (*text == L'+' || *text == L'-')
        exponent.push_back(*text++ == L'-' ? '-' : '+');
    if (TakeDigits(text, exponent))
        out += exponent;
}

// from_chars says only "out of range"; whether that means huge or tiny stands in the digits. The number's decimal
// magnitude is the position of its first significant digit, shifted by the exponent.
bool IsHuge(const std::string& number) {
    const std::size_t e = number.find('e');
    const std::string mantissa = number.substr(0, e);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    const long magnitude = static_cast<long>(point) - static_cast<long>(first);
    long exponent = 0;
    if (e != std::string::npos) {
        const bool plus = number[e + 1] == '+';
        const char* begin = number.data() + e + 1 + (plus ? 1 : 0);
        if (std::from_chars(begin, number.data() + number.size(), exponent).ec != std::errc())
            return number[e + 1] != '-';
    }
    return exponent > -magnitude;
}

}  // namespace

int _wtoi(const wchar_t* text) {
    if (!text)
        return 0;
    text = SkipSpace(text);
    const bool negative = *text == L'-';
    if (*text == L'-' || *text == L'+')
        ++text;
    constexpr long long kMost = std::numeric_limits<int>::max();
    long long value = 0;
    for (; IsDigit(*text) && value <= kMost; ++text)
        value = value * 10 + (*text - L'0');
    if (negative)
        return value > kMost ? std::numeric_limits<int>::min() : static_cast<int>(-value);
    return static_cast<int>(std::min(value, kMost));
}

double _wtof(const wchar_t* text) {
    if (!text)
        return 0.0;
    text = SkipSpace(text);
    const bool negative = *text == L'-';
    if (*text == L'-' || *text == L'+')
        ++text;
    std::string number;
    bool hasDigits = TakeDigits(text, number);
    if (*text == L'.') {
        number.push_back('.');
        hasDigits = TakeDigits(++text, number) || hasDigits;
    }
    if (!hasDigits)
        return 0.0;
    TakeExponent(text, number);
    double value = 0.0;
    if (std::from_chars(number.data(), number.data() + number.size(), value).ec == std::errc::result_out_of_range)
        value = IsHuge(number) ? std::numeric_limits<double>::infinity() : 0.0;
    return negative ? -value : value;
}

CString DoubleToText(double value) {
    char text[40];
    const auto result = std::to_chars(text, text + sizeof text, value);
    return FromUtf8(std::string_view(text, static_cast<std::size_t>(result.ptr - text)));
}

CString IntToText(int value) {
    char text[16];
    const auto result = std::to_chars(text, text + sizeof text, value);
    return FromUtf8(std::string_view(text, static_cast<std::size_t>(result.ptr - text)));
}
