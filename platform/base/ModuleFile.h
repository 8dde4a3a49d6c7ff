// The file that a loaded module (program or library) came from, named as the host names it.
#pragma once

#include "platform/base/Api.h"

// Names a loaded module: any address inside it, for instance of one of its own static objects. Null names the program.
using HINSTANCE = const void*;

// Writes the module's absolute file name into `buffer`, with every '/' written as '\', and gives the number of units
// written without the terminating zero. A name that does not fit is cut to size - 1 units; the buffer always ends in a
// zero unless `size` is 0. Gives 0 and an empty text when the address lies in no module, and 0 for a null buffer or
// size 0. Usable while static objects are constructed.
ORVO_API unsigned GetModuleFileName(HINSTANCE module, wchar_t* buffer, unsigned size);

// For tests: from now on this text, unchanged, is every module's file name (up to 4095 units); null restores the truth.
ORVO_API void SetModuleFileNameForTest(const wchar_t* name);
