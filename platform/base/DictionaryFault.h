// Why the file of a dictionary is refused, in words.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// What is wrong with a file that ReadFromXML refuses, without a full stop, in the user's language; empty for a file
// that it reads.
ORVO_API CString DictionaryFaultText(const wchar_t* path);
