// A cell's text and style; a change of either is shown by its row.
#include "platform/window/QcUiGridCell.h"

#include "platform/window/QcUiGridRow.h"

void QcUiGridCell::SetText(const wchar_t* text) {
    m_strText = text;
    if (m_pRow != nullptr)
        m_pRow->ShowChange(m_nColumn);
}

void QcUiGridCell::SetStyle(DWORD style) {
    m_nStyle = style;
    if (m_pRow != nullptr)
        m_pRow->ShowChange(m_nColumn);
}

QcUiGrid* QcUiGridCell::GetGrid() const {
    return m_pRow ? m_pRow->GetGrid() : nullptr;
}
