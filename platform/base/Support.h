// Where files that belong to the package lie: the folders that are searched for support files, the user's own folder,
// the folder of the installation, and the first start that fills the one from the other.
// Why: docs/decisions/base.md
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// Finds a support file that is known by its bare name only, and gives its absolute path. Searched in this order:
//   1. each folder of the environment variable ORVO_SUPPORT_PATH (separated by colons; empty and relative entries are
//      passed over),
//   2. the user's folder,
//   3. the installed data folder.
// The current folder is never searched. Found means a regular file (through symbolic links), also one that may not be
// read. False, and an empty path, when there is none, and for a name that is null, empty, contains '/', '\' or "..".
// A file whose path is not valid UTF-8 cannot be named by a CString and counts as not found. `name` may point into
// `fullPath`.
ORVO_API bool FindFile(const wchar_t* name, CString& fullPath);

// The same search in the folder `folder` (a bare name under the same rules) below each of those folders.
ORVO_API bool FindFileInFolder(const wchar_t* folder, const wchar_t* name, CString& fullPath);

// $XDG_CONFIG_HOME/orvo, else ~/.config/orvo (HOME, else the account's home folder); variables that hold no absolute
// path count as unset. It need not exist. Empty when there is no home at all.
ORVO_API CString UserFolder();

// <prefix>/share/orvo, where this library is <prefix>/lib/libOrvoPlatform.so, or lies where the distribution keeps
// libraries, with symbolic links resolved. It need not exist; when it does, its own links are resolved too.
ORVO_API CString InstalledDataFolder();

// Whether a file of this path is, or would come to lie, in the installed data folder or below it. Symbolic links are
// resolved, also dangling ones; a part of the path that does not exist yet is judged by the nearest folder that does.
// False for an empty path or null.
ORVO_API bool IsInstalledDataPath(const wchar_t* path);

// First start: makes the user's folder (parents too, mode 0700) and copies the shipped zone.xml, SunTerm.xml and
// SunSet.xml into it, each where the folder has no entry of that name. What is there is never replaced, and a file of
// the same name elsewhere on the search path does not stop the copy. A copy appears whole or not at all. Each failure
// is reported (ReportMessage) with the path and the cause; the other files are still tried. True when all three are
// there in the end.
ORVO_API bool CopyShippedFiles();
