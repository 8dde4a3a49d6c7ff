// The day of a window as stretches that are shown, and what the sun does at one time of it.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "analysis/WindowResult.h"

struct DayStretch {
    enum class Kind { Lit, Counted, Dropped, Hidden, Lost };
    Kind kind = Kind::Lit;
    SunPeriod period;
    CString text;  // all of it: kind, both times, duration, why or by whom
};

// What an entity is called, by its handle.
using NameOfEntity = std::function<CString(std::uint64_t handle)>;

// A stretch's kind in a word.
CString KindWord(DayStretch::Kind kind);

// By kind, then by time. `offset` is what clocks are ahead of true solar time, hours.
std::vector<DayStretch> StretchesOf(const WindowHours& hours, const std::vector<HiddenPeriod>& lost, double offset,
                                    const NameOfEntity& nameOf);

// What hides the window at a time (of true solar time).
struct SunThen {
    enum class State { Lit, Hidden, None };  // None: it is down, behind the wall or not valid then
    State state = State::None;
    std::vector<std::uint64_t> by;  // of Hidden
};
SunThen SunAt(const WindowHours& hours, double time);
