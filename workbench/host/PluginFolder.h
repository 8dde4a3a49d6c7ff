// Where the program's own libraries lie.
#pragma once

#include "platform/base/CString.h"

// The full path of a library of the installation, or of a folder of such: <prefix>/lib/orvo/<name> (or where the
// distribution keeps libraries instead of lib), where the program is <prefix>/bin/orvo with symbolic links resolved.
// Empty when the program's own file cannot be told.
CString PluginPath(const wchar_t* name);
