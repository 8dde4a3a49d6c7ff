// The process's one Qt application: made when the first window is needed, and never destroyed.
#pragma once

class QWidget;
#include "platform/base/FrameworkTypes.h"

// Makes the application where there is none yet. Without a display, and unless QT_QPA_PLATFORM says otherwise, windows
// are drawn off-screen, where nobody sees them. Numbers stay written with a point, whatever the user's locale.
void NeedApplication();

// Whether windows are drawn where a person can see them.
bool CanBeSeen();

// The widget behind a handle; null for null, and for a handle whose window is gone.
QWidget* WidgetOf(HWND window);
