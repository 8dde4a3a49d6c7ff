// What the signs of a picture mean, below it.
#pragma once

#include <string>
#include <vector>

#include "platform/base/CString.h"

// One sign and what it means; a heading has no sign.
struct LegendEntry {
    std::string sign;  // markup, within 5 by 3 mm from the origin
    CString text;
};

// The entries one beside the other, in lines of this width; hundredths of a millimetre. Returns their height.
int LayOutLegend(const std::vector<LegendEntry>& entries, int width, int top, std::string& markup);

inline constexpr int kLegendSize = 240;  // of its texts, hundredths of a millimetre
// A text that begins, ends or has its middle ("start", "end", "middle") at a place.
std::string PlacedText(const CString& text, double x, double y, const char* anchor);
