// Finds the window for a handle that a message carries: the one thing that the shapes of handlers need of windows.
#include "platform/window/MessageMap.h"

#include "platform/window/CWnd.h"

CWnd* MessageCall::WindowOf(std::uintptr_t handle) {
    return CWnd::FromHandle(reinterpret_cast<HWND>(handle));
}
