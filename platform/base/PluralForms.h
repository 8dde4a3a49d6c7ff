// One of two forms of a word, by the number before it: what a translated format says where its language has a singular.
#pragma once

#include <cstddef>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/TextFormat.h"

// "%d {minute|minutes}": leaves the first form where what fills the last conversion before it is 1 (the whole number,
// or the text "1"), and the second one otherwise. Braces around anything else, and those before the first conversion,
// stay as they are, and so does the rest of the format. Its conversions are those of the arguments
// (HasSameConversions).
ORVO_API CString ChooseForms(const wchar_t* format, const TextArgument* arguments, std::size_t count);
