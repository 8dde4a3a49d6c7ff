// Reading Y年M月D日.
#include "calendar/DateText.h"

#include "platform/base/TextNumber.h"

namespace {

// The number behind index `mark` and before index `end`; -1 stands for a mark that is missing. Nothing between them,
// or the marks in the wrong order, is an empty text and so 0.
int NumberBetween(const CString& text, int mark, int end) {
    return end > mark + 1 ? _wtoi(text.Mid(mark + 1, end - mark - 1)) : 0;
}

}  // namespace

DateText ParseDateText(const CString& date) {
    // The marks are literal, not translated: they belong to what files hold.
    const int year = date.Find(L"年");
    const int month = date.Find(L"月");
    const int day = date.Find(L"日");

    DateText parsed;
    if (year >= 0) {
        parsed.hasYear = true;
        parsed.year = _wtoi(date.Left(year));
    }
    parsed.date = {NumberBetween(date, year, month), NumberBetween(date, month, day)};
    return parsed;
}
