// A cell's text and style; who keeps its row is told of a change of either.
#include "platform/window/QcUiGridCell.h"

#include "platform/window/grid/GridKeeper.h"

void QcUiGridCell::SetText(const wchar_t* text) {
    m_strText = text;
    if (m_pKeeper != nullptr)
        m_pKeeper->TellCellChanged(*m_pRow, m_nColumn);
}

void QcUiGridCell::SetStyle(DWORD style) {
    m_nStyle = style;
    if (m_pKeeper != nullptr)
        m_pKeeper->TellCellChanged(*m_pRow, m_nColumn);
}

QcUiGrid* QcUiGridCell::GetGrid() const {
    return m_pKeeper ? &m_pKeeper->Grid() : nullptr;
}
