// One cell of a grid: its text and how it is shown.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/FrameworkTypes.h"

class GridKeeper;
class QcUiGrid;
class QcUiGridRow;

// Bits of a cell's style.
inline constexpr DWORD QCGRID_CELL_CENTER = 0x20;  // the text stands in the middle

class ORVO_API QcUiGridCell {
public:
    // The cells of a grid are made and owned by their row. Without a keeper a cell is in no grid.
    QcUiGridCell(QcUiGridRow* row, int column, GridKeeper* keeper = nullptr)
        : m_pRow(row), m_nColumn(column), m_pKeeper(keeper) {}

    const CString& GetText() const { return m_strText; }
    // Shown at once when the row is in a grid.
    void SetText(const wchar_t* text);
    DWORD GetStyle() const { return m_nStyle; }
    void SetStyle(DWORD style);
    QcUiGridRow* GetRow() const { return m_pRow; }
    int GetColumn() const { return m_nColumn; }
    // The grid that the row is in; null while it is in none.
    QcUiGrid* GetGrid() const;

private:
    CString m_strText;
    DWORD m_nStyle = 0;
    QcUiGridRow* m_pRow;
    int m_nColumn;
    GridKeeper* m_pKeeper;
};
