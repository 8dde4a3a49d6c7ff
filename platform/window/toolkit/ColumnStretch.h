// Makes room for texts that are longer than a dialog was laid out for. For the sources of this room only.
#pragma once

#include <map>
#include <vector>

#include "platform/base/Api.h"

// Where something stands across a dialog, and how wide it must be at least.
struct ColumnSpan {
    int left;
    int right;   // the first pixel outside
    int needed;  // 0: as it is
};

// The new place of every left and right edge, by the old one. What stood on one line still does, nothing gets narrower,
// no two edges come closer to each other, and each span is as wide as it must be; nothing is wider than that asks.
ORVO_API std::map<int, int> StretchColumns(const std::vector<ColumnSpan>& spans);
