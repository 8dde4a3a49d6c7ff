// The maker's dialog: a dialog with tips on its controls and a caption button that explains them.
#pragma once

#include "platform/host/ExtensionModule.h"
#include "platform/window/CDialog.h"
#include "platform/window/QcUiCaptionButton.h"

// Shown as any dialog is.
class ORVO_API QcUiDialog : public CDialog, public QcUiCaptionButton {
public:
    // The template is looked up in the resources of `resources`; null: of the module that is current when it is run.
    explicit QcUiDialog(UINT templateId, CWnd* parent = nullptr, HINSTANCE resources = nullptr);
    ~QcUiDialog() override;

    // As CDialog's, with its own resources, if there are any, current meanwhile.
    INT_PTR DoModal() override;
    BOOL OnInitDialog() override;

    // Shows a text when the mouse rests on a control, and on F1. An empty text takes the tip away. False for an unknown
    // number.
    BOOL AddTip(int id, const wchar_t* text);

protected:
    DECLARE_MESSAGE_MAP()

private:
    HINSTANCE m_resources;
};
