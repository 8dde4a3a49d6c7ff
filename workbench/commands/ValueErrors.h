// What to say about values that are no dates, times, numbers, faces or directions.
#pragma once

#include "platform/base/CString.h"

CString BadDateText(const CString& value);
CString BadClockText(const wchar_t* option, const CString& value);
CString BadNumberText(const wchar_t* option, const CString& value, int least, int most);

// The term file makes numbers of a day that no sun has.
CString UnreasonableTermsText();

// Each of these shows the accepted form.
CString BadCornerText(const CString& face, int corner);  // the first corner is 1
CString BadCornerCountText(const CString& face, int count);
CString BadLightText(const CString& value);
CString ZeroLightText(const CString& value);
