// The question mark in the caption of a dialog: explains its controls.
#pragma once

#include "platform/base/Api.h"

class CWnd;

// Mixed into a dialog. Where the desktop's frames have such a button, pressing it and then a control shows the
// control's explanation; F1 does so for the control with the focus everywhere.
class ORVO_API QcUiCaptionButton {
public:
    // With the button.
    QcUiCaptionButton() = default;
    virtual ~QcUiCaptionButton();

    // Whether there is to be one; to be told before the dialog has its window.
    void ShowCaptionButton(bool show) { m_hasCaptionButton = show; }
    bool HasCaptionButton() const { return m_hasCaptionButton; }

protected:
    // To be called once the dialog has its window.
    void InitCaptionButton(CWnd* dialog);

private:
    bool m_hasCaptionButton = true;
};
