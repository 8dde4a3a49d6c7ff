// The date edit: which months and days can be typed.
#include "controls/OrvoDateEdit.h"

#include "frame/Resources.h"

OrvoDateEdit::OrvoDateEdit() {
    m_strGrammar = TranslateText(L"__月__日");
    m_strDefault = TranslateText(L"01月01日");
    m_strValidChars = L"0123456789";
}

OrvoDateEdit::~OrvoDateEdit() = default;

OrvoDateEdit& OrvoDateEdit::operator=(OrvoDateEdit& other) {
    m_bShortYear = other.m_bShortYear;
    CString text;
    other.GetWindowText(text);
    SetWindowText(text);
    SetModify(TRUE);
    return *this;
}

bool OrvoDateEdit::SetDate(int month, int day) {
    // The lengths of months do not count: 30 February and 31 April are dates here.
    if (month < 1 || month > 12 || day < 1 || day > 31)
        return false;
    CString text;
    GetWindowText(text);
    PutTwoDigits(text, 0, month);
    SetWindowText(text);
    // Over the month, as callers have it.
    PutTwoDigits(text, 0, day);
    SetWindowText(text);
    SetModify(TRUE);
    return true;
}

bool OrvoDateEdit::IsValidChar(UINT character) {
    if (!PassesBaseTest(character))
        return false;
    if (!m_bNoFault)
        return true;
    const PendingChar pending = MoveForChar(character);
    switch (pending.pos) {
        case 0:
        case 1:
            return IsValidMonthDigit(pending.NumberAt(0, 2), GetDay());
        case 4:  // what follows is fixed, so that this is a number of one digit
        case 5:
            return IsValidDayDigit(GetMonth(), pending.NumberAt(4, 2));
        default:
            return true;
    }
}

bool OrvoDateEdit::IsValidMonthDigit(int month, int day) const {
    if (month > 12 || month == 0)
        return false;
    const bool isShortMonth = month == 2 || month == 4 || month == 6 || month == 9 || month == 11;
    if (day == 31 && isShortMonth)
        return false;
    if (day > 28 && m_bShortYear && month == 2)
        return false;
    return day < 30 || m_bShortYear || month != 2;
}

bool OrvoDateEdit::IsValidDayDigit(int month, int day) const {
    switch (month) {
        case 1:
        case 3:
        case 5:
        case 7:
        case 8:
        case 10:
        case 12:
            return day >= 1 && day <= 31;
        case 2:  // in a long year any day at all
            return !m_bShortYear || (day >= 1 && day <= 28);
        default:
            return day >= 1 && day <= 30;
    }
}
