// Strict parsing of dates and times.
#include "facts/DayText.h"

#include <ctime>

#include "facts/NumberText.h"

namespace {

bool IsLeapInCalendar(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysOfMonth(int year, int month) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapInCalendar(year) ? 29 : kDays[month - 1];
}

}  // namespace

bool IsRealDay(const Day& day) {
    return day.year >= 1 && day.year <= 9999 && day.month >= 1 && day.month <= 12 && day.day >= 1 &&
           day.day <= DaysOfMonth(day.year, day.month);
}

std::optional<Day> ParseDay(const CString& text) {
    const int first = text.Find(L'-');
    const int second = first < 0 ? -1 : text.Find(L'-', first + 1);
    if (second < 0)
        return std::nullopt;
    const std::optional<int> year = ParseWhole(text.Left(first), 1, 9999);
    const std::optional<int> month = ParseWhole(text.Mid(first + 1, second - first - 1), 1, 12);
    const std::optional<int> day = ParseWhole(text.Mid(second + 1), 1, 31);
    if (!year || !month || !day)
        return std::nullopt;
    const Day parsed = {*year, *month, *day};
    return IsRealDay(parsed) ? std::optional<Day>(parsed) : std::nullopt;
}

std::optional<int> ParseClock(const CString& text) {
    const int colon = text.Find(L':');
    if (colon < 1 || colon > 2 || text.GetLength() != colon + 3)
        return std::nullopt;
    const std::optional<int> hour = ParseWhole(text.Left(colon), 0, 24);
    const std::optional<int> minute = ParseWhole(text.Mid(colon + 1), 0, 59);
    if (!hour || !minute || (*hour == 24 && *minute != 0))
        return std::nullopt;
    return *hour * 60 + *minute;
}

Day Today() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    if (!localtime_r(&now, &local))
        return {1970, 1, 1};
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}
