// What to say about values that are no dates, times or numbers.
#pragma once

#include "platform/base/CString.h"

CString BadDateText(const CString& value);
CString BadClockText(const wchar_t* option, const CString& value);
CString BadNumberText(const wchar_t* option, const CString& value, int least, int most);
