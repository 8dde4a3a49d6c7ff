// Brings angles into one turn.
#pragma once

#include "platform/base/Api.h"

// The angle in [0, 2 pi) that points the same way as `angle`; both in radians. The upper end is the double nearest to
// 2 pi and is never given, also not for a negative angle too small to be told from 0, which gives 0. An angle of any
// size takes the same time; one that is not finite points nowhere and gives 0.
ORVO_API double GetStdAngle(double angle);
