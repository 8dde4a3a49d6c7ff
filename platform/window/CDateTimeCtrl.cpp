// The operations of date pickers, on the toolkit's date edit.
#include "platform/window/CDateTimeCtrl.h"

#include <QDateEdit>
#include <QSignalBlocker>

#include "platform/window/toolkit/WindowLink.h"

namespace {

QDateEdit* PickerOf(HWND window) {
    const WindowLink* link = WindowLink::Of(window);
    return link ? qobject_cast<QDateEdit*>(link->m_widget) : nullptr;
}

}  // namespace

BEGIN_MESSAGE_MAP(CDateTimeCtrl, CWnd)
END_MESSAGE_MAP()

BOOL CDateTimeCtrl::SetTime(const SYSTEMTIME* time) {
    QDateEdit* picker = PickerOf(m_hWnd);
    if (picker == nullptr || time == nullptr)
        return FALSE;
    const QDate date(time->wYear, time->wMonth, time->wDay);
    const QTime clock(time->wHour, time->wMinute, time->wSecond, time->wMilliseconds);
    if (!date.isValid() || !clock.isValid() || date < picker->minimumDate() || date > picker->maximumDate())
        return FALSE;
    const QSignalBlocker quiet(picker);
    picker->setDateTime(QDateTime(date, clock, Qt::UTC));
    return TRUE;
}

DWORD CDateTimeCtrl::GetTime(SYSTEMTIME* time) const {
    constexpr DWORD kError = 0xFFFFFFFF;
    constexpr int kDaysAWeek = 7;
    QDateEdit* picker = PickerOf(m_hWnd);
    if (picker == nullptr || time == nullptr)
        return kError;
    picker->interpretText();  // what is typed counts, also while the focus is still there
    if (PickerOf(m_hWnd) == nullptr)
        return kError;
    const QDate date = picker->date();
    const QTime clock = picker->time();
    *time = {static_cast<WORD>(date.year()),
             static_cast<WORD>(date.month()),
             static_cast<WORD>(date.dayOfWeek() % kDaysAWeek),
             static_cast<WORD>(date.day()),
             static_cast<WORD>(clock.hour()),
             static_cast<WORD>(clock.minute()),
             static_cast<WORD>(clock.second()),
             static_cast<WORD>(clock.msec())};
    return GDT_VALID;
}
