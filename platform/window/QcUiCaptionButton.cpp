// Shows the question mark in a dialog's frame, or takes it away.
#include "platform/window/QcUiCaptionButton.h"

#include "platform/window/CWnd.h"
#include "platform/window/toolkit/WindowKinds.h"

QcUiCaptionButton::~QcUiCaptionButton() = default;

void QcUiCaptionButton::InitCaptionButton(CWnd* dialog) {
    if (const WindowLink* link = dialog ? WindowLink::Of(dialog->m_hWnd) : nullptr)
        SetContextHelp(link->m_widget, m_hasCaptionButton);
}
