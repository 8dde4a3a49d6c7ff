// Reading and writing of times of day and short durations.
#include "facts/ClockText.h"

#include <cmath>

#include "facts/FactsTexts.h"
#include "facts/NumberText.h"

namespace {

constexpr int kMinute = 60;
constexpr int kHour = 3600;
constexpr int kDay = 86400;

// Nearest whole second of a number of hours that is at most a few days.
int Seconds(double hours) {
    return static_cast<int>(std::lround(hours * kHour));
}

// Which day a time lies on, counted from today; empty for today.
CString DayMark(int days) {
    if (days == 0)
        return CString();
    if (days == 1)
        return FactsText(L"（次日）");
    if (days == -1)
        return FactsText(L"（前一日）");
    return days > 0 ? FactsFormat(L"（%d 日后）", days) : FactsFormat(L"（%d 日前）", -days);
}

}  // namespace

std::optional<int> ParseClock(const CString& text) {
    const int colon = text.Find(L':');
    if (colon < 1 || colon > 2 || text.GetLength() != colon + 3)
        return std::nullopt;
    const std::optional<int> hour = ParseWhole(text.Left(colon), 0, 24);
    const std::optional<int> minute = ParseWhole(text.Mid(colon + 1), 0, 59);
    if (!hour || !minute || (*hour == 24 && *minute != 0))
        return std::nullopt;
    return *hour * kMinutesPerHour + *minute;
}

CString ClockText(double hours) {
    const int seconds = Seconds(hours);
    const bool isBefore = seconds % kDay < 0;
    const int days = seconds / kDay - (isBefore ? 1 : 0);
    const ClockParts parts = SplitSeconds(seconds % kDay + (isBefore ? kDay : 0));
    CString text;
    text.Format(L"%02d:%02d:%02d", parts.hours, parts.minutes, parts.seconds);
    text += DayMark(days);
    return text;
}

CString MinutesText(double hours) {
    const int seconds = Seconds(std::abs(hours));
    return FactsFormat(L"%s%d分%02d秒", hours < 0 && seconds > 0 ? L"-" : L"+", seconds / kMinute, seconds % kMinute);
}
