// The directions and faces that a user types, read strictly: a text that is not exactly what it should be is
// refused, never guessed.
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"
#include "platform/geometry/QcGePoint.h"

// "x,y,z"; the comma may be a wide one (U+FF0C).
std::optional<QcGePoint> ParseCoordinates(const CString& text);

// The texts between semicolons, which may be wide ones (U+FF1B); one more than there are semicolons.
std::vector<CString> SplitAtSemicolons(const CString& text);
