// Where a recorded animation goes unless the user chooses otherwise.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// Default path of a recorded animation; initially "c:\sun.avi". Any caller may change it for the rest of the run.
extern ORVO_API CString g_sRecordFile;
