// XML's tables of characters, and escaping by them.
#include "platform/base/XmlNames.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "platform/base/Characters.h"

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// What may begin a name, the colon excepted; then what may also stand behind the beginning.
constexpr Range kNameStart[] = {{'A', 'Z'},       {'_', '_'},       {'a', 'z'},        {0xC0, 0xD6},
                                {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},    {0x37F, 0x1FFF},
                                {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},  {0x3001, 0xD7FF},
                                {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
constexpr Range kNameRest[] = {{'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <std::size_t N>
bool IsIn(const Range (&ranges)[N], char32_t c) {
    return std::any_of(std::begin(ranges), std::end(ranges), [c](Range r) { return c >= r.first && c <= r.last; });
}

bool IsNameStart(char32_t c) {
    return IsIn(kNameStart, c);
}
bool IsNameCharacter(char32_t c) {
    return IsNameStart(c) || IsIn(kNameRest, c);
}

// Halves of pairs are among the forbidden: what is left of them behind NextCharacter has no partner.
bool IsForbidden(char32_t c) {
    return (c < 0x20 && c != '\t' && c != '\n' && c != '\r') || IsHalfOfPair(c) || c == 0xFFFE || c == 0xFFFF ||
           c > 0x10FFFF;
}

// The character at `at`, which moves behind it. What is beyond Unicode's end comes as it is.
char32_t NextCharacter(std::wstring_view text, std::size_t& at) {
    const auto unit = static_cast<char32_t>(text[at++]);
    if constexpr (sizeof(wchar_t) == 2)
        if (IsFirstOfPair(unit) && at < text.size() && IsSecondOfPair(static_cast<char32_t>(text[at])))
            return JoinPair(unit, static_cast<char32_t>(text[at++]));
    return unit;
}

void AppendEscaped(std::string& out, char32_t c) {
    out += "_x";
    for (int shift = c > 0xFFFF ? 28 : 12; shift >= 0; shift -= 4)
        out.push_back(kHexDigits[(c >> shift) & 0xF]);
    out.push_back('_');
}

// What stands at `at` when it is an escape without its closing underscore: the character, and where it ends.
struct EscapeHead {
    char32_t character;
    std::size_t end;
};

bool FindEscapeHead(std::wstring_view text, std::size_t at, std::size_t digits, EscapeHead& head) {
    if (text.size() - at < digits + 2 || text[at] != L'_' || text[at + 1] != L'x')
        return false;
    head = {0, at + 2 + digits};
    for (std::size_t i = at + 2; i < head.end; ++i) {
        const int digit = HexDigit(text[i]);
        if (digit < 0)
            return false;
        head.character = head.character * 16 + static_cast<char32_t>(digit);
    }
    return true;
}

// Whether what begins at `at` would be read as an escape once the text is escaped: its head, and behind it either an
// underscore or something whose own escape begins with one.
template <class IsPlain>
bool WouldBecomeEscape(std::wstring_view text, std::size_t at, const IsPlain& isPlain) {
    for (const std::size_t digits : {4U, 8U}) {
        EscapeHead head = {};
        if (FindEscapeHead(text, at, digits, head) && head.end < text.size()) {
            std::size_t behind = head.end;
            if (text[head.end] == L'_' || !isPlain(NextCharacter(text, behind)))
                return true;
        }
    }
    return false;
}

}  // namespace

bool IsXmlName(std::wstring_view text) {
    if (text.empty())
        return false;
    std::size_t at = 0;
    if (!IsNameStart(NextCharacter(text, at)))
        return false;
    while (at < text.size())
        if (!IsNameCharacter(NextCharacter(text, at)))
            return false;
    return true;
}

std::string EscapeXmlName(std::wstring_view name) {
    std::string out;
    out.reserve(name.size() * 3);
    for (std::size_t at = 0; at < name.size();) {
        const std::size_t start = at;
        const char32_t c = NextCharacter(name, at);
        const bool isAllowed = start == 0 ? IsNameStart(c) && name != L"xmlns" : IsNameCharacter(c);
        if (isAllowed && !WouldBecomeEscape(name, start, IsNameCharacter))
            AppendUtf8(out, c);
        else
            AppendEscaped(out, c);
    }
    return out;
}

bool HasForbiddenCharacters(std::wstring_view text) {
    for (std::size_t at = 0; at < text.size();)
        if (IsForbidden(NextCharacter(text, at)))
            return true;
    return false;
}

std::string EscapeXmlText(std::wstring_view text) {
    std::string out;
    out.reserve(text.size() * 3);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t c = NextCharacter(text, at);
        if (IsForbidden(c) || WouldBecomeEscape(text, start, [](char32_t next) { return !IsForbidden(next); }))
            AppendEscaped(out, c);
        else
            AppendUtf8(out, c);
    }
    return out;
}

std::string ToXmlUtf8(std::wstring_view text) {
    std::string out;
    out.reserve(text.size() * 3);
    for (std::size_t at = 0; at < text.size();)
        AppendUtf8(out, NextCharacter(text, at));
    return out;
}

CString FromXmlUtf8(std::string_view bytes) {
    // Short texts, which nearly all are, need no memory but the result's.
    constexpr std::size_t kShort = 128;
    wchar_t units[kShort];
    std::size_t count = 0;
    if (bytes.size() > kShort)
        return FromUtf8(bytes);
    for (std::size_t at = 0; at < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[at]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        if (at + length > bytes.size() || length == 4)
            return FromUtf8(bytes);
        char32_t c = length == 1 ? lead : lead & (0xFFU >> (length + 1));
        for (std::size_t i = 1; i < length; ++i)
            c = (c << 6) | (static_cast<unsigned char>(bytes[at + i]) & 0x3FU);
        units[count++] = static_cast<wchar_t>(c);
        at += length;
    }
    return CString(std::wstring_view(units, count));
}

CString UnescapeXml(std::wstring_view text) {
    std::wstring out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        EscapeHead head = {};
        const auto isEscape = [&](std::size_t digits) {
            return FindEscapeHead(text, at, digits, head) && head.end < text.size() && text[head.end] == L'_';
        };
        if (isEscape(4) || isEscape(8)) {
            AppendWide(out, head.character);
            at = head.end + 1;
        } else {
            out.push_back(text[at++]);
        }
    }
    return CString(std::wstring_view(out));
}
