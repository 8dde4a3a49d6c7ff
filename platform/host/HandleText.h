// How a handle is written: for people, in answers and in drawings.
#pragma once

#include <cstdint>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// Capital hexadecimal digits without leading zeros; "0" for 0, which is no handle.
ORVO_API CString HandleText(std::uint64_t handle);
