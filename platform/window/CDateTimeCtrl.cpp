// The date picker: the toolkit's date edit with its calendar.
#include "platform/window/CDateTimeCtrl.h"

#include <QDateEdit>
#include <QLocale>
#include <QSignalBlocker>

#include "platform/base/Language.h"
#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowLink.h"

namespace {

constexpr int kFirstYear = 1601;
constexpr int kLastYear = 9999;

QDateEdit* PickerOf(HWND window) {
    const WindowLink* link = WindowLink::Of(window);
    return link ? qobject_cast<QDateEdit*>(link->m_pWidget) : nullptr;
}

void NotifyChange(WindowLink& link) {
    NMHDR change = {nullptr, 0, DTN_DATETIMECHANGE};
    link.NotifyParent(change);
}

// The calendar names months and days in the interface's language, whatever the machine's is.
QLocale InterfaceLocale() {
    if (g_strCurLanguage == L"Chs")
        return {QLocale::Chinese, QLocale::China};
    if (g_strCurLanguage == L"Enu")
        return {QLocale::English, QLocale::UnitedStates};
    return QLocale(ToQString(g_strCurLanguage));  // other languages are called by their codes
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
    if (!date.isValid() || !clock.isValid() || date.year() < kFirstYear || date.year() > kLastYear)
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

WindowLink& MakeDatePicker(const ControlRequest& request) {
    auto* picker = new QDateEdit(request.parent);  // a child of the parent
    picker->setLocale(InterfaceLocale());
    picker->setTimeSpec(Qt::UTC);  // local time has gaps, which would move a time of day in them
    picker->setCalendarPopup(true);
    picker->setDisplayFormat("yyyy-MM-dd");
    picker->setDateRange(QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
    picker->setDate(QDate::currentDate());
    // A year in the making is no date that anybody means.
    picker->setKeyboardTracking(false);
    WindowLink& link = WindowLink::Make(picker, request.nID, request.dwStyle, &CommonProcedure);
    QObject::connect(picker, &QDateEdit::dateChanged, picker, [&link] { NotifyChange(link); });
    return link;
}
