// A page of a property sheet: a dialog that tells the sheet around it when something on it has changed.
#pragma once

#include "platform/window/CDialog.h"

// Shown like any other dialog, or by a sheet of the host's.
class ORVO_API CPropertyPage : public CDialog {
public:
    // As a dialog's.
    explicit CPropertyPage(UINT templateId, CWnd* parent = nullptr) : CDialog(templateId, parent) {}
    ~CPropertyPage() override;

    // Sends the sheet (the page's parent) PSM_CHANGED or PSM_UNCHANGED.
    void SetModified(BOOL changed = TRUE);
    // What SetModified was told last; false at first.
    BOOL IsModified() const { return m_isModified; }

private:
    BOOL m_isModified = FALSE;
};
