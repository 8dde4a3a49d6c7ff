// What a host needs in order to have a window: the toolkit ready, and its main window among the framework's.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

class CWnd;

// Makes the toolkit ready for windows of this thread. False, with the reason in words, where nobody could see them: no
// display, or another thread than that of the first window. A ModalDriver counts as somebody who sees them.
ORVO_API bool PrepareWindows(CString& reason);

// Makes the toolkit ready for texts in pictures, which nobody has to see. False, with the reason in words, in another
// thread than that of the first window.
ORVO_API bool PreparePictures(CString& reason);

// The version of the toolkit in use, such as "6.4.2".
ORVO_API CString ToolkitVersion();

// Makes a widget of the host's (a QWidget, which stays the host's) a window of the framework and attaches `frame` to
// it. When the widget is destroyed, `frame` is left without a window. False for null, and when either has a partner
// already.
ORVO_API bool AttachFrame(CWnd& frame, void* widget);
