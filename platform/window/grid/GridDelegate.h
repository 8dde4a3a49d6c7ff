// How the cells of a grid look. For the sources of this room only.
#pragma once

class QAbstractItemDelegate;
class QTreeView;
struct GridState;

// Belongs to the view. The state must outlive what the view shows of it.
QAbstractItemDelegate* MakeGridDelegate(QTreeView* view, const GridState& state);
