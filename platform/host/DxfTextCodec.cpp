// Decodes and encodes texts character by character: pairs of units, escapes, and bytes that are no characters.
#include "platform/host/DxfTextCodec.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/base/Characters.h"

namespace {

// How a byte that is no character is kept in a text: as a half of a pair, alone.
constexpr char32_t kRawByte = 0xDC00;
bool IsRawByte(char32_t c) {
    return c >= kRawByte + 0x80 && c <= kRawByte + 0xFF;
}
// The characters of a wide text, whatever the width; a pair of units is one.
std::u32string ToCharacters(std::wstring_view text) {
    std::u32string out;
    out.reserve(text.size());
    for (const wchar_t unit : text) {
        const auto c = static_cast<char32_t>(unit);
        if (IsSecondOfPair(c) && !out.empty() && IsFirstOfPair(out.back()))
            out.back() = JoinPair(out.back(), c);
        else
            out.push_back(c);
    }
    return out;
}

CString ToWide(std::u32string_view text) {
    std::wstring out;
    out.reserve(text.size());
    for (const char32_t c : text)
        AppendWide(out, c);
    return CString(std::wstring_view(out));
}

// The number of four hexadecimal digits at a place; false when there are none.
bool ReadHex4(std::u32string_view text, std::size_t at, char32_t& value) {
    if (text.size() < 4 || at > text.size() - 4)
        return false;
    value = 0;
    for (const char32_t c : text.substr(at, 4)) {
        const int digit = HexDigit(c);
        if (digit < 0)
            return false;
        value = value * 16 + static_cast<char32_t>(digit);
    }
    return true;
}

void AppendEscape(std::string& out, char32_t unit) {
    out += "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4)
        out.push_back(kHexDigits[(unit >> shift) & 0xF]);
}

// The system's name for a set by the name in a drawing; empty for none.
std::string SystemName(std::string_view name) {
    std::string lower;
    for (const char c : name)
        lower.push_back(static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c));
    constexpr std::array<std::pair<std::string_view, const char*>, 8> kNames = {{
        {"gb2312", "CP936"},
        {"big5", "CP950"},
        {"ksc5601", "CP949"},
        {"johab", "JOHAB"},
        {"mac-roman", "MACINTOSH"},
        {"utf-8", "UTF-8"},
        {"ansi_1361", "JOHAB"},
        {"ascii", "ISO-8859-1"},
    }};
    for (const auto& [known, system] : kNames)
        if (lower == known)
            return system;
    constexpr std::array<std::pair<std::string_view, const char*>, 4> kPrefixes = {{
        {"ansi_", "CP"},
        {"dos", "CP"},
        {"iso8859-", "ISO-8859-"},
        {"iso_8859-", "ISO-8859-"},
    }};
    for (const auto& [prefix, system] : kPrefixes) {
        const std::string number = lower.rfind(prefix, 0) == 0 ? lower.substr(prefix.size()) : std::string();
        const bool isNumber = std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
        if (!number.empty() && number.size() <= 5 && isNumber)
            return system + number;
    }
    return {};
}

}  // namespace

DxfTextCodec::DxfTextCodec(std::string_view name) {
    const std::string system = SystemName(name);
    if (!system.empty())
        m_page = DxfCodePage(system.c_str());
}

// The character of an escape \M+NXXXX: XXXX are its bytes in the N-th of these sets.
bool DxfTextCodec::ReadMultibyte(std::u32string_view text, std::size_t at, std::u32string& out) const {
    constexpr std::array<const char*, kMultibyteSets> kSets = {"CP932", "CP950", "CP949", "JOHAB", "CP936"};
    char32_t pair = 0;
    if (at >= text.size() || text[at] < U'1' || text[at] > U'5' || !ReadHex4(text, at + 1, pair))
        return false;
    const std::size_t set = text[at] - U'1';
    DxfCodePage& page = m_multibyte[set];
    if (!page.IsKnown())
        page = DxfCodePage(kSets[set]);
    const std::string bytes = {static_cast<char>(pair >> 8), static_cast<char>(pair & 0xFF)};
    std::u32string characters;
    if (page.DecodeOne(bytes, characters) != bytes.size())
        return false;
    out += characters;
    return true;
}

// Resolves the escape that begins at a backslash; gives its length, 0 when it is none. (Control characters are none:
// a text is one line.)
std::size_t DxfTextCodec::ReadEscape(std::u32string_view text, std::size_t at, std::u32string& out) const {
    if (text.size() - at < 7 || text[at + 2] != U'+')
        return 0;
    if (text[at + 1] == U'U') {
        char32_t unit = 0;
        if (!ReadHex4(text, at + 3, unit) || unit < 0x20)
            return 0;
        if (IsSecondOfPair(unit) && !out.empty() && IsFirstOfPair(out.back()))
            out.back() = JoinPair(out.back(), unit);
        else
            out.push_back(unit);
        return 7;
    }
    return text[at + 1] == U'M' && ReadMultibyte(text, at + 3, out) ? 8 : 0;
}

std::u32string DxfTextCodec::DecodeCharacters(std::string_view bytes) const {
    std::u32string out;
    out.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = m_page.DecodeOne(bytes.substr(at), out);
        if (length == 0)
            out.push_back(kRawByte + static_cast<std::uint8_t>(bytes[at]));
        at += std::max<std::size_t>(length, 1);
    }
    return out;
}

CString DxfTextCodec::Decode(std::string_view bytes) const {
    // The escapes are looked for in the characters: a backslash may be the second byte of one.
    const std::u32string characters = DecodeCharacters(bytes);
    if (characters.find(U'\\') == std::u32string::npos)
        return ToWide(characters);
    std::u32string out;
    for (std::size_t at = 0; at < characters.size();) {
        const std::size_t length = characters[at] == U'\\' ? ReadEscape(characters, at, out) : 0;
        if (length == 0)
            out.push_back(characters[at]);
        at += std::max<std::size_t>(length, 1);
    }
    return ToWide(out);
}

std::string DxfTextCodec::EncodeCharacters(std::u32string_view text, bool isRawKept) const {
    std::string out;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char32_t c = text[at];
        std::u32string resolved;
        if (IsRawByte(c) && isRawKept) {
            out.push_back(static_cast<char>(c - kRawByte));
        } else if (c == U'\\' && ReadEscape(text, at, resolved) != 0) {
            AppendEscape(out, c);
        } else if (IsHalfOfPair(c) || !m_page.EncodeOne(c, out)) {
            if (c >= 0x10000) {
                AppendEscape(out, FirstOfPair(c));
                AppendEscape(out, SecondOfPair(c));
            } else {
                AppendEscape(out, c);
            }
        }
    }
    return out;
}

bool DxfTextCodec::Encode(const CString& text, std::string& bytes) const {
    bytes.clear();
    if (text.View().find_first_of(std::wstring_view(L"\r\n\0", 3)) != std::wstring_view::npos)
        return false;
    const std::u32string characters = ToCharacters(text.View());
    bytes = EncodeCharacters(characters, true);
    // A raw byte may have joined with its neighbours to a character.
    const bool hasRaw = std::any_of(characters.begin(), characters.end(), IsRawByte);
    if (hasRaw && !(Decode(bytes) == text))
        bytes = EncodeCharacters(characters, false);
    return true;
}
