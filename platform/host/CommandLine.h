// The host's command line, as far as it is written to.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/TextFormat.h"

// Receives text for the command line: as it was printed, with the line ends that are in it and no others. `context` is
// what SetCommandLineSink got.
using CommandLineSink = void (*)(const wchar_t* text, void* context);

// Replaces the sink; null restores the first one, which writes UTF-8 to the standard output stream, whatever the
// locale is. The context must outlive its use.
ORVO_API void SetCommandLineSink(CommandLineSink sink, void* context);

// Prints a text as it stands. Gives the number of units handed to the sink; 0 for null.
ORVO_API int PrintOnCommandLine(const wchar_t* text);

// Prints a printf-style format, filled by the rules of TextFormat.h: arguments are int, double, const wchar_t* and
// CString. A format that does not fit its arguments is printed as it stands. Gives the number of units printed.
template <class... Args>
int acutPrintf(const wchar_t* format, const Args&... args) {
    CString text;
    text.Format(format, args...);
    return PrintOnCommandLine(text);
}
