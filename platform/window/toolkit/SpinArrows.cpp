// Tells the arrows of a spin button from other widgets.
#include "platform/window/toolkit/SpinArrows.h"

#include <QWidget>

#include "platform/window/toolkit/WindowLink.h"

SpinArrows* SpinArrows::Of(HWND window) {
    const WindowLink* link = WindowLink::Of(window);
    return link ? dynamic_cast<SpinArrows*>(link->m_widget) : nullptr;
}
