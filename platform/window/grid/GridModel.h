// The rows of a grid as the toolkit's views read and draw them. For the sources of this room only.
#pragma once

#include <memory>

#include "platform/window/grid/GridRows.h"
#include "platform/window/grid/GridState.h"

class QAbstractItemDelegate;
class QAbstractItemModel;
class QModelIndex;
class QTreeView;

class GridModel {
public:
    static std::unique_ptr<GridModel> Make(GridRows& rows, const GridState& state);
    virtual ~GridModel() = default;

    virtual QAbstractItemModel& Items() = 0;
    // Invalid for null.
    virtual QModelIndex IndexOf(const QcUiGridTreeRow* row, int column) const = 0;
    // Null for an index that is invalid.
    static QcUiGridTreeRow* RowOf(const QModelIndex& index);

    // What the views have to hear of, as GridObserver says.
    virtual void BeforeInsert(const QcUiGridTreeRow* parent, int at) = 0;
    virtual void AfterInsert() = 0;
    virtual void BeforeRemove(const QcUiGridTreeRow* parent, int at) = 0;
    virtual void AfterRemove() = 0;
    virtual void BeforeClear() = 0;
    virtual void AfterClear() = 0;
    virtual void CellChanged(const QcUiGridTreeRow& row, int column) = 0;
    virtual void BeforeColumn(int column) = 0;
    virtual void AfterColumn() = 0;
};

// How the cells look. Belongs to the view. The state must outlive what the view shows of it.
QAbstractItemDelegate* MakeGridDelegate(QTreeView* view, const GridState& state);
