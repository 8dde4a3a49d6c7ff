// Looks a character up in the table of printable ones.
#include "controls/PrintableCharacter.h"

#include <algorithm>
#include <iterator>
#include <type_traits>

#include "controls/PrintableRanges.h"

bool IsPrintableCharacter(wchar_t character) {
    // Through the unsigned type: where wchar_t has a sign, a negative one is far beyond every character.
    const auto code = static_cast<char32_t>(static_cast<std::make_unsigned_t<wchar_t>>(character));
    const auto* const behind =
        std::upper_bound(kPrintableRanges.begin(), kPrintableRanges.end(), code,
                         [](char32_t value, const PrintableRange& range) { return value < range.first; });
    return behind != kPrintableRanges.begin() && code <= std::prev(behind)->last;
}
