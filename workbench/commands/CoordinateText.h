// The numbers, directions and faces that a user types, read strictly: a text that is not exactly what it should be is
// refused, never guessed. The point of a number is always '.', whatever the locale.
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"
#include "platform/geometry/QcGePoint.h"

// A decimal number: sign, digits with or without a point, exponent; blanks around it are passed over. None for every
// other text, and for a number beyond the range of double. One too small for it is a zero.
std::optional<double> ParseDecimal(const CString& text);

// "x,y,z"; the comma may be a wide one (U+FF0C).
std::optional<QcGePoint> ParseCoordinates(const CString& text);

// The texts between semicolons, which may be wide ones (U+FF1B); one more than there are semicolons.
std::vector<CString> SplitAtSemicolons(const CString& text);
