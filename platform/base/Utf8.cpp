// Converts wide text to UTF-8 and back, for either width of wchar_t.
#include <cstdint>

#include "platform/base/CString.h"
#include "platform/base/Characters.h"

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// The character at `at`, which moves behind it. A pair of surrogates is one character, also in 32-bit text.
char32_t NextCharacter(std::wstring_view text, std::size_t& at) {
    const char32_t unit = static_cast<char32_t>(text[at++]);
    if (IsFirstOfPair(unit) && at < text.size() && IsSecondOfPair(static_cast<char32_t>(text[at])))
        return JoinPair(unit, static_cast<char32_t>(text[at++]));
    return IsHalfOfPair(unit) || unit > 0x10FFFF ? kReplacement : unit;
}

// How many bytes the character that begins with `lead` has; 0 when no character begins so.
int SequenceLength(std::uint8_t lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

// The character at `at`, which moves behind it, or behind one byte when that byte begins no character.
char32_t NextCharacter(std::string_view bytes, std::size_t& at) {
    constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    constexpr std::uint8_t kLeadMask[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    const auto lead = static_cast<std::uint8_t>(bytes[at++]);
    const int length = SequenceLength(lead);
    if (length == 0)
        return kReplacement;
    char32_t c = lead & kLeadMask[length];
    std::size_t next = at;
    for (int i = 1; i < length; ++i, ++next) {
        if (next >= bytes.size() || (static_cast<std::uint8_t>(bytes[next]) & 0xC0) != 0x80)
            return kReplacement;
        c = (c << 6) | (static_cast<std::uint8_t>(bytes[next]) & 0x3F);
    }
    if (c < kLeast[length] || IsHalfOfPair(c) || c > 0x10FFFF)
        return kReplacement;
    at = next;
    return c;
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
    std::string out;
    out.reserve(text.size() * 3);
    for (std::size_t at = 0; at < text.size();)
        AppendUtf8(out, NextCharacter(text, at));
    return out;
}

CString FromUtf8(std::string_view bytes) {
    std::wstring out;
    out.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();)
        AppendWide(out, NextCharacter(bytes, at));
    return CString(std::wstring_view(out));
}
