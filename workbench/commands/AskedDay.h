// The options that every analysis has.
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"

struct DayRequest;
class SubcommandCall;

struct AskedDay {
    std::vector<CString> heights;          // each a layer, = and metres
    std::optional<CString> north;          // degrees, any turn
    std::optional<CString> facing;         // degrees, any turn
    std::optional<CString> need;           // hours, above 0 and up to 24
    std::optional<CString> leastAltitude;  // degrees, above 0 and below 90
    std::optional<CString> place;          // as in orvo info
    std::optional<CString> date;
    std::optional<CString> standard;
};
AskedDay AskedDayOf(SubcommandCall& call);

// Both give an ExitCode, and have complained unless it is success: first what the options say themselves, then what the
// settings make of the place, the date and the standard.
int ReadAskedDay(const AskedDay& asked, DayRequest& request);
int ReadDaySettings(const AskedDay& asked, DayRequest& request);
