// Control characters and column widths.
#include "workbench/commands/PlainText.h"

#include <algorithm>

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// Characters that a terminal acts upon instead of showing them.
constexpr Range kSteering[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0x200E, 0x200F},  {0x2028, 0x202E},
                               {0x2066, 0x2069}, {0xFEFF, 0xFEFF}, {0xE0000, 0xE007F}};
constexpr Range kWide[] = {{0x1100, 0x115F}, {0x2E80, 0x303E},   {0x3041, 0xA4CF},   {0xA960, 0xA97F},
                           {0xAC00, 0xD7A3}, {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},
                           {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};
constexpr Range kCombining[] = {{0x0300, 0x036F}, {0x1AB0, 0x1AFF}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}};

template <std::size_t Count>
bool IsIn(const Range (&ranges)[Count], char32_t character) {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [character](const Range& range) { return character >= range.first && character <= range.last; });
}

constexpr bool kIsUtf16 = sizeof(wchar_t) == 2;

CString Blanks(int count) {
    return CString(L' ', std::max(count, 0));
}

}  // namespace

std::u32string CodePoints(const CString& text) {
    std::u32string points;
    points.reserve(text.View().size());
    for (const wchar_t unit : text.View()) {
        const char32_t point = static_cast<char32_t>(unit);
        const bool isSecondHalf = kIsUtf16 && point >= 0xDC00 && point <= 0xDFFF && !points.empty() &&
                                  points.back() >= 0xD800 && points.back() <= 0xDBFF;
        if (isSecondHalf)
            points.back() = 0x10000 + ((points.back() - 0xD800) << 10) + (point - 0xDC00);
        else
            points.push_back(point);
    }
    return points;
}

CString Printable(const CString& text) {
    CString shown(text);
    for (int i = 0; i < shown.GetLength(); ++i) {
        if (IsIn(kSteering, static_cast<char32_t>(shown.GetAt(i))))
            shown.SetAt(i, L'\xFFFD');
    }
    return shown;
}

int DisplayWidth(const CString& text) {
    int width = 0;
    for (const char32_t point : CodePoints(text))
        width += IsIn(kCombining, point) ? 0 : IsIn(kWide, point) ? 2 : 1;
    return width;
}

CString PadRight(const CString& text, int columns) {
    return text + Blanks(columns - DisplayWidth(text));
}
CString PadLeft(const CString& text, int columns) {
    return Blanks(columns - DisplayWidth(text)) + text;
}
