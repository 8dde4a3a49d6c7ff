// The drawing that a subcommand is asked about.
#pragma once

#include "platform/base/CString.h"

class AcDbDatabase;

// Reads it, and complains about what is wrong with it, also where it can be read. Gives an ExitCode.
int ReadDrawing(AcDbDatabase& drawing, const CString& file);
