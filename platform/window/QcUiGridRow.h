// One row of a grid: a text for each column.
#pragma once

#include <memory>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/window/QcUiGridCell.h"

class GridKeeper;
class QcUiGrid;
class QcUiGridTreeRow;

// Rows are made and owned by their grid; a pointer to one, and to its cells, is valid until the row is deleted. Columns
// count from 0; one that the grid does not have has no cell, an empty text, and takes none.
class ORVO_API QcUiGridRow {
public:
    virtual ~QcUiGridRow();
    QcUiGridRow(const QcUiGridRow&) = delete;
    QcUiGridRow& operator=(const QcUiGridRow&) = delete;

    // Null for a column that the grid does not have.
    QcUiGridCell* GetCell(int column);
    // A copy of the cell's text.
    CString GetItemText(int column) const;
    // Shown at once.
    void SetItemText(int column, const wchar_t* text);
    // The grid that it is a row of.
    QcUiGrid* GetGrid() const;
    // The row as a row of the tree, which every row of a grid is.
    virtual QcUiGridTreeRow* GetTreeRow() = 0;

protected:
    // A row of the grid that the keeper speaks for, and that keeper.
    explicit QcUiGridRow(GridKeeper* keeper) : m_keeper(keeper) {}
    GridKeeper& Keeper() const { return *m_keeper; }

private:
    friend class GridRows;  // asks whether it keeps a row

    GridKeeper* m_keeper;
    std::vector<std::unique_ptr<QcUiGridCell>> m_cells;  // made when they are asked for
};
