// What several answers tell of a place and of the sun over it, as rows of a table.
#pragma once

#include "platform/base/CString.h"

class TextTable;
struct DayTerms;
struct Settings;
struct SunDay;

// The place with its position, or that the position is not known.
void AddPlaceRows(TextTable& table, const Settings& settings);
// The term in force, declination and equation of time.
void AddTermRows(TextTable& table, const DayTerms& terms);
// On a polar day or night: which of them.
CString PolarText(const SunDay& sun);
