// Which program this is.
#pragma once

#include "platform/base/CString.h"

// In one line for people and programs, in no language: "orvo 0.1.0 (commit 0123456789ab, Qt 6.4.2)". The commit has a +
// behind it where the sources differed from it, and is left out where nobody knew it; Qt's version is that of the
// library in use.
CString VersionText();
