// A modal dialog, made from a template in the resources of the module that is current when it is run.
#pragma once

#include "platform/window/CWnd.h"

// DoModal makes the controls, calls OnInitDialog, shows the dialog and waits until EndDialog. The first control that
// takes the keyboard has the focus, unless OnInitDialog gave it to another and returned FALSE. Enter presses the
// default button, Escape and the frame's close button give the command IDCANCEL. When it is over the window is
// destroyed; the object stays and can run again.
//
// Where nobody could answer (no display and no ModalDriver), where there is no such template, and in another thread
// than the application's, DoModal reports a message (platform/base/Message.h) and gives -1.
class ORVO_API CDialog : public CWnd {
public:
    // The template is looked up by its number when the dialog is run, over a parent (null: the window that is active
    // then).
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    ~CDialog() override;

    // Gives what EndDialog was told, -1 when the dialog could not be shown or is running already.
    virtual INT_PTR DoModal();
    // Ends DoModal with this result, at the latest when the running handler has returned.
    void EndDialog(int result);
    // The number of the template.
    UINT GetTemplateId() const { return m_templateId; }
    // How many dialogs the process could not show, because there is no display.
    static int GetUnseenCount();

    // Shows the members (UpdateData(FALSE)) and gives TRUE.
    virtual BOOL OnInitDialog();

protected:
    // Reads the controls and, unless an entry is refused, ends with IDOK.
    virtual void OnOK();
    // Ends with IDCANCEL.
    virtual void OnCancel();
    afx_msg void OnClose();
    // What the window is called over when it runs; null: the program's active window.
    CWnd* m_pParentWnd;

    DECLARE_MESSAGE_MAP()

private:
    LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    CString UnseenText() const;
    bool CreateFromTemplate();
    INT_PTR RunModal();

    UINT m_templateId;
    int m_result = 0;
    bool m_hasEnded = false;
};
