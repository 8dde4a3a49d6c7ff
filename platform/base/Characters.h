// Characters as units of wide text, for either width of wchar_t, and as bytes of UTF-8.
#pragma once

#include <string>
#include <string_view>

// What a file in UTF-8 may begin with.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// ASCII only, in a byte or a unit of any width.
template <class Character>
constexpr bool IsDigit(Character character) {
    return character >= '0' && character <= '9';
}
// The value of a hexadecimal digit; -1 for everything else.
template <class Character>
constexpr int HexDigit(Character character) {
    if (IsDigit(character))
        return static_cast<int>(character - '0');
    if (character >= 'A' && character <= 'F')
        return static_cast<int>(character - 'A') + 10;
    return character >= 'a' && character <= 'f' ? static_cast<int>(character - 'a') + 10 : -1;
}
inline constexpr char kHexDigits[] = "0123456789ABCDEF";

// Where a unit has 16 bits, a character beyond the basic plane is a pair of units. None of the halves is a character.
constexpr bool IsFirstOfPair(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool IsSecondOfPair(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}
constexpr bool IsHalfOfPair(char32_t unit) {
    return IsFirstOfPair(unit) || IsSecondOfPair(unit);
}
constexpr char32_t JoinPair(char32_t first, char32_t second) {
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}
// Of a character beyond the basic plane.
constexpr char32_t FirstOfPair(char32_t c) {
    return 0xD800 + ((c - 0x10000) >> 10);
}
constexpr char32_t SecondOfPair(char32_t c) {
    return 0xDC00 + ((c - 0x10000) & 0x3FF);
}

// What is beyond Unicode's end and does not fit into units becomes the replacement character.
inline void AppendWide(std::wstring& out, char32_t c) {
    if (sizeof(wchar_t) >= 4 || c < 0x10000) {
        out.push_back(static_cast<wchar_t>(c));
    } else if (c <= 0x10FFFF) {
        out.push_back(static_cast<wchar_t>(FirstOfPair(c)));
        out.push_back(static_cast<wchar_t>(SecondOfPair(c)));
    } else {
        out.push_back(static_cast<wchar_t>(0xFFFD));
    }
}

// Halves of pairs are written like characters: whoever may have them looks for them first.
inline void AppendUtf8(std::string& out, char32_t c) {
    const auto tail = [&out, c](int shift) { out.push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F))); };
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (c >> 6)));
        tail(0);
    } else if (c < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (c >> 12)));
        tail(6);
        tail(0);
    } else {
        out.push_back(static_cast<char>(0xF0 | (c >> 18)));
        tail(12);
        tail(6);
        tail(0);
    }
}
