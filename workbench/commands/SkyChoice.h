// The windows whose skies a report shows.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/base/CString.h"

struct WindowResult;

// More skies than that nobody asks for at once.
inline constexpr std::size_t kMostSkies = 8;

struct SkyChoice {
    std::vector<std::size_t> windows;  // by their places, each once
    std::vector<CString> unknown;      // what was asked for and is no window
};

// Those that were asked for: by the name, else by the handle. Of several that are called the same, no more than
// kMostSkies, those with the fewest hours first.
//
// Where nothing was asked for: those that fail, likewise; the one with the fewest hours where none does. Windows whose
// outside cannot be told are taken only when they are asked for.
SkyChoice ChooseSkies(const std::vector<WindowResult>& windows, const std::vector<CString>& asked);
