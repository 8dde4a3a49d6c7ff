// Running what a plug-in has brought.
#pragma once

#include <functional>
#include <optional>

#include "platform/base/CString.h"

// What it gives; nothing when it throws. What it throws, which may be anything, is complained about as an internal
// error, by `name` where it does not say itself what it is.
std::optional<int> RunGuarded(const CString& name, const std::function<int()>& run);
