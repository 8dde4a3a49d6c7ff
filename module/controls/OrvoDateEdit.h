// The edit into which a month and a day are typed.
// Why: docs/decisions/controls.md
#pragma once

#include "controls/QcSunEdit.h"

// Shows "01月01日"; the month is characters 0 and 1, the day 3 and 4. Template and default text pass through the
// language switch when an edit is constructed, and a translation has to keep each character that can be typed over at
// its index.
class ORVO_API OrvoDateEdit : public QcSunEdit {
public:
    // With the default text, without a window.
    OrvoDateEdit();
    ~OrvoDateEdit() override;
    // Takes the other one's short-year flag and window text, and marks this edit modified. Template, default text and
    // valid characters stay.
    OrvoDateEdit& operator=(OrvoDateEdit& other);

    // The number that stands there now, unchecked; 0 without digits.
    int GetMonth() const { return GetNumberAt(0, 2); }
    int GetDay() const { return GetNumberAt(3, 2); }
    // Whether February has 28 days.
    bool IsShortYear() const { return m_bShortYear; }
    void SetShortYear(bool shortYear) { m_bShortYear = shortYear; }

    // Writes the month where the month stands and then the day, two digits each, over the month again: the day's
    // digits are what shows there afterwards, and the day's place keeps what it had. Callers rely on it. Marks the edit
    // modified. False, with nothing changed, unless the month is 1 to 12 and the day 1 to 31; no month is taken for
    // shorter than 31 days.
    bool SetDate(int month, int day);

    using QcSunEdit::IsValidChar;
    // Whether a character may be typed where the caret is, moving it to a place for one first. Without the no-fault
    // flag only QcSunEdit's own test counts; with it also months and their days. Looked at are the month's places and
    // places 4 and 5, not 3, although the day is 3 and 4. Typing does not ask this: it is for owners that do.
    bool IsValidChar(UINT character);

    bool m_bShortYear = false;  // whether February has 28 days; 29 otherwise

private:
    bool IsValidMonthDigit(int month, int day) const;
    bool IsValidDayDigit(int month, int day) const;
};
