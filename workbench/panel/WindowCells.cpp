// Takes from the toolkit's choice what would hide a colour that means something.
#include "workbench/panel/WindowCells.h"

#include <QIcon>

void WindowCells::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(Qt::BackgroundRole).isValid())
        option->state &= ~QStyle::State_Selected;
    const QVariant sample = index.data(Qt::DecorationRole);
    if (!sample.canConvert<QColor>())
        return;
    QPixmap square(option->decorationSize);
    square.fill(sample.value<QColor>());
    option->icon = QIcon(square);
    // Else the style tints it.
    option->icon.addPixmap(square, QIcon::Selected);
}
