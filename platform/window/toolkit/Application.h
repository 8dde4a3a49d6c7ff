// The process's one Qt application: made when the first window is needed, and never destroyed.
// Why: docs/decisions/window.md
#pragma once

class QWidget;
#include "platform/base/FrameworkTypes.h"

// Makes the application where there is none yet. Without a display, and unless QT_QPA_PLATFORM says otherwise, windows
// are drawn off-screen, where nobody sees them. Numbers stay written with a point, whatever the user's locale. From
// then on this library stays in memory, also when whoever loaded it lets go of it: the toolkit cannot be taken down
// midway.
//
// False where windows cannot be made: in another thread than the application's, and in a program whose own application
// object is one without windows.
bool NeedApplication();

// Whether the environment names a display, or a kind of windows. It may still not answer.
bool HasDisplay();

// Whether windows are drawn where a person can see them. Asked after NeedApplication.
bool CanBeSeen();

// The widget behind a handle; null for null, and for a handle whose window is gone.
QWidget* WidgetOf(HWND window);
