// Looks a character up in the table of printable ones.
#include "controls/PrintableCharacter.h"

#include <algorithm>
#include <iterator>

#include "controls/PrintableRanges.h"

bool IsPrintableCharacter(char32_t character) {
    const auto* const behind =
        std::upper_bound(kPrintableRanges.begin(), kPrintableRanges.end(), character,
                         [](char32_t value, const PrintableRange& range) { return value < range.first; });
    return behind != kPrintableRanges.begin() && character <= std::prev(behind)->last;
}
