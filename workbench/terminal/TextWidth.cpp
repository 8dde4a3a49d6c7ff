// The ranges of wide and of combining characters, and texts filled up with blanks.
#include "workbench/terminal/TextWidth.h"

#include <algorithm>

#include "platform/base/PlainText.h"

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr Range kWide[] = {{0x1100, 0x115F}, {0x2E80, 0x303E},   {0x3041, 0xA4CF},   {0xA960, 0xA97F},
                           {0xAC00, 0xD7A3}, {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},
                           {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};
constexpr Range kCombining[] = {{0x0300, 0x036F}, {0x1AB0, 0x1AFF}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}};

template <std::size_t Count>
bool IsIn(const Range (&ranges)[Count], char32_t character) {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [character](const Range& range) { return character >= range.first && character <= range.last; });
}

CString Blanks(int count) {
    return CString(L' ', std::max(count, 0));
}

}  // namespace

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
