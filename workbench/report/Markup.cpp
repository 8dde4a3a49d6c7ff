// Escapes texts and writes numbers.
#include "workbench/report/Markup.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "platform/base/PlainText.h"

namespace {

constexpr char32_t kUnknown = 0xFFFD;

bool IsKnown(char32_t character) {
    if (character < 0x20)
        return character == '\t' || character == '\n' || character == '\r';
    const bool isControl = character >= 0x7F && character < 0xA0;
    const bool isHalf = character >= 0xD800 && character <= 0xDFFF;
    return !isControl && !isHalf && character <= 0x10FFFF && (character & 0xFFFE) != 0xFFFE;
}

void AppendUtf8(std::string& text, char32_t character) {
    const auto more = [&](int shift) { text += static_cast<char>(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        more(0);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | character >> 12);
        more(6);
        more(0);
    } else {
        text += static_cast<char>(0xF0 | character >> 18);
        more(12);
        more(6);
        more(0);
    }
}

}  // namespace

std::string Markup(const CString& text) {
    std::string markup;
    for (const char32_t character : CodePoints(text)) {
        switch (character) {
            case '&':
                markup += "&amp;";
                break;
            case '<':
                markup += "&lt;";
                break;
            case '>':
                markup += "&gt;";
                break;
            case '"':
                markup += "&quot;";
                break;
            case '\'':
                markup += "&#39;";
                break;
            default:
                AppendUtf8(markup, IsKnown(character) ? character : kUnknown);
        }
    }
    return markup;
}

std::string Coordinate(double value) {
    constexpr double kMost = 1e12;
    constexpr int kDecimals = 3;
    if (!std::isfinite(value))
        return "0";
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, std::clamp(value, -kMost, kMost),
                                   std::chars_format::fixed, kDecimals);
    std::string_view digits(buffer, static_cast<std::size_t>(end.ptr - buffer));
    while (digits.back() == '0')
        digits.remove_suffix(1);
    if (digits.back() == '.')
        digits.remove_suffix(1);
    return digits == "-0" ? "0" : std::string(digits);
}
