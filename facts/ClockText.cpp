// Formatting of times, durations and days.
#include "facts/ClockText.h"

#include <cmath>

#include "facts/FactsTexts.h"

namespace {

constexpr int kMinute = 60;
constexpr int kHour = 3600;
constexpr int kDay = 86400;

// Nearest whole second of a number of hours that is at most a few days.
int Seconds(double hours) {
    return static_cast<int>(std::lround(hours * kHour));
}

}  // namespace

CString ClockText(double hours) {
    const int seconds = Seconds(hours);
    const int dayOffset = seconds < 0 ? -1 : seconds / kDay;
    const int second = seconds - dayOffset * kDay;
    CString text;
    text.Format(L"%02d:%02d:%02d", second / kHour, second / kMinute % kMinute, second % kMinute);
    if (dayOffset < 0)
        text += FactsText(L"（前一日）");
    else if (dayOffset > 0)
        text += FactsText(L"（次日）");
    return text;
}

CString MinutesText(double hours) {
    const int seconds = Seconds(std::abs(hours));
    return FactsFormat(L"%s%d分%02d秒", hours < 0 && seconds > 0 ? L"-" : L"+", seconds / kMinute, seconds % kMinute);
}

std::string IsoDay(int year, int month, int day) {
    CString text;
    text.Format(L"%04d-%02d-%02d", year, month, day);
    return ToUtf8(text.View());
}

std::string IsoDay(const OrvoDate& date) {
    return IsoDay(date.m_nYear, date.m_nMonth, date.m_nDay);
}
