// The angle edit: reading and writing angles, and its work as the editor of a grid's cell.
#include "controls/OrvoDegreeEdit.h"

#include <algorithm>

#include "controls/PairLimits.h"
#include "frame/Resources.h"
#include "platform/window/QcUiGrid.h"
#include "platform/window/QcUiGridCell.h"

namespace {

constexpr UINT kEditorId = 101;
constexpr DWORD kEditorStyle =
    WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | ES_MULTILINE | ES_AUTOHSCROLL;
static_assert(kEditorStyle == 0x56000084);
constexpr LONG kLeftGap = 2;  // between the cell's edge and the editor, in pixels

}  // namespace

BEGIN_MESSAGE_MAP(OrvoDegreeEdit, QcSunEdit)
    ON_WM_KILLFOCUS()
    ON_WM_SETFOCUS()
END_MESSAGE_MAP()

OrvoDegreeEdit::OrvoDegreeEdit(QcUiGridCell* cell) : QcUiGridCellCtrl(cell) {
    m_strGrammar = TranslateText(L"___度__分__秒");
    m_strDefault = TranslateText(L"   度  分00秒");
    m_strValidChars = L"0123456789";
}

OrvoDegreeEdit::~OrvoDegreeEdit() = default;

void OrvoDegreeEdit::PostNcDestroy() {}

QcUiGrid* OrvoDegreeEdit::GetGrid() const {
    return GetCell() ? GetCell()->GetGrid() : nullptr;
}

CWnd* OrvoDegreeEdit::GetWnd() {
    return this;
}

bool OrvoDegreeEdit::Create(const RECT& cellRect) {
    QcUiGrid* grid = GetGrid();
    if (!grid)
        return false;
    RECT rect = cellRect;
    rect.left = std::min(rect.left + kLeftGap, rect.right);
    const DWORD centred = (GetCell()->GetStyle() & QCGRID_CELL_CENTER) != 0 ? ES_CENTER : 0;
    if (!QcSunEdit::Create(kEditorStyle | centred, rect, grid, kEditorId))
        return false;
    SetFont(grid->GetFont());
    ShowWindow(SW_SHOW);
    ShowCellText(grid->GetEditOffset());
    return true;
}

// The grid tells how far its texts stand below the upper edges of their cells.
void OrvoDegreeEdit::ShowCellText(int topOffset) {
    RECT format{};
    GetClientRect(&format);
    format.top += topOffset;
    SetRect(&format);
    SetWindowText(GetCell()->GetText());
    SetSel(0, -1, TRUE);
    ScrollCaret();
    SetFocus();
}

bool OrvoDegreeEdit::IsModified() {
    return GetModify() == TRUE;
}

void OrvoDegreeEdit::GetText(CString& text) {
    GetWindowText(text);
}

bool OrvoDegreeEdit::IsCaretAtBegin() {
    return GetActivePos() == 0;
}

bool OrvoDegreeEdit::IsCaretAtEnd() {
    return GetActivePos() == LineLength();
}

bool OrvoDegreeEdit::WantsArrowKeys() {
    return true;
}

bool OrvoDegreeEdit::CanEndEdit() {
    return true;
}

void OrvoDegreeEdit::SetModified(bool modified) {
    SetModify(modified ? TRUE : FALSE);
}

void OrvoDegreeEdit::SetText(const wchar_t* text) {
    SetWindowText(text);
}

void OrvoDegreeEdit::OnSetFocus(CWnd* oldWindow) {
    QcSunEdit::OnSetFocus(oldWindow);
    if (QcUiGrid* grid = GetGrid())
        grid->ShowActive(true);
}

void OrvoDegreeEdit::OnKillFocus(CWnd* newWindow) {
    if (IsMyFocus(newWindow))
        return;
    QcSunEdit::OnKillFocus(newWindow);
    QcUiGrid* grid = GetGrid();
    if (!grid)
        return;
    if (!grid->OwnsWindow(newWindow))
        grid->ShowActive(false);
    // The grid may delete this editor now: nothing may follow.
    grid->EndEditCell();
}

bool OrvoDegreeEdit::IsValidChar(UINT character) {
    if (!PassesBaseTest(character))
        return false;
    if (!m_bNoFault)
        return true;
    const PendingChar pending = MoveForChar(character);
    switch (pending.pos) {
        case 0:
        case 1:
        case 2:
            return IsValidDegreeDigit(pending.NumberAt(0, 3), GetNumberAt(3, 2));
        case 4:
        case 5:
            return IsValidMinuteDigit(GetNumberAt(0, 3), pending.NumberAt(4, 2));
        case 7:
        case 8:
            return IsValidSecondDigit(GetNumberAt(4, 2), pending.NumberAt(7, 2));
        default:
            return true;
    }
}

bool OrvoDegreeEdit::IsValidDegreeDigit(int degree, int minute) const {
    return PairLimits{m_nMinDegree, m_nMinMinute, m_nMaxDegree, m_nMaxMinute}.TakesGreater(degree, minute);
}

bool OrvoDegreeEdit::IsValidMinuteDigit(int degree, int minute) const {
    return PairLimits{m_nMinDegree, m_nMinMinute, m_nMaxDegree, m_nMaxMinute}.TakesSmaller(degree, minute);
}

bool OrvoDegreeEdit::IsValidSecondDigit(int minute, int second) const {
    return PairLimits{m_nMinMinute, m_nMinSecond, m_nMaxMinute, m_nMaxSecond}.TakesSmaller(minute, second);
}
