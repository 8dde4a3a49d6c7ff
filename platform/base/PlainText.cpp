// The characters of a text, and those that a terminal acts upon instead of showing them.
#include "platform/base/PlainText.h"

#include <algorithm>

#include "platform/base/Characters.h"

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr Range kSteering[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0x061C, 0x061C}, {0x200E, 0x200F},
                               {0x2028, 0x202E}, {0x2066, 0x2069}, {0xFEFF, 0xFEFF}, {0xE0000, 0xE007F}};

bool IsSteering(char32_t character) {
    return std::any_of(std::begin(kSteering), std::end(kSteering),
                       [character](const Range& range) { return character >= range.first && character <= range.last; });
}

constexpr bool kIsUtf16 = sizeof(wchar_t) == 2;

}  // namespace

std::u32string CodePoints(const CString& text) {
    std::u32string points;
    points.reserve(text.View().size());
    for (const wchar_t unit : text.View()) {
        const char32_t point = static_cast<char32_t>(unit);
        const bool isSecondHalf = kIsUtf16 && IsSecondOfPair(point) && !points.empty() && IsFirstOfPair(points.back());
        if (isSecondHalf)
            points.back() = JoinPair(points.back(), point);
        else
            points.push_back(point);
    }
    return points;
}

CString Printable(const CString& text) {
    CString shown(text);
    for (int i = 0; i < shown.GetLength(); ++i)
        if (IsSteering(static_cast<char32_t>(shown.GetAt(i))))
            shown.SetAt(i, L'\xFFFD');
    return shown;
}
