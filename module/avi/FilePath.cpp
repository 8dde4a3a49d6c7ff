// Makes a path from a wide text, character by character: only from characters does the library make paths without
// asking the locale. They are UTF-32, whatever the width of wchar_t.
#include "avi/FilePath.h"

#include <string>

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kMostCharacter = 0x10FFFF;
constexpr char32_t kFirstOfPairs = 0x10000;

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// The character at `text`, which moves behind it.
char32_t NextCharacter(const wchar_t*& text) {
    const auto unit = static_cast<char32_t>(*text++);
    const auto next = static_cast<char32_t>(*text);  // 0 at the end
    if (IsHighSurrogate(unit) && IsLowSurrogate(next)) {
        ++text;
        return kFirstOfPairs + ((unit - 0xD800) << 10) + (next - 0xDC00);
    }
    return IsHighSurrogate(unit) || IsLowSurrogate(unit) || unit > kMostCharacter ? kReplacement : unit;
}

}  // namespace

std::filesystem::path FilePathOf(const wchar_t* text) {
    std::u32string characters;
    while (*text != L'\0')
        characters.push_back(NextCharacter(text));
    return {characters};
}
