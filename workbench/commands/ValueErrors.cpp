// Messages about values.
#include "workbench/commands/ValueErrors.h"

#include "workbench/commands/PlainText.h"
#include "workbench/commands/Texts.h"

CString BadDateText(const CString& value) {
    return SayFormat(L"“%s”不是日期：请按 年-月-日 写一个存在的日期，例如 2025-12-22", Printable(value));
}

CString BadClockText(const wchar_t* option, const CString& value) {
    return SayFormat(L"%s 的值“%s”不是时刻：请按 时:分 写，从 0:00 到 24:00，例如 9:00", option, Printable(value));
}

CString BadNumberText(const wchar_t* option, const CString& value, int least, int most) {
    return SayFormat(L"%s 的值“%s”不对：请写一个从 %d 到 %d 的整数", option, Printable(value), least, most);
}
