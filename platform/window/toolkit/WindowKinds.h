// The kinds of windows, each with its widget, its notifications and its procedure. For the sources of this room only.
#pragma once

#include "platform/window/WindowStyles.h"
#include "platform/window/toolkit/WindowLink.h"

// `parent` is the window around it; texts are as they are shown.
struct ControlRequest {
    QWidget* parent;
    UINT id;
    DWORD style;
    CString text;
};
WindowLink& MakeEdit(const ControlRequest& request);
WindowLink& MakeStatic(const ControlRequest& request);
WindowLink& MakeButton(const ControlRequest& request);
WindowLink& MakeListBox(const ControlRequest& request);
WindowLink& MakeComboBox(const ControlRequest& request);
WindowLink& MakeSpinButton(const ControlRequest& request);
WindowLink& MakeDatePicker(const ControlRequest& request);

// An empty dialog over the parent, hidden. Escape and Enter without a default button give the command IDCANCEL and
// IDOK, the frame's close button WM_CLOSE.
WindowLink& MakeDialog(const ControlRequest& request);
// Shows a question mark in a dialog's frame, and what explains the control with the focus (F1).
void SetContextHelp(QWidget* dialog, bool help);
