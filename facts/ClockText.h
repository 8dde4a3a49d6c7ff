// Times of day: as a user types them, and as texts for people.
#pragma once

#include <optional>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// Minutes.
inline constexpr int kMinutesPerHour = 60;
inline constexpr int kMinutesPerDay = 24 * kMinutesPerHour;

// A duration as a clock shows it.
struct ClockParts {
    int hours;    // from 0
    int minutes;  // 0 to 59
    int seconds;  // 0 to 59
};
// Of a number of seconds that is not negative; the hours have no upper limit.
constexpr ClockParts SplitSeconds(int seconds) {
    constexpr int kSecondsPerMinute = 60;
    const int minutes = seconds / kSecondsPerMinute;
    return {minutes / kMinutesPerHour, minutes % kMinutesPerHour, seconds % kSecondsPerMinute};
}

// H:MM or HH:MM from 0:00 to 24:00 with ASCII digits, in whole minutes since midnight. Read strictly: none for every
// other text.
ORVO_API std::optional<int> ParseClock(const CString& text);

// A time of day in decimal hours as HH:MM:SS, rounded to the second; a time before 0 or from 24 on is marked with the
// day before or after that it lies on. The time is a finite number within a few days.
ORVO_API CString ClockText(double hours);

// A signed duration of less than some hours, such as "+1分53秒", rounded to the second.
ORVO_API CString MinutesText(double hours);
