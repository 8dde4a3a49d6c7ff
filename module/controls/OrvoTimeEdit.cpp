// The time edit: reading and writing times of day, and their limits.
#include "controls/OrvoTimeEdit.h"

#include "controls/PairLimits.h"

namespace {

bool IsHour(int hour) {
    return hour >= 0 && hour <= 23;
}

bool IsMinute(int minute) {
    return minute >= 0 && minute <= 59;
}

}  // namespace

OrvoTimeEdit::OrvoTimeEdit() {
    m_strGrammar = L"__:__";
    m_strDefault = L"00:00";
    m_strValidChars = L"0123456789";
}

OrvoTimeEdit::~OrvoTimeEdit() = default;

OrvoTimeEdit& OrvoTimeEdit::operator=(OrvoTimeEdit& other) {
    const int minimum = other.GetMinMinuteNum();
    m_nMinHour = static_cast<short>(minimum / 60);
    m_nMinMinute = static_cast<short>(minimum - m_nMinHour * 60);
    const int maximum = other.GetMaxMinuteNum();
    m_nMaxHour = static_cast<short>(maximum / 60);
    m_nMaxMinute = static_cast<short>(maximum - m_nMaxHour * 60);
    CString text;
    other.GetWindowText(text);
    SetWindowText(text);
    SetModify(TRUE);
    return *this;
}

bool OrvoTimeEdit::PutNumber(int first, int number) {
    CString text;
    GetWindowText(text);
    PutTwoDigits(text, first, number);
    SetWindowText(text);
    SetModify(TRUE);
    return true;
}

bool OrvoTimeEdit::SetHour(int hour) {
    return IsHour(hour) && PutNumber(0, hour);
}

bool OrvoTimeEdit::SetMinute(int minute) {
    return IsMinute(minute) && PutNumber(3, minute);
}

bool OrvoTimeEdit::SetMinuteNum(int minutes) {
    return MoveToMinute(minutes);
}

bool OrvoTimeEdit::AddMinutes(int minutes) {
    return MoveToMinute(static_cast<long long>(GetMinuteNum()) + minutes);
}

bool OrvoTimeEdit::MoveToMinute(long long minutes) {
    long long target = minutes;
    if (target > GetMaxMinuteNum())
        target = GetMaxMinuteNum();
    else if (target < GetMinMinuteNum())
        target = GetMinMinuteNum();
    SetHour(static_cast<int>(target / 60));
    SetMinute(static_cast<int>(target % 60));
    return true;
}

bool OrvoTimeEdit::IsValidMinutes(int minutes) const {
    return GetMinMinuteNum() <= minutes && minutes <= GetMaxMinuteNum();
}

bool OrvoTimeEdit::IsValidTime(int hour, int minute) const {
    return IsHour(hour) && IsMinute(minute) && IsValidMinutes(hour * 60 + minute);
}

bool OrvoTimeEdit::SetTimeRange(int minHour, int minMinute, int maxHour, int maxMinute) {
    // The minutes are compared as they are, without a look at the hours.
    if (!IsHour(minHour) || !IsHour(maxHour) || minHour > maxHour || !IsMinute(minMinute) || !IsMinute(maxMinute) ||
        minMinute > maxMinute)
        return false;
    m_nMinHour = static_cast<short>(minHour);
    m_nMinMinute = static_cast<short>(minMinute);
    m_nMaxHour = static_cast<short>(maxHour);
    m_nMaxMinute = static_cast<short>(maxMinute);
    PutTwoDigits(m_strDefault, 0, minHour);
    PutTwoDigits(m_strDefault, 3, minMinute);
    const int current = GetMinuteNum();
    if (current < GetMinMinuteNum()) {
        AddMinutes(GetMinMinuteNum() - current);
        SetModify(TRUE);
    } else if (current > GetMaxMinuteNum()) {
        AddMinutes(GetMaxMinuteNum() - current);
        SetModify(TRUE);
    }
    return true;
}

void OrvoTimeEdit::GetTimeRange(int& minHour, int& minMinute, int& maxHour, int& maxMinute) const {
    minHour = m_nMinHour;
    minMinute = m_nMinMinute;
    maxHour = m_nMaxHour;
    maxMinute = m_nMaxMinute;
}

bool OrvoTimeEdit::IsValidChar(UINT character) {
    if (!PassesBaseTest(character))
        return false;
    if (!m_bNoFault)
        return true;
    const PendingChar pending = MoveForChar(character);
    switch (pending.pos) {
        case 0:
        case 1:
            return IsValidHourDigit(pending.NumberAt(0, 2), GetMinute());
        case 3:
        case 4:
            return IsValidMinuteDigit(GetHour(), pending.NumberAt(3, 2));
        default:
            return true;
    }
}

bool OrvoTimeEdit::IsValidHourDigit(int hour, int minute) const {
    return PairLimits{m_nMinHour, m_nMinMinute, m_nMaxHour, m_nMaxMinute}.TakesGreater(hour, minute);
}

bool OrvoTimeEdit::IsValidMinuteDigit(int hour, int minute) const {
    return PairLimits{m_nMinHour, m_nMinMinute, m_nMaxHour, m_nMaxMinute}.TakesSmaller(hour, minute);
}
