// What is asked of lines of equal hours on one area, and how it may end.
#pragma once

#include <cstddef>
#include <functional>

#include "analysis/FlatArea.h"

struct IsolineSearch {
    const FlatArea& area;     // the caller's
    double spacing = 1000.0;  // of the area's grid, millimetres
    int mostHours = 0;        // lines of 1 to so many hours
    unsigned threads = 0;     // at most 256; 0: one for each core
    // Minutes at a place within the area, or on its edge where it is narrower than some millimetres. Any thread.
    std::function<double(const FlatPoint&)> minutesAt = nullptr;
    std::function<bool(double share)> goOn = nullptr;  // on the calling thread; of what is done, from 0 to 1, about
};

// How a search ended.
enum class IsolineOutcome {
    Done,       // all lines are there
    TooMany,    // they would be too many to follow
    Cancelled,  // goOn said so
};

// Whoever draws more finely than this sees no lines any more; 16 of these to a spacing along each line.
inline constexpr std::size_t kMostIsolineCells = 4'000'000;
