// Converts a tree of places into the rows of a grid and back, and a position between its two forms.
#pragma once

#include "platform/base/CString.h"

class QcDtDictionary;
class QcUiGrid;

namespace ZoneRows {

inline constexpr int kProvince = 0;
inline constexpr int kCity = 1;
inline constexpr int kLongitude = 2;
inline constexpr int kLatitude = 3;
inline constexpr int kComment = 4;

// A position that nobody has entered yet: degrees, minutes and seconds left blank.
CString Placeholder();

// Appends a row for each item: a dictionary is a province, a text item a city. Items of other kinds, which no zone file
// should have, give an empty row in a province and a province without cities at the top. A province without cities gets
// one empty row under it, so that it stays a province.
void Fill(QcUiGrid& grid, const QcDtDictionary& zones);
// Appends an item for each row at the top level.
void Write(const QcUiGrid& grid, QcDtDictionary& zones);

// Decimal degrees as degrees, minutes and seconds; blanks around them do not count, what is no number is 0.
CString FormatPosition(CString decimal);
// The way back, with ten decimals in at least fourteen characters: a text with 度 behind at least one character, whose
// degrees are 0 to 180, minutes and seconds 0 to 60. Parts that are missing are 0. Any other text stays as it is.
CString ParsePosition(const CString& text);

}  // namespace ZoneRows
