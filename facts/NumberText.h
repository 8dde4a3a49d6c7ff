// Numbers that a user types, read strictly: a text that is not exactly what it should be is refused, never guessed.
#pragma once

#include <optional>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// A whole number from `least` to `most`, ASCII digits only and no more than six.
ORVO_API std::optional<int> ParseWhole(const CString& text, int least, int most);

// A decimal number: sign, digits with or without a point (always '.', whatever the locale), exponent; blanks around it
// are passed over. None for every other text, and for a number beyond the range of double. One too small for it is a
// zero.
ORVO_API std::optional<double> ParseDecimal(const CString& text);
