// The one thing that handlers' shapes need of windows.
#include "platform/window/MessageMap.h"

#include "platform/window/CWnd.h"

CWnd* MessageCall::WindowOf(std::uintptr_t handle) {
    return CWnd::FromHandle(reinterpret_cast<HWND>(handle));
}
