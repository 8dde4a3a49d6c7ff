// The day of a window as stretches that are shown, and what the sun does at one time of it.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "analysis/WindowResult.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"

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

// The sun of the day as one side of something sees it.
struct SeenSun {
    SunDay day;
    SunPeriod span;              // that was analysed, true solar time
    double leastAltitude = 0.0;  // degrees: it counts from there on
    SunDirection outward;        // of that side, of any length above 0
};

// What the sun does at a time (of true solar time).
struct SunThen {
    enum class State {
        Lit,
        Dropped,  // it shines here and does not count
        Hidden,
        Outside,  // of the span that was analysed
        Down,     // below the horizon
        Low,      // lower than what was asked to count
        Behind,   // on the other side
        Invalid,  // before it, at an hour that the standard's rule leaves out for this direction
    };
    State state = State::Invalid;
    std::vector<std::uint64_t> by;          // of Hidden
    DropReason reason = DropReason::Short;  // of Dropped
};
SunThen SunAt(const WindowHours& hours, const SeenSun& sun, double time);
// That in words, without those who hide it.
CString SunThenText(const SunThen& then);
