// How the cells of the table of windows are painted.
#pragma once

#include <QStyledItemDelegate>

// A row that is chosen keeps what its colours say: the verdict of a window that fails stays red, and the sample of the
// colour in the view stays that colour. The other cells show that the row is chosen.
class WindowCells : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
