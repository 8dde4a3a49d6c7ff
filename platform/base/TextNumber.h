// Texts to numbers by the C run-time's lenient rules, without its locale.
// Why: docs/decisions/base.md
#pragma once

#include "platform/base/Api.h"

// Leading white space skipped, an optional sign, then decimal digits; what follows is ignored. 0 when there is no
// digit or no text. A value outside the range of int gives the nearer end of it.
ORVO_API int _wtoi(const wchar_t* text);

// Leading white space skipped, then the longest prefix that is a decimal number: sign, digits with or without a point,
// exponent. The point is always '.'. 0.0 when there is none; no "inf", "nan" or hexadecimal. A value too large gives an
// infinity of its sign, one too small a zero of its sign.
ORVO_API double _wtof(const wchar_t* text);

class CString;

// The shortest decimal text that reads back to the same bits; "inf", "-inf" and "nan" for what is not finite.
ORVO_API CString DoubleToText(double value);
// The number in decimal digits, with a minus sign where it is negative.
ORVO_API CString IntToText(int value);
