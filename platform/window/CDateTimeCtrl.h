// A date picker with a calendar that drops down.
#pragma once

#include "platform/window/CWnd.h"

// Gregorian; the week day counts from Sunday 0.
struct SYSTEMTIME {
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};

// Shows dates from 1601-01-01 to 9999-12-31; the time of day is kept and not shown. Notification to the parent, when
// the user changes the date and only then: DTN_DATETIMECHANGE.
class ORVO_API CDateTimeCtrl : public CWnd {
public:
    // False, with nothing changed, for a date that is none.
    BOOL SetTime(const SYSTEMTIME* time);
    // GDT_VALID (0) on success.
    DWORD GetTime(SYSTEMTIME* time) const;

protected:
    DECLARE_MESSAGE_MAP()
};

inline constexpr DWORD GDT_VALID = 0;
