// A look at a library's file before the system opens it: the dynamic linker waits for ever at the end of a pipe, and
// touches bytes that a file cut short does not have.
// Why: docs/decisions/host.md
#pragma once

#include "platform/base/CString.h"

// What is wrong with the file, in words without a full stop: it is no ordinary file (a folder, a pipe, a device), it is
// no library, or a part of the library that its own head announces is missing. Empty when none is the case: what else
// can be wrong, the dynamic linker finds itself.
CString FaultOfLibraryFile(const CString& path);

// Whether a sound library was built against the headers of this program, by its stamps (PlugInStamp.h): what is wrong,
// in words without a full stop, or an empty text. One for another kind of machine is left to the dynamic linker.
CString FaultOfStamps(const CString& path);
