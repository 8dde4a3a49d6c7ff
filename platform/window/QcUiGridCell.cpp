// A cell's text and style; who keeps its row is told of a change of either.
#include "platform/window/QcUiGridCell.h"

#include "platform/window/grid/GridKeeper.h"

void QcUiGridCell::SetText(const wchar_t* text) {
    m_text = text;
    if (m_keeper != nullptr)
        m_keeper->TellCellChanged(*m_row, m_column);
}

void QcUiGridCell::SetStyle(DWORD style) {
    m_style = style;
    if (m_keeper != nullptr)
        m_keeper->TellCellChanged(*m_row, m_column);
}

QcUiGrid* QcUiGridCell::GetGrid() const {
    return m_keeper ? &m_keeper->Grid() : nullptr;
}
