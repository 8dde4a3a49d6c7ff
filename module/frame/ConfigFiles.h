// Loading and saving of the three configuration files. Each is looked up by its bare name on the platform's search path
// (platform/base/Support.h); a save writes over the file that the look-up finds and never creates one where there was
// none.
//
// All six give true when the file was read or written. A missing file is reported in one line on the host's command
// line and gives false. A file that is there, but not to be written, gives false, and the platform reports the cause
// (platform/base/Message.h); one that is there, but unreadable, gives false without a word.
// Why: docs/decisions/frame.md
#pragma once

#include "platform/base/Api.h"

// zone.xml <-> g_dictSunZone. Loading goes on to read the empty path when the file is not found, which empties the
// dictionary; the other two loads leave theirs alone then. Saving names the root when the tree has no name of its own.
ORVO_API bool LoadSunData();
ORVO_API bool SaveSunData();

// SunTerm.xml <-> g_dictSunSterm.
ORVO_API bool LoadSunSterm();
ORVO_API bool SaveSunSterm();

// SunSet.xml <-> g_dictSunSet, and g_SunDataSet with it: it is filled after a good read, and stored into the dictionary
// before a write. After a failed read it keeps what it had.
ORVO_API bool LoadSunSet();
ORVO_API bool SaveSunSet();
