// The frame of a dialog on the screen. For the sources of this room only.
#pragma once

#include "platform/window/resource/DialogTemplate.h"
#include "platform/window/toolkit/WindowLink.h"

// An empty dialog over the owner, hidden. Escape and Enter without a default button give the command IDCANCEL and IDOK,
// the frame's close button WM_CLOSE.
WindowLink& MakeDialogWindow(const DialogTemplate& source, QWidget* owner);

// Shows what explains the control with the focus (F1).
void SetContextHelp(QWidget* dialog, bool help);
