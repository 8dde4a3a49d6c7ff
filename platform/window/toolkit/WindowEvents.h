// Makes widgets windows, whose events come as messages. For the sources of this room only.
#pragma once

#include "platform/window/toolkit/WindowLink.h"

// Gives the widget its object name (IDC_<id>); from now on its keys, its focus and so on come as messages. The link is
// destroyed with the widget.
WindowLink& MakeWindow(QWidget* widget, UINT id, DWORD style, WindowLink::Procedure procedure);
