// The rows and columns of a grid, without their looks. For the sources of this room only.
#pragma once

#include <memory>
#include <vector>

#include "platform/window/QcUiGridTreeRow.h"
#include "platform/window/grid/GridKeeper.h"

// Who shows the rows hears of every change, before and after. `parent` is null at the top level.
class GridObserver {
public:
    virtual void BeforeChange() = 0;  // before rows come or go, before the tree is looked at
    virtual void BeforeInsert(const QcUiGridTreeRow* parent, int at) = 0;
    virtual void AfterInsert(const QcUiGridTreeRow& row) = 0;
    virtual void BeforeRemove(const QcUiGridTreeRow* parent, int at) = 0;
    virtual void AfterRemove() = 0;
    virtual void BeforeClear() = 0;
    virtual void AfterClear() = 0;
    virtual void CellChanged(const QcUiGridTreeRow& row, int column) = 0;
    virtual void Expanded(const QcUiGridTreeRow& row) = 0;
    virtual void BeforeColumn(int column) = 0;
    virtual void AfterColumn() = 0;

protected:
    ~GridObserver() = default;
};

struct GridColumn {
    CString title;
    int width;  // in pixels of a 96 dpi screen
};

class GridRows final : public GridKeeper {
public:
    explicit GridRows(QcUiGrid& grid);
    ~GridRows();
    GridRows(const GridRows&) = delete;
    GridRows& operator=(const GridRows&) = delete;

    QcUiGrid& Grid() const override { return m_grid; }
    void SetObserver(GridObserver* observer) { m_observer = observer; }

    int ColumnCount() const override { return static_cast<int>(m_columns.size()); }
    // Null when out of range.
    const GridColumn* Column(int column) const;
    int AddColumn(const GridColumn& column);
    // Only where nobody watches.
    void RemoveColumns() { m_columns.clear(); }

    // The children of a row, or, for null, the rows of the top level.
    int ChildCount(const QcUiGridTreeRow* parent) const;
    QcUiGridTreeRow* Child(const QcUiGridTreeRow* parent, int index) const;
    QcUiGridTreeRow* Insert(QcUiGridTreeRow* parent, int at) override;
    void Remove(QcUiGridTreeRow& row);
    void Clear();
    // All rows, a parent before its children.
    const std::vector<QcUiGridTreeRow*>& InOrder() const;
    bool Holds(const QcUiGridRow* row) const { return row != nullptr && &row->Keeper() == this; }

    void TellCellChanged(QcUiGridRow& row, int column) const override;
    void TellExpanded(const QcUiGridTreeRow& row) const override;

private:
    QcUiGridTreeRow& Under(QcUiGridTreeRow* parent) const { return parent ? *parent : *m_root; }
    static void Renumber(QcUiGridTreeRow& parent, int from);

    QcUiGrid& m_grid;
    std::unique_ptr<QcUiGridTreeRow> m_root;  // is no row itself
    std::vector<GridColumn> m_columns;
    GridObserver* m_observer = nullptr;
    mutable std::vector<QcUiGridTreeRow*> m_order;  // made anew when it is asked for after a change
    mutable bool m_isOrdered = true;
};
