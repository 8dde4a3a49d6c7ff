// Days as texts, read strictly, and back.
#include "facts/DayText.h"

#include "calendar/OrvoDate.h"
#include "calendar/YearDays.h"
#include "facts/NumberText.h"

namespace {

bool IsLeapInCalendar(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysOfMonth(int year, int month) {
    return month == 2 && IsLeapInCalendar(year) ? 29 : kDaysOfMonth[static_cast<std::size_t>(month - 1)];
}

}  // namespace

bool IsRealDay(const CalendarDay& day) {
    return day.year >= 1 && day.year <= 9999 && day.month >= 1 && day.month <= 12 && day.day >= 1 &&
           day.day <= DaysOfMonth(day.year, day.month);
}

std::optional<CalendarDay> ParseDay(const CString& text) {
    const int first = text.Find(L'-');
    const int second = first < 0 ? -1 : text.Find(L'-', first + 1);
    if (second < 0)
        return std::nullopt;
    const std::optional<int> year = ParseWhole(text.Left(first), 1, 9999);
    const std::optional<int> month = ParseWhole(text.Mid(first + 1, second - first - 1), 1, 12);
    const std::optional<int> day = ParseWhole(text.Mid(second + 1), 1, 31);
    if (!year || !month || !day)
        return std::nullopt;
    const CalendarDay parsed = {*year, *month, *day};
    return IsRealDay(parsed) ? std::optional<CalendarDay>(parsed) : std::nullopt;
}

std::string IsoDay(const CalendarDay& day) {
    CString text;
    text.Format(L"%04d-%02d-%02d", day.year, day.month, day.day);
    return ToUtf8(text.View());
}

CString DayInWords(const CalendarDay& day) {
    return OrvoDate(day.year, day.month, day.day).GetDateString();
}

CalendarDay Today() {
    return DayOf(OrvoDate());
}

CalendarDay DayOf(const OrvoDate& date) {
    return {date.m_nYear, date.m_nMonth, date.m_nDay};
}
