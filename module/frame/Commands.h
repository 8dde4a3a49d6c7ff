// The commands that the module gives the host's user.
#pragma once

#include "platform/base/Api.h"
#include "platform/host/Commands.h"

// How many there are.
inline constexpr int kCommandCount = 2;

// "QcCityData": the editor of the places. "QSetSunPrec": precisions, standard and place.
extern ORVO_API QcCmdTable g_commandTable[kCommandCount];
