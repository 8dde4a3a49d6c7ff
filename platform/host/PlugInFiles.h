// Which files the plug-ins came from, for messages that speak of them.
#pragma once

#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// The loader's part: a plug-in was opened, is closed, was loaded after all, or could not be.
void NotePlugIn(const void* applicationHandle, const CString& file);
void ForgetPlugIn(const void* applicationHandle);
void NoteLoaded(const CString& file);
void NoteNotLoaded(const CString& file);

// The file of a plug-in that is open; empty for other handles.
ORVO_API CString FileOfPlugIn(const void* applicationHandle);

// The files that could not be loaded since the process began, each once.
ORVO_API std::vector<CString> FilesNotLoaded();
