// The edit into which a time of day is typed, hours and minutes, within limits.
#pragma once

#include "controls/QcSunEdit.h"

// Shows "00:00"; hours are characters 0 and 1, minutes 3 and 4. Whatever stands there is read as a number as far as it
// is one: "_7" is 0 and "1_" is 1.
class ORVO_API OrvoTimeEdit : public QcSunEdit {
public:
    // With the default text and the limits of a day, without a window.
    OrvoTimeEdit();
    ~OrvoTimeEdit() override;
    // Takes the other one's limits, each brought into the form hour and minute below 60, and its window text, and marks
    // this edit modified. Template, default text and valid characters stay.
    OrvoTimeEdit& operator=(OrvoTimeEdit& other);

    // The number that stands there now, unchecked; 0 without digits.
    int GetHour() const { return GetNumberAt(0, 2); }
    int GetMinute() const { return GetNumberAt(3, 2); }
    // Write two digits into the window text and mark the edit modified, whatever the limits are. False, with nothing
    // changed, outside 0 to 23 and 0 to 59.
    bool SetHour(int hour);
    bool SetMinute(int minute);

    // In minutes of the day: the time shown, and the limits.
    int GetMinuteNum() const { return GetHour() * 60 + GetMinute(); }
    int GetMinMinuteNum() const { return m_nMinHour * 60 + m_nMinMinute; }
    int GetMaxMinuteNum() const { return m_nMaxHour * 60 + m_nMaxMinute; }
    // Move the time to a minute of the day, or on by some minutes (back when negative); at the limits it stays. Always
    // true.
    bool SetMinuteNum(int minutes);
    bool AddMinutes(int minutes);

    // Whether a time lies within the limits, both included.
    bool IsValidMinutes(int minutes) const;
    bool IsValidTime(int hour, int minute) const;
    bool IsValid() const { return IsValidTime(GetHour(), GetMinute()); }

    // Sets the limits, makes the minimum the default text, and moves a time outside them to the nearer one, which marks
    // the edit modified; a time within leaves the mark alone. False, with nothing changed, unless each number is one of
    // a time and both the hours and the minutes are in order. The minutes have to be even when the hours differ, so
    // that 8:30 to 17:00 is refused.
    bool SetTimeRange(int minHour, int minMinute, int maxHour, int maxMinute);
    // The limits as they are.
    void GetTimeRange(int& minHour, int& minMinute, int& maxHour, int& maxMinute) const;

    using QcSunEdit::IsValidChar;
    // Whether a character may be typed where the caret is, moving it to a place for one first. Without the no-fault
    // flag only QcSunEdit's own test counts; with it the time that would come about is held against the limits.
    // Typing does not ask this: it is for owners that do.
    virtual bool IsValidChar(UINT character);

    // The limits, both included: minutes are those of their own hour.
    short m_nMinHour = 0;
    short m_nMaxHour = 23;
    short m_nMinMinute = 0;
    short m_nMaxMinute = 59;

private:
    bool PutNumber(int first, int number);
    bool MoveToMinute(long long minutes);
    bool IsValidHourDigit(int hour, int minute) const;
    bool IsValidMinuteDigit(int hour, int minute) const;
};
