// The cells of a row and their texts.
#include "platform/window/QcUiGridRow.h"

#include "platform/window/grid/GridKeeper.h"

QcUiGridRow::~QcUiGridRow() = default;

QcUiGrid* QcUiGridRow::GetGrid() const {
    return &m_keeper->Grid();
}

QcUiGridCell* QcUiGridRow::GetCell(int column) {
    if (column < 0 || column >= m_keeper->ColumnCount())
        return nullptr;
    const auto at = static_cast<std::size_t>(column);
    if (at >= m_cells.size())
        m_cells.resize(static_cast<std::size_t>(m_keeper->ColumnCount()));
    if (!m_cells[at])
        m_cells[at] = std::make_unique<QcUiGridCell>(this, column, m_keeper);
    return m_cells[at].get();
}

CString QcUiGridRow::GetItemText(int column) const {
    const auto at = static_cast<std::size_t>(column);
    return column >= 0 && at < m_cells.size() && m_cells[at] ? m_cells[at]->GetText() : CString();
}

void QcUiGridRow::SetItemText(int column, const wchar_t* text) {
    if (QcUiGridCell* cell = GetCell(column))
        cell->SetText(text);
}
