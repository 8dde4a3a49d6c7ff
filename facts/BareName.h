// Names of places without the words that say what kind of place it is.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// 浦东 for 浦东新区, 新竹 for 新竹县, 恩施 for 恩施土家族苗族自治州. Two characters at least are left, so that 忠县 and
// 东区 stay what they are.
ORVO_API CString BareName(const CString& name);
