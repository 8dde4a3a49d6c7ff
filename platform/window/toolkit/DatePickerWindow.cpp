// The date picker on the screen: the toolkit's date edit with its calendar.
#include <QDateEdit>
#include <QLocale>

#include "platform/base/Language.h"
#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowEvents.h"
#include "platform/window/toolkit/WindowKinds.h"

namespace {

constexpr int kFirstYear = 1601;
constexpr int kLastYear = 9999;

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
    WindowLink& link = MakeWindow(picker, request.id, request.style, &CommonProcedure);
    QObject::connect(picker, &QDateEdit::dateChanged, picker, [&link] { NotifyChange(link); });
    return link;
}
