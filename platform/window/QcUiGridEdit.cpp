// An edit in a cell of a grid.
#include "platform/window/QcUiGridEdit.h"

#include "platform/window/QcUiGrid.h"

namespace {

constexpr UINT kEditorId = 100;
constexpr DWORD kEditorStyle = WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL;

}  // namespace

BEGIN_MESSAGE_MAP(QcUiGridEdit, CEdit)
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

QcUiGridEdit::QcUiGridEdit(QcUiGridCell* cell) : QcUiGridCellCtrl(cell) {}

CWnd* QcUiGridEdit::GetWnd() {
    return this;
}

bool QcUiGridEdit::Create(const RECT& cellRect) {
    QcUiGrid* grid = GetCell() ? GetCell()->GetGrid() : nullptr;
    const DWORD centred = GetCell() && (GetCell()->GetStyle() & QCGRID_CELL_CENTER) != 0 ? ES_CENTER : 0;
    if (grid == nullptr || !CEdit::Create(kEditorStyle | centred, cellRect, grid, kEditorId))
        return false;
    SetFont(grid->GetFont());
    SetWindowText(GetCell()->GetText());
    SetSel(0, -1);
    SetFocus();
    return true;
}

bool QcUiGridEdit::IsModified() {
    return GetModify() != FALSE;
}

void QcUiGridEdit::GetText(CString& text) {
    GetWindowText(text);
}

bool QcUiGridEdit::IsCaretAtBegin() {
    int start = 0;
    int end = 0;
    GetSel(start, end);
    return end == 0;
}

bool QcUiGridEdit::IsCaretAtEnd() {
    int start = 0;
    int end = 0;
    GetSel(start, end);
    return start == LineLength();
}

bool QcUiGridEdit::WantsArrowKeys() {
    return true;
}

bool QcUiGridEdit::CanEndEdit() {
    return true;
}

void QcUiGridEdit::SetModified(bool modified) {
    SetModify(modified ? TRUE : FALSE);
}

void QcUiGridEdit::SetText(const wchar_t* text) {
    SetWindowText(text);
}

void QcUiGridEdit::OnSetFocus(CWnd* oldWindow) {
    CEdit::OnSetFocus(oldWindow);
    if (QcUiGrid* grid = GetCell()->GetGrid())
        grid->ShowActive(true);
}

void QcUiGridEdit::OnKillFocus(CWnd* newWindow) {
    if (IsMyFocus(newWindow))
        return;
    QcUiGrid* grid = GetCell()->GetGrid();
    CEdit::OnKillFocus(newWindow);
    // Without the focus's window the grid may not even be there.
    if (grid == nullptr || grid->GetEditCtrl() != this)
        return;
    if (!grid->OwnsWindow(newWindow))
        grid->ShowActive(false);
    grid->EndEditCell();
}
