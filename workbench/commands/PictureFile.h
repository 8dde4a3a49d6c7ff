// Pictures as they lie in files: BMP through the module's own reader, everything else through the toolkit's.
#pragma once

#include "platform/base/CString.h"
#include "platform/media/CBitmap.h"

// Loads the picture into `bitmap`, which must own none. What is transparent becomes white. False, with the cause in
// words, when the file is missing or no picture.
bool LoadPicture(const CString& path, CBitmap& bitmap, CString& cause);
