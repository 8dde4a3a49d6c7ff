// How the cells of a grid look. For the sources of this room only.
#pragma once

class QAbstractItemDelegate;
class QTreeView;
class QcUiGrid;

// Belongs to the view. The grid must outlive what the view shows of it.
QAbstractItemDelegate* MakeGridDelegate(QTreeView* view, const QcUiGrid& grid);
