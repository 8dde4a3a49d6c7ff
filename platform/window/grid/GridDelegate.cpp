// Draws the cells of a grid: parent rows stand out, and the active cell has a frame.
#include <QFontMetricsF>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QtMath>

#include "platform/window/grid/GridModel.h"

namespace {

constexpr int kRoomAroundText = 10;  // in a row's height, so that an editor and the frame around it fit
constexpr int kFrameWidth = 2;

class GridDelegate : public QStyledItemDelegate {
public:
    GridDelegate(QTreeView* view, const GridState& state) : QStyledItemDelegate(view), m_view(*view), m_state(state) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        // Rounded up, as the line of text is: rounded otherwise it would stand a pixel higher than in an editor.
        const int line = qCeil(QFontMetricsF(option.font).height());
        return {QStyledItemDelegate::sizeHint(option, index).width(), line + kRoomAroundText};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem cell = option;
        cell.state &= ~QStyle::State_HasFocus;  // the frame says it
        const bool active = m_state.isActiveShown && index == m_view.currentIndex();
        if (active) {
            // The one cell that typing changes stands out of a selected row.
            cell.state &= ~QStyle::State_Selected;
            painter->fillRect(option.rect, option.palette.base());
        }
        QStyledItemDelegate::paint(painter, cell, index);
        if (!active)
            return;
        painter->save();
        painter->setPen(QPen(option.palette.highlight(), kFrameWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter->drawRect(option.rect.adjusted(1, 1, -kFrameWidth, -kFrameWidth));
        painter->restore();
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const QcUiGridTreeRow* row = GridModel::RowOf(index);
        option->font.setBold(row != nullptr && row->IsParentRow() && !m_state.Has(QCGRID_SINGLE_LEVEL));
    }

private:
    const QTreeView& m_view;
    const GridState& m_state;
};

}  // namespace

QAbstractItemDelegate* MakeGridDelegate(QTreeView* view, const GridState& state) {
    return new GridDelegate(view, state);  // a child of the view
}
