// Characters of a text by their number. Where wchar_t has 16 bits, a character beyond the basic plane is a pair of
// units, a high half and a low one; where it has more, every unit is a character and a place is an index.
// Why: docs/decisions/controls.md
#pragma once

#include "platform/base/CString.h"

inline constexpr bool kHasPairs = sizeof(wchar_t) == 2;

// Halves of pairs. Where there are no pairs, no unit is one.
bool IsHighHalf(wchar_t unit);
bool IsLowHalf(wchar_t unit);

// The number of the character to which a unit belongs, and the index of a character's first unit. Behind the text each
// unit counts as a character; a half without its other half is one, too.
int PlaceOf(const CString& text, int unit);
int UnitOf(const CString& text, int place);

// One character, or nothing behind the end.
CString CharacterAt(const CString& text, int place);
