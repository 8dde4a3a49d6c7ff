// The eight main directions of the compass.
#pragma once

#include "platform/base/CString.h"

// In words, for a direction in degrees from east, counter-clockwise: the nearest of the eight. The direction is finite.
CString CompassWord(double direction);
