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

// Belongs to its row, and is valid as long as that is.
class ORVO_API QcUiGridCell {
public:
    // The cells of a grid are made and owned by their row. Without a keeper a cell is in no grid.
    QcUiGridCell(QcUiGridRow* row, int column, GridKeeper* keeper = nullptr)
        : m_row(row), m_column(column), m_keeper(keeper) {}

    // What SetText put there last; empty at first.
    const CString& GetText() const { return m_text; }
    // Shown at once when the row is in a grid.
    void SetText(const wchar_t* text);
    // Bits of QCGRID_CELL_...; 0 at first.
    DWORD GetStyle() const { return m_style; }
    void SetStyle(DWORD style);
    // The row that it was made for, and its column in it, from 0.
    QcUiGridRow* GetRow() const { return m_row; }
    int GetColumn() const { return m_column; }
    // The grid that the row is in; null while it is in none.
    QcUiGrid* GetGrid() const;

private:
    CString m_text;
    DWORD m_style = 0;
    QcUiGridRow* m_row;
    int m_column;
    GridKeeper* m_keeper;
};
