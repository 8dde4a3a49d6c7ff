// What a window's name says of where it is: "3-402-1" is window 1 of flat 402 in building 3.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// The parts of a name stand between minus signs. The last one is the window, the one before it the flat, and all before
// that the building ("A-2-402-1": "A-2"). With two parts there is no building, with one no flat either; nor with any
// part that is empty or blank. Empty for none.
ORVO_API CString BuildingOf(const CString& name);
// The flat's part alone, by the same rule ("A-2-402-1": "402").
ORVO_API CString FlatOf(const CString& name);
