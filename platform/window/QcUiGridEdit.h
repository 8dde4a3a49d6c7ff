// The plain editor of a grid's cells: an edit of one line.
#pragma once

#include "platform/window/CEdit.h"
#include "platform/window/QcUiGridCellCtrl.h"

// Left and right move within the text. Losing the focus ends the edit.
class ORVO_API QcUiGridEdit : public CEdit, public QcUiGridCellCtrl {
public:
    // For a cell, which has to outlive it; its window is made later.
    explicit QcUiGridEdit(QcUiGridCell* cell);

    using CEdit::Create;
    CWnd* GetWnd() override;
    // False for a cell that is in no grid with a window.
    bool Create(const RECT& cellRect) override;
    bool IsModified() override;
    void GetText(CString& text) override;
    bool IsCaretAtBegin() override;
    bool IsCaretAtEnd() override;
    bool WantsArrowKeys() override;
    bool CanEndEdit() override;
    void SetModified(bool modified) override;
    void SetText(const wchar_t* text) override;

protected:
    afx_msg void OnSetFocus(CWnd* oldWindow);
    afx_msg void OnKillFocus(CWnd* newWindow);

    DECLARE_MESSAGE_MAP()
};
