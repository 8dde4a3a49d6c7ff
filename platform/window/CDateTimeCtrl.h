// A date picker with a calendar that drops down.
#pragma once

#include "platform/window/CWnd.h"

// Gregorian; the week day counts from Sunday 0.
struct SYSTEMTIME {
    WORD wYear;          // 1601 to 9999
    WORD wMonth;         // 1 to 12
    WORD wDayOfWeek;     // 0 to 6
    WORD wDay;           // 1 to 31
    WORD wHour;          // 0 to 23
    WORD wMinute;        // 0 to 59
    WORD wSecond;        // 0 to 59
    WORD wMilliseconds;  // 0 to 999
};

// Shows dates from 1601-01-01 to 9999-12-31; the time of day is kept and not shown. Notification to the parent, when
// the user changes the date and only then: DTN_DATETIMECHANGE.
class ORVO_API CDateTimeCtrl : public CWnd {
public:
    // False, with nothing changed, for a date that is none.
    BOOL SetTime(const SYSTEMTIME* time);
    // The date that is shown. GDT_VALID (0) on success.
    DWORD GetTime(SYSTEMTIME* time) const;

protected:
    DECLARE_MESSAGE_MAP()
};

// The picker shows a date.
inline constexpr DWORD GDT_VALID = 0;
