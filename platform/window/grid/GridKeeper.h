// Who keeps the rows of a grid, as far as rows and cells have to know. For the sources of this room only.
#pragma once

class QcUiGrid;
class QcUiGridRow;
class QcUiGridTreeRow;

class GridKeeper {
public:
    virtual QcUiGrid& Grid() const = 0;
    virtual int ColumnCount() const = 0;
    // Puts a new row before the given child of a row, or, for null, at the top level (clamped to the ends).
    virtual QcUiGridTreeRow* Insert(QcUiGridTreeRow* parent, int at) = 0;
    // To be called after a cell has changed, and after a row has been opened or closed.
    virtual void TellCellChanged(QcUiGridRow& row, int column) const = 0;
    virtual void TellExpanded(const QcUiGridTreeRow& row) const = 0;

protected:
    ~GridKeeper() = default;
};
