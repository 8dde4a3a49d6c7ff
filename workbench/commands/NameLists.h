// The names that options can be completed to.
#pragma once

#include <vector>

#include "platform/base/CString.h"

// Of all places, of the standards that there are, of those that were shipped.
std::vector<CString> PlaceNames();
std::vector<CString> StandardNames();
std::vector<CString> ShippedStandardNames();
