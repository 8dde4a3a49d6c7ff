// Days as texts, read strictly, and back.
#include "facts/DayText.h"

#include <array>

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

// What stands behind the year, the month and the day.
struct Form {
    wchar_t behindYear;
    wchar_t behindMonth;
    const wchar_t* behindDay;
    bool isPadded;  // blanks may fill the numbers up from the left
};
constexpr std::array kForms = {Form{L'-', L'-', L"", false}, Form{L'/', L'/', L"", false}, Form{L'.', L'.', L"", false},
                               Form{L'年', L'月', L"日", true}};

std::optional<int> ParsePart(const CString& text, const Form& form, int most) {
    CString digits = text;
    while (form.isPadded && digits.GetAt(0) == L' ')
        digits.Delete(0);
    return ParseWhole(digits, 1, most);
}

std::optional<CalendarDay> ParseForm(const CString& text, const Form& form) {
    const int first = text.Find(form.behindYear);
    const int second = first < 0 ? -1 : text.Find(form.behindMonth, first + 1);
    if (second < 0 || !text.View().ends_with(form.behindDay))
        return std::nullopt;
    const int end = text.GetLength() - CString(form.behindDay).GetLength();
    const std::optional<int> year = ParsePart(text.Left(first), form, 9999);
    const std::optional<int> month = ParsePart(text.Mid(first + 1, second - first - 1), form, 12);
    const std::optional<int> day = ParsePart(text.Mid(second + 1, end - second - 1), form, 31);
    if (!year || !month || !day)
        return std::nullopt;
    const CalendarDay parsed = {*year, *month, *day};
    return IsRealDay(parsed) ? std::optional<CalendarDay>(parsed) : std::nullopt;
}

}  // namespace

bool IsRealDay(const CalendarDay& day) {
    return day.year >= 1 && day.year <= 9999 && day.month >= 1 && day.month <= 12 && day.day >= 1 &&
           day.day <= DaysOfMonth(day.year, day.month);
}

std::optional<CalendarDay> ParseDay(const CString& text) {
    for (const Form& form : kForms)
        if (const std::optional<CalendarDay> day = ParseForm(text, form))
            return day;
    return std::nullopt;
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
